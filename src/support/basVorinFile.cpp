// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "support/basVorinFile.h"

#include "platform/CaseFold.h"
#include "platform/PathText.h"
#include "platform/RuntimeError.h"
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

bool CopyFile(SharedState &state, std::string_view sourceDir, std::string_view sourceName,
              std::string_view destinationDir, std::string_view destinationName) {
  bool begun = false;
  const auto report = [&state, &begun](std::uint64_t done, std::uint64_t total) {
    if (state.workProgress != nullptr) {
      if (!begun)
        state.workProgress->Begin(total);
      state.workProgress->SetPosition(done);
    }
    begun = true;
    state.screen.Repaint();
  };
  try {
    state.platform.Copier().Copy(AddBackslash(sourceDir) + std::string(sourceName),
                                 AddBackslash(destinationDir) + std::string(destinationName), report);
    return true;
  } catch (const std::exception &error) {
    state.lastFileError = DescriptionOf(error);
    return false;
  }
}

bool MoveFile(SharedState &state, std::string_view sourceDir, std::string_view sourceName,
              std::string_view destinationDir, std::string_view destinationName) {
  if (!CopyFile(state, sourceDir, sourceName, destinationDir, destinationName))
    return false;
  const std::string source = AddBackslash(sourceDir) + std::string(sourceName);
  // The last look before the only step that could lose something.
  if (GetFileSize(state, source) != GetFileSize(state, AddBackslash(destinationDir) + std::string(destinationName))) {
    state.lastFileError = ErrorText(ErrorNumber::DeviceIo);
    return false;
  }
  if (DeleteFile(state, source))
    return true;
  return AskOkCancel(state, "The source file cannot be deleted.  If you are moving\r\n"
                            "this file from a CD-ROM drive click OK to continue.  Otherwise,\r\n"
                            "click OK to continue or Cancel to end this operation.");
}

const std::string &GetLastFileError(const SharedState &state) { return state.lastFileError; }

} // namespace turfdesk
