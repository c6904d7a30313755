// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "catalogue/BaseValues.h"

#include "catalogue/Catalogue.h"
#include "support/basVorinRegistry.h"

namespace turfdesk {

std::string ReadBaseValue(SharedState &state, const BaseValue &value) {
  return GetRegistryValue(state, LocalMachine, BaseKey, value.name, value.defaultValue);
}

} // namespace turfdesk
