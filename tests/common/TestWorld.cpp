// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "common/TestWorld.h"

#include "platform/RuntimeError.h"
#include "samples/Basics.h"
#include "shell/Main.h"

#include <stdexcept>

namespace turfdesk::test {

BoxAnswer ScriptedBoxes::Show(const MessageBox &box) {
  if (onShow)
    onShow();
  shown.push_back(box);
  if (box.buttons == BoxButtons::Ok)
    return BoxAnswer::Ok;
  bool agrees = decide && answers.empty() && decide(box);
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

TestProgram::TestProgram(const std::filesystem::path &home)
    : mHome(home), platform(MakePlatform(samples::Utf8(home))), window(screen), state(*platform, boxes, screen) {
  if (!Main(state, ""))
    throw std::runtime_error("the services could not be created");
}

std::string TestProgram::MakeFolder(const std::string &windowsPath) const {
  std::filesystem::create_directories(Host(windowsPath));
  return windowsPath;
}

FaultyRegistry &FaultyRegistry::Install(SharedState &state) {
  std::unique_ptr<FaultyRegistry> faulty(new FaultyRegistry(std::move(state.registryService)));
  FaultyRegistry &reference = *faulty;
  state.registryService = std::move(faulty);
  return reference;
}

bool FaultyRegistry::ChangeFails(bool failsAnyway) {
  ++changes;
  mFailed = failsAnyway || (changes >= firstFailing && changes <= lastFailing);
  if (mFailed && onFailure)
    onFailure();
  return mFailed;
}

bool FaultyRegistry::OpenKey(std::string_view keyPath, bool create) {
  mFailed = false;
  const bool makesKey = create && !mReal->KeyExists(keyPath);
  return !(makesKey && ChangeFails(false)) && mReal->OpenKey(keyPath, create);
}

bool FaultyRegistry::DeleteKey(std::string_view keyPath) {
  ++deleteCalls;
  const bool deleted = !ChangeFails(undeletable) && mReal->DeleteKey(keyPath);
  if (deleted && onDelete)
    onDelete(keyPath);
  return deleted;
}

std::unique_ptr<RegistryReservation> FaultyRegistry::Reserve(KeyChange change, std::string_view keyPath) {
  mFailed = change == KeyChange::Delete && undeletable && !surprise;
  return mFailed ? nullptr : mReal->Reserve(change, keyPath);
}

std::string FaultyRegistry::GetStringValue(std::string_view valueName) {
  if (!wrongType.empty() && valueName == wrongType && --rightTypes < 0)
    throw RuntimeError(ErrorNumber::TypeMismatch);
  return mReal->GetStringValue(valueName);
}

void FaultyRegistry::SetStringValue(std::string_view valueName, std::string_view value) {
  if (!ChangeFails(!failingValue.empty() && valueName == failingValue))
    mReal->SetStringValue(valueName, value);
}

WatchedFiles &WatchedFiles::Install(SharedState &state) {
  std::unique_ptr<WatchedFiles> watched(new WatchedFiles(std::move(state.fileService)));
  WatchedFiles &reference = *watched;
  state.fileService = std::move(watched);
  return reference;
}

bool WatchedFiles::DeleteFile(std::string_view path) {
  if (onDelete)
    onDelete(path);
  return mReal->DeleteFile(path);
}

} // namespace turfdesk::test
