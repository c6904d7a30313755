// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "common/WorldHome.h"
#include "platform/Platform.h"
#include "platform/StatusWindow.h"
#include "support/SharedState.h"

#include <climits>
#include <deque>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace turfdesk::test {

/// Answers boxes from a script and remembers what was asked. A question beyond the script is refused, unless decide
/// says otherwise.
class ScriptedBoxes final : public MessageBoxes {
public:
  BoxAnswer Show(const MessageBox &box) override;

  /// Texts of the boxes shown since the last call.
  std::vector<std::string> TakeTexts();

  /// true agrees (Yes, OK), false refuses.
  std::deque<bool> answers;
  std::function<bool(const MessageBox &)> decide;
  /// Called before each box.
  std::function<void()> onShow;
  std::vector<MessageBox> shown;
};

class CountingScreen final : public Screen {
public:
  void DoEvents() override {
    if (onEvents)
      onEvents();
  }
  void Repaint() override {}
  void SetMousePointer(MousePointer shape) override { pointers.push_back(shape); }

  std::function<void()> onEvents;
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
    void Begin(std::uint64_t totalBytes) override {
      ++begins;
      total = totalBytes;
      done = 0;
    }
    void SetPosition(std::uint64_t doneBytes) override {
      wentBack = wentBack || doneBytes < done;
      done = doneBytes;
    }
    bool IsFull() const { return done == total; }
    std::uint64_t total = 0;
    std::uint64_t done = 0;
    int begins = 0;
    bool wentBack = false;
  };

  Text file;
  Text route;
  MissingAnimation animation;
  LastProgress progress;
  bool closeShown = false;
  /// "file|route" for each new pair of labels.
  std::vector<std::string> steps;
};

/// A started program over a home, with the real services of this system.
class TestProgram {
public:
  /// Throws std::runtime_error when the services cannot be created.
  explicit TestProgram(const std::filesystem::path &home);

  /// Host path of a Windows path under C:. Folders are made by MakeFolder.
  std::filesystem::path Host(const std::string &windowsPath) const { return HostIn(mHome, windowsPath); }
  /// Makes a folder, parents included, and gives its Windows path back.
  std::string MakeFolder(const std::string &windowsPath) const;

  const std::filesystem::path &Home() const { return mHome; }

private:
  std::filesystem::path mHome;

public:
  std::unique_ptr<Platform> platform;
  ScriptedBoxes boxes;
  CountingScreen screen;
  RecordedWindow window;
  SharedState state;
};

/// A started program over a ground of its own, see WorldHome.
class TestWorld : private WorldHome, public TestProgram {
public:
  TestWorld() : TestProgram(Path()) {}
};

/// A settings tree that can be told to fail, over a real one.
class FaultyRegistry final : public RegistryService {
public:
  /// Puts itself in the place of the state's service and returns a reference that lives as long as the state.
  static FaultyRegistry &Install(SharedState &state);

  /// Writes to values of this name fail; "" lets all pass.
  std::string failingValue;
  /// Values of this name have a type that no text has; "" lets all be read.
  std::string wrongType;
  /// So many of them are read before one has such a type.
  int rightTypes = 0;
  /// Numbers, from 1, of the changes of the tree that fail: a value written, a key made, a key deleted.
  int firstFailing = INT_MAX;
  int lastFailing = INT_MAX;
  int changes = 0;
  /// Called when a change fails.
  std::function<void()> onFailure;
  /// Called with the path of each key that is deleted, after that.
  std::function<void(std::string_view)> onDelete;
  /// DeleteKey says false and does nothing; Reserve knows it beforehand, unless it comes as a surprise.
  bool undeletable = false;
  bool surprise = false;
  int deleteCalls = 0;

  void SetRootKey(std::string_view rootName) override { mReal->SetRootKey(rootName); }
  long LastError() const override { return mFailed ? 5 : mReal->LastError(); }
  std::string LastErrorText() const override { return mFailed ? "Access is denied." : mReal->LastErrorText(); }
  void CloseKey() override { mReal->CloseKey(); }
  bool DeleteKey(std::string_view keyPath) override;
  std::unique_ptr<RegistryReservation> Reserve(KeyChange change, std::string_view keyPath) override;
  void WatchKey(std::string_view keyPath) override { mReal->WatchKey(keyPath); }
  bool WatchedKeyChanged() override { return mReal->WatchedKeyChanged(); }
  std::int32_t SubkeyCount() override { return mReal->SubkeyCount(); }
  bool KeyExists(std::string_view keyPath) override { return mReal->KeyExists(keyPath); }
  bool OpenKey(std::string_view keyPath, bool create) override;
  std::int32_t GetLongValue(std::string_view valueName) override { return mReal->GetLongValue(valueName); }
  std::string GetStringValue(std::string_view valueName) override;
  bool ValueExists(std::string_view valueName) override { return mReal->ValueExists(valueName); }
  void SetLongValue(std::string_view valueName, std::int32_t value) override { mReal->SetLongValue(valueName, value); }
  void SetStringValue(std::string_view valueName, std::string_view value) override;
  std::string SubkeyName(std::int32_t index) override { return mReal->SubkeyName(index); }

private:
  explicit FaultyRegistry(std::unique_ptr<RegistryService> real) : mReal(std::move(real)) {}

  /// Counts a change of the tree. Is it to fail?
  bool ChangeFails(bool failsAnyway);

  std::unique_ptr<RegistryService> mReal;
  bool mFailed = false;
};

/// The file service of a state, with somebody who watches what is deleted.
class WatchedFiles final : public FileService {
public:
  /// Puts itself in the place of the state's service and returns a reference that lives as long as the state.
  static WatchedFiles &Install(SharedState &state);

  /// Called with the path of each file that is to be deleted, before that.
  std::function<void(std::string_view)> onDelete;
  /// Stands for the system's folder for temporary files, unless it is empty.
  std::string tempFolder;

  long LastError() const override { return mReal->LastError(); }
  std::string LastErrorText() const override { return mReal->LastErrorText(); }
  bool DeleteFile(std::string_view path) override;
  bool DirExists(std::string_view path) override { return mReal->DirExists(path); }
  bool FileExists(std::string_view path) override { return mReal->FileExists(path); }
  bool FileMayExist(std::string_view path) override { return mReal->FileMayExist(path); }
  std::string GetTempFolder() override { return tempFolder.empty() ? mReal->GetTempFolder() : tempFolder; }
  bool IsValidFilename(std::string_view text) override { return mReal->IsValidFilename(text); }
  double GetFileSize(std::string_view path) override { return mReal->GetFileSize(path); }
  void OpenDocument(std::string_view addressOrPath) override { mReal->OpenDocument(addressOrPath); }

private:
  explicit WatchedFiles(std::unique_ptr<FileService> real) : mReal(std::move(real)) {}

  std::unique_ptr<FileService> mReal;
};

} // namespace turfdesk::test
