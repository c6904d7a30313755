// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "shell/ProgramIcon.h"

namespace turfdesk {

QIcon ProgramIcon() {
  QIcon icon;
  for (const int size : {16, 24, 32, 48, 64, 128, 256})
    icon.addFile(QString(":/icons/turfdesk-%1.png").arg(size), QSize(size, size));
  return icon;
}

} // namespace turfdesk
