// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "../PlatformTest.h"
#include "RegistryTools.h"

#include "platform/windows/RegistryKey.h"
#include "platform/windows/SystemError.h"

#include <cstdlib>

namespace turfdesk::test {

namespace {

using namespace std::string_literals;
using Rights = RestrictedKey::Rights;

constexpr RegistryRoot machine = RegistryRoot::LocalMachine;
const std::string denied = SystemWords(5) + "\r\n\r\nHKEY_LOCAL_MACHINE\\";

class RegistryTest : public PlatformTest {
protected:
  std::unique_ptr<RegistryService> mService = mPlatform->CreateRegistryService();
  RegistryFunctions &mFunctions = mPlatform->DirectRegistry();
  RegistryHandle mHandle = 0;
};

TEST_F(RegistryTest, SettingsLieWhere32BitProgramsAndFileTypesWhereAllSeeThem) {
  ASSERT_TRUE(mService->OpenKey(Key, true));
  EXPECT_TRUE(ExistsFor64BitPrograms(LR"(Software\Wow6432Node\Turf Desk Tests)"));
  EXPECT_FALSE(ExistsFor64BitPrograms(WideKey));
  ASSERT_TRUE(mService->DeleteKey(Key));
  EXPECT_FALSE(ExistsFor64BitPrograms(LR"(Software\Wow6432Node\Turf Desk Tests)"));
  ASSERT_EQ(mFunctions.RegCreateKeyExA(machine, Key, mHandle), RegSuccess);
  EXPECT_TRUE(ExistsFor64BitPrograms(LR"(Software\Wow6432Node\Turf Desk Tests)"));
  ASSERT_EQ(mFunctions.RegCreateKeyExA(RegistryRoot::ClassesRoot, ".hlc", mHandle), RegSuccess);
  EXPECT_TRUE(ExistsFor64BitPrograms(LR"(Software\Classes\.hlc)"));
}

TEST_F(RegistryTest, TextsAreWrittenAsOtherProgramsExpectThem) {
  ASSERT_TRUE(mService->OpenKey(Key, true));
  mService->SetStringValue("Name", "Käse");
  RegistryKey key;
  RawValue value;
  ASSERT_EQ(key.Open(machine, WideKey, KeyAccess::Read), RegistrySuccess);
  ASSERT_EQ(key.Read(L"Name", value), RegistrySuccess);
  EXPECT_EQ(value.type, RegSz);
  EXPECT_EQ(value.bytes, Utf16(L"Käse\0"s)) << "with its terminating NUL";
}

TEST_F(RegistryTest, WhatOthersHaveWrittenAmissIsReadAsFarAsItGoes) {
  const std::string noNumber = "The settings value is no number";
  const struct {
    const char *what;
    std::uint32_t type;
    std::string bytes, text;
    bool isText = true;
    std::int32_t number = 0;
    bool isNumber = false;
  } cases[] = {
      {"number", 4, "\x05\0\0\0"s, "5", true, 5, true},
      {"short number", 4, "\x05\x01"s, "261", true, 261, true},
      {"empty number", 4, "", "0", true, 0, true},
      {"unterminated", 1, Utf16(L"ab"), "ab"},
      {"half a character", 1, Utf16(L"ab") + "c", "ab"},
      {"whole buffer", 1, Utf16(L"ab\0\0\0rubbish"s), "ab"},
      {"nothing at all", 1, "", ""},
      {"half a pair", 1, Utf16({L'a', wchar_t{0xD83C}, L'b'}), "a\uFFFDb"},
      {"with a variable", 2, Utf16(L"%SystemRoot%\\x\0"s), std::getenv("SystemRoot") + "\\x"s},
      {"with an unknown variable", 2, Utf16(L"%Turf%\0"s), "%Turf%"},
      {"bytes", 3, "ab", "", false},
      {"texts", 7, Utf16(L"a\0b\0\0"s), "", false},
  };
  for (const auto &amiss : cases) {
    SCOPED_TRACE(amiss.what);
    WriteRaw(WideKey, L"Name", amiss.type, amiss.bytes);
    ASSERT_TRUE(mService->OpenKey(Key, false));
    EXPECT_TRUE(mService->ValueExists("Name"));
    try {
      EXPECT_EQ(mService->GetStringValue("Name"), amiss.text);
      EXPECT_TRUE(amiss.isText);
    } catch (const RuntimeError &error) {
      EXPECT_EQ(error.Description(),
                "The settings value is no text\r\n\r\nHKEY_LOCAL_MACHINE\\" + std::string(Key) + "\\Name");
      EXPECT_FALSE(amiss.isText);
    }
    EXPECT_EQ(mService->GetLongValue("Name"), amiss.number);
    EXPECT_EQ(mService->LastError() == 0 ? noNumber : mService->LastErrorText(), noNumber);
    EXPECT_EQ(mService->LastError() == 0, amiss.isNumber);
    std::uint32_t type = 0;
    std::string data;
    ASSERT_EQ(mFunctions.RegOpenKeyExA(machine, Key, mHandle), RegSuccess);
    EXPECT_EQ(mFunctions.RegQueryValueExA(mHandle, "Name", type, data), RegSuccess);
    EXPECT_EQ(type, amiss.type);
    EXPECT_EQ(data, type == RegSz ? amiss.text + '\0' : amiss.bytes);
  }
}

TEST_F(RegistryTest, NamesThatTheSystemCannotHaveAreRefused) {
  for (const std::string &path : {Below(std::string(256, 'n')), Below("B\0C"s)}) {
    EXPECT_FALSE(mService->OpenKey(path, true)) << path;
    EXPECT_EQ(mService->LastError(), 52);
    EXPECT_FALSE(mService->KeyExists(path)) << path;
  }
  EXPECT_TRUE(mService->OpenKey(Below(std::string(255, 'n')), true)) << mService->LastErrorText();
  for (const std::string &name : {"a\0b"s, std::string(20000, 'v')}) {
    mService->SetStringValue(name, "x");
    EXPECT_NE(mService->LastError(), 0);
  }
  EXPECT_FALSE(mService->LastErrorText().empty());
  EXPECT_FALSE(mService->ValueExists("a"));
}

TEST_F(RegistryTest, AnIndexHoldsUntilTheSubkeysAreCountedAnew) {
  for (const char *name : {"A", "b", "C"})
    ASSERT_TRUE(mService->OpenKey(Below(name), true));
  ASSERT_TRUE(mService->OpenKey(Key, false));
  EXPECT_EQ(mService->SubkeyCount(), 3);
  ASSERT_TRUE(mPlatform->CreateRegistryService()->DeleteKey(Below("A")));
  EXPECT_EQ(mService->SubkeyName(2), "C");
  EXPECT_EQ(mService->SubkeyCount(), 2);
}

TEST_F(RegistryTest, WhoMayOnlyReadSeesEverythingAndWritesNothing) {
  ASSERT_TRUE(mService->OpenKey(Below("Kept"), true));
  mService->SetStringValue("Name", "old");
  const RestrictedKey parent(machine, WideKey, Rights::Read);
  const RestrictedKey key(machine, WideBelow(L"Kept"), Rights::Read);
  ASSERT_TRUE(mService->OpenKey(Key, false));
  EXPECT_EQ(mService->SubkeyCount(), 1);
  ASSERT_TRUE(mService->OpenKey(Below("Kept"), true));
  mService->SetStringValue("Name", "new");
  EXPECT_EQ(mService->LastError(), 75);
  mService->CloseKey();
  EXPECT_EQ(mService->LastErrorText(), denied + Below("Kept"));
  EXPECT_FALSE(mService->OpenKey(Below("New"), true));
  EXPECT_EQ(mService->LastErrorText(), denied + Below("New"));
  EXPECT_FALSE(mService->KeyExists(Below("New")));
  ASSERT_TRUE(mService->OpenKey(Below("Kept"), false));
  EXPECT_EQ(mService->GetStringValue("Name"), "old");
}

TEST_F(RegistryTest, AKeyThatCannotBeMadeIsAnAnswer) {
  MakeVolatileKey(WideBelow(L"Volatile"));
  EXPECT_FALSE(mService->OpenKey(Below("Volatile\\New"), true));
  EXPECT_NE(mService->LastError(), 0);
  EXPECT_TRUE(mService->LastErrorText().starts_with(SystemWords(1021))) << mService->LastErrorText();
  EXPECT_FALSE(mService->KeyExists(Below("Volatile\\New")));
}

TEST_F(RegistryTest, WhatMayNotBeReadIsNotTakenForMissing) {
  const std::string kept = Below("Kept");
  ASSERT_TRUE(mService->OpenKey(kept, true));
  const RestrictedKey key(machine, WideBelow(L"Kept"), Rights::None);
  for (const bool asks : {false, true})
    try {
      asks ? mService->KeyExists(kept) : mService->OpenKey(kept, false);
      ADD_FAILURE() << "nothing was thrown";
    } catch (const RuntimeError &error) {
      EXPECT_EQ(error.Number(), ErrorNumber::PathFileAccess);
      EXPECT_EQ(error.Description(), denied + kept);
    }
  EXPECT_FALSE(mService->OpenKey(kept, true));
  EXPECT_EQ(mService->LastErrorText(), denied + kept);
  EXPECT_EQ(mService->Reserve(KeyChange::Delete, kept), nullptr);
  EXPECT_EQ(mService->LastErrorText(), denied + kept);
}

} // namespace

} // namespace turfdesk::test
