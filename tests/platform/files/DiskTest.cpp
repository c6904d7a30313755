// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "../PlatformTest.h"

#include "common/InjectedFault.h"

#include <sys/resource.h>

#include <cerrno>
#include <functional>

namespace turfdesk::test {

namespace {

/// Disks that fail in their own ways or cannot do what others can.
class DiskTest : public PlatformTest {
protected:
  /// Copies a large file over an old one.
  int Copy(const FileCopier::Report &report = {}) {
    return NumberThrownBy([&] { CopyNow(mPlatform->Copier(), mFrom, mTo, report); });
  }

  const std::string mContent = LargeContent();
  const std::string mFrom = Put(R"(C:\from)", mContent);
  const std::string mTo = Put(R"(C:\to\x)", "old");
};

TEST_F(DiskTest, AFailureLeavesTheOldFileAndNothingElse) {
  const std::tuple<Texts, int, int> cases[] = {
      {{"fallocate"}, EDQUOT, 61},
      {{"fallocate"}, EFBIG, 61},
      {{"copy_file_range", "write"}, EIO, 57},
      {{"sync_file_range"}, EIO, 57},
      {{"fsync"}, ENOSPC, 61},
      {{"renameat"}, EROFS, 75},
      {{"openat unnamed", "openat"}, EROFS, 75},
  };
  for (const auto &[calls, error, number] : cases) {
    SCOPED_TRACE(calls.back() + std::to_string(error));
    const InjectedFault fault(Fault{calls, error});
    EXPECT_EQ(Copy(), number);
    EXPECT_GT(fault.Count(), 0);
    EXPECT_EQ(Content(mTo), "old");
  }
  EXPECT_EQ(Entries(R"(C:\to)"), Texts{"x"});
}

TEST_F(DiskTest, WhatADiskCannotDoIsDoneAnotherWay) {
  for (const auto &[call, error] : {std::pair{"copy_file_range", EXDEV},
                                    {"fallocate", EOPNOTSUPP},
                                    {"sync_file_range", ENOSYS},
                                    {"openat unnamed", EOPNOTSUPP}}) {
    SCOPED_TRACE(call);
    Put(mTo, "old");
    const InjectedFault fault(call, error);
    EXPECT_EQ(Copy(), 0);
    EXPECT_GT(fault.Count(), 0);
    EXPECT_TRUE(Content(mTo) == mContent);
    EXPECT_EQ(std::filesystem::last_write_time(Host(mTo)), std::filesystem::last_write_time(Host(mFrom)));
  }
  EXPECT_EQ(Entries(R"(C:\to)"), Texts{"x"});
}

TEST_F(DiskTest, AFileUnderATemporaryNameGoesWithItsWriterAndStaysWhileItWorks) {
  const InjectedFault noUnnamedFiles("openat unnamed", EOPNOTSUPP);
  {
    const auto atWork = mPlatform->NewFiles().Create(R"(C:\Games\x)", true);
    Write(*atWork, "half a file");
    ASSERT_EQ(Entries(R"(C:\Games)").size(), 1U);
    MakeOld(Host(R"(C:\Games\)" + Entries(R"(C:\Games)").front()));
    mPlatform->NewFiles().Create(R"(C:\Games\y)", false);
    EXPECT_EQ(Entries(R"(C:\Games)").size(), 1U) << "another's work is not taken for one that was left behind";
  }
  EXPECT_EQ(Entries("C:\\"), (Texts{"from", "to"}));
}

TEST_F(DiskTest, ASourceThatChangesMeanwhileIsNotTakenHalf) {
  const std::function<void()> changes[] = {
      [this] { std::filesystem::resize_file(Host(mFrom), 100); },
      [this] { std::filesystem::resize_file(Host(mFrom), std::size_t{10} << 20U); },
      [this] { Put(mFrom, mContent); },
  };
  for (const auto &change : changes) {
    Put(mFrom, mContent);
    EXPECT_EQ(Copy([&change](std::uint64_t, std::uint64_t) { change(); }), 70);
    EXPECT_EQ(Content(mTo), "old");
  }
  EXPECT_EQ(Entries(R"(C:\to)"), Texts{"x"});
}

TEST_F(DiskTest, ALimitOnFileSizesIsAFullDiskAndNotTheEnd) {
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const rlimit small{std::size_t{1} << 16U, before.rlim_max};
  setrlimit(RLIMIT_FSIZE, &small);
  EXPECT_EQ(Copy(), 61);
  setrlimit(RLIMIT_FSIZE, &before);
  EXPECT_EQ(Entries(R"(C:\to)"), Texts{"x"});
}

} // namespace

} // namespace turfdesk::test
