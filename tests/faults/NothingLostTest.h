// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "Aftermath.h"

#include "common/InjectedFault.h"

#include <gtest/gtest.h>

namespace turfdesk {

/// Each command with a fault at each place where one can strike, once and from there on.
class NothingLostTest : public testing::TestWithParam<Command> {
protected:
  bool Run(test::GolfProgram &program, bool goOnWithoutDeleting = true) const {
    program.boxes.decide = [goOnWithoutDeleting](const MessageBox &box) {
      return box.buttons == BoxButtons::YesNo || goOnWithoutDeleting;
    };
    return GetParam().run(program);
  }

  /// Gives the number of calls that could have been struck.
  int RunWith(DiskWork refused, int first, int last, bool goOnWithoutDeleting) {
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

  /// Each place where a call of any kind can fail.
  void RunThroughAll() {
    int calls = 0;
    for (const DiskWork work : {DiskWork::Write, DiskWork::Flush, DiskWork::Rename, DiskWork::Delete, DiskWork::Open})
      calls += RunThrough(work, true);
    EXPECT_GT(calls, 0) << "none of the calls goes where faults are";
  }

  /// Each place where a call of one kind can fail. Gives their number.
  int RunThrough(DiskWork work, bool goOnWithoutDeleting) {
    const int calls = RunWith(work, Never, Never, goOnWithoutDeleting);
    for (int first = 1; first <= calls && !HasFailure(); ++first)
      for (const int last : {first, INT_MAX}) {
        SCOPED_TRACE("work " + std::to_string(static_cast<int>(work)) + ": calls " + std::to_string(first) + " to " +
                     std::to_string(last) + " of " + std::to_string(calls));
        RunWith(work, first, last, goOnWithoutDeleting);
      }
    return calls;
  }

  static constexpr int Never = INT_MAX;

  Pictures mPictures = LookBeforeAndAfter(GetParam());
  /// What the disk lacks in any case.
  Fault mDisk;

private:
  void Judge(test::GolfProgram &program, bool result) {
    mPictures.now = Look(program.Home());
    ExpectOrderly(GetParam(), program, result, mPictures);
  }
};

} // namespace turfdesk
