// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/zip/ExtendedTime.h"

#include <array>
#include <limits>

namespace turfdesk {

namespace {

// The field: one byte of flags, then the modification time in four bytes, then further times that nobody needs here.
constexpr zip_uint16_t FieldId = 0x5455;
constexpr zip_uint8_t HasModificationTime = 1;
constexpr zip_uint16_t FieldSize = 5;

} // namespace

std::optional<std::int64_t> ReadExtendedTime(zip_t *archive, zip_uint64_t index) {
  zip_uint16_t size = 0;
  const zip_uint8_t *field = zip_file_extra_field_get_by_id(archive, index, FieldId, 0, &size, ZIP_FL_CENTRAL);
  if (field == nullptr || size < FieldSize || (field[0] & HasModificationTime) == 0)
    return std::nullopt;
  std::uint32_t seconds = 0;
  for (zip_uint16_t i = FieldSize - 1; i > 0; --i)
    seconds = seconds << 8 | field[i];
  return static_cast<std::int32_t>(seconds);
}

bool WriteExtendedTime(zip_t *archive, zip_uint64_t index, std::int64_t seconds) {
  using Limits = std::numeric_limits<std::int32_t>;
  if (seconds < Limits::min() || seconds > Limits::max())
    return true;
  std::array<zip_uint8_t, FieldSize> field = {HasModificationTime};
  auto rest = static_cast<std::uint32_t>(seconds);
  for (zip_uint16_t i = 1; i < FieldSize; ++i, rest >>= 8)
    field[i] = static_cast<zip_uint8_t>(rest);
  return zip_file_extra_field_set(archive, index, FieldId, ZIP_EXTRA_FIELD_NEW, field.data(), FieldSize,
                                  ZIP_FL_LOCAL | ZIP_FL_CENTRAL) == 0;
}

} // namespace turfdesk
