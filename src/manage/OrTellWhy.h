// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/RuntimeError.h"
#include "support/Prompts.h"
#include "support/SharedState.h"
#include "support/basVorinRegistry.h"

#include <exception>

namespace turfdesk {

/// Makes a request of the settings tree that answers with a Boolean. Where it refuses or fails altogether, the user
/// has been shown why, and the result is false.
template <typename Request> bool OrTellWhy(SharedState &state, const Request &request) {
  try {
    if (request())
      return true;
    ShowError(state, GetRegistryError(state));
  } catch (const std::exception &error) {
    ShowError(state, DescriptionOf(error));
  }
  return false;
}

} // namespace turfdesk
