// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "../PlatformTest.h"

#include "samples/Basics.h"

#include <limits>

#include <functional>

namespace turfdesk::test {

namespace {

class RegistryServiceTest : public PlatformTest {
protected:
  /// Names of the subkeys of the open key.
  Texts Subkeys() {
    Texts names(static_cast<std::size_t>(mService->SubkeyCount()));
    for (std::size_t i = 0; i < names.size(); ++i)
      names[i] = mService->SubkeyName(static_cast<std::int32_t>(i));
    return names;
  }

  std::unique_ptr<RegistryService> mService = mPlatform->CreateRegistryService();
  /// Another program's.
  std::unique_ptr<Platform> mOtherPlatform = MakePlatform(samples::Utf8(mHome.Path()));
  std::unique_ptr<RegistryService> mOther = mOtherPlatform->CreateRegistryService();
};

TEST_F(RegistryServiceTest, FindsNamesInAnyCaseAndKeepsTheCreatedOne) {
  ASSERT_TRUE(mService->OpenKey(Below("Größe\\Ärger \U0001F3CC"), true));
  mService->SetStringValue("Überschrift", "text");
  for (const std::string &path : {Below("GRÖßE\\ÄRGER \U0001F3CC"), Below("größe\\ärger \U0001F3CC\\")}) {
    SCOPED_TRACE(path);
    EXPECT_TRUE(mService->KeyExists(path));
    ASSERT_TRUE(mService->OpenKey(path, true));
    EXPECT_EQ(mService->GetStringValue("ÜBERSCHRIFT"), "text");
  }
  ASSERT_TRUE(mService->OpenKey(Key, false));
  EXPECT_EQ(Subkeys(), Texts{"Größe"});
  ASSERT_TRUE(mService->OpenKey(Below("GRÖßE"), false));
  EXPECT_EQ(Subkeys(), Texts{"Ärger \U0001F3CC"});
}

TEST_F(RegistryServiceTest, KeepsValuesOfBothTypes) {
  const Texts texts{"", "C:\\Games\\Käse.hlc", "a\r\nb", "\U0001F3CC", std::string(70000, 'x') + "\u26F3"};
  const std::vector<std::int32_t> numbers{0, -1, std::numeric_limits<std::int32_t>::min(),
                                          std::numeric_limits<std::int32_t>::max()};
  ASSERT_TRUE(mService->OpenKey(Key, true));
  for (std::size_t i = 0; i < texts.size(); ++i)
    mService->SetStringValue("text" + std::to_string(i), texts[i]);
  for (std::size_t i = 0; i < numbers.size(); ++i)
    mService->SetLongValue("number" + std::to_string(i), numbers[i]);
  mService->SetStringValue("", "default");
  mService->SetStringValue("null", {});
  mService->SetStringValue("changed", "text");
  mService->SetLongValue("CHANGED", 7);
  ASSERT_EQ(mService->LastError(), 0) << mService->LastErrorText();

  for (RegistryService *service : {mService.get(), mOther.get()}) {
    ASSERT_TRUE(service->OpenKey(Key, false));
    for (std::size_t i = 0; i < texts.size(); ++i)
      EXPECT_EQ(service->GetStringValue("TEXT" + std::to_string(i)), texts[i]);
    for (std::size_t i = 0; i < numbers.size(); ++i)
      EXPECT_EQ(service->GetLongValue("number" + std::to_string(i)), numbers[i]);
    EXPECT_EQ(service->GetStringValue(""), "default");
    EXPECT_TRUE(service->ValueExists("null"));
    EXPECT_EQ(service->GetLongValue("changed"), 7);
    EXPECT_EQ(service->GetStringValue("number1"), "-1");
    EXPECT_EQ(service->LastError(), 0);
    EXPECT_EQ(service->GetLongValue("text1"), 0);
    EXPECT_NE(service->LastError(), 0);
    EXPECT_FALSE(service->ValueExists("missing"));
    EXPECT_EQ(service->LastError(), 0);
    EXPECT_EQ(service->GetStringValue("missing"), "");
    EXPECT_EQ(service->LastError(), 53);
  }
}

TEST_F(RegistryServiceTest, EachProgramSeesWhatTheOtherHasDone) {
  ASSERT_TRUE(mService->OpenKey(Below("A"), true));
  ASSERT_TRUE(mOther->OpenKey(Below("a"), false));
  for (int i = 0; i < 10; ++i) {
    RegistryService &writer = i % 3 == 0 ? *mService : *mOther;
    RegistryService &reader = i % 3 == 0 ? *mOther : *mService;
    writer.SetStringValue("Name", std::to_string(i));
    ASSERT_EQ(reader.GetStringValue("Name"), std::to_string(i));
    ASSERT_EQ(writer.GetStringValue("Name"), std::to_string(i));
  }
  ASSERT_TRUE(mOther->DeleteKey(Below("A")));
  EXPECT_FALSE(mService->ValueExists("Name"));
  EXPECT_EQ(mService->SubkeyCount(), 0);
  EXPECT_EQ(mService->GetStringValue("Name"), "");
  mService->SetStringValue("Name", "again");
  EXPECT_EQ(mService->LastError(), 76);
  EXPECT_FALSE(mService->KeyExists(Below("A")));
  ASSERT_TRUE(mOther->OpenKey(Below("A"), true));
  EXPECT_FALSE(mOther->ValueExists("Name")) << "left over from the deleted key";
  ASSERT_TRUE(mOther->OpenKey(Below("B"), true));
  ASSERT_TRUE(mService->OpenKey(Below("A"), true));
  mService->SetLongValue("Number", 2);
  ASSERT_TRUE(mOther->OpenKey(Below("A"), false));
  EXPECT_EQ(mOther->GetLongValue("Number"), 2);
}

TEST_F(RegistryServiceTest, EnumeratesByName) {
  for (const char *name : {"mM", "b", "A", "C", "ä", "Mm2", "_", "MA", "Maß", "Mast"})
    ASSERT_TRUE(mService->OpenKey(Below(name), true));
  ASSERT_TRUE(mService->DeleteKey(Below("ma")));
  ASSERT_TRUE(mService->OpenKey(Key, false));
  const Texts names{"_", "A", "b", "C", "Mast", "Maß", "mM", "Mm2", "ä"};
  EXPECT_EQ(Subkeys(), names);
  for (const std::int32_t index : {-1, 9})
    EXPECT_EQ(NumberThrownBy([&] { mService->SubkeyName(index); }), 9) << index;
  ASSERT_TRUE(mService->DeleteKey(Below("b")));
  EXPECT_EQ(mService->SubkeyName(2), "C") << "without counting";
  // A key may be found sooner beside the last one than elsewhere.
  for (const char *name : {"A", "Mm2", "mM", "ä", "A", "C"})
    EXPECT_TRUE(mService->KeyExists(Below(name))) << name;
  for (const char *name : {"b", "MA", "A\\C"})
    EXPECT_FALSE(mService->KeyExists(Below(name))) << name;
}

TEST_F(RegistryServiceTest, DeletesKeysWithoutSubkeysOnly) {
  ASSERT_TRUE(mService->OpenKey(Below("A\\B"), true));
  mService->CloseKey();
  for (const std::string &refused : {Below("A"), Below("A\\C"), Below("A\\\\C"), std::string("\\"), std::string()}) {
    EXPECT_EQ(mService->Reserve(KeyChange::Delete, refused), nullptr) << refused;
    const std::string words = mService->LastErrorText();
    EXPECT_FALSE(mService->DeleteKey(refused)) << refused;
    EXPECT_NE(mService->LastError(), 0);
    EXPECT_EQ(mService->LastErrorText(), words);
    EXPECT_EQ(words == "A settings key that has subkeys is not deleted", refused == Below("A") || refused.size() < 2)
        << words;
  }
  EXPECT_NE(mService->Reserve(KeyChange::Delete, Below("a\\b\\")), nullptr);
  EXPECT_TRUE(mService->KeyExists(Below("A\\B"))) << "asking changes nothing";
  EXPECT_TRUE(mService->DeleteKey(Below("a\\b\\")));
  EXPECT_FALSE(mService->KeyExists(Below("A\\B")));
  EXPECT_TRUE(mService->DeleteKey(Below("A")));
}

TEST_F(RegistryServiceTest, OnlyWhatAnotherPlatformHasChangedInAWatchedKeyCounts) {
  const auto isNoticed = [this](const std::function<void()> &change) {
    mService->WatchKey(Below("Watched"));
    change();
    return mService->WatchedKeyChanged();
  };
  const auto set = [](RegistryService &service, const char *key, const char *text) {
    ASSERT_TRUE(service.OpenKey(Below(key), true));
    service.SetStringValue("Name", text);
    service.CloseKey();
  };
  EXPECT_FALSE(isNoticed([&] { set(*mOther, "Elsewhere", "x"); }));
  EXPECT_TRUE(isNoticed([&] { set(*mOther, "Watched\\A", "1"); })) << "it was not there before";
  EXPECT_FALSE(isNoticed([&] { set(*mService, "Watched\\B", "own"); }));
  EXPECT_FALSE(isNoticed([&] { set(*mOther, "Watched\\A", "1"); })) << "it has that value";
  EXPECT_TRUE(isNoticed([&] { set(*mOther, "watched\\a", "2"); }));
  EXPECT_TRUE(isNoticed([&] { mOther->DeleteKey(Below("Watched\\B")); }));
  EXPECT_TRUE(isNoticed([&] {
    set(*mOther, "Watched\\A", "3");
    set(*mService, "Watched\\A", "4");
    EXPECT_TRUE(mService->DeleteKey(Below("Watched\\A")));
  })) << "before we wrote over it";
  EXPECT_FALSE(isNoticed([&] {
    const auto reservation = mService->Reserve(KeyChange::Create, Below("Watched\\C"));
    ASSERT_NE(reservation, nullptr);
    for (const char *text : {"5", "6"})
      set(*mService, "Watched\\C", text);
  }));
  ASSERT_TRUE(mOther->OpenKey(Below("Watched\\C"), false));
  EXPECT_EQ(mOther->GetStringValue("Name"), "6");
}

TEST_F(RegistryServiceTest, RefusesPathsThatNameNoKey) {
  std::string tooDeep = Key;
  for (int i = 0; i < 600; ++i)
    tooDeep += "\\a";
  for (const std::string &path : {std::string("\\") + Key, Below("\\B"), Below("B\\\\"), tooDeep}) {
    EXPECT_FALSE(mService->OpenKey(path, true)) << path;
    EXPECT_EQ(mService->LastError(), 52) << path;
    EXPECT_FALSE(mService->KeyExists(path)) << path;
  }
  EXPECT_FALSE(mService->KeyExists(Key));
}

TEST_F(RegistryServiceTest, NeedsAnOpenKeyAndAKnownRoot) {
  EXPECT_EQ(NumberThrownBy([&] { mService->ValueExists(""); }), 91);
  mService->SetStringValue("Name", "x");
  EXPECT_EQ(mService->LastError(), 91);
  ASSERT_TRUE(mService->OpenKey(Key, true));
  EXPECT_FALSE(mService->OpenKey(Below("Missing"), false));
  EXPECT_EQ(mService->LastError(), 76);
  EXPECT_EQ(NumberThrownBy([&] { mService->SubkeyCount(); }), 91) << "the old one is closed";
  ASSERT_TRUE(mService->OpenKey(Key, false));
  mService->SetRootKey("hkey_classes_root");
  EXPECT_FALSE(mService->KeyExists(Key));
  mService->SetStringValue("Name", "of the key that is open");
  mService->SetRootKey("HKEY_ELSEWHERE");
  EXPECT_NE(mService->LastError(), 0);
  EXPECT_FALSE(mService->OpenKey("Software", true));
  EXPECT_FALSE(mService->KeyExists("Software"));
  EXPECT_FALSE(mService->DeleteKey("Software"));
  ASSERT_TRUE(mOther->OpenKey(Key, false));
  EXPECT_EQ(mOther->GetStringValue("Name"), "of the key that is open");
}

} // namespace

} // namespace turfdesk::test
