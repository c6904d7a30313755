// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "NothingLostTest.h"

#include <set>

namespace turfdesk {

namespace {

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

TEST_P(NothingLostTest, WhateverCallOfTheSystemFails) { RunThroughAll(); }

TEST_P(NothingLostTest, WhenTheUserDoesNotWantWhatCannotBeDeletedInBothPlaces) { RunThrough(DiskWork::Delete, false); }

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

} // namespace

} // namespace turfdesk
