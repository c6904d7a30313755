// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "common/TestWorld.h"
#include "samples/GameFiles.h"
#include "samples/Packages.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cstdio>
#include <fstream>
#include <sys/wait.h>

namespace turfdesk {

using Json = nlohmann::json;

struct Outcome {
  int status = -1;
  std::string output;
  std::string errors;

  Json Answer() const { return Json::parse(output); }
};

/// turfctl on a home of its own, run as a user runs it.
class TurfctlTest : public testing::Test {
protected:
  Outcome Run(const std::string &arguments, const std::string &input = "") {
    const std::filesystem::path errors = home.Path() / "errors";
    const std::filesystem::path typed = home.Path() / "typed";
    std::ofstream(typed) << input;
    const std::string command = std::string(TURFCTL) + " --home '" + home.Path().string() + "' " + arguments + " < '" +
                                typed.string() + "' 2> '" + errors.string() + "'";
    Outcome outcome;
    std::FILE *pipe = popen(command.c_str(), "r");
    for (int c = std::fgetc(pipe); c != EOF; c = std::fgetc(pipe))
      outcome.output += static_cast<char>(c);
    outcome.status = WEXITSTATUS(pclose(pipe));
    std::ifstream file(errors);
    outcome.errors.assign(std::istreambuf_iterator<char>(file), {});
    return outcome;
  }

  std::filesystem::path Host(const std::string &name) const { return home.Path() / "drive_c" / name; }

  test::TempFolder home;
  const samples::LibrarySpec grass{.name = "Grass"};
  const samples::LibrarySpec trees{.name = "Trees"};
  const samples::CourseSpec elm{.name = "Old Elm", .libraries = {grass, trees}};
};

} // namespace turfdesk
