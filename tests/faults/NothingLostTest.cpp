// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "Aftermath.h"

#include "common/InjectedFault.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <set>

namespace turfdesk {

namespace {

struct FaultKind {
  const char *name;
  std::vector<std::string> calls;
  int error;
};

const FaultKind Kinds[] = {
    {"write", {"copy_file_range", "fallocate", "ftruncate", "pwrite", "write"}, ENOSPC},
    {"flush", {"fdatasync", "fsync", "sync_file_range"}, EIO},
    {"rename", {"linkat", "renameat"}, EACCES},
    {"delete", {"unlink", "unlinkat"}, EACCES},
    {"open", {"open", "openat", "openat unnamed"}, EACCES},
};

/// Each command with a fault at each place where one can strike, once and from there on.
class NothingLostTest : public testing::TestWithParam<Command> {
protected:
  NothingLostTest() {
    const test::GolfHome home;
    mPictures.before = Look(home.Path());
    test::GolfProgram program(home.Path());
    EXPECT_TRUE(Run(program)) << program.boxes.shown.back().text;
    mPictures.now = mPictures.done = Look(home.Path());
  }

  bool Run(test::GolfProgram &program, bool goOnWithoutDeleting = true) const {
    program.boxes.decide = [goOnWithoutDeleting](const MessageBox &box) {
      return box.buttons == BoxButtons::YesNo || goOnWithoutDeleting;
    };
    return GetParam().run(program);
  }

  /// Gives the number of calls that could have been struck.
  int RunWith(const FaultKind &kind, int first, int last, bool goOnWithoutDeleting = true) {
    const test::GolfHome home;
    test::GolfProgram program(home.Path());
    bool result = false;
    int calls = 0;
    {
      const InjectedFault simpleDisk(mUnnamedFiles ? "" : "openat unnamed", EOPNOTSUPP);
      const InjectedFault fault({kind.calls, kind.error, first, last});
      result = Run(program, goOnWithoutDeleting);
      calls = fault.Calls();
    }
    Judge(program, result);
    return calls;
  }

  /// The same with the tree's service; then, where alsoRename is set, no file can take a name any more.
  int RunWithTree(int first, int last, bool alsoRename) {
    const test::GolfHome home;
    test::GolfProgram program(home.Path());
    test::FaultyRegistry &registry = program.registry;
    registry.changes = 0;
    registry.firstFailing = first;
    registry.lastFailing = last;
    std::unique_ptr<InjectedFault> renaming;
    if (alsoRename)
      registry.onFailure = [&renaming] { renaming = std::make_unique<InjectedFault>("renameat", EACCES); };
    const bool result = Run(program);
    renaming.reset();
    Judge(program, result);
    return registry.changes;
  }

  /// Each place where a call of one kind can fail.
  void RunThrough(const FaultKind &kind) {
    const int calls = RunWith(kind, Never, Never);
    for (int first = 1; first <= calls && !HasFailure(); ++first)
      for (const int last : {first, INT_MAX}) {
        SCOPED_TRACE(std::string(kind.name) + " " + std::to_string(first) + (last == first ? "" : " and on") + " of " +
                     std::to_string(calls));
        RunWith(kind, first, last);
      }
  }

  static constexpr int Never = INT_MAX;

  Pictures mPictures;
  /// Can the disk hold files without a name?
  bool mUnnamedFiles = true;

private:
  void Judge(test::GolfProgram &program, bool result) {
    mPictures.now = Look(program.Home());
    ExpectOrderly(GetParam(), program, result, mPictures);
  }
};

TEST_P(NothingLostTest, WithoutFaultsNothingIsGivenUpButWhatTheUserAgreedTo) {
  std::set<std::string> kept;
  for (const auto &[path, content] : mPictures.done.files)
    kept.insert(content);
  std::vector<std::string> givenUp;
  for (const auto &[path, content] : mPictures.before.files)
    if (!kept.contains(content))
      givenUp.push_back(path);
  EXPECT_EQ(givenUp, GetParam().givenUp);
}

TEST_P(NothingLostTest, WhateverCallOfTheSystemFails) {
  for (const FaultKind &kind : Kinds)
    RunThrough(kind);
}

TEST_P(NothingLostTest, WhenTheUserDoesNotWantWhatCannotBeDeletedInBothPlaces) {
  const FaultKind deleting{"delete", {"unlink"}, EACCES};
  const int calls = RunWith(deleting, Never, Never, false);
  for (int first = 1; first <= calls; ++first) {
    SCOPED_TRACE("file " + std::to_string(first) + " of " + std::to_string(calls));
    RunWith(deleting, first, first, false);
  }
}

TEST_P(NothingLostTest, WhicheverChangeOfTheTreeFails) {
  const int changes = RunWithTree(Never, Never, false);
  for (int first = 1; first <= changes; ++first)
    for (const int last : {first, INT_MAX})
      for (const bool alsoRename : {false, true}) {
        SCOPED_TRACE("change " + std::to_string(first) + " to " + std::to_string(last) +
                     (alsoRename ? " renames" : ""));
        RunWithTree(first, last, alsoRename);
      }
}

INSTANTIATE_TEST_SUITE_P(Commands, NothingLostTest, testing::ValuesIn(Commands()),
                         [](const auto &test) { return test.param.name; });

/// On a disk that cannot hold files without a name.
class NothingLostOnSimpleDiskTest : public NothingLostTest {};

TEST_P(NothingLostOnSimpleDiskTest, WhateverCallOfTheSystemFails) {
  mUnnamedFiles = false;
  for (const FaultKind &kind : Kinds)
    RunThrough(kind);
}

INSTANTIATE_TEST_SUITE_P(Commands, NothingLostOnSimpleDiskTest, testing::ValuesIn(BroadestCommands()),
                         [](const auto &test) { return test.param.name; });

} // namespace

} // namespace turfdesk
