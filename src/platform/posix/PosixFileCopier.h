// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/FileCopier.h"
#include "platform/SweepTimes.h"
#include "platform/posix/PathMap.h"

namespace turfdesk {

class PosixFileCopier final : public FileCopier {
public:
  explicit PosixFileCopier(const PathMap &paths) : mPaths(paths) {}

  /// A destination that is a link stays one: what it leads to is replaced. A source that is no regular file throws 75,
  /// one that changes while it is copied 70. A new copy has the source's permission bits and is writable for its
  /// owner, whatever the medium of the source allowed; a replaced file keeps its own bits.
  std::unique_ptr<StagedCopy> Stage(std::string_view source, std::string_view destination,
                                    const Report &report) override;

private:
  const PathMap &mPaths;
  SweepTimes<std::string> mSweeps;
};

} // namespace turfdesk
