// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "common/RunProgram.h"
#include "common/TestWorld.h"
#include "samples/GameFiles.h"
#include "samples/Packages.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <fstream>
#include <iomanip>
#include <sstream>

namespace turfdesk {

using Json = nlohmann::json;

struct Outcome : test::ProgramRun {
  Json Answer() const { return Json::parse(output); }
  /// The boxes of an answer in JSON, as "kind [title] text".
  std::vector<std::string> Boxes() const {
    std::vector<std::string> boxes;
    const Json answer = Answer();
    for (const Json &box : answer.at("messages"))
      boxes.push_back(box.at("kind").get<std::string>() + " [" + box.at("title").get<std::string>() + "] " +
                      box.at("text").get<std::string>());
    return boxes;
  }
};

using Texts = std::vector<std::string>;

/// turfctl on a home of its own, run as a user runs it.
class TurfctlTest : public testing::Test {
protected:
  /// Blanks part the arguments, unless they stand between apostrophes.
  Outcome Run(const std::string &arguments, const std::string &input = "") const {
    std::vector<std::string> words;
    if (HasHomeFolder())
      words = {"--home", samples::Utf8(home.Path())};
    std::istringstream line(arguments);
    for (std::string word; line >> std::quoted(word, '\'', '\0');)
      words.push_back(word);
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
