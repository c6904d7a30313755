// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "Archive.h"
#include "Target.h"

#include "common/TestWorld.h"
#include "platform/CaseFold.h"
#include "platform/zip/LibzipLayer.h"

#include <algorithm>
#include <set>
#include <sys/resource.h>

namespace turfdesk::fuzz {

namespace {

using Names = std::vector<std::string>;

constexpr std::int16_t DiskFull = 150;

/// A small disk on which everything is to stay in one folder.
class OneFolder final : public StagedFiles {
public:
  OneFolder(StagedFiles &disk, std::string folder) : mDisk(disk), mFolder(std::move(folder)) {
    // A file that grows beyond what it was said to hold must not fill the real disk.
    const rlimit limit{Room, Room};
    setrlimit(RLIMIT_FSIZE, &limit);
  }

  std::unique_ptr<StagedFile> Create(std::string_view destination, bool makeFolders) override {
    const std::string path = std::string(destination) + '\\';
    Require(path.starts_with(mFolder + '\\') && path.find("\\..\\") == std::string::npos,
            "a file goes into the folder");
    return mDisk.Create(destination, makeFolders);
  }
  bool IsSameFile(std::string_view first, std::string_view second) override { return mDisk.IsSameFile(first, second); }
  std::uint64_t FreeBytes(std::string_view) override { return Room; }

private:
  StagedFiles &mDisk;
  std::string mFolder;
};

/// All files and folders below a host folder, the latter with a backslash at the end, without regard to case.
std::set<std::string> TreeBelow(const std::filesystem::path &folder) {
  std::set<std::string> tree;
  for (const auto &entry : std::filesystem::recursive_directory_iterator(folder)) {
    std::string name = entry.path().lexically_relative(folder).string();
    std::replace(name.begin(), name.end(), '/', '\\');
    tree.insert(FoldCase(entry.is_directory() && !entry.is_symlink() ? name + '\\' : name));
  }
  return tree;
}

/// What TreeBelow is to give for these files.
std::set<std::string> TreeOf(const Names &names) {
  std::set<std::string> tree;
  for (const std::string &name : names) {
    const std::string folded = FoldCase(name);
    tree.insert(folded);
    for (std::size_t end = folded.find('\\'); end != std::string::npos; end = folded.find('\\', end + 1))
      tree.insert(folded.substr(0, end + 1));
  }
  return tree;
}

void RequireDocumented(std::int16_t status) {
  // Those that an archive can bring about; the others tell of disks and callers.
  constexpr std::int16_t documented[] = {0, 50, 100, 110, DiskFull, 160, 200, 310, 350, 370, 410, 490};
  Require(std::count(std::begin(documented), std::end(documented), status) == 1,
          "the status is one that an archive can have: " + std::to_string(status));
}

class Unpacking {
public:
  Unpacking() {
    mLayer->ZipFilename = "C:\\package.hlz";
    mLayer->UnzipToFolder = "C:\\Out";
    mLayer->ListingFile = [this](const std::string &name) { mListed.push_back(name); };
    mLayer->UnzipPreprocessingFile = [this](const std::string &name) { mExtracted.push_back(name); };
    samples::WriteFile(mArchive, {});
    mAround = TreeBelow(mWorld.Home());
  }

  void Examine(std::span<const std::uint8_t> archive) {
    samples::WriteFile(mArchive, archive);
    std::filesystem::create_directory(mFolder);
    const std::int16_t listing = List();
    const std::int16_t unpacking = Unzip("*.*");
    RequireTree(unpacking);
    if (listing == 0) {
      RequireListed(unpacking);
      if (!mListed.empty())
        RequireByName(mListed.back(), unpacking == 0);
    } else {
      Require(mListed.empty() && mExtracted.empty() && unpacking == listing,
              "what is no archive is refused as a whole");
    }
    std::filesystem::remove_all(mFolder);
    Require(TreeBelow(mWorld.Home()) == mAround, "nothing appears outside the folder");
  }

private:
  std::int16_t List() {
    mListed.clear();
    mLayer->FilesToProcess = "*.*";
    const std::int16_t status = mLayer->ListZipContents();
    RequireDocumented(status);
    return status;
  }

  std::int16_t Unzip(const std::string &files) {
    mExtracted.clear();
    mLayer->FilesToProcess = files;
    const std::int16_t status = mLayer->Unzip(0);
    RequireDocumented(status);
    return status;
  }

  void RequireTree(std::int16_t status) const {
    Names complete = mExtracted;
    if (status != 0 && !complete.empty())
      complete.pop_back();
    Require(TreeBelow(mFolder) == TreeOf(complete), "the extracted files are there, and nothing of any other");
  }

  void RequireListed(std::int16_t status) const {
    Require(mExtracted.size() <= mListed.size() && std::equal(mExtracted.begin(), mExtracted.end(), mListed.begin()),
            "files are extracted under the names and in the order listed");
    Require(status != 0 || mExtracted.size() == mListed.size(), "all listed files are extracted");
    Require(status != DiskFull || mExtracted.empty(), "room is looked for ahead, and no file exceeds its stated size");
  }

  /// Alone it can be extracted also beside what keeps the whole archive from being so, unless it is at fault itself.
  void RequireByName(const std::string &name, bool isFaultless) {
    const bool isExtracted = Unzip(name + "\r") == 0;
    Require(isExtracted || !isFaultless, "a file can be asked for by the name listed");
    Require(mExtracted == Names{name} || (mExtracted.empty() && !isExtracted), "nothing else is extracted with it");
  }

  test::TestWorld mWorld;
  std::filesystem::path mArchive = mWorld.Host("C:\\package.hlz");
  std::filesystem::path mFolder = mWorld.Host("C:\\Out");
  OneFolder mDisk{mWorld.platform->NewFiles(), "C:\\Out"};
  std::unique_ptr<ZipLayer> mLayer = MakeLibzipLayer(mWorld.platform->Files(), mDisk);
  std::set<std::string> mAround;
  Names mListed;
  Names mExtracted;
};

} // namespace

void ExamineArchive(std::span<const std::uint8_t> archive) {
  static Unpacking unpacking;
  unpacking.Examine(archive);
}

} // namespace turfdesk::fuzz
