// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "cli/TurfctlTest.h"

#include "samples/OldCourses.h"
#include "samples/WorldBuilder.h"

#include <thread>

namespace turfdesk {

namespace {

using namespace std::chrono_literals;

class ConvertCommandsTest : public TurfctlTest {
protected:
  ConvertCommandsTest() {
    samples::WorldBuilder builder(home.Path());
    builder.AddGame();
    builder.CopyConverters(SAMPLE_CONVERTERS);
    builder.WriteCatalogue();
  }

  static Json Box(const char *kind, const char *title, const std::string &text) {
    return {{"kind", kind}, {"title", title}, {"text", text}, {"answer", "ok"}};
  }

  const Json notConverted = Box("error", "Layout Converter", "The course could not be converted.");
  const Json invalid = Box("error", "Invalid Directory",
                           "This directory does not contain a course that can be converted." + std::string(27, ' ') +
                               "Please select a valid directory.");
  const std::string converter = R"(C:\Games\Marrowfell 2002\Bin\LayoutConverter.exe)";
};

} // namespace

TEST_F(ConvertCommandsTest, ConvertsAndTellsWhatTheFormTells) {
  samples::WriteOldCourse(Host("Old Courses/Fågelsjö Äng"), {"Fågelsjö Äng", 10ms});
  const Outcome converted = Run(R"(--json convert 'c:\old courses\fågelsjö äng')");
  EXPECT_EQ(converted.status, 0) << converted.errors;
  EXPECT_EQ(converted.Answer(),
            (Json{{"result", true},
                  {"verdict", ""},
                  {"messages", {Box("info", "Layout Converter", "The course was converted successfully.")}},
                  {"steps",
                   {{{"file", R"(c:\old courses\fågelsjö äng)"},
                     {"route", "Please wait while your course is being converted..."}}}}}));
  EXPECT_EQ(Run("--json list --courses").Answer()["courses"][0]["name"], "Fågelsjö Äng");

  const Outcome again = Run("convert '" + HostText("Old Courses/Fågelsjö Äng") + "'");
  EXPECT_EQ(again.status, 1) << "replaced, so the number of courses is the same";
  EXPECT_NE(again.output.find("Please wait while"), std::string::npos);
  EXPECT_NE(again.errors.find("The course could not be converted."), std::string::npos);
}

TEST_F(ConvertCommandsTest, OneFileThatFitsThePatternMakesACourse) {
  const std::pair<const char *, Json> cases[] = {{"a.QAR", notConverted}, {"a.qtn", notConverted},
                                                 {"a.qtb", notConverted}, {"a.Qtb", notConverted},
                                                 {"a.qtx", invalid},      {"qar", invalid}};
  for (const auto &[name, message] : cases) {
    const std::filesystem::path folder = Host("Old") / (std::string("of ") + name);
    samples::WriteFile(folder / name, {});
    const Outcome outcome = Run("--json convert '" + samples::Utf8(folder) + "'");
    EXPECT_EQ(outcome.status, 1) << name;
    EXPECT_EQ(outcome.Answer()["messages"], Json::array({message})) << name;
    // A folder's own name does not make it a course.
    std::filesystem::remove(folder / name);
    std::filesystem::create_directories(folder / "a.qar");
    EXPECT_EQ(Run("--json convert '" + samples::Utf8(folder) + "'").Answer()["messages"], Json::array({invalid}));
  }
}

TEST_F(ConvertCommandsTest, WhatIsMissingIsNamed) {
  const std::string missingFolder = Run(R"(--json convert 'C:\Nowhere')").Answer()["messages"][0]["text"];
  EXPECT_EQ(missingFolder, "C:\\Nowhere\r\n\r\nPath not found");
  samples::WriteOldCourse(Host("Old"), {"Elm", 0ms});
  std::filesystem::remove(Host("Games/Marrowfell 2002/Bin/LayoutConverter.exe"));
  EXPECT_EQ(Run(R"(--json convert 'C:\Old')").Answer()["messages"],
            Json::array({Box("error", "Turf Desk",
                             "Unable to start the converter.\r\n\r\n" + converter + "\r\n\r\nFile not found")}));
  EXPECT_EQ(Run("convert").status, 2);
}

TEST_F(ConvertCommandsTest, TheQuillonConverterIsStartedOnly) {
  const Outcome started = Run("--json convert-quillon");
  EXPECT_EQ(started.status, 0);
  EXPECT_EQ(started.Answer()["messages"], Json::array());
  const auto courses = [this] { return Run("--json list --courses").Answer()["courses"].size(); };
  for (int attempt = 0; attempt < 500 && courses() == 0; ++attempt)
    std::this_thread::sleep_for(10ms);
  EXPECT_EQ(courses(), 1U) << "what it does goes on without turfctl";
  ASSERT_EQ(Run(R"(settings set TurfManager 'C:\Nowhere\')").status, 0);
  const Outcome failed = Run("convert-quillon");
  EXPECT_EQ(failed.status, 1);
  EXPECT_NE(failed.errors.find("C:\\Nowhere\\QuillonConverter.exe\n\nPath not found"), std::string::npos);
}

} // namespace turfdesk
