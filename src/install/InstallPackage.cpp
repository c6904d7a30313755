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

/// True when the package can be installed; else the reason has been shown.
bool Judge(SharedState &state, std::int16_t status, const PackageListing &listing) {
  std::string fault;
  if (status != 0)
    fault = GetZipStatusText(status);
  else if (listing.courseFiles.empty())
    fault = LoadResString(StringId::PackageWithoutCourse);
  else if (listing.courseFiles.size() > 1)
    fault = LoadResString(StringId::PackageWithManyCourses);
  else
    return true;
  ShowError(state, fault);
  return false;
}

std::string FilesToExtract(const PackageListing &listing) {
  std::string files = "*.hlc\r";
  if (!listing.libraryFiles.empty())
    files += "*.hlb\r";
  for (const auto &[kind, name] : listing.mediaFiles)
    files += name + '\r';
  return files;
}

void PrepareZipLayer(SharedState &state, ZipLayer &zip, StatusWindow &window) {
  zip.UnzipPreprocessingFile = [&](const std::string &name) {
    window.FileLabel().SetCaption(GetFilePart(state, name));
    window.RouteLabel().SetCaption(RouteText(zip.ZipFilename, zip.UnzipToFolder));
    state.screen.DoEvents();
  };
  zip.WorkProgress = &window.WorkProgress();
  zip.Repaint = [&state] { state.screen.Repaint(); };
}

/// Installs what was extracted, in the order that each step relies on: the course looks for its libraries in the
/// catalogue, and the media need the course's row. After a failure the rest is only cleaned up.
bool InstallExtracted(SharedState &state, const PackageListing &listing, const std::string &folder,
                      std::string_view destDir, StatusWindow &window) {
  bool result = true;
  const auto pathOf = [&folder](const std::string &name) { return AddBackslash(folder) + name; };
  for (const std::string &name : listing.libraryFiles) {
    Row *libraryRow = nullptr;
    result =
        result && InstallLibrary(state, pathOf(name), destDir, libraryRow, window.FileLabel(), window.RouteLabel());
    DeleteFile(state, pathOf(name));
  }

  const std::string coursePath = pathOf(listing.courseFiles.front());
  Row *courseRow = nullptr;
  result = result && InstallCourse(state, coursePath, destDir, courseRow, window.FileLabel(), window.RouteLabel());
  DeleteFile(state, coursePath);
  if (courseRow == nullptr)
    return result;

  for (const auto &[kind, name] : listing.mediaFiles) {
    result =
        result && InstallMedia(state, pathOf(name), destDir, *courseRow, kind, window.FileLabel(), window.RouteLabel());
    DeleteFile(state, pathOf(name));
  }
  return result;
}

} // namespace

bool InstallPackage(SharedState &state, std::string_view packagePath, std::string_view destDir, StatusWindow &window) {
  PackageListing listing;
  const std::unique_ptr<ZipLayer> zip = state.platform.CreateZipLayer();
  PrepareZipLayer(state, *zip, window);
  zip->ListingFile = [&](const std::string &name) { NoteListedFile(state, listing, name); };
  zip->ZipFilename = packagePath;
  zip->UnzipToFolder = state.fileService->GetTempFolder();
  zip->FilesToProcess = "*.*";
  if (!Judge(state, zip->ListZipContents(), listing))
    return false;

  zip->FilesToProcess = FilesToExtract(listing);
  if (const std::int16_t status = zip->Unzip(0); status != 0) {
    ShowError(state, GetZipStatusText(status));
    return false;
  }
  return InstallExtracted(state, listing, zip->UnzipToFolder, destDir, window);
}

} // namespace turfdesk
