// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "common/TestWorld.h"

#include "platform/RuntimeError.h"
#include "shell/Main.h"

#include <algorithm>
#include <cstdlib>
#include <stdexcept>

namespace turfdesk::test {

TempFolder::TempFolder() {
  std::string pattern = (std::filesystem::temp_directory_path() / "turfdesk-test-XXXXXX").string();
  if (mkdtemp(pattern.data()) == nullptr)
    throw std::runtime_error("no temporary folder");
  mPath = pattern;
}

TempFolder::~TempFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(mPath, ignored);
}

BoxAnswer ScriptedBoxes::Show(const MessageBox &box) {
  shown.push_back(box);
  if (box.buttons == BoxButtons::Ok)
    return BoxAnswer::Ok;
  bool agrees = false;
  if (!answers.empty()) {
    agrees = answers.front();
    answers.pop_front();
  }
  if (box.buttons == BoxButtons::YesNo)
    return agrees ? BoxAnswer::Yes : BoxAnswer::No;
  return agrees ? BoxAnswer::Ok : BoxAnswer::Cancel;
}

std::vector<std::string> ScriptedBoxes::TakeTexts() {
  std::vector<std::string> texts;
  for (const MessageBox &box : shown)
    texts.push_back(box.text);
  shown.clear();
  return texts;
}

RecordedWindow::RecordedWindow(CountingScreen &screen) {
  screen.onEvents = [this] {
    const std::string pair = file.caption + "|" + route.caption;
    if (pair != "|" && (steps.empty() || steps.back() != pair))
      steps.push_back(pair);
  };
}

void RecordedWindow::MissingAnimation::Open(std::string_view) { throw RuntimeError(ErrorNumber::FileNotFound); }

TestWorld::TestWorld()
    : platform(MakePlatform(mHome.Path().string())), window(screen), state(*platform, boxes, screen) {
  if (!Main(state, ""))
    throw std::runtime_error("the services could not be created");
}

std::filesystem::path TestWorld::Host(const std::string &windowsPath) const {
  std::string below = windowsPath.substr(std::string("C:").size());
  std::replace(below.begin(), below.end(), '\\', '/');
  return mHome.Path() / "drive_c" / below.substr(1);
}

std::string TestWorld::MakeFolder(const std::string &windowsPath) const {
  std::filesystem::create_directories(Host(windowsPath));
  return windowsPath;
}

FaultyRegistry &FaultyRegistry::Install(SharedState &state) {
  std::unique_ptr<FaultyRegistry> faulty(new FaultyRegistry(std::move(state.registryService)));
  FaultyRegistry &reference = *faulty;
  state.registryService = std::move(faulty);
  return reference;
}

bool FaultyRegistry::DeleteKey(std::string_view keyPath) {
  ++deleteCalls;
  mFailed = undeletable;
  return !undeletable && mReal->DeleteKey(keyPath);
}

bool FaultyRegistry::MayDeleteKey(std::string_view keyPath) {
  mFailed = undeletable && !surprise;
  return !mFailed && mReal->MayDeleteKey(keyPath);
}

void FaultyRegistry::SetStringValue(std::string_view valueName, std::string_view value) {
  mFailed = !failingValue.empty() && valueName == failingValue;
  if (!mFailed)
    mReal->SetStringValue(valueName, value);
}

} // namespace turfdesk::test
