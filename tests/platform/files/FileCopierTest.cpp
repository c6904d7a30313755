// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "FilesTest.h"
#include "common/InjectedFault.h"

#include "platform/posix/PosixFileCopier.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <functional>

namespace turfdesk {

namespace {

/// More than the pieces that a file is copied in.
std::string LargeContent() {
  std::string content(std::size_t{9} << 20U, '\0');
  for (std::size_t i = 0; i < content.size(); i += 1000)
    content[i] = static_cast<char>(i / 1000);
  return content;
}

class FileCopierTest : public FilesTest {
protected:
  int Copy(const std::string &from, const std::string &to, const FileCopier::Report &report = {}) {
    return NumberThrownBy([&] { PosixFileCopier(mPaths).Copy(from, to, report); });
  }

  struct stat StatusOf(std::string_view path) const {
    struct stat status {};
    EXPECT_EQ(stat(Host(path).c_str(), &status), 0) << path;
    return status;
  }
};

TEST_F(FileCopierTest, CopiesContentTimeAndPermissions) {
  const std::string content = LargeContent();
  Put("from/x.hlc", content);
  std::filesystem::create_directory(Host("to"));
  chmod(Host("from/x.hlc").c_str(), 0440);
  const timespec times[] = {{1, 0}, {1'000'000'000, 123'456'789}};
  utimensat(AT_FDCWD, Host("from/x.hlc").c_str(), times, 0);

  std::uint64_t reported = 0;
  EXPECT_EQ(Copy("C:\\from\\x.hlc", "C:\\to\\x.hlc",
                 [&](std::uint64_t done, std::uint64_t total) {
                   EXPECT_LE(reported, done);
                   EXPECT_EQ(total, content.size());
                   EXPECT_FALSE(std::filesystem::exists(Host("to/x.hlc")));
                   reported = done;
                 }),
            0);
  EXPECT_EQ(reported, content.size());
  EXPECT_TRUE(Content("to/x.hlc") == content);
  EXPECT_EQ(Entries("to"), std::vector<std::string>{"x.hlc"});
  const struct stat copy = StatusOf("to/x.hlc");
  EXPECT_EQ(copy.st_mtim.tv_sec, 1'000'000'000);
  EXPECT_EQ(copy.st_mtim.tv_nsec, 123'456'789);
  // A copy from a read-only medium must not be read-only for good.
  EXPECT_EQ(copy.st_mode & 0700, 0600U);
}

TEST_F(FileCopierTest, WhatIsReplacedKeepsItsNameAndPermissions) {
  Put("new", "new");
  Put("Folder/Old.hlc", "old content");
  chmod(Host("Folder/Old.hlc").c_str(), 0604);
  std::filesystem::create_symlink("Folder/Old.hlc", Host("link"));
  EXPECT_EQ(Copy("C:\\NEW", "C:\\FOLDER\\OLD.HLC"), 0);
  EXPECT_EQ(Content("Folder/Old.hlc"), "new");
  EXPECT_EQ(StatusOf("Folder/Old.hlc").st_mode & 0777, 0604U);

  Put("empty", "");
  EXPECT_EQ(Copy("C:\\empty", "C:\\link"), 0);
  EXPECT_TRUE(std::filesystem::is_symlink(Host("link")));
  EXPECT_EQ(Content("Folder/Old.hlc"), "");
  EXPECT_EQ(Entries("Folder"), std::vector<std::string>{"Old.hlc"});
}

TEST_F(FileCopierTest, RefusalsHaveTheirNumbersAndChangeNothing) {
  Put("Games/x.hlc", "one of a kind");
  Put("Games/locked", "locked");
  chmod(Host("Games/locked").c_str(), 0444);
  std::filesystem::create_directory(Host("Games/folder"));
  std::filesystem::create_hard_link(Host("Games/x.hlc"), Host("Games/hard"));
  std::filesystem::create_symlink("x.hlc", Host("Games/soft"));
  std::filesystem::create_symlink("nowhere/x", Host("Games/broken"));
  std::filesystem::create_directory_symlink(Host("Games"), mHome / "drives/d:");
  std::filesystem::create_directory_symlink(mFolder / "gone", mHome / "drives/e:");
  mkfifo(Host("Games/pipe").c_str(), 0600);
  const std::vector<std::string> before = Entries("Games");
  struct Case {
    const char *from, *to;
    int number;
  } const cases[] = {
      {"C:\\Games\\x.hlc", "C:\\Games\\x.hlc", 70},
      {"C:\\Games\\x.hlc", "c:/games/.\\X.HLC", 70},
      {"C:\\Games\\x.hlc", "C:\\Games\\hard", 70},
      {"C:\\Games\\soft", "C:\\Games\\x.hlc", 70},
      {"C:\\Games\\x.hlc", "C:\\Games\\soft", 70},
      {"C:\\Games\\x.hlc", "D:\\x.hlc", 70},
      {"C:\\Games\\x.hlc", "C:\\Games\\LOCKED", 75},
      {"C:\\Games\\x.hlc", "C:\\Games\\folder", 75},
      {"C:\\Games\\x.hlc", "C:\\Games\\pipe", 75},
      {"C:\\Games\\x.hlc", "C:\\", 75},
      {"C:\\Games\\pipe", "C:\\Games\\y", 75},
      {"C:\\Games", "C:\\Games\\y", 75},
      {"Z:\\dev\\zero", "C:\\Games\\y", 75},
      {"C:\\Games\\none", "C:\\Games\\y", 53},
      {"C:\\none\\x", "C:\\Games\\y", 76},
      {"C:\\Games\\x.hlc", "C:\\none\\y", 76},
      {"C:\\Games\\x.hlc", "C:\\Games\\locked\\y", 76},
      {"C:\\Games\\x.hlc", "C:\\Games\\broken", 76},
      {"C:\\Games\\x.hlc", "Q:\\y", 68},
      {"C:\\Games\\x.hlc", "E:\\y", 71},
      {"C:\\Games\\x.hlc", "C:\\Games\\y?", 52},
      {"", "C:\\Games\\y", 76},
      {"C:\\Games\\x.hlc", "", 76},
  };
  for (const Case &c : cases) {
    EXPECT_EQ(Copy(c.from, c.to), c.number) << c.from << " to " << c.to;
    EXPECT_EQ(Entries("Games"), before) << c.from << " to " << c.to;
  }
  EXPECT_EQ(Content("Games/x.hlc"), "one of a kind");
  EXPECT_EQ(Content("Games/locked"), "locked");
}

struct Fault {
  const char *call;
  int error;
};
using Faults = std::vector<Fault>;

class FileCopierFaultTest : public FileCopierTest {
protected:
  /// Copies over an old file while faults strike, each at least once.
  int CopyWith(const Faults &faults) {
    Put("to/x", "old");
    std::vector<std::unique_ptr<InjectedFault>> injected;
    for (const Fault &fault : faults)
      injected.push_back(std::make_unique<InjectedFault>(fault.call, fault.error));
    const int number = Copy("C:\\from", "C:\\to\\x");
    for (std::size_t i = 0; i < faults.size(); ++i)
      EXPECT_GT(injected[i]->Count(), 0) << faults[i].call;
    return number;
  }
};

TEST_F(FileCopierFaultTest, AFailureLeavesTheOldFileAndNothingElse) {
  Put("from", LargeContent());
  const struct {
    Faults faults;
    int number;
  } cases[] = {
      {{{"fallocate", ENOSPC}}, 61},
      {{{"fallocate", EDQUOT}}, 61},
      {{{"fallocate", EFBIG}}, 61},
      {{{"copy_file_range", ENOSPC}, {"write", ENOSPC}}, 61},
      {{{"copy_file_range", EIO}, {"write", EIO}}, 57},
      {{{"sync_file_range", EIO}}, 57},
      {{{"fsync", EIO}}, 57},
      {{{"fsync", ENOSPC}}, 61},
      {{{"linkat", EACCES}}, 75},
      {{{"renameat", EROFS}}, 75},
      {{{"openat unnamed", EOPNOTSUPP}, {"fsync", EIO}}, 57},
      {{{"openat unnamed", EACCES}, {"openat", EACCES}}, 75},
      {{{"openat unnamed", EROFS}, {"openat", EROFS}}, 75},
  };
  for (const auto &c : cases) {
    SCOPED_TRACE(c.faults.back().call + std::to_string(c.faults.back().error));
    EXPECT_EQ(CopyWith(c.faults), c.number);
    EXPECT_EQ(Content("to/x"), "old");
    EXPECT_EQ(Entries("to"), std::vector<std::string>{"x"});
  }
}

TEST_F(FileCopierFaultTest, WhatADiskCannotDoIsDoneAnotherWay) {
  const std::string content = LargeContent();
  Put("from", content);
  const Fault cases[] = {{"copy_file_range", EXDEV},
                         {"fallocate", EOPNOTSUPP},
                         {"sync_file_range", ENOSYS},
                         {"openat unnamed", EOPNOTSUPP}};
  for (const Fault &fault : cases) {
    SCOPED_TRACE(fault.call);
    EXPECT_EQ(CopyWith({fault}), 0);
    EXPECT_TRUE(Content("to/x") == content);
    EXPECT_EQ(Entries("to"), std::vector<std::string>{"x"});
  }
}

TEST_F(FileCopierTest, ASourceThatChangesMeanwhileIsNotTakenHalf) {
  const std::function<void()> changes[] = {
      [this] { std::filesystem::resize_file(Host("from"), 100); },
      [this] { std::filesystem::resize_file(Host("from"), std::size_t{10} << 20U); },
      [this] { Put("from", LargeContent()); },
  };
  for (const auto &change : changes) {
    Put("from", LargeContent());
    Put("to/x", "old");
    EXPECT_EQ(Copy("C:\\from", "C:\\to\\x", [&change](std::uint64_t, std::uint64_t) { change(); }), 70);
    EXPECT_EQ(Content("to/x"), "old");
    EXPECT_EQ(Entries("to"), std::vector<std::string>{"x"});
  }
}

TEST_F(FileCopierTest, ADestinationThatIsProtectedMeanwhileStays) {
  Put("from", "new");
  Put("to/x", "old");
  EXPECT_EQ(Copy("C:\\from", "C:\\to\\x", [this](std::uint64_t, std::uint64_t) { chmod(Host("to/x").c_str(), 0444); }),
            75);
  EXPECT_EQ(Content("to/x"), "old");
}

} // namespace

} // namespace turfdesk
