// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <sys/stat.h>
#include <unistd.h>

#include <utility>

namespace turfdesk {

/// Owns a file descriptor of the system, or none.
class Descriptor {
public:
  Descriptor() = default;
  explicit Descriptor(int number) : mNumber(number) {}
  Descriptor(Descriptor &&other) noexcept : mNumber(std::exchange(other.mNumber, -1)) {}
  Descriptor &operator=(Descriptor &&other) noexcept {
    std::swap(mNumber, other.mNumber);
    return *this;
  }
  Descriptor(const Descriptor &) = delete;
  Descriptor &operator=(const Descriptor &) = delete;
  ~Descriptor() {
    if (IsOpen())
      close(mNumber);
  }

  bool IsOpen() const { return mNumber >= 0; }
  int Number() const { return mNumber; }
  /// Gives up the ownership.
  int Release() { return std::exchange(mNumber, -1); }

private:
  int mNumber = -1;
};

inline bool IsSameFile(const struct stat &left, const struct stat &right) {
  return left.st_dev == right.st_dev && left.st_ino == right.st_ino;
}

} // namespace turfdesk
