// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "converters/SampleConverter.h"
#include "platform/CommandLine.h"
#include "samples/OldCourses.h"

#include <exception>
#include <iostream>
#include <stdexcept>
#include <thread>

namespace {

using namespace turfdesk::samples;

void Convert(const char *program, const std::vector<std::string> &arguments) {
  const SampleConverter converter(program, arguments);
  if (arguments.size() != 1)
    throw std::runtime_error("give the folder of the old course as the one argument");
  const OldCourse course = ReadOldCourse(HostPath(arguments[0]));
  std::this_thread::sleep_for(course.duration);
  if (course.name.empty())
    throw std::runtime_error("this course cannot be converted");
  converter.EnterCourse(course.name);
}

} // namespace

int main(int argc, char **argv) {
  try {
    Convert(argv[0], turfdesk::CommandArguments(argc, argv));
    return 0;
  } catch (const std::exception &error) {
    std::cerr << "LayoutConverter: " << error.what() << '\n';
    return 1;
  }
}
