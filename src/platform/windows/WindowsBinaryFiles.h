// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/BinaryFile.h"

namespace turfdesk {

class WindowsBinaryFiles final : public BinaryFiles {
public:
  std::unique_ptr<BinaryFile> OpenForBinaryRead(std::string_view path) override;
};

} // namespace turfdesk
