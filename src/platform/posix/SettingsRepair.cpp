// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/posix/SettingsRepair.h"

#include "platform/posix/PosixSettings.h"
#include "platform/posix/SettingsSchema.h"
#include "platform/posix/SettingsStore.h"

#include <array>
#include <exception>
#include <unistd.h>

namespace turfdesk {

namespace {

constexpr const char *emptyLine = "\r\n\r\n";

/// What tells one state of a store from another: SQLite counts each change in the header.
struct StoreState {
  std::int64_t size = -1;
  std::array<char, 100> header{};

  bool operator==(const StoreState &) const = default;
};

StoreState StateOf(const std::string &databaseFile) {
  StoreState state;
  const Descriptor descriptor = OpenForReading(databaseFile);
  if (descriptor.IsOpen() && pread(descriptor.Number(), state.header.data(), state.header.size(), 0) > 0)
    state.size = SizeOfFile(databaseFile);
  return state;
}

bool IsDamaged(const SettingsPaths &paths, std::chrono::milliseconds patience) {
  if (SizeOfFile(paths.store) <= 0)
    return SizeOfFile(paths.goodCopy) >= 0;
  try {
    VerifyStore(paths.store, patience);
  } catch (const DamagedSettings &) {
    return true;
  }
  return false;
}

/// Makes a complete copy of the good copy, ready to be renamed. False when there is no good copy or it is damaged.
bool PrepareGoodCopy(const SettingsPaths &paths, std::chrono::milliseconds patience) {
  CheckIsFile(paths.goodCopy);
  if (SizeOfFile(paths.goodCopy) < 0)
    return false;
  const Descriptor goodCopy = OpenForReading(paths.goodCopy);
  if (!goodCopy.IsOpen())
    throw RuntimeError(ErrorNumber::PathFileAccess,
                       "The last good copy of the settings cannot be opened: " + paths.goodCopy);
  CopyFlushed(goodCopy, paths.unfinished);
  try {
    VerifyStore(paths.unfinished, patience);
  } catch (const DamagedSettings &) {
    unlink(paths.unfinished.c_str());
    return false;
  }
  return true;
}

/// Fills the place of the store, which must be free, as well as can be. Gives the words for what was done.
std::string ReplaceStore(const SettingsPaths &paths, bool hasPreparedCopy) {
  if (hasPreparedCopy) {
    RenameDurably(paths, paths.unfinished, paths.store);
    return "The last good copy of the settings was brought back.";
  }
  if (SizeOfFile(paths.goodCopy) < 0)
    return "There was no good copy to bring back. The settings start empty.";
  // While there is a good copy, a missing store counts as lost and not as new.
  const std::string kept = SetAside(paths, paths.goodCopy, "settings.good.damaged");
  return "The last good copy is damaged as well and was kept as" + (emptyLine + kept) + emptyLine +
         "The settings start empty.";
}

} // namespace

void TellPlainly(MessageBoxes &boxes, const std::string &words) {
  try {
    boxes.Show({words, "TurfDesk", BoxButtons::Ok, BoxIcon::None});
  } catch (const std::exception &) {
    // The caller has told of the failure that led here.
  }
}

std::string RepairSettings(const SettingsPaths &paths, std::chrono::milliseconds patience) {
  // Alone, so that of two programs that start a repair at once the second one finds the store that the first one has
  // brought back, and takes it for what it is.
  const SettingsLock lock(paths, SettingsLock::Mode::Alone, patience);
  if (!IsDamaged(paths, patience))
    return "";
  const bool wasMissing = SizeOfFile(paths.store) < 0;
  // What can fail for want of room comes before anything is moved.
  const bool hasPreparedCopy = PrepareGoodCopy(paths, patience);
  const std::string kept = SetAside(paths, paths.store, "settings.damaged");
  const std::string words = wasMissing ? "The settings file was missing:" + (emptyLine + paths.store)
                                       : "The settings file was damaged and was kept as" + (emptyLine + kept);
  return words + emptyLine + ReplaceStore(paths, hasPreparedCopy);
}

void CopyGoodSettings(const SettingsPaths &paths) {
  CheckIsFile(paths.goodCopy);
  if (StateOf(paths.store) == StateOf(paths.goodCopy))
    return;
  // A store that is in use right now is copied at another start.
  constexpr std::chrono::milliseconds patience{0};
  const SettingsLock lock(paths, SettingsLock::Mode::Alone, patience);
  // Closed after the transaction, because closing it drops the transaction's locks.
  const Descriptor store = OpenForReading(paths.store);
  {
    SqliteConnection connection(paths.store, patience);
    const SqliteTransaction transaction(connection, "BEGIN");
    // Reading takes the lock, and undoes what a crashed writer has left behind.
    connection.QueryText("SELECT name FROM sqlite_master");
    CopyFlushed(store, paths.unfinished);
  }
  VerifyStore(paths.unfinished, patience);
  RenameDurably(paths, paths.unfinished, paths.goodCopy);
}

void RestoreSettings(const std::string &home, MessageBoxes &boxes) {
  std::string words;
  try {
    words = RepairSettings(SettingsPaths(home), SettingsStore::DefaultPatience);
  } catch (const std::exception &error) {
    words = DescriptionOf(error);
  }
  if (!words.empty())
    TellPlainly(boxes, words);
}

void TellBusySettings(const std::string &home, MessageBoxes &boxes) {
  TellPlainly(boxes, "The settings were in use by another program. Nothing was changed:" +
                         (emptyLine + SettingsPaths(home).store));
}

void RefreshGoodCopy(const std::string &home) {
  try {
    CopyGoodSettings(SettingsPaths(home));
  } catch (const std::exception &) {
    // The next clean start makes up for it.
  }
}

} // namespace turfdesk
