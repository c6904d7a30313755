// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "FakeDisk.h"
#include "platform/zip/LibzipLayer.h"
#include "samples/Packages.h"

#include <gtest/gtest.h>

#include <random>
#include <stdexcept>

namespace turfdesk {

namespace {

using Bytes = FakeDisk::Bytes;
using samples::RawZipBytes;
using samples::RawZipEntry;

constexpr const char *Archive = "C:\\Out\\pack.hlz";

/// Text-like bytes, so that both matches and literals occur.
Bytes Content(std::size_t size, unsigned seed) {
  std::mt19937 random(seed);
  Bytes bytes(size);
  for (std::size_t i = 0; i < size; ++i)
    bytes[i] = i > 40'000 && i / 64 % 3 == 0 ? bytes[i - 31'000] : static_cast<std::uint8_t>(random() % 64);
  return bytes;
}

class RecordedProgress final : public Progress {
public:
  void Begin(std::uint64_t totalBytes) override {
    total = totalBytes;
    position = 0;
  }
  void SetPosition(std::uint64_t doneBytes) override {
    EXPECT_GE(doneBytes, position);
    position = doneBytes;
  }
  std::uint64_t total = 0;
  std::uint64_t position = 0;
};

class ZipLayerTest : public testing::Test {
protected:
  ZipLayerTest() {
    zip->ZipFilename = Archive;
    zip->UnzipToFolder = "C:\\Out";
    zip->FilesToProcess = "*.*";
    zip->WorkProgress = &progress;
    zip->Repaint = [this] { ++repaints; };
    zip->ListingFile = Record("list ");
    zip->UnzipPreprocessingFile = Record("unzip ");
    zip->ZipPreprocessingFile = Record("prepare ");
    zip->ZippingFile = Record("zip ");
  }

  ZipLayer::EntryEvent Record(const std::string &prefix) {
    return [this, prefix](const std::string &name) { events.push_back(prefix + name); };
  }

  void PutArchive(const std::vector<RawZipEntry> &entries) { disk.files[Archive].content = RawZipBytes(entries); }

  /// The names that a listing gives.
  std::vector<std::string> Listed() {
    std::vector<std::string> names;
    zip->ListingFile = [&names](const std::string &name) { names.push_back(name); };
    EXPECT_EQ(zip->ListZipContents(), 0);
    return names;
  }

  FakeDisk disk;
  std::unique_ptr<ZipLayer> zip = MakeLibzipLayer(disk, disk);
  RecordedProgress progress;
  int repaints = 0;
  std::vector<std::string> events;
};

using Names = std::vector<std::string>;

TEST_F(ZipLayerTest, WhatIsZippedComesBackTheSame) {
  // Around the sizes at which blocks begin and end, and long enough to have many of them at work at once.
  constexpr std::size_t block = std::size_t{128} * 1024;
  const std::vector<std::pair<std::string, std::size_t>> sources = {
      {"empty.hlb", 0},         {"one byte.hlb", 1},       {"below.hlb", block - 1},     {"block.hlb", block},
      {"above.HLB", block + 1}, {"blocks.hlb", 5 * block}, {"Löwenzahn.hlc", 3'000'000}, {"music.MP3", 300'000},
  };
  FakeDisk originals;
  std::uint64_t total = 0;
  zip->FilesToProcess.clear();
  for (const auto &[name, size] : sources) {
    const std::string path = "C:\\In\\" + name;
    // An odd second, which only the extended timestamp can hold.
    originals.files["C:\\Out\\" + name] = disk.files[path] = {Content(size, 1), 1'600'000'001};
    zip->FilesToProcess += path + '\r';
    total += size;
  }
  zip->FilesToProcess += "c:\\in\\Block.hlb\r"; // once more, and no other file
  ASSERT_EQ(zip->Zip(0), 0);
  EXPECT_EQ(disk.flushes, 1);
  EXPECT_EQ(events.size(), 2 * sources.size());
  EXPECT_EQ(events[2], "prepare C:\\In\\one byte.hlb");
  EXPECT_EQ(events[3], "zip C:\\In\\one byte.hlb");
  EXPECT_EQ(progress.total, total);
  EXPECT_EQ(progress.position, total);
  EXPECT_GT(repaints, 0);
  const std::string archive(disk.files[Archive].content.begin(), disk.files[Archive].content.end());
  constexpr std::size_t flagsBeforeName = 30 - 7;
  EXPECT_EQ(archive.at(archive.find("Löwenzahn") - flagsBeforeName), 0x08) << "not marked as UTF-8";

  zip->FilesToProcess = "*.*";
  ASSERT_EQ(zip->Unzip(0), 0);
  EXPECT_EQ(progress.position, total);
  EXPECT_EQ(disk.stagedNow, 0);
  for (const auto &[path, file] : originals.files) {
    EXPECT_TRUE(disk.files[path].content == file.content) << path;
    EXPECT_EQ(disk.files[path].modified, file.modified) << path;
  }
}

TEST_F(ZipLayerTest, ReplacesTheArchiveAndCompressesAllButWhatIsDenseAlready) {
  // Repeats itself at such a distance that it shrinks this far only when a block knows the one before it.
  const Bytes period = Content(30'000, 5);
  Bytes content;
  while (content.size() < 1'000'000)
    content.insert(content.end(), period.begin(), period.end());
  const std::pair<std::string, bool> cases[] = {{"b.mp3", false}, {"c.MPG", false}, {"d.avi", false}, {"a.hlc", true}};
  for (const auto &[name, compressed] : cases) {
    disk.files["C:\\In\\" + name].content = content;
    zip->FilesToProcess = "C:\\In\\" + name + '\r';
    ASSERT_EQ(zip->Zip(0), 0) << name;
    EXPECT_EQ(disk.files[Archive].content.size() < 2 * period.size(), compressed) << name;
  }
}

TEST_F(ZipLayerTest, NamesAreListedAsTheyAreExtracted) {
  PutArchive({{.name = "./deep//er\\Kurs.hlc", .data = {1}},
              {.name = "deep/"},
              {.name = "Deep\\."},
              {.name = "deep", .externalAttributes = 0x41ED0000},
              {.name = "deep/er", .externalAttributes = 0x10},
              {.name = "__MACOSX/._x.hlc"},
              {.name = "deep/._Kurs.hlc"},
              {.name = "br\201cke.txt", .data = {2}},
              {.name = "grün.txt", .data = {3}, .flags = 0x800},
              {.name = "COM10.console.txt", .data = {4}},
              {.name = ".hidden", .data = {5}},
              {.name = "pipe", .data = {6}, .externalAttributes = 0x11B60000}});
  const Names expected = {"deep\\er\\Kurs.hlc", "brücke.txt", "grün.txt", "COM10.console.txt", ".hidden", "pipe"};
  EXPECT_EQ(Listed(), expected);
  ASSERT_EQ(zip->Unzip(0), 0);
  for (const std::string &name : expected) {
    EXPECT_TRUE(disk.files.contains("C:\\Out\\" + name)) << name;
    EXPECT_EQ(events[&name - expected.data()], "unzip " + name);
  }
}

TEST_F(ZipLayerTest, SelectsByPatternAndByLiteralName) {
  PutArchive({{.name = "a.hlc"},
              {.name = "sub/B.HLC"},
              {.name = "tune [1].mp3"},
              {.name = "tune 1.mp3"},
              {.name = "README"},
              {.name = "Été.txt", .flags = 0x800}});
  const struct {
    const char *filesToProcess;
    Names expected;
  } cases[] = {
      {"*.hlc", {"a.hlc", "sub\\B.HLC"}},
      {"*.hlc\rtune [1].mp3\r", {"a.hlc", "sub\\B.HLC", "tune [1].mp3"}},
      {"TUNE ?.*\r", {"tune 1.mp3"}},
      {"sub/b.hlc\r", {"sub\\B.HLC"}},
      {"b.hlc\rA.hlc\r", {"a.hlc"}},
      {"b*\r", {"sub\\B.HLC"}},
      {"sub/*\r\r", {"sub\\B.HLC"}},
      {"*b\\*c\r", {"sub\\B.HLC"}},
      {"?t?.txt\r", {"Été.txt"}},
      {"*.*\ra.hlc\r", {"a.hlc", "sub\\B.HLC", "tune [1].mp3", "tune 1.mp3", "README", "Été.txt"}},
  };
  for (const auto &test : cases) {
    zip->FilesToProcess = test.filesToProcess;
    EXPECT_EQ(Listed(), test.expected) << test.filesToProcess;
  }
}

TEST_F(ZipLayerTest, OfSeveralFilesOfOneNameItMeansTheLastWrittenSo) {
  PutArchive({{.name = "a.bmp", .data = {1}}, {.name = "./a.bmp", .data = {2}}, {.name = "A.BMP", .data = {3}}});
  for (const auto &[name, content] : {std::pair("a.bmp", 2), {"A.BMP", 3}, {"A.bmp", 3}}) {
    disk.files.erase("C:\\Out\\a.bmp");
    disk.files.erase("C:\\Out\\A.BMP");
    zip->FilesToProcess = std::string(name) + '\r';
    EXPECT_EQ(zip->Unzip(0), 0);
    const char *const place = content == 2 ? "C:\\Out\\a.bmp" : "C:\\Out\\A.BMP";
    EXPECT_EQ(disk.files[place].content, Bytes{static_cast<std::uint8_t>(content)}) << name;
  }
}

TEST_F(ZipLayerTest, WhatStandsBeforeAnArchiveIsPassedOverWhetherItsOffsetsKnowOfItOrNot) {
  const std::string comment = "no PK\x05\x06 record";
  const Bytes archive = RawZipBytes({{.name = "a.hlc", .data = {1, 2}}, {.name = "b.hlb"}}, {.comment = comment});
  const Bytes unrelated = RawZipBytes({{.name = "other.hlc", .data = Bytes(200)}});
  for (const Bytes &before : {Bytes(70'000, 'x'), archive, unrelated}) {
    Bytes &bytes = disk.files[Archive].content = before;
    bytes.insert(bytes.end(), archive.begin(), archive.end());
    EXPECT_EQ(Listed(), (Names{"a.hlc", "b.hlb"}));
    EXPECT_EQ(zip->Unzip(0), 0);
    EXPECT_EQ(disk.files["C:\\Out\\a.hlc"].content, (Bytes{1, 2}));
  }
}

TEST_F(ZipLayerTest, ALyingSizeStopsTheExtractionAtThatSize) {
  RawZipEntry bomb = samples::ZipEntryOf({.name = "bomb.hlc", .content = Bytes(3'000'000)});
  bomb.size = 1024;
  PutArchive({{.name = "a.hlb", .data = {1, 2, 3}}, bomb});
  EXPECT_EQ(zip->Unzip(0), 110);
  EXPECT_EQ(disk.bytesWritten, 3U + 1024U);
  EXPECT_TRUE(disk.files.contains("C:\\Out\\a.hlb"));
  EXPECT_FALSE(disk.files.contains("C:\\Out\\bomb.hlc"));
  EXPECT_EQ(disk.stagedNow, 0);
}

TEST_F(ZipLayerTest, ExceptionsOfHandlersReachTheCallerAndLeaveNothing) {
  disk.files["C:\\In\\a.hlc"].content = Content(2'000'000, 3);
  PutArchive({{.name = "b.hlc", .data = Bytes(100)}});
  const auto before = disk.files;
  const auto fail = [](const std::string &) { throw std::logic_error("window gone"); };
  zip->ListingFile = zip->UnzipPreprocessingFile = zip->ZippingFile = fail;
  EXPECT_THROW(zip->ListZipContents(), std::logic_error);
  EXPECT_THROW(zip->Unzip(0), std::logic_error);
  zip->FilesToProcess = "C:\\In\\a.hlc\r";
  EXPECT_THROW(zip->Zip(0), std::logic_error);
  zip->ZippingFile = nullptr;
  // Not what a failing disk throws, although it looks like it.
  zip->Repaint = [] { throw RuntimeError(ErrorNumber::DiskFull); };
  EXPECT_THROW(zip->Zip(0), RuntimeError);
  EXPECT_EQ(disk.stagedNow, 0);
  EXPECT_EQ(disk.files.size(), before.size());
  EXPECT_TRUE(disk.files[Archive].content == before.at(Archive).content);
}

} // namespace

} // namespace turfdesk
