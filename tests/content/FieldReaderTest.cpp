// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "content/FieldReader.h"

#include "platform/RuntimeError.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

namespace turfdesk {

namespace {

class MemoryFile final : public BinaryFile {
public:
  explicit MemoryFile(std::vector<std::uint8_t> content) : mContent(std::move(content)) {}

  std::size_t Read(std::span<std::uint8_t> buffer) override {
    // Short reads are allowed between pieces, so the reader must not take one for the end.
    const std::size_t count = std::min({buffer.size(), mContent.size() - mPosition, std::size_t{7}});
    std::copy_n(mContent.begin() + static_cast<std::ptrdiff_t>(mPosition), count, buffer.begin());
    mPosition += count;
    return count;
  }
  void Seek(std::uint64_t offset) override { mPosition = offset; }
  std::uint64_t Size() override { return mContent.size(); }
  std::int64_t ModificationTime() override { return 0; }

private:
  std::vector<std::uint8_t> mContent;
  std::size_t mPosition = 0;
};

using Bytes = std::vector<std::uint8_t>;

/// What the body reads, and then the byte behind it, which shows how far it went.
template <typename Body> auto ReadWith(Bytes bytes, int expectedNext, Body body) {
  bytes.push_back(0xEE);
  MemoryFile file(std::move(bytes));
  FieldReader fields(file);
  auto value = body(fields);
  EXPECT_EQ(static_cast<std::uint8_t>(fields.ReadWord() & 0xFF), expectedNext);
  return value;
}

ErrorNumber FailureOf(const Bytes &bytes, const std::function<void(FieldReader &)> &body) {
  MemoryFile file(bytes);
  FieldReader fields(file);
  try {
    body(fields);
  } catch (const RuntimeError &error) {
    return error.Number();
  }
  ADD_FAILURE() << "nothing was thrown";
  return {};
}

constexpr int Next = 0xEE;

} // namespace

TEST(FieldReaderTest, Strings) {
  struct Case {
    Bytes bytes;
    int length;
    const char *text;
  };
  const Case cases[] = {{{0x41, 0x62, 0, 0x63, 0x64, 0}, 6, "Abcd"},
                        {{0, 0, 0, 0}, 4, ""},
                        {{0x41, 0}, 0, "A"},
                        {{0}, -1, ""},
                        {{0xC9, 0x74, 0xE9, 0}, 0, "Été"},
                        {{0x80, 0x99, 0x8D, 0}, 4, "€™\xC2\x8D"}};
  for (Case c : cases) {
    c.bytes.push_back(Next);
    const auto text = ReadWith(c.bytes, Next, [&](FieldReader &fields) { return fields.ReadString(c.length); });
    EXPECT_EQ(text, c.text);
  }
}

TEST(FieldReaderTest, StringLists) {
  const std::pair<Bytes, std::vector<std::string>> cases[] = {
      {{0x61, 0, 0x62, 0, 0}, {"a", "b"}}, {{0, 0}, {}}, {{0, 0x61, 0, 0}, {"a"}}};
  for (auto [bytes, names] : cases) {
    bytes.push_back(Next);
    EXPECT_EQ(ReadWith(bytes, Next, [](FieldReader &fields) { return fields.ReadStringList(); }), names);
  }
}

TEST(FieldReaderTest, Numbers) {
  const auto word = [](FieldReader &fields) { return fields.ReadWord(); };
  const auto dword = [](FieldReader &fields) { return fields.ReadDword(); };
  EXPECT_EQ(ReadWith({0x34, 0x12, Next}, Next, word), 4660);
  EXPECT_EQ(ReadWith({0xFF, 0xFF, Next}, Next, word), -1);
  EXPECT_EQ(ReadWith({0x00, 0x80, Next}, Next, word), -32768);
  EXPECT_EQ(ReadWith({0x0C, 0x01, 0, 0, Next}, Next, dword), 268);
  EXPECT_EQ(ReadWith({0xFF, 0x7F, 0, 0, Next}, Next, dword), 32767);
  EXPECT_LT(ReadWith({0x00, 0x80, 0, 0, Next}, Next, dword), 0);
  EXPECT_EQ(FailureOf({0xFF, 0xFF, 0xFF, 0x7F}, [](FieldReader &fields) { fields.ReadDword(); }),
            ErrorNumber::Overflow);
  EXPECT_EQ(FailureOf({0, 0, 1, 0}, [](FieldReader &fields) { fields.ReadDword(); }), ErrorNumber::Overflow);
}

TEST(FieldReaderTest, GuidsMixTheirByteOrders) {
  const Bytes bytes = {0x33, 0x22, 0x11, 0x00, 0x55, 0x44, 0x77, 0x06, 0x88,
                       0x99, 0xAA, 0xBB, 0xCC, 0xDD, 0xEE, 0xFF, Next};
  EXPECT_EQ(ReadWith(bytes, Next, [](FieldReader &fields) { return fields.ReadGUID(); }),
            "{00112233-4455-0677-8899-AABBCCDDEEFF}");
}

TEST(FieldReaderTest, TheEndOfTheFileIsAnErrorInEveryField) {
  const std::function<void(FieldReader &)> bodies[] = {
      [](FieldReader &fields) { fields.ReadString(4); },    [](FieldReader &fields) { fields.ReadString(0); },
      [](FieldReader &fields) { fields.ReadStringList(); }, [](FieldReader &fields) { fields.SkipBytes(4); },
      [](FieldReader &fields) { fields.ReadDword(); },      [](FieldReader &fields) { fields.ReadGUID(); }};
  for (const auto &body : bodies)
    EXPECT_EQ(FailureOf({0x61, 0x62, 0x63}, body), ErrorNumber::InputPastEnd);
  EXPECT_EQ(FailureOf({}, [](FieldReader &fields) { fields.ReadWord(); }), ErrorNumber::InputPastEnd);
}

} // namespace turfdesk
