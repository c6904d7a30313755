// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "../PlatformTest.h"
#include "RegistryTools.h"

#include "platform/RuntimeError.h"
#include "platform/windows/LibraryRepair.h"
#include "platform/windows/SystemError.h"

#include "common/TestWorld.h"

namespace turfdesk::test {

namespace {

using namespace std::string_literals;

constexpr RegistryRoot machine = RegistryRoot::LocalMachine;
const std::wstring gameKey = LR"(Software\KESTRAVON\Marrowfell 2002)";
const std::string noFolder =
    "The settings do not say in which folder the dll's are. They have not been restored.\r\n\r\n"
    R"(HKEY_LOCAL_MACHINE\Software\KESTRAVON\Marrowfell 2002\TurfManager)";

/// Remembers what was started, as "program|argument|style".
class RecordedProcesses final : public Processes {
public:
  std::uint32_t Shell(std::string_view program, const std::vector<std::string> &arguments, WindowStyle style) override {
    if (isMissing)
      throw RuntimeError(ErrorNumber::FileNotFound);
    std::string text(program.substr(program.rfind('\\') + 1));
    for (const std::string &argument : arguments)
      text += "|" + argument;
    started.push_back(text + (style == WindowStyle::Hidden ? "|hidden" : "|shown"));
    return 1;
  }
  ProcessHandle OpenProcess(std::uint32_t) override { return 0; }
  void WaitForSingleObject(ProcessHandle, void (*)(void *), void *) override { ADD_FAILURE() << "nobody waits"; }
  void CloseHandle(ProcessHandle) override {}
  std::string GetShortPathName(std::string_view) override { return ""; }

  bool isMissing = false;
  Texts started;
};

class LibraryRepairTest : public PlatformTest {
protected:
  Texts Repair() {
    mPrograms.started.clear();
    RegisterLibraries(mPrograms, mBoxes);
    for (const MessageBox &box : mBoxes.shown)
      EXPECT_EQ(box.icon, BoxIcon::None);
    return mBoxes.TakeTexts();
  }

  RecordedProcesses mPrograms;
  ScriptedBoxes mBoxes;
};

TEST_F(LibraryRepairTest, RegistersBothLibrariesOfTheFolder) {
  WriteRaw(gameKey, L"TurfManager", 2, Utf16(L"%SystemDrive%\\Golf\0"s));
  EXPECT_EQ(Repair(), Texts{"C:\\Golf"});
  mPrograms.started.clear();
  WriteRaw(gameKey, L"TurfManager", 1, Utf16(L"C:\\Käse und Brot\0"s));
  EXPECT_EQ(Repair(), Texts{"C:\\Käse und Brot"});
  EXPECT_EQ(mPrograms.started, (Texts{"REGSVR32.EXE|C:\\Käse und Brot\\VorinRegistry.dll|hidden",
                                      "REGSVR32.EXE|C:\\Käse und Brot\\VorinLib.dll|hidden"}));
  const RestrictedKey readable(machine, gameKey, RestrictedKey::Rights::Read);
  EXPECT_EQ(Repair(), Texts{"C:\\Käse und Brot"}) << "a user who may not write can do it, too";
  mPrograms.isMissing = true;
  EXPECT_EQ(Repair(), (Texts{"C:\\Käse und Brot", "File not found"}));
}

TEST_F(LibraryRepairTest, SaysWhatIsMissingAndStartsNothing) {
  EXPECT_EQ(Repair(), Texts{noFolder}) << "no key";
  WriteRaw(gameKey, L"Other", 1, Utf16(L"x"));
  EXPECT_EQ(Repair(), Texts{noFolder}) << "no value";
  const std::pair<std::uint32_t, std::string> amiss[] = {{1, ""}, {1, Utf16(L"\0"s)}, {4, "\x05\0\0\0"s}, {3, "C:"}};
  for (const auto &[type, bytes] : amiss) {
    WriteRaw(gameKey, L"TurfManager", type, bytes);
    EXPECT_EQ(Repair(), Texts{noFolder}) << type;
    EXPECT_EQ(mPrograms.started, Texts{});
  }
  const RestrictedKey locked(machine, gameKey, RestrictedKey::Rights::None);
  EXPECT_EQ(Repair(), Texts{SystemWords(5) + "\r\n\r\n" + R"(HKEY_LOCAL_MACHINE\Software\KESTRAVON\Marrowfell 2002)"});
  EXPECT_EQ(mPrograms.started, Texts{});
}

} // namespace

} // namespace turfdesk::test
