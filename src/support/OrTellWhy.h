// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/RuntimeError.h"
#include "support/Prompts.h"
#include "support/SharedState.h"
#include "support/basVorinRegistry.h"

#include <exception>

namespace turfdesk {

/// Makes a request of the settings tree, whose answer can be taken for a Boolean. Where it refuses or fails altogether,
/// the user has been shown why, and the result is false or null.
template <typename Request> auto OrTellWhy(SharedState &state, const Request &request) -> decltype(request()) {
  try {
    if (auto answer = request())
      return answer;
    ShowError(state, GetRegistryError(state));
  } catch (const std::exception &error) {
    ShowError(state, DescriptionOf(error));
  }
  return {};
}

/// ReserveRegistryKey for a key of the catalogue. Where it is null, the user has been shown why.
inline std::unique_ptr<RegistryReservation> ReserveEntry(SharedState &state, KeyChange change,
                                                         std::string_view entryKey) {
  return OrTellWhy(state, [&] { return ReserveRegistryKey(state, change, LocalMachine, entryKey); });
}

} // namespace turfdesk
