// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "install/InstallPackage.h"

#include "install/InstallContent.h"
#include "install/InstallMedia.h"
#include "packaging/basVorinZip.h"
#include "platform/CaseFold.h"
#include "support/Prompts.h"
#include "support/StringTable.h"
#include "support/WorkInProgress.h"
#include "support/basVorinFile.h"
#include "support/basVorinString.h"

#include <array>
#include <map>
#include <string>
#include <vector>

namespace turfdesk {

namespace {

/// What the zip layer is given to extract the course.
constexpr const char *CourseFiles = "*.hlc\r";

/// What a package lists that can be installed. Names are as the zip layer gives them, with any folder part.
struct PackageListing {
  std::vector<std::string> courseFiles;
  std::vector<std::string> libraryFiles;
  /// Of several files of a kind the last one listed.
  std::map<MediaKind, std::string> mediaFiles;
};

struct MediaExtension {
  const char *extension;
  MediaKind kind;
};

constexpr std::array MediaExtensions = {
    MediaExtension{"bmp", MediaKind::Picture}, MediaExtension{"tga", MediaKind::Picture},
    MediaExtension{"dds", MediaKind::Picture}, MediaExtension{"wav", MediaKind::Music},
    MediaExtension{"mp3", MediaKind::Music},   MediaExtension{"avi", MediaKind::Video},
    MediaExtension{"mpg", MediaKind::Video},   MediaExtension{"txt", MediaKind::Text},
    MediaExtension{"rtf", MediaKind::Text},    MediaExtension{"htm", MediaKind::Text}};

void NoteListedFile(SharedState &state, PackageListing &listing, const std::string &name) {
  const std::string extension = FoldCase(GetExtension(state, name));
  if (extension == "hlc")
    listing.courseFiles.push_back(name);
  if (extension == "hlb")
    listing.libraryFiles.push_back(name);
  for (const MediaExtension &media : MediaExtensions)
    if (extension == media.extension)
      listing.mediaFiles[media.kind] = name;
}

/// The words for a package that lists no course. One under a name that no file can have is not listed, and refused
/// when it is to be extracted.
std::string WhyWithoutCourse(ZipLayer &zip) {
  constexpr std::int16_t nothingToDo = 140;
  zip.FilesToProcess = CourseFiles;
  const std::int16_t status = zip.Unzip(0);
  return status == 0 || status == nothingToDo ? LoadResString(StringId::PackageWithoutCourse)
                                              : GetZipStatusText(status);
}

/// True when the package can be installed; else the reason has been shown.
bool Judge(SharedState &state, ZipLayer &zip, std::int16_t status, const PackageListing &listing) {
  std::string fault;
  if (status != 0)
    fault = GetZipStatusText(status);
  else if (listing.courseFiles.empty())
    fault = WhyWithoutCourse(zip);
  else if (listing.courseFiles.size() > 1)
    fault = LoadResString(StringId::PackageWithManyCourses);
  else
    return true;
  ShowError(state, fault);
  return false;
}

std::string FilesToExtract(const PackageListing &listing) {
  std::string files = CourseFiles;
  if (!listing.libraryFiles.empty())
    files += "*.hlb\r";
  for (const auto &[kind, name] : listing.mediaFiles)
    files += name + '\r';
  return files;
}

void PrepareZipLayer(SharedState &state, ZipLayer &zip, StatusWindow &window) {
  // Until a file in it is at work: what is wrong with the package is to be seen beside its name.
  window.FileLabel().SetCaption(GetFilePart(state, zip.ZipFilename));
  window.RouteLabel().SetCaption("");
  zip.UnzipPreprocessingFile = [&](const std::string &name) {
    window.FileLabel().SetCaption(GetFilePart(state, name));
    window.RouteLabel().SetCaption(RouteText(zip.ZipFilename, zip.UnzipToFolder));
    state.screen.DoEvents();
  };
  zip.Repaint = [&state] { state.screen.Repaint(); };
}

/// The extracted files of a package on their way to where they are installed.
class ExtractedFiles {
public:
  ExtractedFiles(SharedState &state, const std::string &folder) : mState(state), mFolder(AddBackslash(folder)) {}

  double SumOfSizes(const PackageListing &listing) {
    double sum = 0;
    for (const auto *names : {&listing.libraryFiles, &listing.courseFiles})
      for (const std::string &name : *names)
        sum += GetFileSize(mState, mFolder + name);
    for (const auto &[kind, name] : listing.mediaFiles)
      sum += GetFileSize(mState, mFolder + name);
    return sum;
  }

  /// Calls a routine (path -> is it installed?) with a file, unless one before it failed, and deletes the file.
  template <typename Install> void Take(const std::string &name, Install install) {
    const std::string path = mFolder + name;
    if (mResult) {
      BeginPart(mState, path);
      mResult = install(path);
    }
    DeleteFile(mState, path);
  }

  /// Have all of them been installed?
  bool Result() const { return mResult; }

private:
  SharedState &mState;
  std::string mFolder;
  bool mResult = true;
};

/// Installs what was extracted, in the order that each step relies on: the course looks for its libraries in the
/// catalogue, and the media need the course's row. After a failure the rest is only cleaned up.
bool InstallExtracted(SharedState &state, const PackageListing &listing, const std::string &folder,
                      std::string_view destDir, StatusWindow &window) {
  ExtractedFiles files(state, folder);
  const JobInJob job(state, files.SumOfSizes(listing));
  for (const std::string &name : listing.libraryFiles)
    files.Take(name, [&](const std::string &path) {
      Row *libraryRow = nullptr;
      return InstallLibrary(state, path, destDir, libraryRow, window.FileLabel(), window.RouteLabel());
    });
  Row *courseRow = nullptr;
  files.Take(listing.courseFiles.front(), [&](const std::string &path) {
    return InstallCourse(state, path, destDir, courseRow, window.FileLabel(), window.RouteLabel());
  });
  if (courseRow == nullptr)
    return files.Result();
  for (const auto &[kind, name] : listing.mediaFiles)
    files.Take(name, [&, mediaKind = kind](const std::string &path) {
      return InstallMedia(state, path, destDir, *courseRow, mediaKind, window.FileLabel(), window.RouteLabel());
    });
  return files.Result();
}

} // namespace

bool InstallPackage(SharedState &state, std::string_view packagePath, std::string_view destDir, StatusWindow &window) {
  PackageListing listing;
  const std::unique_ptr<ZipLayer> zip = state.platform.CreateZipLayer();
  zip->ListingFile = [&](const std::string &name) { NoteListedFile(state, listing, name); };
  zip->ZipFilename = packagePath;
  zip->UnzipToFolder = state.fileService->GetTempFolder();
  zip->FilesToProcess = "*.*";
  PrepareZipLayer(state, *zip, window);
  if (!Judge(state, *zip, zip->ListZipContents(), listing))
    return false;

  // To extract the files takes half of the job, to install them the other.
  JobInJob job(state, 2);
  job.Parts().BeginPart(1);
  zip->WorkProgress = &job.Parts();
  zip->FilesToProcess = FilesToExtract(listing);
  if (const std::int16_t status = zip->Unzip(0); status != 0) {
    ShowError(state, GetZipStatusText(status));
    return false;
  }
  job.Parts().BeginPart(1);
  return InstallExtracted(state, listing, zip->UnzipToFolder, destDir, window);
}

} // namespace turfdesk
