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

void PrintTo(const FaultCase &fault, std::ostream *out) { *out << fault.name; }

std::string NameOf(const testing::TestParamInfo<FaultCase> &info) { return info.param.name; }

std::function<void(Trial &)> WithBytes(Bytes bytes) {
  return [bytes = std::move(bytes)](Trial &trial) { trial.disk.files[Archive].content = bytes; };
}

/// A good entry stands before the one at fault, so that its listing would be noticed.
std::function<void(Trial &)> WithEntry(RawZipEntry entry) {
  return WithBytes(RawZipBytes({GoodEntry, std::move(entry)}));
}

std::function<void(Trial &)> WithName(std::string name, std::uint16_t flags = 0) {
  return WithEntry({.name = std::move(name), .data = {1}, .flags = flags});
}

Bytes CutBy(std::size_t count) {
  Bytes bytes = RawZipBytes({GoodEntry});
  bytes.resize(bytes.size() - count);
  return bytes;
}

// --- Archives that are refused as a whole, by the listing and by the extraction.

class RefusedArchive : public testing::TestWithParam<FaultCase> {};

TEST_P(RefusedArchive, GivesItsStatusBeforeAnyEvent) {
  Trial trial;
  trial.disk.files["C:\\Out\\good.hlc"].content = {7};
  GetParam().arrange(trial);
  const auto failOnEvent = [](const std::string &name) { ADD_FAILURE() << "event for " << name; };
  trial.zip->ListingFile = trial.zip->UnzipPreprocessingFile = failOnEvent;
  trial.zip->ZipFilename = Archive;
  trial.zip->UnzipToFolder = "C:\\Out";
  // The faulty entries themselves are not selected.
  trial.zip->FilesToProcess = "good.hlc\r";
  EXPECT_EQ(trial.zip->ListZipContents(), GetParam().status);
  EXPECT_EQ(trial.zip->Unzip(0), GetParam().status);
  EXPECT_EQ(trial.disk.files["C:\\Out\\good.hlc"].content, Bytes{7});
}

const RawZipEntry Link = {.name = "link.hlc", .data = {'/'}, .externalAttributes = 0xA1FF0000};
const RawZipEntry Device = {.name = "device.hlc", .externalAttributes = 0x21B60000};
const RawZipEntry WindowsLink = {.name = "link.hlc", .versionMadeBy = 0x0A14, .externalAttributes = 0x00000420};
const RawZipEntry Encrypted = {.name = "secret.hlc", .data = Bytes(20), .flags = 1};
// Its size is in a field of 64 bits, which it lacks.
const RawZipEntry Large = {.name = "large.hlc", .size = 0xFFFFFFFF};
const RawZipEntry Bzip2 = {.name = "new.hlc", .data = {1}, .method = 12};

INSTANTIATE_TEST_SUITE_P(
    Files, RefusedArchive,
    testing::Values(
        FaultCase{"Missing", 30, [](Trial &) {}}, FaultCase{"ZeroBytes", 50, WithBytes({})},
        FaultCase{"NoEntries", 50, WithBytes(RawZipBytes({}))},
        FaultCase{"OnlyFolders", 50, WithBytes(RawZipBytes({{.name = "folder/"}}))},
        FaultCase{"NoZip", 100, WithBytes(Bytes(70'000, 'y'))},
        FaultCase{"DirectoryBehindTheEnd", 110, WithBytes(RawZipBytes({GoodEntry}, {.directoryOffset = 0x00FFFFFF}))},
        FaultCase{"DirectoryElsewhere", 110, WithBytes(RawZipBytes({GoodEntry}, {.directoryOffset = 3}))},
        FaultCase{"MoreEntriesThanCounted", 110, WithBytes(RawZipBytes({GoodEntry}, {.entries = 7}))},
        FaultCase{"SizeOf64BitsMissing", 110, WithEntry(Large)},
        FaultCase{"CutInTheEndRecord", 160, WithBytes(CutBy(10))},
        FaultCase{"CutInTheData", 160, WithBytes(CutBy(600))},
        FaultCase{"LastOfManyDisks", 410, WithBytes(RawZipBytes({GoodEntry}, {.disk = 1}))},
        FaultCase{"FirstOfManyDisks", 410, WithBytes({'P', 'K', 7, 8, 'P', 'K', 3, 4, 0, 0, 0, 0})},
        FaultCase{"DeviceFails", 290,
                  [](Trial &trial) {
                    WithBytes(RawZipBytes({GoodEntry}))(trial);
                    trial.disk.readError = ErrorNumber::DeviceIo;
                  }},
        FaultCase{"NoAccess", 290, [](Trial &trial) { trial.disk.openError = ErrorNumber::PathFileAccess; }},
        FaultCase{"DriveNotReady", 400, [](Trial &trial) { trial.disk.openError = ErrorNumber::DiskNotReady; }}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Entries, RefusedArchive,
    testing::Values(
        FaultCase{"Empty", 310, WithName("")}, FaultCase{"Parent", 350, WithName("..\\up.hlc")},
        FaultCase{"ParentInside", 350, WithName("a/../../up.hlc")}, FaultCase{"Absolute", 350, WithName("/etc/x.hlc")},
        FaultCase{"NetworkShare", 350, WithName("\\\\host\\share\\x.hlc")},
        FaultCase{"DriveLetter", 350, WithName("c:x.hlc")}, FaultCase{"ParentFolder", 350, WithName("../")},
        FaultCase{"Dot", 310, WithName("./x.hlc")}, FaultCase{"EmptyFolder", 310, WithName("a//x.hlc")},
        FaultCase{"Colon", 310, WithName("x.hlc:y")}, FaultCase{"Wildcard", 310, WithName("x?.hlc")},
        FaultCase{"Quote", 310, WithName("x\".hlc")}, FaultCase{"Control", 310, WithName("x\n.hlc")},
        FaultCase{"Escape", 310, WithName("x\x1B.hlc")},
        FaultCase{"NulAtTheEnd", 310, WithName(std::string("x.hlc\0", 6))},
        FaultCase{"TrailingBlank", 310, WithName("a /x.hlc")}, FaultCase{"TrailingDot", 310, WithName("x.hlc.")},
        FaultCase{"Device", 310, WithName("a\\Con.hlc")}, FaultCase{"DeviceWithBlank", 310, WithName("nul .tar.hlc")},
        FaultCase{"DeviceWithNumber", 310, WithName("lpt9")},
        FaultCase{"DeviceWithSuperscript", 310, WithName("COM\xC2\xB2.hlc", 0x800)},
        FaultCase{"LongComponent", 310, WithName(std::string(256, 'a'))},
        FaultCase{"OverlongEncoding", 310, WithName("..\xC0\xAFx.hlc")},
        FaultCase{"NotTheUtf8ThatItSays", 110, WithName("x\xFC.hlc", 0x800)}, FaultCase{"Link", 310, WithEntry(Link)},
        FaultCase{"SpecialFile", 310, WithEntry(Device)}, FaultCase{"WindowsLink", 310, WithEntry(WindowsLink)},
        FaultCase{"SameName", 370, WithName("good.hlc")}, FaultCase{"SameNameInOtherCase", 370, WithName("GOOD.HLC")},
        FaultCase{"FileIsFolderOfAnother", 370, WithName("Good.hlc/x.hlb")},
        FaultCase{"FileIsAlsoFolder", 370, WithName("good.hlc\\")}, FaultCase{"Encrypted", 490, WithEntry(Encrypted)},
        FaultCase{"UnknownMethod", 490, WithEntry(Bzip2)}),
    NameOf);

// --- Faults that show while the second file is being extracted.

class FailedExtraction : public testing::TestWithParam<FaultCase> {};

TEST_P(FailedExtraction, LeavesNothingOfTheFile) {
  Trial trial;
  trial.disk.files["C:\\Out\\bad.hlc"].content = {7};
  GetParam().arrange(trial);
  trial.zip->ZipFilename = Archive;
  trial.zip->UnzipToFolder = "C:\\Out";
  trial.zip->FilesToProcess = "bad.hlc\r";
  EXPECT_EQ(trial.zip->Unzip(0), GetParam().status);
  EXPECT_EQ(trial.disk.stagedNow, 0);
  EXPECT_EQ(trial.disk.files["C:\\Out\\bad.hlc"].content, Bytes{7});
}

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

INSTANTIATE_TEST_SUITE_P(
    Archives, FailedExtraction,
    testing::Values(
        FaultCase{"MoreDataThanStated", 110, WithEntry(Bad({.data = Data, .size = 999}))},
        FaultCase{"LessDataThanStated", 110, WithEntry(Bad({.data = Data, .size = 1'001}))},
        FaultCase{"NoDataButASize", 110, WithEntry(Bad({.size = 5}))},
        FaultCase{"NoDataButAChecksum", 110, WithEntry(Bad({.crc = 5}))},
        FaultCase{"DamagedDeflateData", 110, WithEntry(Bad({.data = {0xFF, 0xFF}, .method = 8, .size = 9}))},
        FaultCase{"HeaderBeyondTheEnd", 160, WithEntry(Bad({.data = Data, .localOffset = 0x00FFFFFF}))},
        FaultCase{"DataBeyondTheEnd", 160, WithEntry(Bad({.data = Data, .size = 90'000, .compressedSize = 90'000}))},
        FaultCase{"WrongChecksum", 200, WithEntry(Bad({.data = Data, .crc = 5}))},
        FaultCase{"NothingSelected", 140, WithBytes(RawZipBytes({GoodEntry}))}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Disks, FailedExtraction,
    testing::Values(
        FaultCase{"TooLittleRoom", 150, Broken([](FakeDisk &disk) { disk.freeBytes = 299'999; })},
        FaultCase{"DiskFull", 150, Broken([](FakeDisk &disk) { disk.room = 270'000; })},
        FaultCase{"DeviceFailsReading", 290, Broken([](FakeDisk &disk) {
                    disk.readErrorAt = 100'000;
                    disk.readError = ErrorNumber::DeviceIo;
                  })},
        FaultCase{"DeviceFailsWriting", 300, Broken([](FakeDisk &disk) { disk.writeError = ErrorNumber::DeviceIo; })},
        FaultCase{"ReadOnlyFile", 310, Broken([](FakeDisk &disk) { disk.commitError = ErrorNumber::PathFileAccess; })},
        FaultCase{"DriveGone", 400, Broken([](FakeDisk &disk) { disk.createError = ErrorNumber::DeviceUnavailable; })},
        FaultCase{"OutOfMemory", 120, Broken([](FakeDisk &disk) { disk.writeError = ErrorNumber::OutOfMemory; })},
        FaultCase{"FolderMissing", 510, Broken([](FakeDisk &disk) { disk.folders.clear(); })}),
    NameOf);

// --- Archives that are not written.

class FailedZip : public testing::TestWithParam<FaultCase> {};

TEST_P(FailedZip, LeavesTheOldArchive) {
  Trial trial;
  trial.disk.files[Archive].content = {7};
  trial.disk.files["C:\\In\\a.hlc"].content = Bytes(2'000'000, 'a');
  trial.disk.files["C:\\In\\b.mp3"].content = Bytes(700'000, 'b');
  trial.zip->ZipFilename = Archive;
  trial.zip->FilesToProcess = "C:\\In\\a.hlc\rC:\\In\\b.mp3\r";
  GetParam().arrange(trial);
  EXPECT_EQ(trial.zip->Zip(0), GetParam().status);
  EXPECT_EQ(trial.disk.stagedNow, 0);
  EXPECT_EQ(trial.disk.files[Archive].content, Bytes{7});
}

std::function<void(Trial &)> WithSources(std::string list) {
  return [list = std::move(list)](Trial &trial) { trial.zip->FilesToProcess += list; };
}

/// Something happens to the disk when the second file's turn has come.
template <typename Break> std::function<void(Trial &)> Meanwhile(Break breakDisk) {
  return [breakDisk](Trial &trial) {
    trial.zip->ZippingFile = [&trial, breakDisk](const std::string &) { breakDisk(trial.disk); };
  };
}

INSTANTIATE_TEST_SUITE_P(
    Sources, FailedZip,
    testing::Values(
        FaultCase{"NothingToDo", 140, [](Trial &trial) { trial.zip->FilesToProcess = "\r"; }},
        FaultCase{"SameNameTwice", 370, WithSources("C:\\Other\\A.HLC\r")},
        FaultCase{"TheArchiveItself", 130, WithSources("c:\\out\\PACK.hlz\r")},
        FaultCase{"MissingSource", 290, WithSources("C:\\In\\c.hlb\r")},
        FaultCase{"VanishedSource", 290, Meanwhile([](FakeDisk &d) { d.files.erase("C:\\In\\b.mp3"); })},
        FaultCase{"ShrunkSource", 290,
                  Meanwhile([](FakeDisk &d) { d.files["C:\\In\\a.hlc"].content.resize(1'999'999); })},
        FaultCase{"GrownSource", 290, Meanwhile([](FakeDisk &d) { d.files["C:\\In\\b.mp3"].content.resize(700'001); })},
        FaultCase{"NoAccess", 290, [](Trial &trial) { trial.disk.openError = ErrorNumber::PermissionDenied; }},
        FaultCase{"DeviceFails", 290,
                  [](Trial &trial) {
                    trial.disk.readErrorAt = 1'500'000;
                    trial.disk.readError = ErrorNumber::DeviceIo;
                  }}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Destinations, FailedZip,
    testing::Values(
        FaultCase{"DiskFull", 150, [](Trial &trial) { trial.disk.room = 500'000; }},
        FaultCase{"DiskFullAtTheDirectory", 150, [](Trial &trial) { trial.disk.room = 702'200; }},
        FaultCase{"DeviceFails", 300, [](Trial &trial) { trial.disk.writeError = ErrorNumber::DeviceIo; }},
        FaultCase{"FlushFails", 300, [](Trial &trial) { trial.disk.commitError = ErrorNumber::DeviceIo; }},
        FaultCase{"ReadOnly", 310, [](Trial &trial) { trial.disk.createError = ErrorNumber::PathFileAccess; }},
        FaultCase{"BadName", 310, [](Trial &trial) { trial.disk.createError = ErrorNumber::BadFileName; }},
        FaultCase{"DriveGone", 400, [](Trial &trial) { trial.disk.createError = ErrorNumber::DiskNotReady; }},
        FaultCase{"FolderMissing", 510, [](Trial &trial) { trial.disk.folders.clear(); }}),
    NameOf);

} // namespace

} // namespace turfdesk
