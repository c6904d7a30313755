// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "widgets/ByteProgressBar.h"

#include <algorithm>
#include <limits>

namespace turfdesk {

void ByteProgressBar::Begin(std::uint64_t totalBytes) {
  mShift = 0;
  while (totalBytes >> mShift > static_cast<std::uint64_t>(std::numeric_limits<int>::max()))
    ++mShift;
  // A range of nothing is a bar that never comes to rest.
  setRange(0, std::max(static_cast<int>(totalBytes >> mShift), 1));
  setValue(0);
}

void ByteProgressBar::SetPosition(std::uint64_t doneBytes) { setValue(static_cast<int>(doneBytes >> mShift)); }

} // namespace turfdesk
