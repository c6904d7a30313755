// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "Header.h"
#include "InputFile.h"

#include "content/LibraryFile.h"

namespace turfdesk::fuzz {

void Examine(std::span<const std::uint8_t> bytes) {
  static InputFile input;
  input.Write(bytes);
  LibraryFile library(input.State());
  library.FileName = input.Path();
  Require(library.ReadFile() == (bytes.size() >= IdentitySize), "a whole header, and no other, is read");
  RequireIdentity(library, bytes);
  Require(library.LastError() == (bytes.size() >= IdentitySize ? "" : "Input past end of file"), "a failure has words");
}

std::vector<samples::HostileFile> Seeds() { return samples::HostileLibraries(); }

} // namespace turfdesk::fuzz
