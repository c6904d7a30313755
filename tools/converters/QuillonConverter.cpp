// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "converters/SampleConverter.h"

#include <exception>
#include <iostream>

int main(int argc, char **argv) {
  try {
    // The real one asks its user what to convert.
    turfdesk::samples::SampleConverter({argv, static_cast<std::size_t>(argc)}).EnterCourse("Quillon Meadows");
    return 0;
  } catch (const std::exception &error) {
    std::cerr << "QuillonConverter: " << error.what() << '\n';
    return 1;
  }
}
