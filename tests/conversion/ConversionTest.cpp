// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "catalogue/BaseValues.h"
#include "catalogue/Catalogue.h"
#include "catalogue/LoadLists.h"
#include "conversion/RunLayoutConverter.h"
#include "conversion/RunQuillonConverter.h"
#include "shell/Main.h"
#include "support/basVorinRegistry.h"

#include "common/TestWorld.h"
#include "samples/OldCourses.h"
#include "samples/WorldBuilder.h"

#include <gtest/gtest.h>

#include <functional>
#include <thread>

namespace turfdesk {

namespace {

using namespace std::chrono_literals;
using Log = std::vector<std::string>;

/// The real process layer, noting each call, with faults.
class WatchedProcesses final : public Processes {
public:
  WatchedProcesses(Processes &real, Log &log) : mReal(real), mLog(log) {}

  std::uint32_t Shell(std::string_view program, const std::vector<std::string> &arguments, WindowStyle style) override {
    mLog.push_back("start " + std::string(program) + (style == WindowStyle::Hidden ? ", hidden" : ""));
    return startsNothing ? 0 : mReal.Shell(program, arguments, style);
  }
  ProcessHandle OpenProcess(std::uint32_t processId) override {
    mLog.emplace_back("open");
    return opensNothing ? 0 : mReal.OpenProcess(processId);
  }
  void WaitForSingleObject(ProcessHandle handle, void (*repaint)(void *), void *context) override {
    mLog.emplace_back("wait");
    mReal.WaitForSingleObject(handle, repaint, context);
    if (afterWait)
      afterWait();
  }
  void CloseHandle(ProcessHandle handle) override {
    mLog.emplace_back("close");
    mReal.CloseHandle(handle);
  }
  std::string GetShortPathName(std::string_view path) override {
    mLog.push_back("shorten " + std::string(path));
    return hasNoShortPaths ? "" : mReal.GetShortPathName(path);
  }

  bool startsNothing = false;
  bool opensNothing = false;
  bool hasNoShortPaths = false;
  std::function<void()> afterWait;

private:
  Processes &mReal;
  Log &mLog;
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

class WatchedBoxes final : public MessageBoxes {
public:
  explicit WatchedBoxes(Log &log) : mLog(log) {}
  BoxAnswer Show(const MessageBox &box) override {
    const char *kind = box.icon == BoxIcon::Stop ? "stop" : box.icon == BoxIcon::Information ? "information" : "other";
    mLog.push_back(std::string(kind) + " [" + box.title + "] " + box.text);
    return BoxAnswer::Ok;
  }

private:
  Log &mLog;
};

class WatchedWindows final : public ConversionWindows {
public:
  explicit WatchedWindows(Log &log) : mLog(log) {}
  void ShowInvalidDirectory() override { mLog.emplace_back("invalid directory"); }
  void ShowWait() override { mLog.emplace_back("show wait"); }
  void RefreshAll() override { mLog.emplace_back("refresh all"); }
  void HideWait() override { mLog.emplace_back("hide wait"); }
  void UnloadForm() override { mLog.emplace_back("unload"); }
  void RefreshMain() override { mLog.emplace_back("refresh main"); }

private:
  Log &mLog;
};

class WatchedScreen final : public Screen {
public:
  explicit WatchedScreen(Log &log) : mLog(log) {}
  void DoEvents() override {}
  void Repaint() override { ++repaints; }
  void SetMousePointer(MousePointer pointer) override {
    mLog.emplace_back(pointer == MousePointer::Hourglass ? "hourglass" : "arrow");
  }

  int repaints = 0;

private:
  Log &mLog;
};

/// Notes when a list has been loaded.
class WatchedList final : public ListViewObserver {
public:
  WatchedList(ListView &list, const char *name, Log &log) : mList(list), mName(name), mLog(log) {
    mList.SetObserver(this);
  }
  ~WatchedList() override { mList.SetObserver(nullptr); }

  void BeforeInsert(std::size_t) override {}
  void AfterInsert(std::size_t) override {}
  void BeforeRemove(std::size_t) override {}
  void AfterRemove(std::size_t) override {}
  void BeforeMove(std::size_t, std::size_t) override {}
  void AfterMove(std::size_t, std::size_t) override {}
  void RowChanged(std::size_t) override {}
  void BeforeReset() override {}
  void AfterReset() override { mLog.push_back("load " + std::string(mName)); }
  void SelectionChanged() override {}

private:
  ListView &mList;
  const char *mName;
  Log &mLog;
};

const std::string Bin = R"(C:\Games\Marrowfell 2002\Bin)";
const std::string Converter = Bin + R"(\LayoutConverter.exe)";

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
  }

  void Set(const BaseValue &value, const std::string &text) {
    SetRegistryValue(state, LocalMachine, BaseKey, value.name, text);
  }

  /// Puts an old course into a folder and converts it as the form would.
  bool Convert(const samples::OldCourse &course = {.name = "Elm"}, const std::string &folder = R"(C:\Old)") {
    samples::WriteOldCourse(world.Host(folder), course);
    return RunLayoutConverter(state, {folder, 3}, windows);
  }

  /// What the converter was given, each argument on a line.
  std::string Arguments(const std::string &program = Converter) const {
    const samples::Bytes lines = samples::ReadFile(world.Host(program + ".arguments"));
    return {lines.begin(), lines.end()};
  }

  test::TestWorld world;
  Log log;
  WatchedProcesses processes{world.platform->Programs(), log};
  WatchedPlatform platform{*world.platform, processes};
  WatchedBoxes boxes{log};
  WatchedScreen screen{log};
  WatchedWindows windows{log};
  SharedState state{platform, boxes, screen};
  const WatchedList courses{state.lstCourses, "courses", log};
  const WatchedList libraries{state.lstLibraries, "libraries", log};

  const std::string converted = "information [Layout Converter] The course was converted successfully.";
  const std::string notConverted = "stop [Layout Converter] The course could not be converted.";
};

} // namespace

TEST_F(ConversionTest, StepsComeInTheirOrder) {
  log.clear();
  EXPECT_TRUE(Convert({.name = "Elm", .duration = 200ms}));
  EXPECT_EQ(log, (Log{R"(shorten C:\Old)", "start " + Converter + ", hidden", "open", "show wait", "refresh all",
                      "hourglass", "wait", "close", "hide wait", "arrow", "unload", "load courses", "load libraries",
                      "refresh main", converted}));
  EXPECT_GT(screen.repaints, 0);
  ASSERT_EQ(state.lstCourses.Count(), 1U);
  EXPECT_EQ(state.lstCourses.At(0).Text(), "Elm");
  EXPECT_EQ(state.lstCourses.SelectedItem(), &state.lstCourses.At(0));
}

TEST_F(ConversionTest, WhatCannotBeStartedLeavesTheFormAndTheLists) {
  const Log begun = {R"(shorten C:\Old)", "start " + Converter + ", hidden"};
  samples::WriteOldCourse(world.Host(R"(C:\Old)"), {.name = "Elm"});
  log.clear();
  EXPECT_FALSE(RunLayoutConverter(state, {R"(C:\Old)", 0}, windows));
  EXPECT_EQ(log, (Log{begun[0], "invalid directory"}));

  processes.startsNothing = true;
  log.clear();
  EXPECT_FALSE(Convert());
  EXPECT_EQ(log, begun) << "a start without a process is passed over in silence";
  processes.startsNothing = false;

  const auto told = [&](const std::string &reason) {
    return Log{begun[0], begun[1],
               "stop [Turf Desk] Unable to start the converter.\r\n\r\n" + Converter + "\r\n\r\n" + reason};
  };
  // Neither what it holds nor, where that counts, its permissions let it be started.
  samples::WriteFile(world.Host(Converter), samples::ToBytes("no program"));
  std::filesystem::permissions(world.Host(Converter), std::filesystem::perms::owner_read);
  log.clear();
  EXPECT_FALSE(Convert());
  EXPECT_EQ(log, told("Path/File access error"));
  test::SetReadOnly(world.Host(Converter), false);
  std::filesystem::remove(world.Host(Converter));
  log.clear();
  EXPECT_FALSE(Convert());
  EXPECT_EQ(log, told("File not found"));
  std::filesystem::remove_all(world.Host(Bin));
  log.clear();
  EXPECT_FALSE(Convert());
  EXPECT_EQ(log, told("Path not found"));
}

TEST_F(ConversionTest, AConverterThatCannotBeFollowedHasItsVerdictAtOnce) {
  processes.opensNothing = true;
  log.clear();
  EXPECT_FALSE(Convert({.name = "", .duration = 0ms}));
  EXPECT_EQ(log, (Log{R"(shorten C:\Old)", "start " + Converter + ", hidden", "open",
                      "stop [Layout Converter] Converter initialization error.", "unload", "load courses",
                      "load libraries", "refresh main", notConverted}));
}

TEST_F(ConversionTest, OnlyTheNumberOfCoursesDecides) {
  const auto verdict = [this](const samples::OldCourse &course) {
    const bool result = Convert(course);
    EXPECT_EQ(result, log.back() == converted);
    return log.back();
  };
  EXPECT_EQ(verdict({.name = "Elm"}), converted);
  EXPECT_EQ(verdict({.name = "Oak"}), converted);
  EXPECT_EQ(verdict({.name = "Elm"}), notConverted) << "replaced";
  EXPECT_EQ(verdict({.name = ""}), notConverted) << "the converter failed";
  processes.afterWait = [this] {
    DeleteRegistryKey(state, LocalMachine, CourseEntryKey(state.lstCourses.At(0).Key()));
  };
  EXPECT_EQ(verdict({.name = ""}), converted) << "fewer courses than before";
  processes.afterWait = nullptr;
  {
    const ListView::Update update(state.lstCourses);
    for (int i = 0; i < 65536; ++i)
      state.lstCourses.Add("", "not in the catalogue");
  }
  EXPECT_EQ(verdict({.name = ""}), converted) << "65537 and 1 are different numbers";
}

TEST_F(ConversionTest, TheFolderIsOneArgumentOrNone) {
  const std::string folder = R"(C:\Old Courses\Fågelsjö  Äng -x)";
  EXPECT_TRUE(Convert({.name = "Elm"}, folder));
  const std::string argument = Arguments();
  ASSERT_EQ(argument.find('\n'), argument.size() - 1) << argument;
  EXPECT_TRUE(
      std::filesystem::equivalent(samples::HostPath(argument.substr(0, argument.size() - 1)), world.Host(folder)))
      << argument;
  processes.hasNoShortPaths = true;
  EXPECT_FALSE(Convert({.name = "Oak"}, folder));
  EXPECT_EQ(Arguments(), "");
}

TEST_F(ConversionTest, TheFolderOfTheConvertersMayEndInABackslash) {
  Set(TurfManagerValue, Bin + "\\");
  EXPECT_TRUE(Convert());
  EXPECT_EQ(log[2], "start " + Converter + ", hidden") << testing::PrintToString(log);
  Set(TurfManagerValue, "");
  log.clear();
  EXPECT_FALSE(Convert());
  EXPECT_EQ(log[1], R"(start \LayoutConverter.exe, hidden)");
}

TEST_F(ConversionTest, TheQuillonConverterIsLeftToItself) {
  const std::string quillon = Bin + R"(\QuillonConverter.exe)";
  log.clear();
  EXPECT_TRUE(RunQuillonConverter(state));
  EXPECT_EQ(log, (Log{"start " + quillon}));
  for (int attempt = 0; attempt < 500 && GetSubkeys(state, LocalMachine, CoursesKey).empty(); ++attempt)
    std::this_thread::sleep_for(10ms);
  EXPECT_EQ(GetSubkeys(state, LocalMachine, CoursesKey).size(), 1U);
  EXPECT_EQ(Arguments(quillon), "");
  EXPECT_EQ(state.lstCourses.Count(), 0U);

  Set(TurfManagerValue, world.MakeFolder(R"(C:\Empty)"));
  log.clear();
  EXPECT_FALSE(RunQuillonConverter(state));
  EXPECT_EQ(log.back(), "stop [Turf Desk] Unable to start the converter.\r\n\r\n"
                        "C:\\Empty\\QuillonConverter.exe\r\n\r\nFile not found");
}

} // namespace turfdesk
