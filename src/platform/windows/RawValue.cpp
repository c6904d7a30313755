// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/windows/RawValue.h"

#include "platform/windows/WideText.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <windows.h>

namespace turfdesk {

namespace {

static_assert(std::endian::native == std::endian::little, "numbers are handed over as they lie in memory");

std::wstring WideTextOf(const RawValue &value) {
  std::wstring text(value.bytes.size() / sizeof(wchar_t), L'\0');
  std::memcpy(text.data(), value.bytes.data(), text.size() * sizeof(wchar_t));
  return text.substr(0, text.find(L'\0'));
}

} // namespace

std::string TextOf(const RawValue &value) { return ToUtf8(WideTextOf(value)); }

std::string ExpandedTextOf(const RawValue &value) {
  const std::wstring text = WideTextOf(value);
  const DWORD size = ExpandEnvironmentStringsW(text.c_str(), nullptr, 0);
  std::wstring expanded(size, L'\0');
  if (size == 0 || ExpandEnvironmentStringsW(text.c_str(), expanded.data(), size) != size)
    return ToUtf8(text);
  expanded.pop_back();
  return ToUtf8(expanded);
}

std::string BytesOfText(std::string_view utf8) {
  const std::wstring text = ToWide(utf8);
  return {reinterpret_cast<const char *>(text.c_str()), (text.size() + 1) * sizeof(wchar_t)};
}

std::int32_t NumberOf(const RawValue &value) {
  std::int32_t number = 0;
  std::memcpy(&number, value.bytes.data(), std::min(sizeof number, value.bytes.size()));
  return number;
}

std::string BytesOfNumber(std::int32_t number) { return {reinterpret_cast<const char *>(&number), sizeof number}; }

} // namespace turfdesk
