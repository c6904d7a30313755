// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/posix/SettingsAccess.h"

#include "platform/posix/PosixSettings.h"

namespace turfdesk {

void SettingsAccess::Prepare() {
  mPrepared = std::async(std::launch::async, [this] { return std::make_shared<SettingsStore>(mHome, mPatience); });
}

std::shared_ptr<SettingsStore> SettingsAccess::Open() {
  if (std::shared_ptr<SettingsStore> shared = mStore.lock())
    return shared;
  mWasBusy = false;
  try {
    std::shared_ptr<SettingsStore> opened = OpenAnew();
    mStore = opened;
    return opened;
  } catch (const RuntimeError &error) {
    mWasBusy = error.Number() == ErrorNumber::PermissionDenied;
    throw;
  }
}

void SettingsAccess::Restore(MessageBoxes &boxes) const {
  if (mWasBusy)
    TellBusySettings(mHome, boxes);
  else
    RestoreSettings(mHome, boxes);
}

std::shared_ptr<SettingsStore> SettingsAccess::OpenAnew() {
  return mPrepared.valid() ? mPrepared.get() : std::make_shared<SettingsStore>(mHome, mPatience);
}

} // namespace turfdesk
