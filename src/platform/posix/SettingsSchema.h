// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/posix/SettingsHome.h"
#include "platform/posix/SettingsTree.h"
#include "platform/posix/SqliteConnection.h"

namespace turfdesk {

/// Puts an empty store at the place of a store that has no content (no file, or one of no bytes).
/// Throws DamagedSettings when there is a good copy beside it: then the content was lost, and a new store would hide
/// that and soon replace the copy.
void CreateStoreIfNew(const SettingsPaths &paths, std::chrono::milliseconds patience);

/// Makes the connection keep its promises: what is committed is on disk, and is found whole after a crash.
void UseDurableJournal(SqliteConnection &connection);

/// Throws DamagedSettings when the file is not a store of ours or its pages contradict each other, and RuntimeError
/// when a later version of the program has written it. To be called within a transaction.
void CheckStore(SqliteConnection &connection);

/// Makes the store of an earlier version one of this version, and loses nothing of it. False when there was nothing to
/// do; else what was read before is out of date. To be called within a transaction that writes.
bool BringUpToDate(SqliteConnection &connection);

/// Reads the whole tree, also of an earlier version. Throws DamagedSettings when its rows make none. To be called
/// within a transaction.
SettingsTree LoadTree(SqliteConnection &connection);

/// Opens, checks and loads a store that nobody else replaces meanwhile, for those who want to know whether it is sound.
/// Throws DamagedSettings when it is not, another RuntimeError when that cannot be told.
void VerifyStore(const std::string &storePath, std::chrono::milliseconds patience);

} // namespace turfdesk
