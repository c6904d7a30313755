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
};

} // namespace

TEST_F(ConvertCommandsTest, ConvertsAndTellsWhatTheFormTells) {
  samples::WriteOldCourse(Host("Old Courses/Fågelsjö Äng"), {"Fågelsjö Äng", 10ms});
  const Outcome converted = Run(R"(--json convert 'c:\old courses\fågelsjö äng')");
  EXPECT_EQ(converted.status, 0) << converted.errors;
  EXPECT_EQ(converted.Boxes(), Texts{"info [Layout Converter] The course was converted successfully."});
  EXPECT_EQ(converted.Answer()["steps"], (Json{{{"file", R"(C:\old courses\fågelsjö äng)"},
                                                {"route", "Please wait while your course is being converted..."}}}));
  EXPECT_EQ(Run("--json list --courses").Answer()["courses"][0]["name"], "Fågelsjö Äng");

  const Outcome again = Run("convert '" + HostText("Old Courses/Fågelsjö Äng") + "'");
  EXPECT_EQ(again.status, 1) << "replaced, so the number of courses is the same";
  EXPECT_NE(again.errors.find("The course could not be converted."), std::string::npos);
}

TEST_F(ConvertCommandsTest, OneFileThatFitsThePatternMakesACourse) {
  const Texts invalid = {"error [Invalid Directory] This directory does not contain a course that can be converted." +
                         std::string(27, ' ') + "Please select a valid directory."};
  const Texts notConverted = {"error [Layout Converter] The course could not be converted."};
  const std::pair<const char *, Texts> cases[] = {
      {"a.QAR", notConverted}, {"a.qtn", notConverted}, {"a.Qtb", notConverted}, {"a.qtx", invalid}, {"qar", invalid}};
  for (const auto &[name, boxes] : cases) {
    const std::filesystem::path folder = Host("Old") / (std::string("of ") + name);
    samples::WriteFile(folder / name, {});
    EXPECT_EQ(Run("--json convert '" + samples::Utf8(folder) + "'").Boxes(), boxes) << name;
  }
  // A folder's own name does not make it a course.
  std::filesystem::create_directories(Host("Folder/a.qar"));
  EXPECT_EQ(Run("--json convert '" + HostText("Folder") + "'").Boxes(), invalid);
  EXPECT_EQ(Run(R"(--json convert 'C:\Nowhere')").Boxes(),
            Texts{"error [Turf Desk] C:\\Nowhere\r\n\r\nPath not found"});
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
