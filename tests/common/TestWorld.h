// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/Platform.h"
#include "platform/StatusWindow.h"
#include "support/SharedState.h"

#include <deque>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace turfdesk::test {

/// A folder of the host that is gone with the object.
class TempFolder {
public:
  TempFolder();
  TempFolder(const TempFolder &) = delete;
  TempFolder &operator=(const TempFolder &) = delete;
  ~TempFolder();

  const std::filesystem::path &Path() const { return mPath; }

private:
  std::filesystem::path mPath;
};

/// Answers boxes from a script and remembers what was asked. A question beyond the script is refused.
class ScriptedBoxes final : public MessageBoxes {
public:
  BoxAnswer Show(const MessageBox &box) override;

  /// Texts of the boxes shown since the last call.
  std::vector<std::string> TakeTexts();

  /// true agrees (Yes, OK), false refuses.
  std::deque<bool> answers;
  std::vector<MessageBox> shown;
};

class CountingScreen final : public Screen {
public:
  void DoEvents() override {
    if (onEvents)
      onEvents();
  }
  void Repaint() override { ++repaints; }
  void SetMousePointer(MousePointer shape) override { pointers.push_back(shape); }

  std::function<void()> onEvents;
  int repaints = 0;
  std::vector<MousePointer> pointers;
};

/// A status window that remembers each pair of labels it was let show.
class RecordedWindow final : public StatusWindow {
public:
  explicit RecordedWindow(CountingScreen &screen);

  Label &FileLabel() override { return file; }
  Label &RouteLabel() override { return route; }
  Animation &WorkAnimation() override { return animation; }
  Progress &WorkProgress() override { return progress; }
  void ShowCloseButton() override { closeShown = true; }

  struct Text final : public Label {
    void SetCaption(std::string_view text) override { caption = text; }
    std::string Caption() const override { return caption; }
    std::string caption;
  };
  /// An animation whose file is always missing, as when the program was copied without it.
  struct MissingAnimation final : public Animation {
    void SetAutoPlay(bool) override {}
    void Open(std::string_view) override;
    void Close() override {}
  };
  struct LastProgress final : public Progress {
    void Begin(std::uint64_t totalBytes) override { total = totalBytes; }
    void SetPosition(std::uint64_t doneBytes) override { done = doneBytes; }
    std::uint64_t total = 0;
    std::uint64_t done = 0;
  };

  Text file;
  Text route;
  MissingAnimation animation;
  LastProgress progress;
  bool closeShown = false;
  /// "file|route" for each new pair of labels.
  std::vector<std::string> steps;
};

/// A started program over a home of its own, with the real services of this system.
class TestWorld {
public:
  TestWorld();

  /// Host path of a Windows path under C:, which is empty at first. Folders are made by MakeFolder.
  std::filesystem::path Host(const std::string &windowsPath) const;
  /// Makes a folder, parents included, and gives its Windows path back.
  std::string MakeFolder(const std::string &windowsPath) const;

  const std::filesystem::path &Home() const { return mHome.Path(); }

private:
  TempFolder mHome;

public:
  std::unique_ptr<Platform> platform;
  ScriptedBoxes boxes;
  CountingScreen screen;
  RecordedWindow window;
  SharedState state;
};

/// A settings tree that can be told to fail, over a real one.
class FaultyRegistry final : public RegistryService {
public:
  /// Puts itself in the place of the state's service and returns a reference that lives as long as the state.
  static FaultyRegistry &Install(SharedState &state);

  /// Writes to values of this name fail; "" lets all pass.
  std::string failingValue;
  /// DeleteKey says false and does nothing; MayDeleteKey knows it beforehand, unless it comes as a surprise.
  bool undeletable = false;
  bool surprise = false;
  int deleteCalls = 0;

  void SetRootKey(std::string_view rootName) override { mReal->SetRootKey(rootName); }
  long LastError() const override { return mFailed ? 5 : mReal->LastError(); }
  std::string LastErrorText() const override { return mFailed ? "Access is denied." : mReal->LastErrorText(); }
  void CloseKey() override { mReal->CloseKey(); }
  bool DeleteKey(std::string_view keyPath) override;
  bool MayDeleteKey(std::string_view keyPath) override;
  std::int32_t SubkeyCount() override { return mReal->SubkeyCount(); }
  bool KeyExists(std::string_view keyPath) override { return mReal->KeyExists(keyPath); }
  bool OpenKey(std::string_view keyPath, bool create) override { return mReal->OpenKey(keyPath, create); }
  std::int32_t GetLongValue(std::string_view valueName) override { return mReal->GetLongValue(valueName); }
  std::string GetStringValue(std::string_view valueName) override { return mReal->GetStringValue(valueName); }
  bool ValueExists(std::string_view valueName) override { return mReal->ValueExists(valueName); }
  void SetLongValue(std::string_view valueName, std::int32_t value) override { mReal->SetLongValue(valueName, value); }
  void SetStringValue(std::string_view valueName, std::string_view value) override;
  std::string SubkeyName(std::int32_t index) override { return mReal->SubkeyName(index); }

private:
  explicit FaultyRegistry(std::unique_ptr<RegistryService> real) : mReal(std::move(real)) {}

  std::unique_ptr<RegistryService> mReal;
  bool mFailed = false;
};

} // namespace turfdesk::test
