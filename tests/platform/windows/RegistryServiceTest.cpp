// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "RegistryTools.h"

#include "platform/RuntimeError.h"
#include "platform/windows/SystemError.h"
#include "platform/windows/WindowsRegistryService.h"

#include <cstdlib>
#include <functional>
#include <limits>
#include <vector>

namespace turfdesk {

namespace {

using namespace std::string_literals;
using test::RestrictedKey;
using test::Utf16;

constexpr RegistryRoot machine = RegistryRoot::LocalMachine;
const std::string denied = SystemWords(5) + "\r\n\r\nHKEY_LOCAL_MACHINE\\";

class RegistryServiceTest : public test::RegistryTest {
protected:
  std::vector<std::string> Subkeys() {
    EXPECT_TRUE(mService.OpenKey(Key, false));
    std::vector<std::string> names(static_cast<std::size_t>(mService.SubkeyCount()));
    for (std::size_t i = 0; i < names.size(); ++i)
      names[i] = mService.SubkeyName(static_cast<std::int32_t>(i));
    return names;
  }

  WindowsRegistryService mService;
};

/// The number and words of what is thrown.
std::pair<ErrorNumber, std::string> ErrorThrownBy(const std::function<void()> &call) {
  try {
    call();
  } catch (const RuntimeError &error) {
    return {error.Number(), error.Description()};
  }
  ADD_FAILURE() << "nothing was thrown";
  return {};
}

TEST_F(RegistryServiceTest, LiesWhere32BitProgramsSeeIt) {
  ASSERT_TRUE(mService.OpenKey(Key, true));
  EXPECT_TRUE(test::ExistsFor64BitPrograms(LR"(Software\Wow6432Node\Turf Desk Tests)"));
  EXPECT_FALSE(test::ExistsFor64BitPrograms(LR"(Software\Turf Desk Tests)"));
  ASSERT_TRUE(mService.DeleteKey(Key));
  EXPECT_FALSE(test::ExistsFor64BitPrograms(LR"(Software\Wow6432Node\Turf Desk Tests)"));
}

TEST_F(RegistryServiceTest, KeepsValuesOfBothTypes) {
  const std::vector<std::string> texts{"", "C:\\Games\\Käse.hlc", "a\r\nb", "\xF0\x9F\x8F\x8C",
                                       std::string(70000, 'x') + "\xE2\x9B\xB3"};
  const std::vector<std::int32_t> numbers{0, -1, std::numeric_limits<std::int32_t>::min(),
                                          std::numeric_limits<std::int32_t>::max()};
  ASSERT_TRUE(mService.OpenKey(Below("Größe\\\xF0\x9F\x8F\x8C"), true));
  for (std::size_t i = 0; i < texts.size(); ++i)
    mService.SetStringValue("Téxt" + std::to_string(i), texts[i]);
  for (std::size_t i = 0; i < numbers.size(); ++i)
    mService.SetLongValue("number" + std::to_string(i), numbers[i]);
  mService.SetStringValue("", "default");
  mService.SetStringValue("changed", "text");
  mService.SetLongValue("CHANGED", 7);
  ASSERT_EQ(mService.LastError(), 0) << mService.LastErrorText();

  WindowsRegistryService reader;
  ASSERT_TRUE(reader.OpenKey(Below("GRÖßE\\\xF0\x9F\x8F\x8C\\"), false));
  for (std::size_t i = 0; i < texts.size(); ++i)
    EXPECT_EQ(reader.GetStringValue("TÉXT" + std::to_string(i)), texts[i]);
  for (std::size_t i = 0; i < numbers.size(); ++i)
    EXPECT_EQ(reader.GetLongValue("number" + std::to_string(i)), numbers[i]);
  EXPECT_EQ(reader.GetStringValue(""), "default");
  EXPECT_EQ(reader.GetLongValue("changed"), 7);
  EXPECT_TRUE(reader.ValueExists("téxt0"));
  EXPECT_FALSE(reader.ValueExists("missing"));
  EXPECT_EQ(reader.LastError(), 0);
  EXPECT_EQ(reader.GetStringValue("missing"), "");
  EXPECT_NE(reader.LastError(), 0);
}

TEST_F(RegistryServiceTest, WritesTextsAsOtherProgramsExpectThem) {
  ASSERT_TRUE(mService.OpenKey(Key, true));
  mService.SetStringValue("Name", "Käse");
  RegistryKey key;
  RawValue value;
  ASSERT_EQ(key.Open(machine, WideKey(), KeyAccess::Read), RegistrySuccess);
  ASSERT_EQ(key.Read(L"Name", value), RegistrySuccess);
  EXPECT_EQ(value.type, RegSz);
  EXPECT_EQ(value.bytes, Utf16(L"Käse\0"s)) << "with its terminating NUL";
}

TEST_F(RegistryServiceTest, ReadsWhatOthersHaveWrittenAmiss) {
  struct Case {
    const char *what;
    std::uint32_t type;
    std::string bytes;
    std::string text;
    bool isText;
    std::int32_t number;
    bool isNumber;
  };
  const std::string systemRoot = std::getenv("SystemRoot");
  const Case cases[] = {
      {"number", 4, "\x05\0\0\0"s, "5", true, 5, true},
      {"short number", 4, "\x05\x01"s, "261", true, 261, true},
      {"empty number", 4, "", "0", true, 0, true},
      {"unterminated", 1, Utf16(L"ab"), "ab", true, 0, false},
      {"half a character", 1, Utf16(L"ab") + "c", "ab", true, 0, false},
      {"whole buffer", 1, Utf16(L"ab\0\0\0rubbish"s), "ab", true, 0, false},
      {"nothing at all", 1, "", "", true, 0, false},
      {"half a pair", 1,
       Utf16(L"a\xD83C"
             L"b"),
       "a\xEF\xBF\xBD"
       "b",
       true, 0, false},
      {"with a variable", 2, Utf16(L"%SystemRoot%\\x\0"s), systemRoot + "\\x", true, 0, false},
      {"with an unknown variable", 2, Utf16(L"%Turf%"), "%Turf%", true, 0, false},
      {"bytes", 3, "ab", "", false, 0, false},
      {"texts", 7, Utf16(L"a\0b\0\0"s), "", false, 0, false},
  };
  for (const Case &amiss : cases) {
    SCOPED_TRACE(amiss.what);
    test::WriteRaw(machine, WideKey(), L"Name", amiss.type, amiss.bytes);
    ASSERT_TRUE(mService.OpenKey(Key, false));
    EXPECT_TRUE(mService.ValueExists("Name"));
    EXPECT_EQ(mService.GetStringValue("Name"), amiss.text);
    EXPECT_EQ(mService.LastError() == 0, amiss.isText);
    if (!amiss.isText) {
      EXPECT_EQ(mService.LastErrorText(), "The settings value is no text");
    }
    EXPECT_EQ(mService.GetLongValue("Name"), amiss.number);
    EXPECT_EQ(mService.LastError() == 0, amiss.isNumber);
    if (!amiss.isNumber) {
      EXPECT_EQ(mService.LastErrorText(), "The settings value is no number");
    }
  }
}

TEST_F(RegistryServiceTest, EnumeratesByNameWhateverOthersDoMeanwhile) {
  for (const char *name : {"mM", "b", "A", "C", "ä", "Mm2", "_", "Maß", "Mast"})
    ASSERT_TRUE(mService.OpenKey(Below(name), true));
  EXPECT_EQ(Subkeys(), (std::vector<std::string>{"_", "A", "b", "C", "Maß", "Mast", "mM", "Mm2", "ä"}));
  WindowsRegistryService other;
  ASSERT_TRUE(other.DeleteKey(Below("A")));
  EXPECT_EQ(mService.SubkeyName(8), "ä") << "an index holds until the subkeys are counted anew";
  EXPECT_EQ(mService.SubkeyCount(), 8);
  for (const std::int32_t index : {-1, 8})
    EXPECT_EQ(ErrorThrownBy([&] { mService.SubkeyName(index); }).first, ErrorNumber::SubscriptOutOfRange);
  ASSERT_TRUE(mService.DeleteKey(Below("b")));
  EXPECT_EQ(mService.SubkeyName(1), "C") << "without counting, and after a deletion of our own";
}

TEST_F(RegistryServiceTest, DeletesKeysWithoutSubkeysOnly) {
  ASSERT_TRUE(mService.OpenKey(Below("A\\B"), true));
  mService.SetStringValue("Name", "x");
  mService.CloseKey();
  EXPECT_FALSE(mService.MayDeleteKey(Below("A")));
  EXPECT_FALSE(mService.DeleteKey(Below("A")));
  EXPECT_EQ(mService.LastErrorText(), "A settings key that has subkeys is not deleted");
  for (const std::string &missing : {Below("A\\C"), Below("A\\\\C"), std::string("\\")}) {
    EXPECT_FALSE(mService.MayDeleteKey(missing)) << missing;
    EXPECT_FALSE(mService.DeleteKey(missing)) << missing;
    EXPECT_NE(mService.LastError(), 0);
  }
  EXPECT_TRUE(mService.MayDeleteKey(Below("a\\b\\")));
  EXPECT_TRUE(mService.KeyExists(Below("A\\B"))) << "asking changes nothing";
  EXPECT_TRUE(mService.DeleteKey(Below("a\\b\\")));
  EXPECT_FALSE(mService.KeyExists(Below("A\\B")));
  EXPECT_TRUE(mService.DeleteKey(Below("A")));
}

TEST_F(RegistryServiceTest, RefusesPathsThatNameNoKey) {
  std::string tooDeep = Key;
  for (int i = 0; i < 600; ++i)
    tooDeep += "\\a";
  const std::string paths[] = {std::string("\\") + Key,      Below("\\B"),   Below("B\\\\"),
                               Below(std::string(256, 'n')), Below("B\0C"s), tooDeep};
  for (const std::string &path : paths) {
    EXPECT_FALSE(mService.OpenKey(path, true)) << path;
    EXPECT_EQ(mService.LastError(), static_cast<long>(ErrorNumber::BadFileName));
    EXPECT_FALSE(mService.KeyExists(path)) << path;
  }
  EXPECT_FALSE(mService.KeyExists(Key));
  EXPECT_TRUE(mService.OpenKey(Below(std::string(255, 'n')), true)) << mService.LastErrorText();
  mService.SetStringValue("a\0b"s, "x");
  EXPECT_NE(mService.LastError(), 0);
  EXPECT_FALSE(mService.ValueExists("a"));
  mService.SetStringValue(std::string(20000, 'v'), "x");
  EXPECT_NE(mService.LastError(), 0);
  EXPECT_FALSE(mService.LastErrorText().empty());
}

TEST_F(RegistryServiceTest, NeedsAnOpenKeyAndAKnownRoot) {
  EXPECT_EQ(ErrorThrownBy([&] { mService.ValueExists(""); }).first, ErrorNumber::ObjectNotSet);
  mService.SetStringValue("Name", "x");
  EXPECT_EQ(mService.LastError(), static_cast<long>(ErrorNumber::ObjectNotSet));
  ASSERT_TRUE(mService.OpenKey(Key, true));
  EXPECT_FALSE(mService.OpenKey(Below("Missing"), false));
  EXPECT_NE(mService.LastError(), 0);
  EXPECT_EQ(ErrorThrownBy([&] { mService.SubkeyCount(); }).first, ErrorNumber::ObjectNotSet) << "the old one is closed";
  mService.SetRootKey("hkey_classes_root");
  EXPECT_FALSE(mService.KeyExists(Key));
  mService.SetRootKey("HKEY_ELSEWHERE");
  EXPECT_NE(mService.LastError(), 0);
  EXPECT_FALSE(mService.OpenKey("Software", true));
  EXPECT_FALSE(mService.KeyExists("Software"));
  EXPECT_FALSE(mService.DeleteKey("Software"));
}

TEST_F(RegistryServiceTest, AKeyDeletedByOthersHasNothingAndTakesNothing) {
  ASSERT_TRUE(mService.OpenKey(Below("A"), true));
  mService.SetStringValue("Name", "x");
  WindowsRegistryService other;
  ASSERT_TRUE(other.DeleteKey(Below("A")));
  EXPECT_FALSE(mService.ValueExists("Name"));
  EXPECT_EQ(mService.SubkeyCount(), 0);
  EXPECT_EQ(mService.GetStringValue("Name"), "");
  mService.SetStringValue("Name", "y");
  EXPECT_NE(mService.LastError(), 0);
}

TEST_F(RegistryServiceTest, WhoMayOnlyReadSeesEverythingAndWritesNothing) {
  ASSERT_TRUE(mService.OpenKey(Below("Kept"), true));
  mService.SetStringValue("Name", "old");
  const RestrictedKey parent(machine, WideKey(), RestrictedKey::Rights::Read);
  const RestrictedKey key(machine, WideKey(L"\\Kept"), RestrictedKey::Rights::Read);
  EXPECT_EQ(Subkeys(), std::vector<std::string>{"Kept"});
  ASSERT_TRUE(mService.OpenKey(Below("Kept"), true));
  EXPECT_EQ(mService.GetStringValue("Name"), "old");
  mService.SetStringValue("Name", "new");
  EXPECT_EQ(mService.LastError(), static_cast<long>(ErrorNumber::PathFileAccess));
  mService.CloseKey();
  EXPECT_EQ(mService.LastErrorText(), denied + Below("Kept"));
  EXPECT_FALSE(mService.OpenKey(Below("New"), true));
  EXPECT_EQ(mService.LastErrorText(), denied + Below("New"));
  EXPECT_FALSE(mService.KeyExists(Below("New")));
  ASSERT_TRUE(mService.OpenKey(Below("Kept"), false));
  EXPECT_EQ(mService.GetStringValue("Name"), "old");
}

TEST_F(RegistryServiceTest, AKeyThatCannotBeMadeIsAnAnswer) {
  test::MakeVolatileKey(WideKey(L"\\Volatile"));
  EXPECT_FALSE(mService.OpenKey(Below("Volatile\\New"), true));
  EXPECT_NE(mService.LastError(), 0);
  EXPECT_TRUE(mService.LastErrorText().starts_with(SystemWords(1021))) << mService.LastErrorText();
  EXPECT_FALSE(mService.KeyExists(Below("Volatile\\New")));
}

TEST_F(RegistryServiceTest, WhatMayNotBeReadIsNotTakenForMissing) {
  ASSERT_TRUE(mService.OpenKey(Below("Kept"), true));
  const RestrictedKey key(machine, WideKey(L"\\Kept"), RestrictedKey::Rights::None);
  const std::pair<ErrorNumber, std::string> error{ErrorNumber::PathFileAccess, denied + Below("Kept")};
  EXPECT_EQ(ErrorThrownBy([&] { mService.OpenKey(Below("Kept"), false); }), error);
  EXPECT_EQ(ErrorThrownBy([&] { mService.KeyExists(Below("Kept")); }), error);
  EXPECT_FALSE(mService.OpenKey(Below("Kept"), true));
  EXPECT_EQ(mService.LastErrorText(), error.second);
  EXPECT_FALSE(mService.MayDeleteKey(Below("Kept")));
  EXPECT_EQ(mService.LastErrorText(), error.second);
}

} // namespace

} // namespace turfdesk
