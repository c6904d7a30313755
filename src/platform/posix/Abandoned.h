// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/TemporaryNames.h"
#include "platform/posix/Descriptor.h"

#include <sys/types.h>

#include <string>

namespace turfdesk {

// What a process makes under a temporary name it locks for as long as it lives: the kernel lets go of the lock when the
// process ends, however it ends. What bears such a name and is locked by nobody was left behind by one that was killed.

/// A name of that kind that hardly anybody has used before. Throws RuntimeError where the system gives no random
/// numbers.
std::string FreshName(const TemporaryNames &names);

/// Locks an open file or folder. False when somebody else has locked it, or where the disk knows no locks.
bool LockAgainstRemoval(const Descriptor &file);

/// Removes from a folder of the host what this user's killed processes have left: entries of these names, either files
/// (S_IFREG) or folders for nobody else (S_IFDIR), that have not changed for a minute, with all that they hold. Files
/// that were set aside as long ago get their names back where these are free.
void RemoveAbandoned(const std::string &folder, const TemporaryNames &names, mode_t type);

} // namespace turfdesk
