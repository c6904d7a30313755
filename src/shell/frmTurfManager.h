// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "shell/MainCommands.h"
#include "support/SharedState.h"

#include <QImage>
#include <QPixmap>
#include <QWidget>

#include <cstdint>
#include <future>
#include <memory>
#include <span>
#include <string_view>

class QMenu;

namespace turfdesk {

class RowListWidget;
class Ui_frmTurfManager;

/// The main window: the installed courses, the installed libraries, and the commands between them.
class frmTurfManager final : public QWidget {
  Q_OBJECT

public:
  /// The window shows its picture at once and loads when that is painted: it makes its controls, fills both lists,
  /// announces the file types and then, if state.commandFile names a file, opens the install dialog. When another
  /// process has changed the catalogue, it says so and loads again, as soon as it is activated or a command is chosen.
  explicit frmTurfManager(SharedState &state);
  ~frmTurfManager() override;

signals:
  /// The controls are there, the lists are filled and the file types announced.
  void Loaded();

protected:
  bool event(QEvent *event) override;
  void paintEvent(QPaintEvent *event) override;

private:
  void Form_Load();
  void Form_Activate();
  void MakeControls();
  void ConnectList(RowListWidget &list, std::int32_t which, QMenu &menu);
  void ConnectButtons();
  QMenu *MakeMenu(const char *name, const char *title, std::span<const MenuEntry> entries);
  void EnableCommands();
  /// What a button, an entry of a menu and a double click do.
  void Choose(std::string_view button);
  void Run(const MainCommand &command);
  Q_INVOKABLE void NoticeOtherProcesses();
  void ShowInstalled();

  SharedState &mState;
  std::unique_ptr<Ui_frmTurfManager> mUi;
  std::future<QImage> mLoadingBackground;
  QPixmap mBackground;
};

} // namespace turfdesk
