// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "Target.h"

#include <cstdlib>
#include <iostream>

namespace turfdesk::fuzz {

void Require(bool holds, std::string_view what) {
  if (holds)
    return;
  std::cerr << "does not hold: " << what << std::endl;
  std::abort();
}

} // namespace turfdesk::fuzz
