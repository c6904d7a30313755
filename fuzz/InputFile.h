// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "common/TestWorld.h"
#include "samples/Basics.h"

namespace turfdesk::fuzz {

/// One file in a started program, which holds the bytes to be examined.
class InputFile {
public:
  SharedState &State() { return mWorld.state; }
  test::ScriptedBoxes &Boxes() { return mWorld.boxes; }
  /// As a Windows path.
  std::string Path() const { return mPath; }
  void Write(std::span<const std::uint8_t> bytes) const { samples::WriteFile(mHostPath, bytes); }

private:
  test::TestWorld mWorld;
  std::string mPath = "C:\\input";
  std::filesystem::path mHostPath = mWorld.Host(mPath);
};

} // namespace turfdesk::fuzz
