// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "shell/frmTurfManager.h"

#include "catalogue/LoadLists.h"
#include "catalogue/Selection.h"
#include "shell/FileTypes.h"
#include "support/ErrorHandling.h"
#include "support/StringTable.h"
#include "ui_frmTurfManager.h"
#include "widgets/FirstActivation.h"
#include "widgets/LetterMenu.h"
#include "widgets/QtText.h"
#include "widgets/WindowFitter.h"

#include <QApplication>
#include <QEvent>
#include <QPainter>
#include <QVBoxLayout>

#include <algorithm>
#include <cstring>
#include <utility>

namespace turfdesk {

namespace {

constexpr QSize StartSize(640, 460);

/// What an enabled command needs besides a list to act on.
bool IsAvailable(const SharedState &state, const MainCommand &command) {
  return !(command.coursesOnly && state.activeList == ActiveLibraries);
}

// What the window is before its picture is there: the picture's own mean.
constexpr QColor MeanOfBackground(0xD5, 0xE5, 0xD2);

/// The picture is decoded while the controls are made.
std::future<QImage> LoadBackground(qreal scale) {
  // The name says how many pixels of the picture make one of the window.
  const char *path = scale > 1 ? ":/background@2x.png" : ":/background.png";
  return std::async(std::launch::async, [path] { return QImage(path); });
}

} // namespace

frmTurfManager::frmTurfManager(SharedState &state) : mState(state) {
  setObjectName("frmTurfManager");
  setWindowTitle(ToQString(LoadResString(StringId::Title)));
  resize(StartSize);
  AtFirstActivation(*this, [this] {
    Form_Load();
    Form_Activate();
  });
}

frmTurfManager::~frmTurfManager() = default;

void frmTurfManager::Form_Load() {
  mLoadingBackground = LoadBackground(devicePixelRatioF());
  MakeControls();
  LoadLists(mState);
  RegisterFileTypes(mState);
  emit Loaded();
}

void frmTurfManager::MakeControls() {
  // The controls come into a window that is on the screen already, so they are shown together when all are made.
  auto *controls = new QWidget(this);
  mUi = std::make_unique<Ui_frmTurfManager>();
  mUi->setupUi(controls);
  auto *all = new QVBoxLayout(this);
  all->setContentsMargins({});
  all->addWidget(controls);
  mUi->lstCourses->SetList(mState.lstCourses,
                           {"Name", "Filename", "Size", "Libraries", "Picture", "Music", "Video", "Text"});
  mUi->lstLibraries->SetList(mState.lstLibraries, {"Name", "", "Filename", "Size", "Courses"});
  ConnectList(*mUi->lstCourses, ActiveCourses, *MakeMenu("menuCourse", "Course", CourseMenuEntries()));
  ConnectList(*mUi->lstLibraries, ActiveLibraries, *MakeMenu("menuLibrary", "Library", LibraryMenuEntries()));
  ConnectButtons();
  EnableCommands();
  // The picture behind these is light, whatever colours the user's desktop has.
  QPalette dark;
  dark.setColor(QPalette::WindowText, QColor(0x1B, 0x2A, 0x1F));
  mUi->Label1->setPalette(dark);
  mUi->Label2->setPalette(dark);
  controls->show();
  // With the styles and fonts of some desktops the buttons are higher than the window was meant to be.
  const int neededHeight = std::min(sizeHint().height(), RoomOnScreen(*this).height());
  resize(width(), std::max(height(), neededHeight));
  mUi->lstCourses->setFocus();
}

void frmTurfManager::Form_Activate() {
  if (!mState.commandFile.empty())
    Run(CommandOfButton("btnCourseInstall"));
}

void frmTurfManager::ConnectList(RowListWidget &list, std::int32_t which, QMenu &menu) {
  connect(&list, &RowListWidget::GotFocus, this, [this, which] {
    ActivateList(mState, which);
    EnableCommands();
  });
  connect(&list, &RowListWidget::ContextMenuRequested, &menu, [&menu](const QPoint &place) { menu.popup(place); });
  connect(&list, &RowListWidget::DoubleClicked, this, [this] { Choose("btnCourseProperties"); });
}

void frmTurfManager::ConnectButtons() {
  for (const MainCommand &command : MainCommands()) {
    auto *button = findChild<QPushButton *>(command.button);
    // Enter presses the button that has the focus, as it does in a dialog.
    button->setAutoDefault(true);
    connect(button, &QPushButton::clicked, this, [this, &command] { Choose(command.button); });
  }
}

QMenu *frmTurfManager::MakeMenu(const char *name, const char *title, std::span<const MenuEntry> entries) {
  auto *menu = new LetterMenu(title, this);
  menu->setObjectName(name);
  for (const MenuEntry &entry : entries) {
    const bool isLine = std::strcmp(entry.caption, "-") == 0;
    QAction *action = isLine ? menu->addSeparator() : menu->addAction(entry.caption);
    action->setObjectName(entry.name);
    if (!isLine)
      connect(action, &QAction::triggered, this, [this, &entry] { Choose(entry.button); });
  }
  return menu;
}

void frmTurfManager::EnableCommands() {
  for (const MainCommand &command : MainCommands())
    findChild<QPushButton *>(command.button)->setEnabled(IsAvailable(mState, command));
  for (const std::span<const MenuEntry> entries : {CourseMenuEntries(), LibraryMenuEntries()})
    for (const MenuEntry &entry : entries)
      if (entry.button != nullptr)
        findChild<QAction *>(entry.name)->setEnabled(IsAvailable(mState, CommandOfButton(entry.button)));
}

void frmTurfManager::Choose(std::string_view button) {
  const MainCommand &command = CommandOfButton(button);
  if (!IsAvailable(mState, command) || (command.actsOnCatalogue && LoadAgainIfChanged(mState)))
    return;
  Run(command);
  // A command that was stopped by a change has told of it, and the lists are still those of before.
  if (command.actsOnCatalogue)
    NoticeOtherProcesses();
}

void frmTurfManager::ShowInstalled() {
  const SharedState::InstalledItem installed = std::exchange(mState.installed, {});
  const bool isCourse = installed.list == ActiveCourses;
  ListView &rows = isCourse ? mState.lstCourses : mState.lstLibraries;
  Row *row = rows.FindKey(installed.key);
  if (installed.list == 0 || row == nullptr)
    return;
  // The focus, which says what the commands act on, goes where the new row is.
  (isCourse ? mUi->lstCourses : mUi->lstLibraries)->setFocus();
  ActivateList(mState, installed.list);
  EnableCommands();
  rows.Select(row);
}

void frmTurfManager::Run(const MainCommand &command) {
  const CommandAtWork atWork(mState);
  Guarded(mState, "frmTurfManager." + std::string(command.button) + "_Click(): ", [this, &command] {
    command.run(mState, *this);
  });
  ShowInstalled();
}

void frmTurfManager::NoticeOtherProcesses() {
  // Not before the lists are loaded for the first time, nor while another window has the word.
  if (mUi != nullptr && QApplication::activeModalWidget() == nullptr)
    LoadAgainIfChanged(mState);
}

bool frmTurfManager::event(QEvent *event) {
  // Later, since no window opens well while another is being activated.
  if (event->type() == QEvent::WindowActivate)
    QMetaObject::invokeMethod(this, "NoticeOtherProcesses", Qt::QueuedConnection);
  return QWidget::event(event);
}

void frmTurfManager::paintEvent(QPaintEvent *) {
  QPainter painter(this);
  if (mBackground.isNull() && !mLoadingBackground.valid()) {
    // The first time: nobody is made to wait for a decoration.
    painter.fillRect(rect(), MeanOfBackground);
    return;
  }
  if (mLoadingBackground.valid())
    mBackground = QPixmap::fromImage(mLoadingBackground.get());
  // The picture fills the window and keeps its shape; what is too much is cut off evenly.
  const QSizeF picture = mBackground.deviceIndependentSize();
  qreal scale = std::max(width() / picture.width(), height() / picture.height());
  // Drawn as it is, the picture is sharp and takes no time; at its first size the window differs by a pixel.
  if (scale > 0.98 && scale < 1)
    scale = 1;
  QRectF place(QPointF(0, 0), picture * scale);
  place.moveCenter(QRectF(rect()).center());
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawPixmap(place.toRect(), mBackground);
}

} // namespace turfdesk
