// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <cstdint>
#include <string>
#include <utility>

namespace turfdesk {

/// Owns a handle of the system, or none.
class SystemHandle {
public:
  SystemHandle() = default;
  /// Takes over a handle; null and INVALID_HANDLE_VALUE are none.
  explicit SystemHandle(void *handle);
  SystemHandle(SystemHandle &&other) noexcept : mHandle(std::exchange(other.mHandle, nullptr)) {}
  SystemHandle &operator=(SystemHandle &&other) noexcept {
    std::swap(mHandle, other.mHandle);
    return *this;
  }
  SystemHandle(const SystemHandle &) = delete;
  SystemHandle &operator=(const SystemHandle &) = delete;
  ~SystemHandle();

  bool IsOpen() const { return mHandle != nullptr; }
  void *Get() const { return mHandle; }

private:
  void *mHandle = nullptr;
};

/// Opens a file, or a folder, that exists. systemPath is what ToSystemPath gives; access, sharing and flags are those
/// of CreateFileW. Gives 0 or the system's number of the failure.
std::uint32_t OpenExisting(const std::wstring &systemPath, std::uint32_t access, std::uint32_t sharing,
                           SystemHandle &handle, std::uint32_t flags = 0);

} // namespace turfdesk
