// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "../PlatformTest.h"
#include "RegistryTools.h"

#include "platform/windows/SystemError.h"
#include "shell/FileTypes.h"
#include "shell/basVorinInit.h"

#include "common/TestWorld.h"

namespace turfdesk::test {

namespace {

constexpr RegistryRoot machine = RegistryRoot::LocalMachine;

/// A whole program whose user may not do everything.
class RegistryRightsTest : public testing::Test {
protected:
  TestWorld mWorld;
};

Texts SixBoxes(const std::string &openCode) {
  Texts texts;
  for (int type = 0; type < 3; ++type)
    texts.insert(texts.end(), {"RegOpenKey error - " + openCode, "SetValue error - 6"});
  return texts;
}

TEST_F(RegistryRightsTest, FileTypesThatMayNotBeWrittenGiveTwoBoxesEach) {
  {
    const UnwritableClasses classes;
    RegisterFileTypes(mWorld.state);
    EXPECT_EQ(mWorld.boxes.TakeTexts(), SixBoxes("2")) << "they cannot be made, so they are not there";
  }
  RegisterFileTypes(mWorld.state);
  EXPECT_EQ(mWorld.boxes.TakeTexts(), Texts{});
  const RestrictedKey library(RegistryRoot::ClassesRoot, L".hlb", RestrictedKey::Rights::Read);
  const RestrictedKey course(RegistryRoot::ClassesRoot, L".hlc", RestrictedKey::Rights::Read);
  const RestrictedKey package(RegistryRoot::ClassesRoot, L".hlz", RestrictedKey::Rights::Read);
  RegisterFileTypes(mWorld.state);
  EXPECT_EQ(mWorld.boxes.TakeTexts(), SixBoxes("5")) << "they are there and stay as they are";
}

TEST_F(RegistryRightsTest, SettingsThatMayNotBeReadLeadToTheRepair) {
  const RestrictedKey software(machine, L"Software", RestrictedKey::Rights::None);
  // Wine shows 32-bit programs this one when they may not read their own.
  const RestrictedKey otherSoftware(machine, L"Software", RestrictedKey::Rights::None, RestrictedKey::View::Programs64);
  EXPECT_FALSE(Init(mWorld.state));
  const Texts texts = mWorld.boxes.TakeTexts();
  ASSERT_EQ(texts.size(), 3U);
  EXPECT_EQ(texts[0], "basVorinInit.Init(): " + SystemWords(5) + "\r\n\r\nHKEY_LOCAL_MACHINE\\Software");
  EXPECT_EQ(texts[1], "Necessary dll's have been unregistered.\r\nTurf Desk will attempt to restore them.\r\n"
                      "Please restart Turf Desk.");
  EXPECT_EQ(texts[2], SystemWords(5) + "\r\n\r\n" + R"(HKEY_LOCAL_MACHINE\Software\KESTRAVON\Marrowfell 2002)");
}

} // namespace

} // namespace turfdesk::test
