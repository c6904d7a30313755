// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "Aftermath.h"

#include "catalogue/CatalogueRows.h"
#include "platform/RuntimeError.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace turfdesk {

namespace {

constexpr const char *UninstallFailed = "Unable to uninstall ";
constexpr const char *UninstallLabel = "frmTurfManager.btnCourseUninstall_Click(): ";
constexpr std::string_view PutBackFailed = "The file is now here.\r\n\r\n";

void AddRows(const ListView &list, const std::string &kind, Rows &rows) {
  for (std::size_t i = 0; i < list.Count(); ++i) {
    const Row &row = list.At(i);
    std::vector<std::string> &texts = rows[kind + " " + row.Tag()];
    texts = {row.Text()};
    // Sizes and library lists are read from the files when a list is loaded.
    for (const int number : {column::Filename, column::Picture, column::Music, column::Video, column::Text})
      texts.push_back(row.SubItems(number));
  }
}

Rows RowsOf(const SharedState &state) {
  Rows rows;
  AddRows(state.lstCourses, "course", rows);
  AddRows(state.lstLibraries, "library", rows);
  return rows;
}

std::set<std::string> ContentsOf(const Picture &picture) {
  std::set<std::string> contents;
  for (const auto &[path, content] : picture.files)
    contents.insert(content);
  return contents;
}

/// The path below drive C: of a Windows path.
std::string OnDrive(std::string windowsPath) {
  std::ranges::replace(windowsPath, '\\', '/');
  return windowsPath.substr(std::min<std::size_t>(3, windowsPath.size()));
}

template <typename Map> typename Map::mapped_type ValueAt(const Map &map, const std::string &key) {
  const auto found = map.find(key);
  return found == map.end() ? typename Map::mapped_type() : found->second;
}

bool HasStopBox(const test::GolfProgram &program) {
  return std::ranges::any_of(program.boxes.shown, [](const MessageBox &box) { return box.icon == BoxIcon::Stop; });
}

/// Words that a user can do something with.
bool TellsWhy(const std::string &text) {
  for (const ErrorNumber number : {ErrorNumber::DiskFull, ErrorNumber::DeviceIo, ErrorNumber::PathFileAccess})
    if (text.starts_with(ErrorText(number)) || text.find(std::string(": ") + ErrorText(number)) != std::string::npos)
      return true;
  return text.find("The settings file cannot be ") != std::string::npos ||
         text.find("The disk has no room for the settings: ") != std::string::npos || text.starts_with("Error ") ||
         text == "Access is denied." || text.find("The settings are in use by another program: ") != std::string::npos;
}

/// The words of success and of failure.
const std::map<Work, std::pair<const char *, const char *>> Verdicts = {
    {Work::Install, {"Install completed successfully.", "Install failed."}},
    {Work::Move, {"Successfully moved ", "Move failed."}},
    {Work::Uninstall, {"was successfully uninstalled.", UninstallFailed}},
    {Work::Compress, {"Course files have been successfully compressed.", "Error compressing course files."}}};

void ExpectVerdict(const Command &command, const test::GolfProgram &program, bool result) {
  const bool hasWindow = command.work != Work::Uninstall;
  const std::string verdict = hasWindow ? program.window.route.caption : program.boxes.shown.back().text;
  const auto &[done, failed] = Verdicts.at(command.work);
  EXPECT_EQ(verdict.find(done) != std::string::npos, result) << verdict;
  EXPECT_EQ(verdict.starts_with(failed) || verdict.starts_with(UninstallLabel), !result) << verdict;
  EXPECT_EQ(program.window.closeShown, hasWindow);
  EXPECT_EQ(program.window.file.caption, "");
  EXPECT_EQ(program.state.workProgress, nullptr);
}

void ExpectBoxes(const Command &command, const test::GolfProgram &program, bool result) {
  for (const MessageBox &box : program.boxes.shown) {
    const bool isVerdict = box.text.starts_with(UninstallFailed);
    EXPECT_TRUE(box.icon != BoxIcon::Stop || isVerdict || TellsWhy(box.text)) << box.text;
  }
  // An orphan that stays does not keep its course from going.
  const bool mayShow = !result || command.work == Work::Uninstall;
  EXPECT_TRUE(mayShow || !HasStopBox(program)) << program.boxes.shown.back().text;
  // A move tells of files only; that the catalogue refused stands in its verdict.
  const bool mustShow = !result && command.work != Work::Move;
  EXPECT_TRUE(!mustShow || HasStopBox(program)) << "failed without a word";
}

/// Rows that are shown are those of the catalogue. What an install that failed has entered is not shown yet.
void ExpectRows(const Command &command, const test::GolfProgram &program, bool result, const Pictures &pictures) {
  const bool mayDiffer = command.work == Work::Install && !result;
  const Rows shown = RowsOf(program.state);
  for (const auto &[key, texts] : shown)
    EXPECT_TRUE(pictures.now.rows.contains(key)) << key << " is shown and not catalogued";
  for (const auto &[key, texts] : pictures.now.rows)
    EXPECT_TRUE(mayDiffer || ValueAt(shown, key) == texts) << key << ": " << testing::PrintToString(ValueAt(shown, key))
                                                           << " instead of " << testing::PrintToString(texts);
}

/// Where the catalogue names a file that is not there, the user knows.
void ExpectNamedFiles(const Command &command, const test::GolfProgram &program, const Pictures &pictures) {
  std::vector<std::string> named;
  bool isTold = command.work == Work::Uninstall && HasStopBox(program);
  for (const MessageBox &box : program.boxes.shown) {
    const std::size_t words = box.text.find(PutBackFailed);
    if (words == std::string::npos)
      continue;
    isTold = true;
    named.push_back(box.text.substr(words + PutBackFailed.size()));
  }
  for (const auto &[key, texts] : pictures.now.rows)
    for (std::size_t i = 1; i < texts.size() && !isTold; ++i)
      if (!texts[i].empty())
        named.push_back(texts[i]);
  for (const std::string &path : named)
    EXPECT_TRUE(pictures.now.files.contains(OnDrive(path))) << path;
}

} // namespace

Picture Look(const std::filesystem::path &home) {
  const test::GolfProgram program(home);
  for (const MessageBox &box : program.boxes.shown)
    ADD_FAILURE() << "at the next start: " << box.text;
  return {test::FilesOnDrive(home), RowsOf(program.state)};
}

Pictures LookBeforeAndAfter(const Command &command) {
  const test::GolfHome home;
  Pictures pictures{Look(home.Path()), {}, {}};
  test::GolfProgram program(home.Path());
  program.boxes.decide = AgreeToEverything;
  EXPECT_TRUE(command.run(program)) << program.boxes.shown.back().text;
  pictures.done = Look(home.Path());
  return pictures;
}

void ExpectNothingLost(const Pictures &pictures) {
  const std::set<std::string> kept = ContentsOf(pictures.done);
  const std::set<std::string> present = ContentsOf(pictures.now);
  for (const auto &[path, content] : pictures.before.files)
    EXPECT_TRUE(!kept.contains(content) || present.contains(content)) << "lost: " << path;
}

void ExpectOldOrNewFiles(const Pictures &pictures, bool mayLeaveHidden) {
  std::set<std::string> paths;
  for (const Picture *picture : {&pictures.before, &pictures.done, &pictures.now})
    for (const auto &[path, content] : picture->files)
      paths.insert(path);
  const std::set<std::string> known = ContentsOf(pictures.done);
  for (const std::string &path : paths) {
    const std::string content = ValueAt(pictures.now.files, path);
    if (path.starts_with("Temp/") && known.contains(content))
      continue;
    if (mayLeaveHidden && path.find("/.turfdesk-") != std::string::npos)
      continue;
    // A disk that refuses to delete may keep what was set aside.
    if (path.find("/.turfdesk-kept-") != std::string::npos && ContentsOf(pictures.before).contains(content))
      continue;
    EXPECT_TRUE(content == ValueAt(pictures.before.files, path) || content == ValueAt(pictures.done.files, path))
        << path << " holds " << content.size() << " bytes that are neither the old nor the new ones";
  }
}

void ExpectForeignFilesKept(const Command &command, const Pictures &pictures) {
  if (command.work != Work::Move)
    return;
  std::set<std::string> recorded;
  for (const auto &[key, texts] : pictures.now.rows)
    for (const std::string &text : texts)
      recorded.insert(OnDrive(text));
  const std::set<std::string> present = ContentsOf(pictures.now);
  for (const std::string &path : command.givenUp)
    EXPECT_TRUE(recorded.contains(path) || present.contains(pictures.before.files.at(path)))
        << path << " was replaced by a file that has no entry there";
}

void ExpectOldOrNewCatalogue(const Pictures &pictures) {
  for (const auto &[key, now] : pictures.now.rows) {
    std::vector<std::string> before = ValueAt(pictures.before.rows, key);
    std::vector<std::string> done = ValueAt(pictures.done.rows, key);
    before.resize(now.size());
    done.resize(now.size());
    for (std::size_t i = 0; i < now.size(); ++i)
      EXPECT_TRUE(now[i] == before[i] || now[i] == done[i]) << key << ": " << now[i];
  }
}

void ExpectOrderly(const Command &command, test::GolfProgram &program, bool result, const Pictures &pictures) {
  ExpectVerdict(command, program, result);
  ExpectBoxes(command, program, result);
  ExpectNothingLost(pictures);
  ExpectOldOrNewFiles(pictures, false);
  ExpectForeignFilesKept(command, pictures);
  ExpectOldOrNewCatalogue(pictures);
  ExpectRows(command, program, result, pictures);
  ExpectNamedFiles(command, program, pictures);
}

} // namespace turfdesk
