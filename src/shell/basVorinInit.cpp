// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "shell/basVorinInit.h"

#include "support/ErrorHandling.h"

namespace turfdesk {

bool Init(SharedState &state) {
  if (Guarded(state, "basVorinInit.Init(): ", [&state] {
        state.registryService = state.platform.CreateRegistryService();
        state.fileService = state.platform.CreateFileService();
      }))
    return true;

  ShowError(state, "Necessary dll's have been unregistered.\r\n"
                   "Turf Desk will attempt to restore them.\r\n"
                   "Please restart Turf Desk.");
  // Nothing of ours may hold the tree open while it is being restored.
  ReleaseServices(state);
  state.platform.RestoreServices(state.boxes);
  return false;
}

void ReleaseServices(SharedState &state) {
  state.registryService.reset();
  state.fileService.reset();
}

} // namespace turfdesk
