// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/posix/Descriptor.h"

#include <chrono>
#include <cstdint>
#include <string>

namespace turfdesk {

/// The host paths of all that the settings consist of.
struct SettingsPaths {
  explicit SettingsPaths(const std::string &homeFolder);

  std::string home;
  std::string store;
  std::string goodCopy;
  /// A store under construction. It takes its real name when it is complete; what a crash leaves of it is worthless.
  std::string unfinished;
  std::string lock;
};

/// The journal that SQLite keeps beside a database file.
std::string JournalOf(const std::string &databaseFile);

/// The lock between our own programs, for what SQLite's locks cannot cover: replacing the file itself. Whoever uses
/// the store holds it shared for the time of a transaction; whoever puts another file in its place holds it alone.
/// The kernel lets go of it when the holder dies.
class SettingsLock {
public:
  enum class Mode { Shared, Alone };

  /// Waits for patience, then throws RuntimeError 70. A lock file that cannot be made (in a read-only folder, where
  /// nobody can replace the store either) is an error only for Mode::Alone: RuntimeError 75. So is, for both, a folder
  /// or pipe in the place of the lock, the store or its journal: SQLite would wait for a pipe's other end.
  SettingsLock(const SettingsPaths &paths, Mode mode, std::chrono::milliseconds patience);

private:
  Descriptor mLockFile;
};

/// Makes the home folder, its owner's alone, when it is missing. Throws RuntimeError 75.
void MakeHomeFolder(const SettingsPaths &paths);
/// Throws RuntimeError 75 unless the owner may write the store. Asks for the permission bits, which hold for the
/// superuser as well.
void CheckWritable(const SettingsPaths &paths);
/// Throws RuntimeError 75 where something else than a file stands. Nothing may stand there at all.
void CheckIsFile(const std::string &path);
/// Size in bytes; -1 when there is no such file.
std::int64_t SizeOfFile(const std::string &path);
/// Opens a file for reading. The descriptor is not open when that fails.
Descriptor OpenForReading(const std::string &path);
/// Creates or empties a file that only its owner can read. Throws RuntimeError 75, also where a folder or pipe stands.
Descriptor OpenAfresh(const std::string &path);
/// Copies the rest of source into destination, which is created, and flushes it to disk. Throws RuntimeError.
void CopyFlushed(const Descriptor &source, const std::string &destination);
/// Renames and makes the new name durable. Throws RuntimeError 75.
void RenameDurably(const SettingsPaths &paths, const std::string &from, const std::string &to);
/// Moves a database file and its journal, whichever of them there is, to a new name that starts with stem and says
/// when. Gives the new path of the database file. To be called by a holder of the lock alone. Throws RuntimeError 75.
std::string SetAside(const SettingsPaths &paths, const std::string &databaseFile, const std::string &stem);

} // namespace turfdesk
