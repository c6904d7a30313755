// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/MessageBoxes.h"
#include "platform/posix/SettingsStore.h"

#include <chrono>
#include <future>
#include <memory>
#include <string>
#include <utility>

namespace turfdesk {

/// The way to a home's settings store. Those in this program who use it at the same time share one, since each holds a
/// copy of the whole tree.
class SettingsAccess {
public:
  explicit SettingsAccess(std::string home, std::chrono::milliseconds patience = SettingsStore::DefaultPatience)
      : mHome(std::move(home)), mPatience(patience) {}

  /// Begins to open the store on another thread. Open takes up what comes of it, a failure included.
  void Prepare();
  /// The store that somebody has, else a new one. Throws what the opening of a SettingsStore throws.
  std::shared_ptr<SettingsStore> Open();
  /// What can be done after a failed Open: RestoreSettings, or, when the store was only busy, one plain box that says
  /// so. Such a store has been waited for already; a repair would wait anew, for nothing. Never throws.
  void Restore(MessageBoxes &boxes) const;

private:
  std::shared_ptr<SettingsStore> OpenAnew();

  std::string mHome;
  std::chrono::milliseconds mPatience;
  std::future<std::shared_ptr<SettingsStore>> mPrepared;
  std::weak_ptr<SettingsStore> mStore;
  /// Was the store in use by another program for too long when it was to be opened last?
  bool mWasBusy = false;
};

} // namespace turfdesk
