// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "NothingLostTest.h"

#include <cerrno>

namespace turfdesk {

namespace {

/// On a disk that cannot hold files without a name.
class NothingLostOnSimpleDiskTest : public NothingLostTest {};

TEST_P(NothingLostOnSimpleDiskTest, WhateverCallOfTheSystemFails) {
  mDisk = {{"openat unnamed"}, EOPNOTSUPP};
  RunThroughAll();
}

INSTANTIATE_TEST_SUITE_P(Commands, NothingLostOnSimpleDiskTest, testing::ValuesIn(BroadestCommands()),
                         [](const auto &test) { return test.param.name; });

} // namespace

} // namespace turfdesk
