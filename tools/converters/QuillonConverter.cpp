// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "converters/SampleConverter.h"
#include "platform/CommandLine.h"

#include <exception>
#include <iostream>

int main(int argc, char **argv) {
  try {
    // The real one asks its user what to convert.
    const std::vector<std::string> arguments = turfdesk::CommandArguments(argc, argv);
    turfdesk::samples::SampleConverter(argv[0], arguments).EnterCourse("Quillon Meadows");
    return 0;
  } catch (const std::exception &error) {
    std::cerr << "QuillonConverter: " << error.what() << '\n';
    return 1;
  }
}
