// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "../BranchText.h"
#include "../PlatformTest.h"
#include "RegistryTools.h"

#include "platform/windows/RegistryEdit.h"
#include "platform/windows/SystemError.h"

#include <array>

namespace turfdesk::test {

namespace {

using Kind = RegistryChange::Kind;
using Rights = RestrictedKey::Rights;

constexpr RegistryRoot machine = RegistryRoot::LocalMachine;

class WindowsRegistryBranchesTest : public PlatformTest {
protected:
  WindowsRegistryBranchesTest() {
    mBranches.Apply(std::array{SetText(Below("b"), "Name", "second"), SetText(Below("A"), "Ähre", "ä")});
    WriteRaw(WideBelow(LR"(A\Deep)"), L"Bytes", 3, "xyz");
    WriteRaw(WideBelow(LR"(A\Deep)"), L"Empty", 0, "");
    WriteRaw(WideBelow(L"Locked"), L"Name", RegSz, Utf16(L"kept"));
  }

  Texts Read() { return BranchTexts(mBranches, Key); }

  /// The words of what is thrown.
  std::string WordsOf(const std::vector<RegistryChange> &changes) {
    try {
      mBranches.Apply(changes);
    } catch (const RuntimeError &error) {
      return error.Description();
    }
    return "nothing was thrown";
  }

  RegistryBranches &mBranches = mPlatform->Branches();
  const Texts mBefore{std::string(Key) + ":", Below("A: Ähre=ä"), Below(R"(A\Deep: Bytes=3:xyz Empty=0:)"),
                      Below("b: Name=second"), Below("Locked: Name=kept")};
};

TEST_F(WindowsRegistryBranchesTest, ReadValuesOfEveryType) { EXPECT_EQ(Read(), mBefore); }

TEST_F(WindowsRegistryBranchesTest, StayAsTheyWereWhenTheSystemRefusesOneChange) {
  const RestrictedKey locked(machine, WideBelow(L"Locked"), Rights::Read);
  const std::pair<RegistryChange, std::string> refused[] = {
      {SetText(Below("Locked"), "Name", "x"), SystemWords(5)},
      {SetText(Below(R"(Locked\New)"), "Name", "x"), SystemWords(5)},
      {Change(Kind::DeleteValue, Below("Locked"), "Name"), SystemWords(5)},
      {SetText(Below(R"(x\\y)"), "Name", ""), SystemWords(161)},
      {SetText(Below("x"), std::string(20000, 'n'), ""), SystemWords(87)},
      {Change(Kind::DeleteKey, ""), "A root of the settings is not deleted"},
  };
  for (const auto &[change, expected] : refused) {
    SCOPED_TRACE(change.keyPath);
    const std::string words = WordsOf({SetNumber(Below("b"), "Name", 7), SetText(Below(R"(c\d\e)"), "Name", "x"),
                                       Change(Kind::DeleteKey, Below("A")), SetText(Below("A"), "Later", "x"), change});
    EXPECT_TRUE(words.starts_with(expected)) << words;
    EXPECT_EQ(words.find("could not be put back"), std::string::npos) << words;
    EXPECT_EQ(Read(), mBefore);
  }
}

TEST_F(WindowsRegistryBranchesTest, KeepWhatOthersHavePutIntoANewKeyMeanwhile) {
  RegistryEdit edit;
  edit.CreateKey(machine, WideBelow(L"New"));
  edit.CreateKey(machine, WideBelow(L"Other"));
  WriteRaw(WideBelow(L"New"), L"Name", RegSz, Utf16(L"theirs"));
  EXPECT_TRUE(edit.Undo());
  Texts after = mBefore;
  after.push_back(Below("New: Name=theirs"));
  EXPECT_EQ(Read(), after);
}

TEST_F(WindowsRegistryBranchesTest, TellWhenNotEverythingCouldBePutBack) {
  const RestrictedKey locked(machine, WideBelow(L"b"), Rights::Read);
  // The key goes with its content, but comes back below one that lets nothing be made.
  const RestrictedKey parent(machine, WideKey, Rights::Read);
  const std::string words = WordsOf({Change(Kind::DeleteKey, Below("A")), SetText(Below("b"), "Name", "x")});
  EXPECT_TRUE(words.starts_with(SystemWords(5))) << words;
  EXPECT_NE(words.find("could not be put back"), std::string::npos) << words;
}

TEST_F(WindowsRegistryBranchesTest, AreNotTakenForMissingWhenTheyMayNotBeRead) {
  const RestrictedKey locked(machine, WideBelow(L"b"), Rights::None);
  EXPECT_THROW(Read(), RuntimeError);
}

} // namespace

} // namespace turfdesk::test
