// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "FilesTest.h"

#include "platform/CaseFold.h"
#include "platform/windows/WideText.h"
#include "platform/windows/WindowsFileCopier.h"
#include "platform/windows/WindowsFileService.h"
#include "platform/windows/WindowsFolderReader.h"
#include "platform/windows/WindowsProcesses.h"

#include <windows.h>

// The system has macros of these names.
#undef DeleteFile
#undef GetShortPathName

#include <algorithm>

namespace turfdesk {

namespace {

using Names = std::vector<std::string>;

/// A drive letter that nothing uses.
std::string FreeDrive() {
  for (char letter = 'G'; letter < 'Y'; ++letter)
    if ((GetLogicalDrives() >> (letter - 'A') & 1U) == 0)
      return {letter, ':'};
  throw std::runtime_error("no drive letter is free");
}

/// A drive letter for a folder that has become a file since: the letter is there, but nothing can be reached by it.
class DriveWithoutMedium {
public:
  explicit DriveWithoutMedium(const std::string &folder) {
    CreateDirectoryW(ToWide(folder).c_str(), nullptr);
    EXPECT_NE(DefineDosDeviceW(0, ToWide(mDrive).c_str(), ToWide(folder).c_str()), 0);
    RemoveDirectoryW(ToWide(folder).c_str());
    const SystemHandle file(CreateFileW(ToWide(folder).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr));
    EXPECT_TRUE(file.IsOpen());
  }
  DriveWithoutMedium(const DriveWithoutMedium &) = delete;
  DriveWithoutMedium &operator=(const DriveWithoutMedium &) = delete;
  ~DriveWithoutMedium() { DefineDosDeviceW(DDD_REMOVE_DEFINITION, ToWide(mDrive).c_str(), nullptr); }

  const std::string &Name() const { return mDrive; }

private:
  std::string mDrive = FreeDrive();
};

class DrivesAndFoldersTest : public FilesTest {
protected:
  /// Each way to use the drive gives this number.
  void ExpectNumberOfDrive(const std::string &drive, int number) {
    Put("x", "");
    for (const std::string &folder : {drive, drive + "\\", drive + "\\folder"}) {
      EXPECT_EQ(NumberThrownBy([&] { mReader.Subfolders(folder); }), number) << folder;
      EXPECT_EQ(NumberThrownBy([&] { mReader.Files(folder, "*"); }), number) << folder;
      EXPECT_EQ(NumberThrownBy([&] { mReader.CanonicalFolder(folder); }), number) << folder;
      EXPECT_EQ(NumberThrownBy([&] { mNewFiles.FreeBytes(folder); }), number) << folder;
      EXPECT_FALSE(mService.DirExists(folder)) << folder;
    }
    for (const std::string &file : {drive + "\\x", drive + "\\folder\\x"}) {
      EXPECT_EQ(NumberThrownBy([&] { mNewFiles.Create(file, false); }), number) << file;
      EXPECT_EQ(NumberThrownBy([&] { mNewFiles.Create(file, true); }), number) << file;
      EXPECT_EQ(NumberThrownBy([&] { WindowsFileCopier().Copy(file, Path("y"), {}); }), number) << file;
      EXPECT_EQ(NumberThrownBy([&] { WindowsFileCopier().Copy(Path("x"), file, {}); }), number) << file;
      EXPECT_EQ(NumberThrownBy([&] { WindowsProcesses().Shell(file, {}, WindowStyle::Hidden); }), number) << file;
      mService.DeleteFile(file);
      EXPECT_EQ(mService.LastError(), number) << file;
      EXPECT_EQ(mFiles.OpenForBinaryRead(file), nullptr) << file;
    }
  }

  WindowsFileService mService;
  WindowsFolderReader mReader;
};

TEST_F(DrivesAndFoldersTest, AMissingDriveIsUnavailable) { ExpectNumberOfDrive(FreeDrive(), 68); }

TEST_F(DrivesAndFoldersTest, ADriveWithoutMediumIsNotReady) {
  const DriveWithoutMedium drive(Path("medium"));
  const Names drives = mReader.Drives();
  ASSERT_NE(std::find(drives.begin(), drives.end(), drive.Name()), drives.end());
  ExpectNumberOfDrive(drive.Name(), 71);
}

TEST_F(DrivesAndFoldersTest, ListsWhatIsNotHidden) {
  for (const char *file : {"b.hlc", "A.hlb", "\u00C4.hlc", "c.HLC", "\U0001F3CC.hlc", "note.txt", "Folder.hlc\\x",
                           "sub\\x", "secret.hlc", "hidden\\x"})
    Put(file, "");
  SetAttributes(Path("secret.hlc"), FILE_ATTRIBUTE_HIDDEN);
  SetAttributes(Path("hidden"), FILE_ATTRIBUTE_HIDDEN);
  EXPECT_EQ(mReader.Files(mFolder, "*.hlc; *.HLB"), (Names{"A.hlb", "b.hlc", "c.HLC", "\u00C4.hlc", "\U0001F3CC.hlc"}));
  EXPECT_EQ(mReader.Subfolders(mFolder + "\\"), (Names{"Folder.hlc", "sub"}));
}

TEST_F(DrivesAndFoldersTest, FoldersHaveOneCanonicalPath) {
  Put("Old Courses\\Deep\\x", "");
  wchar_t shortPath[MAX_PATH];
  ASSERT_NE(GetShortPathNameW(ToWide(Path("Old Courses\\Deep")).c_str(), shortPath, MAX_PATH), 0U);
  for (const std::string &path :
       {Path("Old Courses\\Deep"), Path("OLD courses/deep/"), Path("x\\..\\old courses\\.\\DEEP"), ToUtf8(shortPath)})
    EXPECT_EQ(mReader.CanonicalFolder(path), mReader.CanonicalFolder(mFolder) + "\\Old Courses\\Deep") << path;
  EXPECT_EQ(mReader.CanonicalFolder("c:"), "C:\\");
  EXPECT_EQ(mReader.CanonicalFolder("C:\\windows\\.."), "C:\\");
  for (const std::string &folder : {Path("none"), Path("Old Courses\\Deep\\x"), Path("a*b"), std::string("x")}) {
    EXPECT_EQ(NumberThrownBy([&] { mReader.CanonicalFolder(folder); }), 76) << folder;
    EXPECT_EQ(NumberThrownBy([&] { mReader.Files(folder, "*"); }), 76) << folder;
  }
  wchar_t before[MAX_PATH];
  GetCurrentDirectoryW(MAX_PATH, before);
  SetCurrentDirectoryW(L"c:\\WINDOWS");
  EXPECT_TRUE(EqualsIgnoringCase(mReader.StartFolder(), "C:\\windows")) << mReader.StartFolder();
  SetCurrentDirectoryW(before);
}

TEST_F(DrivesAndFoldersTest, TheShortPathHasNoBlanks) {
  const std::string file = Put("Old Courses\\Caf\u00E9 \u0416 links.qar", "content");
  const std::string shortPath = WindowsProcesses().GetShortPathName(Path("OLD courses"));
  ASSERT_NE(shortPath, "");
  EXPECT_FALSE(shortPath.starts_with("\\\\")) << shortPath;
  EXPECT_EQ(shortPath.find(' '), std::string::npos) << shortPath;
  EXPECT_TRUE(mNewFiles.IsSameFile(shortPath, Path("Old Courses")));
  EXPECT_TRUE(mNewFiles.IsSameFile(WindowsProcesses().GetShortPathName(file), file));
  for (const std::string &none : {Path("none"), Path("a*b"), std::string(), std::string("x")})
    EXPECT_EQ(WindowsProcesses().GetShortPathName(none), "") << none;
}

TEST_F(DrivesAndFoldersTest, TellsWhichNamesAPackageCanHave) {
  Put("Games\\old.hlz", "");
  for (const char *valid : {"Games\\new.hlz", "Games\\old.hlz", "games/\U0001F3CC", "console.hlz", "COM10"})
    EXPECT_TRUE(mService.IsValidFilename(Path(valid))) << valid;
  for (const char *invalid : {"none\\new.hlz", "Games", "Games\\", "new.", "new ", "a?b", "con", "NUL.tar.hlz", ".."})
    EXPECT_FALSE(mService.IsValidFilename(Path(invalid))) << invalid;
  for (const char *invalid : {"", "new.hlz", "C:new.hlz", "\\new.hlz", "C:\\"})
    EXPECT_FALSE(mService.IsValidFilename(invalid)) << invalid;
}

} // namespace

} // namespace turfdesk
