// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "../BranchText.h"
#include "../PlatformTest.h"

#include <array>

namespace turfdesk::test {

namespace {

using Kind = RegistryChange::Kind;

class RegistryBranchesTest : public PlatformTest {
protected:
  RegistryBranchesTest() {
    mBranches.Apply(std::array{SetText(Below("b"), "Name", "second"), SetText(Below(R"(A\Deep)"), "", "default"),
                               SetNumber(Below("a"), "Zahl", -1), SetText(Below("A"), "Ähre", "ä"),
                               SetText(std::string(Key) + "ed", "Name", "beside")});
  }
  ~RegistryBranchesTest() override { mBranches.Apply(std::array{Change(Kind::DeleteKey, std::string(Key) + "ed")}); }

  /// Without the path of the test's key.
  Texts Read() {
    Texts texts = BranchTexts(mBranches, Key);
    for (std::string &text : texts)
      text.erase(0, std::string(Key).size());
    return texts;
  }

  RegistryBranches &mBranches = mPlatform->Branches();
  const Texts mBefore{":", R"(\A: Zahl=-1 Ähre=ä)", R"(\A\Deep: =default)", R"(\b: Name=second)"};
};

TEST_F(RegistryBranchesTest, AreReadParentsFirstWithNamesAsCreated) {
  EXPECT_EQ(Read(), mBefore);
  const auto upper = mBranches.Read(std::array{
      RegistryBranch{RegistryRoot::LocalMachine, R"(SOFTWARE\TURF DESK TESTS\B\)"},
      RegistryBranch{RegistryRoot::LocalMachine, Below("Missing")}, RegistryBranch{RegistryRoot::ClassesRoot, ".hlc"}});
  ASSERT_EQ(upper.size(), 1U);
  EXPECT_EQ(upper[0].keyPath, R"(SOFTWARE\TURF DESK TESTS\B)") << "the branch bears the name that it was asked for by";
}

TEST_F(RegistryBranchesTest, AreChangedInTheOrderGiven) {
  const auto service = mPlatform->CreateRegistryService();
  ASSERT_TRUE(service->OpenKey(Below(R"(A\Deep)"), false));
  mBranches.Apply(
      std::array{SetText(Below("A"), "Early", "x"), Change(Kind::DeleteKey, Below("a\\")),
                 SetText(Below("A"), "Late", "x"), Change(Kind::DeleteKey, Below("Missing")),
                 Change(Kind::DeleteValue, Below("B"), "NAME"), Change(Kind::DeleteValue, Below("b"), "Missing"),
                 Change(Kind::DeleteValue, Below("Missing"), "Name"), SetText(Below(R"(A\New)"), "name", "new"),
                 Change(Kind::CreateKey, Below("Empty")), Change(Kind::CreateKey, Below("empty"))});
  EXPECT_EQ(Read(), (Texts{":", R"(\A: Late=x)", R"(\A\New: name=new)", R"(\b:)", R"(\Empty:)"}));
  EXPECT_EQ(BranchTexts(mBranches, std::string(Key) + "ed"), Texts{std::string(Key) + "ed: Name=beside"});
  EXPECT_FALSE(service->ValueExists("")) << "who has the key open sees it, too";
}

TEST_F(RegistryBranchesTest, StayAsTheyWereWhenOneChangeIsRefused) {
  const auto service = mPlatform->CreateRegistryService();
  for (const RegistryChange &refused : {SetText(Below(R"(x\\y)"), "Name", ""), Change(Kind::DeleteKey, "")}) {
    SCOPED_TRACE(refused.keyPath);
    EXPECT_THROW(
        mBranches.Apply(std::array{SetText(Below("b"), "NAME", "other"), SetText(Below("b"), "New", "x"),
                                   SetNumber(Below("b"), "Name", 7), SetText(Below(R"(c\d\e)"), "Name", "x"),
                                   Change(Kind::DeleteValue, Below("A"), "Zahl"), Change(Kind::DeleteKey, Below("A")),
                                   SetText(Below("A"), "Later", "x"), Change(Kind::CreateKey, Below("z")), refused}),
        RuntimeError);
    EXPECT_EQ(Read(), mBefore);
    EXPECT_TRUE(service->KeyExists(Below(R"(A\Deep)")));
    EXPECT_FALSE(service->KeyExists(Below("c")));
  }
}

} // namespace

} // namespace turfdesk::test
