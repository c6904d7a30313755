// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "SettingsTestTools.h"

#include "platform/RuntimeError.h"
#include "platform/posix/PosixRegistryBranches.h"
#include "platform/posix/PosixRegistryService.h"

namespace turfdesk {

namespace {

constexpr RegistryRoot machine = RegistryRoot::LocalMachine;
using Kind = RegistryChange::Kind;

/// "path: name=text name=number" for each key below Test.
using Texts = std::vector<std::string>;

class RegistryBranchesTest : public testing::Test {
protected:
  RegistryBranchesTest() {
    mBranches.Apply(std::array{SetText(R"(Test\b)", "Name", "second"), SetText(R"(Test\A\Deep)", "", "default"),
                               SetNumber(R"(TEST\a)", "Zahl", -1), SetText(R"(Test\A)", "Ähre", "ä"),
                               SetText("Tested", "Name", "beside")});
  }

  Texts Read(const std::string &keyPath = "Test") {
    Texts texts;
    for (const RegistryKeyContent &key : mBranches.Read(std::array{RegistryBranch{machine, keyPath}})) {
      std::string &text = texts.emplace_back(key.keyPath + ":");
      for (const RegistryValue &value : key.values)
        text += " " + value.name + "=" +
                (value.data.type == RegDword ? std::to_string(value.data.number) : value.data.text);
    }
    return texts;
  }

  TemporaryHome mHome;
  SettingsAccess mAccess{mHome.Path(), std::chrono::milliseconds(20)};
  PosixRegistryBranches mBranches{mAccess};
  const Texts mBefore{"Test:", R"(Test\A: Zahl=-1 Ähre=ä)", R"(Test\A\Deep: =default)", R"(Test\b: Name=second)"};
};

TEST_F(RegistryBranchesTest, AreReadParentsFirstWithNamesAsCreated) {
  EXPECT_EQ(Read(), mBefore);
  EXPECT_EQ(Read("TEST\\"),
            (Texts{"TEST:", R"(TEST\A: Zahl=-1 Ähre=ä)", R"(TEST\A\Deep: =default)", R"(TEST\b: Name=second)"}))
      << "the branch bears the name that it was asked for by";
  EXPECT_EQ(Read("Missing"), Texts{});
  EXPECT_EQ(Read("").size(), mBefore.size() + 2) << "the root itself and the key beside";
}

TEST_F(RegistryBranchesTest, AreChangedInTheOrderGiven) {
  PosixRegistryService before(mAccess.Open());
  ASSERT_TRUE(before.OpenKey(R"(Test\A\Deep)", false));
  mBranches.Apply(std::array{RegistryChange{Kind::DeleteKey, machine, R"(test\a\)", "", {}},
                             RegistryChange{Kind::DeleteKey, machine, R"(Test\Missing)", "", {}},
                             RegistryChange{Kind::DeleteValue, machine, R"(Test\B)", "NAME", {}},
                             RegistryChange{Kind::DeleteValue, machine, R"(Test\b)", "Missing", {}},
                             RegistryChange{Kind::DeleteValue, machine, R"(Test\Missing)", "Name", {}},
                             SetText(R"(Test\A\New)", "name", "new"),
                             RegistryChange{Kind::CreateKey, machine, R"(Test\Empty)", "", {}}});
  EXPECT_EQ(Read(), (Texts{"Test:", R"(Test\A:)", R"(Test\A\New: name=new)", R"(Test\b:)", R"(Test\Empty:)"}));
  EXPECT_EQ(Read("Tested"), Texts{"Tested: Name=beside"});
  EXPECT_FALSE(before.ValueExists("")) << "the tree in memory is the one in the file";
  PosixRegistryService anew(mHome.Path());
  EXPECT_FALSE(anew.KeyExists(R"(Test\A\Deep)"));
  EXPECT_TRUE(anew.KeyExists(R"(Test\A\New)"));
}

TEST_F(RegistryBranchesTest, StayAsTheyWereWhenOneChangeIsRefused) {
  const auto store = mAccess.Open();
  const RegistryChange refused[] = {SetText(R"(Test\\x)", "Name", ""), {Kind::DeleteKey, machine, "", "", {}}};
  for (const RegistryChange &change : refused) {
    EXPECT_THROW(mBranches.Apply(std::array{RegistryChange{Kind::DeleteKey, machine, "Test", "", {}},
                                            SetText("Other", "Name", "x"), change}),
                 RuntimeError);
    EXPECT_EQ(Read(), mBefore);
    EXPECT_EQ(Read("Other"), Texts{});
    ASSERT_NE(store->Find(machine, R"(Test\A)"), nullptr);
    EXPECT_EQ(store->Find(machine, "Other"), nullptr);
  }
  const LockingProgram other(mHome.Paths().store);
  EXPECT_THROW(mBranches.Apply(std::array{SetText("Other", "Name", "x")}), RuntimeError);
  EXPECT_THROW(Read(), RuntimeError);
}

} // namespace

} // namespace turfdesk
