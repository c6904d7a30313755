// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "catalogue/BaseValues.h"
#include "catalogue/Catalogue.h"
#include "catalogue/LoadLists.h"
#include "conversion/RunLayoutConverter.h"
#include "shell/Main.h"
#include "support/basVorinRegistry.h"

#include "common/TestWorld.h"
#include "samples/OldCourses.h"
#include "samples/WorldBuilder.h"

#include <gtest/gtest.h>

namespace turfdesk {

namespace {

using namespace std::chrono_literals;
using Log = std::vector<std::string>;

/// Notes what a conversion does, in one log. Processes are the real ones, but that some can be made to fail.
class Watcher final : public Processes, public ConversionWindows, public MessageBoxes, public Screen {
public:
  explicit Watcher(Processes &real) : mReal(real) {}

  std::uint32_t Shell(std::string_view program, const std::vector<std::string> &arguments, WindowStyle style) override {
    log.push_back("start " + std::string(program) + (style == WindowStyle::Hidden ? ", hidden" : ""));
    return startsNothing ? 0 : mReal.Shell(program, arguments, style);
  }
  ProcessHandle OpenProcess(std::uint32_t processId) override {
    return opensNothing ? 0 : mReal.OpenProcess(processId);
  }
  void WaitForSingleObject(ProcessHandle handle, void (*repaint)(void *), void *context) override {
    log.emplace_back("wait");
    mReal.WaitForSingleObject(handle, repaint, context);
    if (afterWait)
      afterWait();
  }
  void CloseHandle(ProcessHandle handle) override {
    log.emplace_back("close");
    mReal.CloseHandle(handle);
  }
  std::string GetShortPathName(std::string_view path) override {
    return hasNoShortPaths ? "" : mReal.GetShortPathName(path);
  }

  void ShowInvalidDirectory() override { log.emplace_back("invalid directory"); }
  void ShowWait() override { log.emplace_back("show wait"); }
  void RefreshAll() override { log.emplace_back("refresh all"); }
  void HideWait() override { log.emplace_back("hide wait"); }
  void UnloadForm() override { log.emplace_back("unload"); }
  void RefreshMain() override { log.push_back("refresh main with " + std::to_string(courses->Count())); }

  BoxAnswer Show(const MessageBox &box) override {
    log.push_back((box.icon == BoxIcon::Stop ? "stop [" : "[") + box.title + "] " + box.text);
    return BoxAnswer::Ok;
  }

  void DoEvents() override {}
  void Repaint() override { ++repaints; }
  void SetMousePointer(MousePointer pointer) override {
    log.emplace_back(pointer == MousePointer::Hourglass ? "hourglass" : "arrow");
  }

  bool startsNothing = false;
  bool opensNothing = false;
  bool hasNoShortPaths = false;
  std::function<void()> afterWait;
  const ListView *courses = nullptr;
  int repaints = 0;
  Log log;

private:
  Processes &mReal;
};

/// This system with other processes.
class WatchedPlatform final : public Platform {
public:
  WatchedPlatform(Platform &real, Processes &programs) : mReal(real), mPrograms(programs) {}

  void PrepareServices() override { mReal.PrepareServices(); }
  std::unique_ptr<RegistryService> CreateRegistryService() override { return mReal.CreateRegistryService(); }
  std::unique_ptr<FileService> CreateFileService() override { return mReal.CreateFileService(); }
  std::unique_ptr<ZipLayer> CreateZipLayer() override { return mReal.CreateZipLayer(); }
  RegistryFunctions &DirectRegistry() override { return mReal.DirectRegistry(); }
  RegistryBranches &Branches() override { return mReal.Branches(); }
  FileCopier &Copier() override { return mReal.Copier(); }
  BinaryFiles &Files() override { return mReal.Files(); }
  StagedFiles &NewFiles() override { return mReal.NewFiles(); }
  FolderReader &Folders() override { return mReal.Folders(); }
  Processes &Programs() override { return mPrograms; }
  void RestoreServices(MessageBoxes &boxes) override { mReal.RestoreServices(boxes); }
  void NoteCleanStart() override { mReal.NoteCleanStart(); }
  std::string ProgramFolder() override { return mReal.ProgramFolder(); }
  std::string ToWindowsPath(std::string_view path) override { return mReal.ToWindowsPath(path); }
  std::string ToHostPath(std::string_view windowsPath) override { return mReal.ToHostPath(windowsPath); }

private:
  Platform &mReal;
  Processes &mPrograms;
};

const std::string Bin = R"(C:\Games\Marrowfell 2002\Bin)";
const std::string Converter = Bin + R"(\LayoutConverter.exe)";
const std::string Start = "start " + Converter + ", hidden";
const std::string Converted = "[Layout Converter] The course was converted successfully.";
const std::string NotConverted = "stop [Layout Converter] The course could not be converted.";

class ConversionTest : public testing::Test {
protected:
  ConversionTest() {
    samples::WorldBuilder builder(world.Home());
    builder.AddGame();
    builder.CopyConverters(SAMPLE_CONVERTERS);
    builder.WriteCatalogue();
    if (!Main(state, ""))
      throw std::runtime_error("the services could not be created");
    LoadCourses(state);
    watcher.courses = &state.lstCourses;
  }

  /// Puts an old course into a folder, converts it as the form would, and gives what happened.
  Log Convert(const samples::OldCourse &course = {.name = "Elm"}, const std::string &folder = R"(C:\Old)") {
    samples::WriteOldCourse(world.Host(folder), course);
    watcher.log.clear();
    const bool result = RunLayoutConverter(state, {folder, 3}, watcher);
    EXPECT_EQ(result, watcher.log.back() == Converted);
    return watcher.log;
  }

  /// What the converter was given, each argument on a line.
  std::string Arguments() const {
    const samples::Bytes lines = samples::ReadFile(world.Host(Converter + ".arguments"));
    return {lines.begin(), lines.end()};
  }

  test::TestWorld world;
  Watcher watcher{world.platform->Programs()};
  WatchedPlatform platform{*world.platform, watcher};
  SharedState state{platform, watcher, watcher};
};

} // namespace

TEST_F(ConversionTest, StepsComeInTheirOrder) {
  EXPECT_EQ(Convert({.name = "Elm", .duration = 200ms}),
            (Log{Start, "show wait", "refresh all", "hourglass", "wait", "close", "hide wait", "arrow", "unload",
                 "refresh main with 1", Converted}));
  EXPECT_GT(watcher.repaints, 0);
}

TEST_F(ConversionTest, WhatCannotBeStartedLeavesTheFormAndTheLists) {
  watcher.startsNothing = true;
  EXPECT_EQ(Convert(), Log{Start}) << "a start without a process is passed over in silence";
  watcher.startsNothing = false;
  // Neither what it holds nor, where that counts, its permissions let it be started.
  samples::WriteFile(world.Host(Converter), samples::ToBytes("no program"));
  std::filesystem::permissions(world.Host(Converter), std::filesystem::perms::owner_read);
  EXPECT_EQ(Convert(), (Log{Start, "stop [Turf Desk] Unable to start the converter.\r\n\r\n" + Converter +
                                       "\r\n\r\nPath/File access error"}));
  test::SetReadOnly(world.Host(Converter), false);
}

TEST_F(ConversionTest, AConverterThatCannotBeFollowedHasItsVerdictAtOnce) {
  watcher.opensNothing = true;
  EXPECT_EQ(Convert({.name = "", .duration = 0ms}),
            (Log{Start, "stop [Layout Converter] Converter initialization error.", "unload", "refresh main with 0",
                 NotConverted}));
}

TEST_F(ConversionTest, OnlyTheNumberOfCoursesDecides) {
  EXPECT_EQ(Convert().back(), Converted);
  EXPECT_EQ(Convert().back(), NotConverted) << "replaced";
  watcher.afterWait = [this] { DeleteRegistryKey(state, LocalMachine, CourseEntryKey(state.lstCourses.At(0).Key())); };
  EXPECT_EQ(Convert({.name = ""}).back(), Converted) << "fewer courses than before";
  watcher.afterWait = nullptr;
  {
    const ListView::Update update(state.lstCourses);
    for (int i = 0; i < 65536; ++i)
      state.lstCourses.Add("", "not in the catalogue");
  }
  EXPECT_EQ(Convert({.name = ""}).back(), Converted) << "65536 and 0 are different numbers";
}

TEST_F(ConversionTest, TheFolderIsOneArgumentOrNone) {
  const std::string folder = R"(C:\Old Courses\Fågelsjö  Äng -x)";
  Convert({.name = "Elm"}, folder);
  const std::string argument = Arguments();
  ASSERT_EQ(argument.find('\n'), argument.size() - 1) << argument;
  EXPECT_TRUE(
      std::filesystem::equivalent(samples::HostPath(argument.substr(0, argument.size() - 1)), world.Host(folder)));
  watcher.hasNoShortPaths = true;
  EXPECT_EQ(Convert({.name = "Oak"}, folder).back(), NotConverted);
  EXPECT_EQ(Arguments(), "");
}

TEST_F(ConversionTest, TheFolderOfTheConvertersMayEndInABackslash) {
  for (const auto &[value, start] : {std::pair(Bin + "\\", Start), {"", R"(start \LayoutConverter.exe, hidden)"}}) {
    SetRegistryValue(state, LocalMachine, BaseKey, TurfManagerValue.name, value);
    EXPECT_EQ(Convert().front(), start);
  }
}

} // namespace turfdesk
