// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "support/SharedState.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace turfdesk {

// File and path helpers. Paths are full Windows paths in UTF-8; a directory may come with or without its trailing
// backslash. Where a helper gives false for a failed copy or delete, GetLastFileError has the words.

bool FileExists(SharedState &state, std::string_view path);
/// False only when it is known that there is no such file.
bool FileMayExist(SharedState &state, std::string_view path);
bool DirExists(SharedState &state, std::string_view path);
/// Are two folders one, whatever they are called? The disk knows; of folders that do not exist the names decide,
/// whatever their case.
bool IsSameFolder(SharedState &state, std::string_view first, std::string_view second);
/// What a user means who types this into the box of a path: a full path, of Windows or of this system, in the form that
/// all paths have. Any other text stays as it is: whoever has to do with the file will tell.
std::string TypedPath(SharedState &state, const std::string &text);
std::string GetPathPart(SharedState &state, std::string_view path);
std::string GetFilePart(SharedState &state, std::string_view path);
/// Bytes; 0 for a missing file or an empty path.
double GetFileSize(SharedState &state, std::string_view path);
bool IsValidFilename(SharedState &state, std::string_view text);

/// The extension without a leading dot, in the name's own case.
std::string GetExtension(SharedState &state, std::string_view path);
/// The path with its extension replaced; extension comes without a dot.
std::string ChangeExtension(SharedState &state, std::string_view path, std::string_view extension);

bool DeleteFile(SharedState &state, std::string_view path);
/// True when no such file is left, whether or not there was one; false also where that cannot be known.
bool DeleteIfThere(SharedState &state, std::string_view path);

/// The change of the settings tree that goes with a copy.
struct Recording {
  /// Takes what the change needs, when the copy is complete but does not bear its name yet. Null ends the copy; the
  /// user has been told why.
  std::function<std::unique_ptr<RegistryReservation>()> reserve;
  /// Makes the change, when the copy bears its name. Where it is false a file that was replaced comes back; it may
  /// leave words in state.lastFileError.
  std::function<bool()> write;
};

/// Copies over an existing destination without asking, and records it. Where that fails before there is anything to
/// record, nothing has changed; a copy that has replaced nothing stays also when it could not be recorded. Tells
/// state.workProgress how far it has come and lets windows repaint meanwhile. When it is false GetLastFileError has the
/// words, "" where nothing is left to be told.
bool CopyFile(SharedState &state, std::string_view sourceDir, std::string_view sourceName,
              std::string_view destinationDir, std::string_view destinationName, const Recording &recording);

/// Copies, records and then deletes the source. Where it is false nothing has changed, with one exception: a source
/// that cannot be deleted is a question to the user. OK is true, with the file in both places; Cancel is false, with
/// the copy left at the destination unless it has replaced a file. Then, or where the copy turns out to be no good,
/// withdraw records the old place again; false from it leaves the copy recorded.
bool MoveFile(SharedState &state, std::string_view sourceDir, std::string_view sourceName,
              std::string_view destinationDir, std::string_view destinationName, const Recording &recording,
              const std::function<bool()> &withdraw);

/// Words of the last failed copy or delete.
const std::string &GetLastFileError(const SharedState &state);

} // namespace turfdesk
