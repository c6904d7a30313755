// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/MessageBoxes.h"
#include "platform/RegistryService.h"

#include <memory>
#include <string>

namespace turfdesk {

/// Opens the settings tree kept in a home folder, creating an empty one when there is none. home is a host path, UTF-8.
/// Throws RuntimeError, with words fit to show, when the tree is damaged, in use for too long or out of reach; also
/// when it is missing or empty although a good copy tells that there was one.
std::unique_ptr<RegistryService> OpenRegistryService(const std::string &home);

/// Sets a damaged settings file aside under a new name and brings back the last good copy, if there is one that is
/// sound. A file that is merely busy or out of reach stays where it is. What was done, or what is the matter, is told
/// in one plain box; nothing is shown when the file is sound. Never throws.
void RestoreSettings(const std::string &home, MessageBoxes &boxes);

/// What is told instead when the settings were merely in use by another program: that nothing was changed. Never
/// throws.
void TellBusySettings(const std::string &home, MessageBoxes &boxes);

/// Shows words in a plain box. Never throws.
void TellPlainly(MessageBoxes &boxes, const std::string &words);

/// Makes the present state of the tree the good copy that RestoreSettings brings back. Cheap when nothing has changed
/// since the last one. Never throws; a failure costs only the refresh.
void RefreshGoodCopy(const std::string &home);

} // namespace turfdesk
