// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "support/basVorinString.h"

#include <gtest/gtest.h>

namespace turfdesk {

TEST(StringHelpersTest, FormatKB) {
  const std::pair<double, const char *> cases[] = {
      {0, "0 KB"},    {100, "0 KB"},  {511, "0 KB"},         {512, "1 KB"},
      {1023, "1 KB"}, {1536, "2 KB"}, {1048576, "1,024 KB"}, {2147483648.0 * 1024, "2,147,483,648 KB"}};
  for (const auto &[size, text] : cases)
    EXPECT_EQ(FormatKB(size), text) << size;
  EXPECT_EQ(FormatKB("1048576"), "1,024 KB");
  EXPECT_EQ(FormatKB("none"), "0 KB");
}

TEST(StringHelpersTest, FormatKBSeparatesAsTheLocaleDoes) {
  struct Separator final : std::numpunct<wchar_t> {
    explicit Separator(wchar_t separator) : mSeparator(separator) {}
    wchar_t do_thousands_sep() const override { return mSeparator; }
    std::string do_grouping() const override { return "\3"; }
    wchar_t mSeparator;
  };
  const std::pair<wchar_t, const char *> cases[] = {
      {L'.', "1.234.567 KB"}, {L'\u2019', "1\u2019234\u2019567 KB"}, {L'\u202F', "1\u202F234\u202F567 KB"}};
  for (const auto &[separator, text] : cases)
    EXPECT_EQ(FormatKB(1234567 * 1024.0, std::locale(std::locale::classic(), new Separator(separator))), text);
  EXPECT_EQ(FormatKB(1234567 * 1024.0, std::locale::classic()), "1,234,567 KB");
}

TEST(StringHelpersTest, ParseList) {
  const std::tuple<const char *, const char *, StringList> cases[] = {{"", ",", {}},
                                                                      {"   ", ",", {""}},
                                                                      {"a", ",", {"a"}},
                                                                      {"a,,b", ",", {"a", "", "b"}},
                                                                      {"a,", ",", {"a", ""}},
                                                                      {",a", ",", {"", "a"}},
                                                                      {R"("a,b",c)", ",", {"a,b", "c"}},
                                                                      {R"(x"a,b",c)", ",", {R"(x"a,b")", "c"}},
                                                                      {"two  words", " ", {"two", "words"}},
                                                                      {"a, b", ", ", {"a", "b"}},
                                                                      {"a ,b", ", ", {"a", "", "b"}}};
  for (const auto &[source, delimiters, items] : cases)
    EXPECT_EQ(ParseList(source, delimiters), items) << source;
  EXPECT_EQ(ParseList(R"("a,b")", ",", false, false), (StringList{R"("a)", R"(b")"}));
}

TEST(StringHelpersTest, PadHexByte) { EXPECT_EQ(PadHexByte("") + PadHexByte("A") + PadHexByte("1F"), "000A1F"); }

} // namespace turfdesk
