// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "packaging/RunCompress.h"

#include "catalogue/CatalogueRows.h"
#include "catalogue/Dependencies.h"
#include "catalogue/LoadLists.h"
#include "packaging/basVorinZip.h"
#include "platform/ShownText.h"
#include "support/ErrorHandling.h"
#include "support/Prompts.h"
#include "support/StringTable.h"
#include "support/WorkInProgress.h"
#include "support/basVorinFile.h"
#include "support/basVorinString.h"

namespace turfdesk {

namespace {

std::string NamePath(const std::string &path, StringId sentence) {
  return AsOneLine(path) + Newlines(2) + LoadResString(sentence);
}

/// Adds files to a request of the zip layer, as long as the user does not refuse to go on.
class PackageContents {
public:
  PackageContents(SharedState &state, ZipLayer &zip) : mState(state), mZip(zip) {}

  void Add(const std::string &path) { mZip.FilesToProcess += path + '\r'; }

  /// Adds a file that exists; for another the answer to the question decides. False when the user refuses.
  bool AddOrAsk(const std::string &path, StringId question) {
    if (!FileExists(mState, path))
      return AskYesNo(mState, NamePath(path, question));
    Add(path);
    return true;
  }

private:
  SharedState &mState;
  ZipLayer &mZip;
};

bool NameMayBeUsed(SharedState &state, const std::string &name) {
  if (!IsValidFilename(state, name)) {
    ShowInfo(state, NamePath(name, StringId::CompressFilenameInvalid));
    return false;
  }
  return !FileExists(state, name) || AskYesNo(state, NamePath(name, StringId::FileExistsReplace));
}

bool GatherFiles(SharedState &state, const CompressRequest &request, ZipLayer &zip) {
  PackageContents contents(state, zip);
  if (!FileExists(state, request.courseFile)) {
    ShowInfo(state, NamePath(request.courseFile, StringId::CourseFileMissing));
    return false;
  }
  contents.Add(request.courseFile);
  for (const std::string &path : request.media)
    if (!path.empty() && !contents.AddOrAsk(path, StringId::FileMissingContinueCompressing))
      return false;
  for (const auto &library : request.libraries)
    if (library.checked && !contents.AddOrAsk(library.path, StringId::LibraryMissingContinueCompressing))
      return false;
  return true;
}

/// The zip layer with name and files set, or null when a check fails or the user refuses.
std::unique_ptr<ZipLayer> Prepare(SharedState &state, const CompressRequest &request) {
  if (!NameMayBeUsed(state, request.packageName))
    return nullptr;
  std::unique_ptr<ZipLayer> zip = state.platform.CreateZipLayer();
  zip->ZipFilename = request.packageName;
  return GatherFiles(state, request, *zip) ? std::move(zip) : nullptr;
}

void ShowFileAtWork(SharedState &state, const ZipLayer &zip, StatusWindow &window, const std::string &file) {
  window.FileLabel().SetCaption(GetFilePart(state, file));
  window.RouteLabel().SetCaption(RouteText(GetPathPart(state, file), zip.ZipFilename));
  state.screen.DoEvents();
}

bool WritePackage(SharedState &state, ZipLayer &zip, StatusWindow &window) {
  zip.ZipPreprocessingFile =
      zip.ZippingFile = [&](const std::string &file) { PassOver([&] { ShowFileAtWork(state, zip, window, file); }); };
  zip.Repaint = [&state] { state.screen.Repaint(); };

  std::int16_t status = 0;
  bool called = false;
  {
    // The zip layer sums up the bytes, which are the one part of this job.
    constexpr double whole = 1000;
    WorkInProgress work(state, window, whole);
    state.workProgress->BeginPart(whole);
    zip.WorkProgress = state.workProgress;
    called = PassOver([&] { status = zip.Zip(0); });
    if (called && status == 0)
      work.Finish();
  }
  if (status != 0)
    ShowError(state, GetZipStatusText(status));
  return called && status == 0;
}

} // namespace

bool CourseMayBeCompressed(SharedState &state, Row &course) {
  if (ArrayContains(course.Tag(), state.noCompressCourses)) {
    ShowInfo(state, LoadResString(StringId::CourseNotCompressible));
    return false;
  }
  if (!state.coursesOutOfReach.contains(course.Tag()))
    return true;
  // The row names no libraries, and a package without them would be of no use. By now the file may be in reach.
  FillCourseRow(state, std::string(course.Tag()), course);
  const auto reason = state.coursesOutOfReach.find(course.Tag());
  if (reason == state.coursesOutOfReach.end())
    return true;
  ShowError(state, AsOneLine(course.SubItems(column::Filename)) + Newlines(2) + reason->second);
  return false;
}

std::string CompressCaption(const Row &course) {
  return LoadResString(StringId::Compress) + " " + AddQuotes(course.Text());
}

CompressRequest ProposeCompress(SharedState &state, const Row &course, ListView &libraries) {
  CompressRequest request;
  request.packageName = ChangeExtension(state, course.SubItems(column::Filename), "hlz");
  request.courseFile = course.SubItems(column::Filename);
  request.media = {course.SubItems(column::Picture), course.SubItems(column::Music), "", course.SubItems(column::Text)};
  libraries.SetCheckboxes(ListLibrariesInCourse(state, course, libraries) > 0);
  for (std::size_t i = 0; i < libraries.Count(); ++i) {
    libraries.At(i).SetChecked(true);
    LibraryCheckChanged(state, libraries.At(i));
  }
  request.libraries = LibrariesOf(libraries);
  return request;
}

void LibraryCheckChanged(SharedState &state, Row &library) {
  if (!ArrayContains(library.Tag(), state.noCompressLibraries))
    return;
  ShowInfo(state, LoadResString(StringId::LibraryNotCompressible));
  library.SetChecked(false);
}

bool HasUncheckedLibrary(const ListView &libraries) {
  for (std::size_t i = 0; i < libraries.Count(); ++i)
    if (!libraries.At(i).Checked())
      return true;
  return false;
}

std::vector<CompressRequest::Library> LibrariesOf(const ListView &libraries) {
  std::vector<CompressRequest::Library> taken;
  for (std::size_t i = 0; i < libraries.Count(); ++i)
    taken.push_back({libraries.At(i).SubItems(column::Filename), libraries.At(i).Checked()});
  return taken;
}

bool RunCompress(SharedState &state, const CompressRequest &request, StatusWindow &window) {
  state.screen.DoEvents();
  // Where a check itself fails nothing is written: the package could replace a file that nobody agreed to lose.
  std::unique_ptr<ZipLayer> zip;
  if (!StoppedByChange(state, "Nothing has been compressed."))
    PassOver([&] { zip = Prepare(state, request); });
  const bool ok = zip != nullptr && WritePackage(state, *zip, window);

  window.FileLabel().SetCaption("");
  window.ShowCloseButton();
  window.RouteLabel().SetCaption(LoadResString(ok ? StringId::CompressDone : StringId::CompressFailed));
  return ok;
}

} // namespace turfdesk
