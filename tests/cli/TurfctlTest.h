// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "common/RunProgram.h"
#include "common/TestWorld.h"
#include "samples/GameFiles.h"
#include "samples/Packages.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <fstream>
#include <iterator>

namespace turfdesk {

using Json = nlohmann::json;

struct Outcome : test::ProgramRun {
  Json Answer() const { return Json::parse(output); }
};

/// turfctl on a home of its own, run as a user runs it.
class TurfctlTest : public testing::Test {
protected:
  Outcome Run(const std::string &arguments, const std::string &input = "") const {
    std::vector<std::string> words = {"--home", samples::Utf8(home.Path())};
    std::ranges::copy(test::SplitArguments(arguments), std::back_inserter(words));
    return {test::RunProgram(TURFCTL, words, input)};
  }

  /// Host path of a path below drive C:, with slashes.
  std::filesystem::path Host(const std::string &name) const { return test::HostIn(home.Path(), "C:\\" + name); }
  /// The same as text.
  std::string HostText(const std::string &name) const { return samples::Utf8(Host(name)); }

  test::WorldHome home;
  const samples::LibrarySpec grass{.name = "Grass"};
  const samples::LibrarySpec trees{.name = "Trees"};
  const samples::CourseSpec elm{.name = "Old Elm", .libraries = {grass, trees}};
};

} // namespace turfdesk
