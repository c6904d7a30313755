// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/zip/CallbackSource.h"

#include "platform/zip/ZipStatus.h"

namespace turfdesk {

void CallbackFailure::Throw(zip_error_t *error) const {
  if (cause)
    std::rethrow_exception(cause);
  throw ZipFault(StatusOfLibzip(error));
}

SourceHandle CallbackSource::MakeSource() {
  SourceHandle source(zip_source_function_create(&CallbackSource::Callback, this, Error()));
  if (!source)
    throw ZipFault(StatusOfLibzip(Error()));
  return source;
}

zip_int64_t CallbackSource::Refuse() {
  zip_error_set(Error(), ZIP_ER_OPNOTSUPP, 0);
  return -1;
}

zip_int64_t CallbackSource::Callback(void *self, void *data, zip_uint64_t length, zip_source_cmd_t command) {
  auto &source = *static_cast<CallbackSource *>(self);
  if (command == ZIP_SOURCE_ERROR)
    return zip_error_to_data(source.Error(), data, length);
  if (command == ZIP_SOURCE_FREE)
    return 0;
  try {
    return source.Perform(command, data, length);
  } catch (...) {
    if (!source.mFailure.cause)
      source.mFailure.cause = std::current_exception();
    zip_error_set(source.Error(), ZIP_ER_INTERNAL, 0);
    return -1;
  }
}

} // namespace turfdesk
