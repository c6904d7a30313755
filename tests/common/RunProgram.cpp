// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "common/RunProgram.h"

namespace turfdesk::test {

std::vector<std::string> SplitArguments(std::string_view commandLine) {
  std::vector<std::string> arguments;
  bool isQuoted = false;
  bool isInside = false;
  for (const char c : commandLine) {
    if (c == ' ' && !isQuoted) {
      isInside = false;
      continue;
    }
    if (!isInside)
      arguments.emplace_back();
    isInside = true;
    if (c == '\'')
      isQuoted = !isQuoted;
    else
      arguments.back() += c;
  }
  return arguments;
}

} // namespace turfdesk::test
