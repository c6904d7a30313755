// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <exception>
#include <stdexcept>
#include <string>

namespace turfdesk {

/// Numbers of the failures that the program tells apart. Each has fixed words, the same on every system.
enum class ErrorNumber {
  Overflow = 6,
  OutOfMemory = 7,
  SubscriptOutOfRange = 9,
  TypeMismatch = 13,
  Internal = 51,
  BadFileName = 52,
  FileNotFound = 53,
  DeviceIo = 57,
  DiskFull = 61,
  InputPastEnd = 62,
  TooManyFiles = 67,
  DeviceUnavailable = 68,
  PermissionDenied = 70,
  DiskNotReady = 71,
  PathFileAccess = 75,
  PathNotFound = 76,
  ObjectNotSet = 91,
  KeyNotUnique = 35602,
};

/// The words that belong to a number, for example "File not found".
const char *ErrorText(ErrorNumber number);

/// A failure that a routine without a handler of its own passes up to its caller.
/// what() is the description in UTF-8, fit to be shown to the user.
class RuntimeError : public std::runtime_error {
public:
  /// An error with the fixed words of its number.
  explicit RuntimeError(ErrorNumber number);
  /// An error whose description comes from a service, such as the words of a busy settings store.
  RuntimeError(ErrorNumber number, const std::string &description);

  ErrorNumber Number() const { return mNumber; }
  std::string Description() const { return what(); }

private:
  ErrorNumber mNumber;
};

/// What a user is told of any exception: a RuntimeError's own description, and fixed words for what comes from the
/// standard library, whose words are for programmers.
std::string DescriptionOf(const std::exception &error);

} // namespace turfdesk
