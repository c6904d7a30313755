// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "packaging/basVorinZip.h"

#include <algorithm>
#include <array>

namespace turfdesk {

namespace {

struct StatusText {
  std::int16_t code;
  const char *text;
};

constexpr std::array Table = {
    StatusText{10, "General warning."},
    StatusText{30, "No zip file."},
    StatusText{40, "Files skipped."},
    StatusText{50, "Empty zip file."},
    StatusText{100, "No zip file."},
    StatusText{110, "Bad zip structure."},
    StatusText{120, "Not enough memory."},
    StatusText{130, "Bad call."},
    StatusText{140, "Nothing to do."},
    StatusText{150, "Disk full."},
    StatusText{160, "End of file."},
    StatusText{180, "Library in use."},
    StatusText{190, "User abort."},
    StatusText{200, "Test failed."},
    StatusText{210, "Zero tested."},
    StatusText{240, "DLL not found."},
    StatusText{250, "Internal logic."},
    StatusText{280, "Temp file."},
    StatusText{290, "Read error."},
    StatusText{300, "Write error."},
    StatusText{310, "Can't create file."},
    StatusText{350, "Parent dir."},
    StatusText{370, "Name repeat."},
    StatusText{380, "Latest."},
    StatusText{400, "DOS error."},
    StatusText{410, "Multi disk error."},
    StatusText{420, "Wrong disk."},
    StatusText{430, "Multi disk bad call."},
    StatusText{440, "Can't open binary."},
    StatusText{450, "Can't open SFC config."},
    StatusText{460, "Invalid even param."},
    StatusText{470, "Can't write SFX."},
    StatusText{480, "Target buffer too small."},
    StatusText{490, "Binary version error."},
    StatusText{510, "Can't create dir."},
};

} // namespace

std::string GetZipStatusText(std::int16_t code) {
  if (code == 0)
    return {};
  const auto *found = std::find_if(Table.begin(), Table.end(), [code](const StatusText &s) { return s.code == code; });
  return "Error " + std::to_string(code) + ":  " + (found == Table.end() ? "" : found->text);
}

} // namespace turfdesk
