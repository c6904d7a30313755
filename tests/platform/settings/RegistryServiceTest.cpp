// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "SettingsTestTools.h"

#include "platform/RuntimeError.h"
#include "platform/posix/PosixRegistryService.h"

#include <limits>
#include <sys/stat.h>
#include <vector>

namespace turfdesk {

namespace {

constexpr const char *gameKey = R"(Software\KESTRAVON\Marrowfell 2002)";

class RegistryServiceTest : public testing::Test {
protected:
  std::vector<std::string> Subkeys(std::string_view keyPath) {
    EXPECT_TRUE(mService.OpenKey(keyPath, false));
    std::vector<std::string> names(static_cast<std::size_t>(mService.SubkeyCount()));
    for (std::size_t i = 0; i < names.size(); ++i)
      names[i] = mService.SubkeyName(static_cast<std::int32_t>(i));
    return names;
  }

  TemporaryHome mHome;
  PosixRegistryService mService{mHome.Path(), std::chrono::milliseconds(20)};
};

ErrorNumber NumberThrownBy(const std::function<void()> &call) {
  try {
    call();
  } catch (const RuntimeError &error) {
    return error.Number();
  }
  ADD_FAILURE() << "nothing was thrown";
  return ErrorNumber::Overflow;
}

TEST_F(RegistryServiceTest, MakesAPrivateHomeAndStore) {
  struct stat status {};
  ASSERT_EQ(stat(mHome.Path().c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0700U);
  ASSERT_EQ(stat(mHome.Paths().store.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0600U);
}

TEST_F(RegistryServiceTest, FindsNamesInAnyCaseAndKeepsTheCreatedOne) {
  ASSERT_TRUE(mService.OpenKey("Software\\Straße\\Ärger", true));
  mService.SetStringValue("Überschrift", "text");
  for (const char *path : {"SOFTWARE\\STRASSE\\ÄRGER", "software\\straße\\ärger\\", "Software\\Straße\\A\u0308rger"}) {
    SCOPED_TRACE(path);
    EXPECT_TRUE(mService.KeyExists(path));
    ASSERT_TRUE(mService.OpenKey(path, true));
    EXPECT_EQ(mService.GetStringValue("ÜBERSCHRIFT"), "text");
  }
  EXPECT_EQ(Subkeys(""), std::vector<std::string>{"Software"});
  EXPECT_EQ(Subkeys("SOFTWARE"), std::vector<std::string>{"Straße"});
  EXPECT_EQ(Subkeys("SOFTWARE\\strasse"), std::vector<std::string>{"Ärger"});
}

TEST_F(RegistryServiceTest, KeepsValuesOfBothTypes) {
  const std::vector<std::string> texts{"",       "C:\\Games\\x.hlc", std::string("a\0b", 3),
                                       "a\r\nb", "\xff\xfe",         std::string(3000, 'x')};
  const std::vector<std::int32_t> numbers{0, -1, std::numeric_limits<std::int32_t>::min(),
                                          std::numeric_limits<std::int32_t>::max()};
  ASSERT_TRUE(mService.OpenKey(gameKey, true));
  for (std::size_t i = 0; i < texts.size(); ++i)
    mService.SetStringValue("text" + std::to_string(i), texts[i]);
  for (std::size_t i = 0; i < numbers.size(); ++i)
    mService.SetLongValue("number" + std::to_string(i), numbers[i]);
  mService.SetStringValue("", "default");
  mService.SetStringValue("null", {});
  mService.SetStringValue("changed", "text");
  mService.SetLongValue("CHANGED", 7);
  ASSERT_EQ(mService.LastError(), 0);

  PosixRegistryService reader(mHome.Path());
  for (PosixRegistryService *service : {&mService, &reader}) {
    ASSERT_TRUE(service->OpenKey(gameKey, false));
    for (std::size_t i = 0; i < texts.size(); ++i)
      EXPECT_EQ(service->GetStringValue("text" + std::to_string(i)), texts[i]);
    for (std::size_t i = 0; i < numbers.size(); ++i)
      EXPECT_EQ(service->GetLongValue("number" + std::to_string(i)), numbers[i]);
    EXPECT_EQ(service->GetStringValue(""), "default");
    EXPECT_TRUE(service->ValueExists("null"));
    EXPECT_EQ(service->GetLongValue("changed"), 7);
    EXPECT_EQ(service->GetStringValue("number1"), "-1");
    EXPECT_EQ(service->LastError(), 0);
    EXPECT_EQ(service->GetLongValue("text1"), 0);
    EXPECT_NE(service->LastError(), 0);
  }
}

TEST_F(RegistryServiceTest, RootsAreSeparateAndHoldValues) {
  ASSERT_TRUE(mService.OpenKey("", false));
  mService.SetStringValue("", "machine");
  mService.SetRootKey("hkey_classes_root");
  ASSERT_TRUE(mService.OpenKey("", false));
  EXPECT_FALSE(mService.ValueExists(""));
  mService.SetRootKey("HKEY_ELSEWHERE");
  EXPECT_NE(mService.LastError(), 0);
  EXPECT_FALSE(mService.OpenKey("Software", true));
  EXPECT_FALSE(mService.KeyExists(""));
  PosixRegistryService reader(mHome.Path());
  ASSERT_TRUE(reader.OpenKey("", false));
  EXPECT_EQ(reader.GetStringValue(""), "machine");
}

TEST_F(RegistryServiceTest, DeletesKeysWithoutSubkeysOnly) {
  ASSERT_TRUE(mService.OpenKey("A\\B", true));
  mService.SetStringValue("Name", "x");
  EXPECT_FALSE(mService.DeleteKey("A"));
  EXPECT_NE(mService.LastError(), 0);
  EXPECT_FALSE(mService.DeleteKey("A\\C")) << "never there";
  EXPECT_TRUE(mService.DeleteKey("a\\b\\"));
  EXPECT_FALSE(mService.KeyExists("A\\B"));
  ASSERT_TRUE(mService.OpenKey("A\\B", true));
  EXPECT_FALSE(mService.ValueExists("Name")) << "left over from the deleted key";
  EXPECT_TRUE(mService.DeleteKey("A\\B"));
  EXPECT_TRUE(mService.DeleteKey("A"));
  EXPECT_FALSE(mService.DeleteKey("")) << "the root";
}

TEST_F(RegistryServiceTest, EnumeratesByName) {
  for (const char *name : {"mM", "b", "A", "C", "ä", "Mm2", "MA"})
    ASSERT_TRUE(mService.OpenKey(std::string("List\\") + name, true));
  ASSERT_TRUE(mService.DeleteKey("List\\ma"));
  EXPECT_EQ(Subkeys("List"), (std::vector<std::string>{"A", "b", "C", "mM", "Mm2", "ä"}));
  EXPECT_EQ(NumberThrownBy([&] { mService.SubkeyName(6); }), ErrorNumber::SubscriptOutOfRange);
  EXPECT_EQ(NumberThrownBy([&] { mService.SubkeyName(-1); }), ErrorNumber::SubscriptOutOfRange);
  // Neighbours are found by a shorter way than others, in order and out of it.
  for (const char *name : {"A", "b", "Mm2", "mM", "ä", "A", "C"})
    EXPECT_TRUE(mService.KeyExists(std::string("List\\") + name)) << name;
  EXPECT_FALSE(mService.KeyExists("List\\MA")) << "it stood beside C";
  EXPECT_FALSE(mService.KeyExists("Lust\\mM"));
  mService.SetRootKey("HKEY_CLASSES_ROOT");
  EXPECT_FALSE(mService.KeyExists("List\\b"));
}

TEST_F(RegistryServiceTest, NeedsAnOpenKey) {
  EXPECT_EQ(NumberThrownBy([&] { mService.ValueExists(""); }), ErrorNumber::ObjectNotSet);
  mService.SetStringValue("Name", "x");
  EXPECT_EQ(mService.LastError(), static_cast<long>(ErrorNumber::ObjectNotSet));
  EXPECT_FALSE(mService.OpenKey("Missing", false));
  ASSERT_TRUE(mService.OpenKey("There", true));
  EXPECT_FALSE(mService.OpenKey("Missing", false));
  EXPECT_EQ(NumberThrownBy([&] { mService.SubkeyCount(); }), ErrorNumber::ObjectNotSet) << "the old key stayed open";
}

TEST_F(RegistryServiceTest, RefusesPathsThatNameNoKey) {
  std::string tooDeep = "a";
  for (int i = 0; i < 600; ++i)
    tooDeep += "\\a";
  for (const std::string &path : {std::string("\\A"), std::string("A\\\\B"), std::string("A\\\\"), tooDeep}) {
    EXPECT_FALSE(mService.OpenKey(path, true)) << path;
    EXPECT_EQ(mService.LastError(), static_cast<long>(ErrorNumber::BadFileName));
  }
  EXPECT_EQ(Subkeys(""), std::vector<std::string>{});
}

TEST_F(RegistryServiceTest, ReadOnlySettingsAreReadAndNotWritten) {
  ASSERT_TRUE(mService.OpenKey("Kept", true));
  mService.SetStringValue("Name", "old");
  for (const std::string &path : {mHome.Paths().store, mHome.Path()}) {
    SCOPED_TRACE(path);
    const auto permissions = std::filesystem::status(path).permissions();
    std::filesystem::permissions(path, std::filesystem::perms::owner_write, std::filesystem::perm_options::remove);
    PosixRegistryService service(mHome.Path());
    ASSERT_TRUE(service.OpenKey("Kept", true));
    service.SetStringValue("Name", "old");
    EXPECT_EQ(service.LastError(), 0) << "there is nothing to write";
    service.SetStringValue("Name", "new");
    EXPECT_EQ(service.LastError(), static_cast<long>(ErrorNumber::PathFileAccess));
    service.CloseKey();
    EXPECT_EQ(service.LastErrorText(), "The settings file cannot be written: " + mHome.Paths().store);
    EXPECT_FALSE(service.DeleteKey("Kept"));
    EXPECT_FALSE(service.OpenKey("New", true));
    ASSERT_TRUE(service.OpenKey("Kept", false));
    EXPECT_EQ(service.GetStringValue("Name"), "old");
    std::filesystem::permissions(path, permissions);
  }
}

} // namespace

} // namespace turfdesk
