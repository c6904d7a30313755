// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "RegistryTools.h"

#include "platform/RuntimeError.h"
#include "platform/windows/RegistryEdit.h"
#include "platform/windows/SystemError.h"
#include "platform/windows/WindowsRegistryBranches.h"

#include <array>
#include <vector>

namespace turfdesk {

namespace {

using test::RestrictedKey;

constexpr RegistryRoot machine = RegistryRoot::LocalMachine;
using Kind = RegistryChange::Kind;

/// "path: name=text name=number name=type:bytes" for each key below the test's own.
using Texts = std::vector<std::string>;

class RegistryBranchesTest : public test::RegistryTest {
protected:
  RegistryBranchesTest() {
    mBranches.Apply(std::array{SetText("b", "Name", "second"), SetText(R"(A\Deep)", "", "default"),
                               SetNumber("a", "Zahl", -1), SetText("A", "Ähre", "ä")});
    test::WriteRaw(machine, WideKey(LR"(\A\Deep)"), L"Bytes", 3, "xyz");
    test::WriteRaw(machine, WideKey(LR"(\A\Deep)"), L"Empty", 0, "");
  }

  static RegistryChange SetText(const std::string &rest, const std::string &valueName, const std::string &text) {
    return {Kind::SetValue, machine, Below(rest), valueName, {RegSz, 0, text}};
  }
  static RegistryChange SetNumber(const std::string &rest, const std::string &valueName, std::int32_t number) {
    return {Kind::SetValue, machine, Below(rest), valueName, {RegDword, number, ""}};
  }
  static RegistryChange Make(Kind kind, const std::string &rest, const std::string &valueName = "") {
    return {kind, machine, Below(rest), valueName, {}};
  }

  static std::string Text(const RegistryValue &value) {
    const std::string beginning = " " + value.name + "=";
    if (value.data.type == RegDword)
      return beginning + std::to_string(value.data.number);
    return beginning + (value.data.type == RegSz ? "" : std::to_string(value.data.type) + ":") + value.data.text;
  }

  Texts Read() {
    Texts texts;
    for (const RegistryKeyContent &key : mBranches.Read(std::array{RegistryBranch{machine, Key}})) {
      std::string &text = texts.emplace_back(key.keyPath.substr(std::string(Key).size()) + ":");
      for (const RegistryValue &value : key.values)
        text += Text(value);
    }
    return texts;
  }

  WindowsRegistryBranches mBranches;
  const Texts mBefore{":", R"(\A: Zahl=-1 Ähre=ä)", R"(\A\Deep: =default Bytes=3:xyz Empty=0:)", R"(\b: Name=second)"};
};

TEST_F(RegistryBranchesTest, AreReadParentsFirstWithNamesAsCreated) {
  EXPECT_EQ(Read(), mBefore);
  const auto upper = mBranches.Read(std::array{RegistryBranch{machine, R"(SOFTWARE\TURF DESK TESTS\B\)"},
                                               RegistryBranch{machine, Below("Missing")},
                                               RegistryBranch{RegistryRoot::ClassesRoot, ".hlc"}});
  ASSERT_EQ(upper.size(), 1U);
  EXPECT_EQ(upper[0].keyPath, R"(SOFTWARE\TURF DESK TESTS\B)") << "the branch bears the name that it was asked for by";
}

TEST_F(RegistryBranchesTest, AreChangedInTheOrderGiven) {
  mBranches.Apply(std::array{SetText("A", "Early", "x"), Make(Kind::DeleteKey, "a\\"), SetText("A", "Late", "x"),
                             Make(Kind::DeleteKey, "Missing"), Make(Kind::DeleteValue, "B", "NAME"),
                             Make(Kind::DeleteValue, "b", "Missing"), Make(Kind::DeleteValue, "Missing", "Name"),
                             SetText(R"(A\New)", "name", "new"), Make(Kind::CreateKey, "Empty"),
                             Make(Kind::CreateKey, "empty")});
  EXPECT_EQ(Read(), (Texts{":", R"(\A: Late=x)", R"(\A\New: name=new)", R"(\b:)", R"(\Empty:)"}));
}

TEST_F(RegistryBranchesTest, StayAsTheyWereWhenOneChangeIsRefused) {
  test::WriteRaw(machine, WideKey(L"\\Locked"), L"Name", 1, test::Utf16(L"kept"));
  const RestrictedKey locked(machine, WideKey(L"\\Locked"), RestrictedKey::Rights::Read);
  Texts before = mBefore;
  before.emplace_back("\\Locked: Name=kept");
  ASSERT_EQ(Read(), before);
  const std::pair<RegistryChange, std::string> refused[] = {
      {SetText("Locked", "Name", "x"), SystemWords(5)},
      {SetText(R"(Locked\New)", "Name", "x"), SystemWords(5)},
      {Make(Kind::DeleteValue, "Locked", "Name"), SystemWords(5)},
      {SetText(R"(x\\y)", "Name", ""), SystemWords(161)},
      {SetText("x", std::string(20000, 'n'), ""), SystemWords(87)},
      {{Kind::DeleteKey, machine, "", "", {}}, "A root of the settings is not deleted"},
  };
  for (const auto &[change, words] : refused) {
    SCOPED_TRACE(change.keyPath);
    try {
      mBranches.Apply(std::array{SetText("b", "NAME", "other"), SetText("b", "New", "x"), SetNumber("b", "Name", 7),
                                 SetText(R"(c\d\e)", "Name", "x"), Make(Kind::DeleteValue, "A", "Zahl"),
                                 Make(Kind::DeleteKey, "A"), SetText("A", "Later", "x"), change});
      ADD_FAILURE() << "nothing was thrown";
    } catch (const RuntimeError &error) {
      EXPECT_TRUE(error.Description().starts_with(words)) << error.Description();
      EXPECT_EQ(error.Description().find("could not be put back"), std::string::npos);
    }
    EXPECT_EQ(Read(), before);
  }
}

TEST_F(RegistryBranchesTest, KeepWhatOthersHavePutIntoANewKeyMeanwhile) {
  RegistryEdit edit;
  edit.CreateKey(machine, WideKey(L"\\New"));
  edit.CreateKey(machine, WideKey(L"\\Other"));
  test::WriteRaw(machine, WideKey(L"\\New"), L"Name", 1, test::Utf16(L"theirs"));
  EXPECT_TRUE(edit.Undo());
  Texts after = mBefore;
  after.emplace_back("\\New: Name=theirs");
  EXPECT_EQ(Read(), after);
}

TEST_F(RegistryBranchesTest, TellWhenNotEverythingCouldBePutBack) {
  const RestrictedKey locked(machine, WideKey(L"\\b"), RestrictedKey::Rights::Read);
  // The key goes with its content, but comes back below one that lets nothing be made.
  const RestrictedKey parent(machine, WideKey(), RestrictedKey::Rights::Read);
  try {
    mBranches.Apply(std::array{Make(Kind::DeleteKey, "A"), SetText("b", "Name", "x")});
    ADD_FAILURE() << "nothing was thrown";
  } catch (const RuntimeError &error) {
    EXPECT_TRUE(error.Description().starts_with(SystemWords(5))) << error.Description();
    EXPECT_NE(error.Description().find("could not be put back"), std::string::npos);
  }
}

TEST_F(RegistryBranchesTest, AreNotTakenForMissingWhenTheyMayNotBeRead) {
  const RestrictedKey locked(machine, WideKey(L"\\b"), RestrictedKey::Rights::None);
  EXPECT_THROW(Read(), RuntimeError);
}

} // namespace

} // namespace turfdesk
