// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "support/basVorinFile.h"

#include "platform/CaseFold.h"
#include "platform/PathText.h"
#include "platform/RuntimeError.h"
#include "platform/ShownText.h"
#include "platform/WindowsNames.h"
#include "support/Prompts.h"
#include "support/basVorinString.h"

#include <exception>

namespace turfdesk {

bool FileExists(SharedState &state, std::string_view path) { return state.fileService->FileExists(path); }

bool FileMayExist(SharedState &state, std::string_view path) { return state.fileService->FileMayExist(path); }

bool DirExists(SharedState &state, std::string_view path) { return state.fileService->DirExists(path); }

bool IsSameFolder(SharedState &state, std::string_view first, std::string_view second) {
  if (first == second)
    return true;
  return DirExists(state, first) && DirExists(state, second) ? state.platform.NewFiles().IsSameFile(first, second)
                                                             : EqualsIgnoringCase(first, second);
}

std::string TypedPath(SharedState &state, const std::string &text) {
  const bool isFull = IsFullWindowsPath(text) || (!text.empty() && IsSeparator(text[0])) || PathOfFileAddress(text);
  const std::string path = isFull ? state.platform.ToWindowsPath(text) : "";
  return path.empty() ? text : path;
}

std::string GetPathPart(SharedState &state, std::string_view path) { return state.fileService->GetPathPart(path); }

std::string GetFilePart(SharedState &state, std::string_view path) { return state.fileService->GetFilePart(path); }

double GetFileSize(SharedState &state, std::string_view path) { return state.fileService->GetFileSize(path); }

bool IsValidFilename(SharedState &state, std::string_view text) { return state.fileService->IsValidFilename(text); }

std::string GetExtension(SharedState &state, std::string_view path) {
  std::string extension = state.fileService->GetExtension(path);
  if (extension.starts_with('.'))
    extension.erase(0, 1);
  return extension;
}

std::string ChangeExtension(SharedState &state, std::string_view path, std::string_view extension) {
  return state.fileService->GetDirPrefix(path) + state.fileService->GetBaseName(path) + "." + std::string(extension);
}

bool DeleteFile(SharedState &state, std::string_view path) {
  if (state.fileService->DeleteFile(path))
    return true;
  state.lastFileError = state.fileService->LastErrorText();
  return false;
}

bool DeleteIfThere(SharedState &state, std::string_view path) {
  // Somebody else may delete it at the same moment.
  return !FileMayExist(state, path) || DeleteFile(state, path) || !FileMayExist(state, path);
}

namespace {

std::unique_ptr<StagedCopy> Stage(SharedState &state, const std::string &source, const std::string &destination) {
  bool begun = false;
  return state.platform.Copier().Stage(source, destination, [&state, &begun](std::uint64_t done, std::uint64_t total) {
    if (state.workProgress != nullptr) {
      if (!begun)
        state.workProgress->Begin(total);
      state.workProgress->SetPosition(done);
    }
    begun = true;
    state.screen.Repaint();
  });
}

/// What cannot come back under its name is not lost, and the user is told where it is.
void TakeBack(SharedState &state, StagedCopy &copy) {
  try {
    copy.TakeBack();
  } catch (const std::exception &error) {
    if (copy.HasReplaced())
      ShowError(state, DescriptionOf(error) + Newlines(2) + "The file is now here." + Newlines(2) +
                           AsOneLine(copy.SetAsidePath()));
  }
}

enum class Unrecorded { TakenBack, StaysWhereItReplacesNothing };

/// A copy that bears its name and is recorded; null when that did not come about.
std::unique_ptr<StagedCopy> CopyAndRecord(SharedState &state, const std::string &source, const std::string &destination,
                                          const Recording &recording, Unrecorded unrecorded) {
  state.lastFileError.clear();
  std::unique_ptr<StagedCopy> copy;
  try {
    copy = Stage(state, source, destination);
  } catch (const std::exception &error) {
    state.lastFileError = DescriptionOf(error);
    return nullptr;
  }
  const std::unique_ptr<RegistryReservation> reservation = recording.reserve();
  if (!reservation)
    return nullptr;
  try {
    copy->Place();
  } catch (const std::exception &error) {
    state.lastFileError = DescriptionOf(error);
    return nullptr;
  }
  const auto takeBack = [&] {
    if (copy->HasReplaced() || unrecorded == Unrecorded::TakenBack)
      TakeBack(state, *copy);
  };
  try {
    if (recording.write())
      return copy;
  } catch (...) {
    takeBack();
    throw;
  }
  takeBack();
  return nullptr;
}

} // namespace

bool CopyFile(SharedState &state, std::string_view sourceDir, std::string_view sourceName,
              std::string_view destinationDir, std::string_view destinationName, const Recording &recording) {
  const auto copy = CopyAndRecord(state, AddBackslash(sourceDir) + std::string(sourceName),
                                  AddBackslash(destinationDir) + std::string(destinationName), recording,
                                  Unrecorded::StaysWhereItReplacesNothing);
  if (copy)
    copy->Keep();
  return copy != nullptr;
}

bool MoveFile(SharedState &state, std::string_view sourceDir, std::string_view sourceName,
              std::string_view destinationDir, std::string_view destinationName, const Recording &recording,
              const std::function<bool()> &withdraw) {
  const std::string source = AddBackslash(sourceDir) + std::string(sourceName);
  const std::string destination = AddBackslash(destinationDir) + std::string(destinationName);
  const auto copy = CopyAndRecord(state, source, destination, recording, Unrecorded::TakenBack);
  if (!copy)
    return false;
  // The last look before the only step that could lose something.
  const bool isComplete = GetFileSize(state, source) == GetFileSize(state, destination);
  if (!isComplete)
    state.lastFileError = ErrorText(ErrorNumber::DeviceIo);
  if (isComplete && (DeleteFile(state, source) ||
                     AskOkCancel(state, "The source file cannot be deleted.  If you are moving\r\n"
                                        "this file from a CD-ROM drive click OK to continue.  Otherwise,\r\n"
                                        "click OK to continue or Cancel to end this operation."))) {
    copy->Keep();
    return true;
  }
  if (!withdraw())
    copy->Keep();
  else if (copy->HasReplaced() || !isComplete)
    TakeBack(state, *copy);
  return false;
}

const std::string &GetLastFileError(const SharedState &state) { return state.lastFileError; }

} // namespace turfdesk
