// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/TemporaryNames.h"

#include <string>

namespace turfdesk {

// What a process makes under a temporary name it keeps open, without letting others delete it, for as long as it lives:
// the system closes it when the process ends, however it ends. What bears such a name and can be opened to be deleted
// was left behind.

/// A name of that kind that hardly anybody has used before.
std::wstring FreshName(const TemporaryNames &names);

/// Removes a folder with all that it holds, as far as that can be done. What a link in it leads to stays.
void RemoveWithContents(const std::wstring &folder);

enum class TemporaryKind { Files, Folders };

/// Removes from a folder what ended processes have left: entries of these names and this kind that have not changed for
/// a minute, with all that they hold. Files that were set aside get their names back where these are free.
void RemoveAbandoned(const std::wstring &folder, const TemporaryNames &names, TemporaryKind kind);

} // namespace turfdesk
