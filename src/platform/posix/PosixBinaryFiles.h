// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/BinaryFile.h"
#include "platform/posix/PathMap.h"

namespace turfdesk {

class PosixBinaryFiles final : public BinaryFiles {
public:
  explicit PosixBinaryFiles(const PathMap &paths) : mPaths(paths) {}

  /// What is neither a file nor a folder (a device, a pipe) throws 75, at once.
  std::unique_ptr<BinaryFile> OpenForBinaryRead(std::string_view path) override;

private:
  const PathMap &mPaths;
};

} // namespace turfdesk
