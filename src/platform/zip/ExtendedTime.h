// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <cstdint>
#include <optional>
#include <zip.h>

namespace turfdesk {

/// The modification time of an entry's extended timestamp field, in seconds since 1970. Unlike the time in the header
/// it knows odd seconds and does not depend on the time zone.
std::optional<std::int64_t> ReadExtendedTime(zip_t *archive, zip_uint64_t index);

/// Gives the entry such a field. Times that the field cannot hold are left to the header. False when memory is short.
bool WriteExtendedTime(zip_t *archive, zip_uint64_t index, std::int64_t seconds);

} // namespace turfdesk
