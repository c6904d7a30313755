// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "Aftermath.h"

#include "common/InjectedFault.h"

#include <gtest/gtest.h>

namespace turfdesk {

struct Kind {
  const char *name;
  DiskWork work;
};

inline constexpr Kind Kinds[] = {{"write", DiskWork::Write},
                                 {"flush", DiskWork::Flush},
                                 {"rename", DiskWork::Rename},
                                 {"delete", DiskWork::Delete},
                                 {"open", DiskWork::Open}};

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
  int RunWith(DiskWork refused, int first, int last, bool goOnWithoutDeleting = true) {
    const test::GolfHome home;
    test::GolfProgram program(home.Path());
    bool result = false;
    int calls = 0;
    {
      const InjectedFault disk(mDisk);
      Fault kind = Refusal(refused);
      kind.first = first;
      kind.last = last;
      const InjectedFault fault(kind);
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
      registry.onFailure = [&renaming] { renaming = std::make_unique<InjectedFault>(Refusal(DiskWork::Rename)); };
    const bool result = Run(program);
    renaming.reset();
    Judge(program, result);
    return registry.changes;
  }

  void RunThroughAll() {
    int calls = 0;
    for (const Kind &kind : Kinds)
      calls += RunThrough(kind);
    EXPECT_GT(calls, 0) << "none of the calls goes where faults are";
  }

  static constexpr int Never = INT_MAX;

  Pictures mPictures;
  /// What the disk lacks in any case.
  Fault mDisk;

private:
  /// Each place where a call of one kind can fail. Gives their number.
  int RunThrough(const Kind &kind) {
    const int calls = RunWith(kind.work, Never, Never);
    for (int first = 1; first <= calls && !HasFailure(); ++first)
      for (const int last : {first, INT_MAX}) {
        SCOPED_TRACE(std::string(kind.name) + " " + std::to_string(first) + (last == first ? "" : " and on") + " of " +
                     std::to_string(calls));
        RunWith(kind.work, first, last);
      }
    return calls;
  }

  void Judge(test::GolfProgram &program, bool result) {
    mPictures.now = Look(program.Home());
    ExpectOrderly(GetParam(), program, result, mPictures);
  }
};

} // namespace turfdesk
