// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <exception>
#include <memory>
#include <zip.h>

namespace turfdesk {

struct SourceDeleter {
  void operator()(zip_source_t *source) const { zip_source_free(source); }
};
using SourceHandle = std::unique_ptr<zip_source_t, SourceDeleter>;

/// Frees an archive without writing it.
struct ArchiveDeleter {
  void operator()(zip_t *archive) const { zip_discard(archive); }
};
using ArchiveHandle = std::unique_ptr<zip_t, ArchiveDeleter>;

/// An error of libzip that no archive or source owns.
class ZipError {
public:
  ZipError() { zip_error_init(&mError); }
  ZipError(const ZipError &) = delete;
  ZipError &operator=(const ZipError &) = delete;
  ~ZipError() { zip_error_fini(&mError); }
  zip_error_t *Get() { return &mError; }

private:
  zip_error_t mError;
};

/// The exception behind the first command that failed while libzip was at work. Exceptions cannot pass through libzip,
/// so they wait here until it has returned.
struct CallbackFailure {
  std::exception_ptr cause;

  /// Throws what made libzip fail: the kept exception, else the ZipFault of libzip's own error.
  [[noreturn]] void Throw(zip_error_t *error) const;
};

/// A libzip source whose commands an object of ours carries out.
class CallbackSource {
public:
  /// The failure's holder must outlive the object.
  explicit CallbackSource(CallbackFailure &failure) : mFailure(failure) {}
  CallbackSource(const CallbackSource &) = delete;
  CallbackSource &operator=(const CallbackSource &) = delete;
  virtual ~CallbackSource() = default;

  /// A source that calls this object, which must outlive it. Whoever takes it over into an archive releases it.
  SourceHandle MakeSource();

protected:
  /// Carries out a command and gives libzip's result for it. May throw.
  virtual zip_int64_t Perform(zip_source_cmd_t command, void *data, zip_uint64_t length) = 0;

  /// The result of a command that the source does not know.
  zip_int64_t Refuse();
  zip_error_t *Error() { return mError.Get(); }

private:
  static zip_int64_t Callback(void *self, void *data, zip_uint64_t length, zip_source_cmd_t command);

  CallbackFailure &mFailure;
  ZipError mError;
};

} // namespace turfdesk
