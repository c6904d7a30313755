// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

// The rows of docs/zip-status.md: which fault gives which status.

#include "FakeDisk.h"
#include "platform/zip/LibzipLayer.h"
#include "samples/RawZip.h"

#include <gtest/gtest.h>

namespace turfdesk {

namespace {

using Bytes = FakeDisk::Bytes;
using samples::RawZipBytes;
using samples::RawZipEntry;

constexpr const char *Archive = "C:\\Out\\pack.hlz";
const RawZipEntry GoodEntry = {.name = "good.hlc", .data = Bytes(1'000, 'x')};

struct Trial {
  FakeDisk disk;
  std::unique_ptr<ZipLayer> zip = MakeLibzipLayer(disk, disk);
};

struct FaultCase {
  const char *name;
  std::int16_t status;
  std::function<void(Trial &)> arrange;
};

std::function<void(Trial &)> WithBytes(Bytes bytes) {
  return [bytes = std::move(bytes)](Trial &trial) { trial.disk.files[Archive].content = bytes; };
}

/// A good entry stands before the one at fault, so that its listing would be noticed.
std::function<void(Trial &)> WithEntry(RawZipEntry entry) {
  return WithBytes(RawZipBytes({GoodEntry, std::move(entry)}));
}

Bytes CutBy(std::size_t count) {
  Bytes bytes = RawZipBytes({GoodEntry});
  bytes.resize(bytes.size() - count);
  return bytes;
}

// --- Archives that are refused as a whole.

/// By the listing and by the extraction, before any event.
void ExpectRefusal(const std::function<void(Trial &)> &arrange, std::int16_t status) {
  Trial trial;
  trial.disk.files["C:\\Out\\good.hlc"].content = {7};
  arrange(trial);
  const auto failOnEvent = [](const std::string &name) { ADD_FAILURE() << "event for " << name; };
  trial.zip->ListingFile = trial.zip->UnzipPreprocessingFile = failOnEvent;
  trial.zip->ZipFilename = Archive;
  trial.zip->UnzipToFolder = "C:\\Out";
  trial.zip->FilesToProcess = "good.hlc\r";
  EXPECT_EQ(trial.zip->ListZipContents(), status);
  EXPECT_EQ(trial.zip->Unzip(0), status);
  EXPECT_EQ(trial.disk.files["C:\\Out\\good.hlc"].content, Bytes{7});
}

TEST(ZipStatusTest, RefusedArchiveGivesItsStatusBeforeAnyEvent) {
  const FaultCase cases[] = {
      {"Missing", 30, [](Trial &) {}},
      {"ZeroBytes", 50, WithBytes({})},
      {"NoEntries", 50, WithBytes(RawZipBytes({}))},
      {"OnlyFoldersAndRecords", 50,
       WithBytes(RawZipBytes({{.name = "folder/"}, {.name = "__MACOSX/x.hlc"}, {.name = "a/._x.hlc"}}))},
      {"NoUtf8", 110, WithEntry({.name = "x\xFC.hlc", .flags = 0x800})},
      {"NoZip", 100, WithBytes(Bytes(70'000, 'y'))},
      {"DirectoryBehindTheEnd", 110, WithBytes(RawZipBytes({GoodEntry}, {.directoryOffset = 0x00FFFFFF}))},
      {"DirectoryElsewhere", 110, WithBytes(RawZipBytes({GoodEntry}, {.directoryOffset = 3}))},
      {"MoreEntriesThanCounted", 110, WithBytes(RawZipBytes({GoodEntry}, {.entries = 7}))},
      {"SizeOf64BitsMissing", 110, WithEntry({.name = "large.hlc", .size = 0xFFFFFFFF})},
      {"CutInTheEndRecord", 160, WithBytes(CutBy(10))},
      {"CutInTheData", 160, WithBytes(CutBy(600))},
      {"LastOfManyDisks", 410, WithBytes(RawZipBytes({GoodEntry}, {.disk = 1}))},
      {"FirstOfManyDisks", 410, WithBytes({'P', 'K', 7, 8, 'P', 'K', 3, 4, 0, 0, 0, 0})},
      {"DeviceFails", 290,
       [](Trial &trial) {
         WithBytes(RawZipBytes({GoodEntry}))(trial);
         trial.disk.readError = ErrorNumber::DeviceIo;
       }},
      {"DriveNotReady", 400, [](Trial &trial) { trial.disk.openError = ErrorNumber::DiskNotReady; }},
  };
  for (const auto &[name, status, arrange] : cases) {
    SCOPED_TRACE(name);
    ExpectRefusal(arrange, status);
  }
}

/// Beside a good file, by which it does not keep from being extracted unless it is selected with it.
void ExpectRefusalWhereSelected(const RawZipEntry &entry, std::int16_t status, bool isListed) {
  SCOPED_TRACE(entry.name);
  Trial trial;
  int events = 0;
  trial.zip->ListingFile = trial.zip->UnzipPreprocessingFile = [&events](const std::string &) { ++events; };
  trial.zip->ZipFilename = Archive;
  trial.zip->UnzipToFolder = "C:\\Out";
  trial.zip->FilesToProcess = "*.*\r";
  WithEntry(entry)(trial);
  EXPECT_EQ(trial.zip->ListZipContents(), 0);
  EXPECT_EQ(events, isListed ? 2 : 1);
  EXPECT_EQ(trial.zip->Unzip(0), status);
  EXPECT_EQ(events, isListed ? 2 : 1) << "refused before the first event";
  trial.zip->FilesToProcess = "good.hlc\r";
  EXPECT_EQ(trial.zip->Unzip(0), 0);
  EXPECT_EQ(trial.disk.files.size(), 2U) << "the archive and the good file";
}

TEST(ZipStatusTest, AnEntryThatCannotBeExtractedHarmsOnlyWhereItIsSelected) {
  using Names = std::vector<std::string>;
  const Names outside = {"..\\up.hlc", "a/../../up.hlc",         "./../up.hlc",
                         "/etc/x.hlc", "\\\\host\\share\\x.hlc", "c:x.hlc"};
  const Names impossible = {"",
                            "12:30 shot.jpg",
                            "x?.hlc",
                            "x\".hlc",
                            "Icon\r",
                            "x\x1B.hlc",
                            std::string("x.hlc\0", 6),
                            "a /x.hlc",
                            "x.hlc.",
                            std::string(256, 'a'),
                            "..\xC0\xAFx.hlc",
                            "a\\Con.hlc",
                            "nul .tar.hlc",
                            "lpt9"};
  for (const auto &[names, status] : {std::pair(outside, 350), {impossible, 310}})
    for (const std::string &name : names)
      ExpectRefusalWhereSelected({.name = name, .data = {1}}, static_cast<std::int16_t>(status), false);
  ExpectRefusalWhereSelected({.name = "COM\xC2\xB2.hlc", .flags = 0x800}, 310, false);
  for (const char *taken : {"GOOD.HLC", "Good.hlc/x.hlb"})
    ExpectRefusalWhereSelected({.name = taken}, 370, true);
  ExpectRefusalWhereSelected({.name = "link", .data = {'/'}, .externalAttributes = 0xA1FF0000}, 310, true);
  ExpectRefusalWhereSelected({.name = "device", .externalAttributes = 0x21B60000}, 310, true);
  ExpectRefusalWhereSelected({.name = "pipe", .externalAttributes = 0x11B60000}, 310, true);
  ExpectRefusalWhereSelected({.name = "folder", .data = {1}, .externalAttributes = 0x41ED0000}, 310, true);
  ExpectRefusalWhereSelected({.name = "link", .versionMadeBy = 0x0A14, .externalAttributes = 0x00000420}, 310, true);
  ExpectRefusalWhereSelected({.name = "encrypted", .data = Bytes(20), .flags = 1}, 490, true);
  ExpectRefusalWhereSelected({.name = "bzip2", .data = {1}, .method = 12}, 490, true);
}

// --- Faults that show while the second file is being extracted.

/// A sound archive on a disk that is not.
template <typename Break> std::function<void(Trial &)> Broken(Break breakDisk) {
  return [breakDisk](Trial &trial) {
    WithEntry({.name = "bad.hlc", .data = Bytes(300'000, 'z')})(trial);
    breakDisk(trial.disk);
  };
}

RawZipEntry Bad(RawZipEntry entry) {
  entry.name = "bad.hlc";
  return entry;
}

const Bytes Data(1'000, 'd');

TEST(ZipStatusTest, FailedExtractionLeavesNothingOfTheFile) {
  const FaultCase cases[] = {
      {"MoreDataThanStated", 110, WithEntry(Bad({.data = Data, .size = 999}))},
      {"LessDataThanStated", 110, WithEntry(Bad({.data = Data, .size = 1'001}))},
      {"NoDataButASize", 110, WithEntry(Bad({.size = 5}))},
      {"NoDataButAChecksum", 110, WithEntry(Bad({.crc = 5}))},
      {"DamagedDeflateData", 110, WithEntry(Bad({.data = {0xFF, 0xFF}, .method = 8, .size = 9}))},
      {"HeaderBeyondTheEnd", 160, WithEntry(Bad({.data = Data, .localOffset = 0x00FFFFFF}))},
      {"DataBeyondTheEnd", 160, WithEntry(Bad({.data = Data, .size = 90'000, .compressedSize = 90'000}))},
      {"WrongChecksum", 200, WithEntry(Bad({.data = Data, .crc = 5}))},
      {"NothingSelected", 140, WithBytes(RawZipBytes({GoodEntry}))},

      {"TooLittleRoom", 150, Broken([](FakeDisk &disk) { disk.freeBytes = 299'999; })},
      {"DiskFull", 150, Broken([](FakeDisk &disk) { disk.room = 270'000; })},
      {"DeviceFailsReading", 290, Broken([](FakeDisk &disk) {
         disk.readErrorAt = 100'000;
         disk.readError = ErrorNumber::DeviceIo;
       })},
      {"DeviceFailsWriting", 300, Broken([](FakeDisk &disk) { disk.writeError = ErrorNumber::DeviceIo; })},
      {"ReadOnlyFile", 310, Broken([](FakeDisk &disk) { disk.commitError = ErrorNumber::PathFileAccess; })},
      {"DriveGone", 400, Broken([](FakeDisk &disk) { disk.createError = ErrorNumber::DeviceUnavailable; })},
      {"OutOfMemory", 120, Broken([](FakeDisk &disk) { disk.writeError = ErrorNumber::OutOfMemory; })},
      {"FolderMissing", 510, Broken([](FakeDisk &disk) { disk.folders.clear(); })},
  };
  for (const FaultCase &fault : cases) {
    SCOPED_TRACE(fault.name);
    Trial trial;
    trial.disk.files["C:\\Out\\bad.hlc"].content = {7};
    fault.arrange(trial);
    trial.zip->ZipFilename = Archive;
    trial.zip->UnzipToFolder = "C:\\Out";
    trial.zip->FilesToProcess = "bad.hlc\r";
    EXPECT_EQ(trial.zip->Unzip(0), fault.status);
    EXPECT_EQ(trial.disk.stagedNow, 0);
    EXPECT_EQ(trial.disk.files["C:\\Out\\bad.hlc"].content, Bytes{7});
  }
}

// --- Archives that are not written.

std::function<void(Trial &)> WithSources(std::string list) {
  return [list = std::move(list)](Trial &trial) { trial.zip->FilesToProcess += list; };
}

/// Something happens to the disk when the second file's turn has come.
template <typename Break> std::function<void(Trial &)> Meanwhile(Break breakDisk) {
  return [breakDisk](Trial &trial) {
    trial.zip->ZippingFile = [&trial, breakDisk](const std::string &) { breakDisk(trial.disk); };
  };
}

TEST(ZipStatusTest, FailedZipLeavesTheOldArchive) {
  const FaultCase cases[] = {
      {"NothingToDo", 140, [](Trial &trial) { trial.zip->FilesToProcess = "\r"; }},
      {"SameNameTwice", 370, WithSources("C:\\Other\\A.HLC\r")},
      {"TheArchiveItself", 130, WithSources("c:\\out\\PACK.hlz\r")},
      {"MissingSource", 290, WithSources("C:\\In\\c.hlb\r")},
      {"VanishedSource", 290, Meanwhile([](FakeDisk &d) { d.files.erase("C:\\In\\b.mp3"); })},
      {"ShrunkSource", 290, Meanwhile([](FakeDisk &d) { d.files["C:\\In\\a.hlc"].content.resize(1'999'999); })},
      {"GrownSource", 290, Meanwhile([](FakeDisk &d) { d.files["C:\\In\\b.mp3"].content.resize(700'001); })},
      {"DeviceFails", 290,
       [](Trial &trial) {
         trial.disk.readErrorAt = 1'500'000;
         trial.disk.readError = ErrorNumber::DeviceIo;
       }},

      {"DiskFull", 150, [](Trial &trial) { trial.disk.room = 500'000; }},
      {"DiskFullAtTheDirectory", 150, [](Trial &trial) { trial.disk.room = 702'200; }},
      {"DeviceFails", 300, [](Trial &trial) { trial.disk.writeError = ErrorNumber::DeviceIo; }},
      {"FlushFails", 300, [](Trial &trial) { trial.disk.commitError = ErrorNumber::DeviceIo; }},
      {"ReadOnly", 310, [](Trial &trial) { trial.disk.createError = ErrorNumber::PathFileAccess; }},
      {"DriveGone", 400, [](Trial &trial) { trial.disk.createError = ErrorNumber::DiskNotReady; }},
      {"FolderMissing", 510, [](Trial &trial) { trial.disk.folders.clear(); }},
  };
  for (const FaultCase &fault : cases) {
    SCOPED_TRACE(fault.name);
    Trial trial;
    trial.disk.files[Archive].content = {7};
    trial.disk.files["C:\\In\\a.hlc"].content = Bytes(2'000'000, 'a');
    trial.disk.files["C:\\In\\b.mp3"].content = Bytes(700'000, 'b');
    trial.zip->ZipFilename = Archive;
    trial.zip->FilesToProcess = "C:\\In\\a.hlc\rC:\\In\\b.mp3\r";
    fault.arrange(trial);
    EXPECT_EQ(trial.zip->Zip(0), fault.status);
    EXPECT_EQ(trial.disk.stagedNow, 0);
    EXPECT_EQ(trial.disk.files[Archive].content, Bytes{7});
  }
}

} // namespace

} // namespace turfdesk
