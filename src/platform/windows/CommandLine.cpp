// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/CommandLine.h"

#include "platform/windows/WideText.h"

#include <windows.h>

// It needs the one above.
#include <shellapi.h>

#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <memory>

namespace turfdesk {

// What main is given has been through the code page of the system, and the runtime has put file names in the place of
// patterns.
std::vector<std::string> CommandArguments(int /*argc*/, char ** /*argv*/) {
  int count = 0;
  const std::unique_ptr<wchar_t *, decltype(&LocalFree)> parts(CommandLineToArgvW(GetCommandLineW(), &count),
                                                               &LocalFree);
  std::vector<std::string> arguments;
  for (int i = 1; parts && i < count; ++i)
    arguments.push_back(ToUtf8(parts.get()[i]));
  return arguments;
}

void UseUtf8Terminal() {
  static const UINT before = GetConsoleOutputCP();
  if (before == 0 || before == CP_UTF8)
    return;
  SetConsoleOutputCP(CP_UTF8);
  // The terminal outlives the program, and what is still to be written does not.
  std::atexit([] {
    std::cout.flush();
    std::fflush(nullptr);
    SetConsoleOutputCP(before);
  });
}

} // namespace turfdesk
