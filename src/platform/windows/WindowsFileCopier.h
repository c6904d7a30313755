// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/FileCopier.h"
#include "platform/SweepTimes.h"

#include <string>

namespace turfdesk {

class WindowsFileCopier final : public FileCopier {
public:
  /// Nobody can write to the source meanwhile; one that somebody is writing to throws 70, and so does a destination
  /// that another program has open. A folder as the source throws 75. The copy has none of the source's attributes:
  /// what comes from a read-only medium must not be read-only for good.
  std::unique_ptr<StagedCopy> Stage(std::string_view source, std::string_view destination,
                                    const Report &report) override;

private:
  SweepTimes<std::wstring> mSweeps;
};

} // namespace turfdesk
