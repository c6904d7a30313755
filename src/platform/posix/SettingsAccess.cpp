// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/posix/SettingsAccess.h"

namespace turfdesk {

void SettingsAccess::Prepare() {
  mPrepared = std::async(std::launch::async, [this] { return std::make_shared<SettingsStore>(mHome, mPatience); });
}

std::shared_ptr<SettingsStore> SettingsAccess::Open() {
  if (std::shared_ptr<SettingsStore> shared = mStore.lock())
    return shared;
  std::shared_ptr<SettingsStore> opened =
      mPrepared.valid() ? mPrepared.get() : std::make_shared<SettingsStore>(mHome, mPatience);
  mStore = opened;
  return opened;
}

} // namespace turfdesk
