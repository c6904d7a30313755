// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/RuntimeError.h"

#include <new>

namespace turfdesk {

const char *ErrorText(ErrorNumber number) {
  switch (number) {
  case ErrorNumber::Overflow:
    return "Overflow";
  case ErrorNumber::OutOfMemory:
    return "Out of memory";
  case ErrorNumber::SubscriptOutOfRange:
    return "Subscript out of range";
  case ErrorNumber::TypeMismatch:
    return "Type mismatch";
  case ErrorNumber::Internal:
    return "Internal error";
  case ErrorNumber::BadFileName:
    return "Bad file name or number";
  case ErrorNumber::FileNotFound:
    return "File not found";
  case ErrorNumber::DeviceIo:
    return "Device I/O error";
  case ErrorNumber::DiskFull:
    return "Disk full";
  case ErrorNumber::InputPastEnd:
    return "Input past end of file";
  case ErrorNumber::TooManyFiles:
    return "Too many files are open";
  case ErrorNumber::DeviceUnavailable:
    return "Device unavailable";
  case ErrorNumber::PermissionDenied:
    return "Permission denied";
  case ErrorNumber::DiskNotReady:
    return "Disk not ready";
  case ErrorNumber::PathFileAccess:
    return "Path/File access error";
  case ErrorNumber::PathNotFound:
    return "Path not found";
  case ErrorNumber::ObjectNotSet:
    return "Object variable or With block variable not set";
  case ErrorNumber::KeyNotUnique:
    return "Key is not unique in collection";
  }
  return "";
}

RuntimeError::RuntimeError(ErrorNumber number) : RuntimeError(number, ErrorText(number)) {}

RuntimeError::RuntimeError(ErrorNumber number, const std::string &description)
    : std::runtime_error(description), mNumber(number) {}

std::string DescriptionOf(const std::exception &error) {
  if (dynamic_cast<const RuntimeError *>(&error) != nullptr)
    return error.what();
  const bool isMemory = dynamic_cast<const std::bad_alloc *>(&error) != nullptr;
  return ErrorText(isMemory ? ErrorNumber::OutOfMemory : ErrorNumber::Internal);
}

} // namespace turfdesk
