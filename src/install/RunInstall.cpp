// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "install/RunInstall.h"

#include "install/InstallContent.h"
#include "install/InstallPackage.h"
#include "platform/CaseFold.h"
#include "support/ErrorHandling.h"
#include "support/StringTable.h"
#include "support/WorkInProgress.h"
#include "support/basVorinFile.h"
#include "support/basVorinString.h"

namespace turfdesk {

namespace {

bool InstallOne(SharedState &state, const InstallRequest &request, const std::string &name, StatusWindow &window) {
  const std::string path = AddBackslash(request.sourceDir) + name;
  const std::string extension = FoldCase(GetExtension(state, path));
  const bool samePlace = IsSameFolder(state, request.sourceDir, request.destinationDir);
  const std::string contentDir = samePlace ? std::string() : request.destinationDir;
  BeginPart(state, path);
  Row *row = nullptr;
  if (extension == "hlc")
    return InstallCourse(state, path, contentDir, row, window.FileLabel(), window.RouteLabel());
  if (extension == "hlb")
    return InstallLibrary(state, path, contentDir, row, window.FileLabel(), window.RouteLabel());
  if (extension == "hlz")
    return InstallPackage(state, path, request.destinationDir, window);
  return true;
}

double SumOfSizes(SharedState &state, const InstallRequest &request) {
  double sum = 0;
  for (const std::string &name : request.files)
    sum += GetFileSize(state, AddBackslash(request.sourceDir) + name);
  return sum;
}

bool InstallAll(SharedState &state, const InstallRequest &request, StatusWindow &window) {
  for (const std::string &name : request.files) {
    bool installed = false;
    PassOver([&] { installed = InstallOne(state, request, name, window); });
    if (!installed)
      return false;
  }
  return true;
}

} // namespace

bool RunInstall(SharedState &state, const InstallRequest &request, StatusWindow &window) {
  bool result = true;
  {
    WorkInProgress work(state, window, SumOfSizes(state, request));
    result = InstallAll(state, request, window);
    if (result)
      work.Finish();
  }
  window.FileLabel().SetCaption("");
  window.ShowCloseButton();
  window.RouteLabel().SetCaption(LoadResString(result ? StringId::InstallDone : StringId::InstallFailed));
  return result;
}

} // namespace turfdesk
