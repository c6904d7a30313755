// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "widgets/QtMessageBoxes.h"

#include "widgets/PendingInput.h"
#include "widgets/QtText.h"

#include <QApplication>
#include <QLabel>
#include <QLayout>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QScreen>
#include <QScrollBar>

#include <algorithm>
#include <memory>

namespace turfdesk {

namespace {

struct Buttons {
  QMessageBox::StandardButtons all;
  QMessageBox::StandardButton first;
  /// What closing the box without a choice stands for.
  QMessageBox::StandardButton refusal;
};

Buttons ButtonsOf(BoxButtons buttons) {
  switch (buttons) {
  case BoxButtons::YesNo:
    return {QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes, QMessageBox::No};
  case BoxButtons::OkCancel:
    return {QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Ok, QMessageBox::Cancel};
  case BoxButtons::Ok:
    break;
  }
  return {QMessageBox::Ok, QMessageBox::Ok, QMessageBox::Ok};
}

QMessageBox::Icon IconOf(BoxIcon icon) {
  switch (icon) {
  case BoxIcon::Question:
    return QMessageBox::Question;
  case BoxIcon::Stop:
    return QMessageBox::Critical;
  case BoxIcon::Information:
    return QMessageBox::Information;
  case BoxIcon::None:
    break;
  }
  return QMessageBox::NoIcon;
}

BoxAnswer AnswerOf(int button) {
  switch (button) {
  case QMessageBox::Yes:
    return BoxAnswer::Yes;
  case QMessageBox::No:
    return BoxAnswer::No;
  case QMessageBox::Cancel:
    return BoxAnswer::Cancel;
  default:
    return BoxAnswer::Ok;
  }
}

/// Puts a text that would push the buttons off the screen, or has a word too long for a line, into a view that breaks
/// lines anywhere and scrolls.
void BoundText(QMessageBox &box) {
  constexpr int width = 520;
  auto *label = box.findChild<QLabel *>("qt_msgbox_label");
  if (label == nullptr)
    return;
  const QRect line(0, 0, width, 0);
  const int room = box.screen()->availableSize().height() * 6 / 10;
  const QSize needed = label->fontMetrics().boundingRect(line, Qt::TextWordWrap, box.text()).size();
  if (needed.width() <= width && needed.height() <= room)
    return;
  auto *view = new QPlainTextEdit(box.text(), &box);
  view->setReadOnly(true);
  view->setTabChangesFocus(true);
  view->setFrameShape(QFrame::NoFrame);
  view->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  view->viewport()->setAutoFillBackground(false);
  const int height = view->fontMetrics().boundingRect(line, Qt::TextWrapAnywhere, box.text()).height();
  const int margins = 2 * static_cast<int>(view->document()->documentMargin());
  view->setFixedSize(width + margins + view->verticalScrollBar()->sizeHint().width(),
                     std::min(height + margins + 2 * view->fontMetrics().lineSpacing(), room));
  const std::unique_ptr<QLayoutItem> replaced(box.layout()->replaceWidget(label, view));
  label->hide();
}

/// The window that a box belongs to. While the focus is on its way from a window that has just gone to the main window,
/// neither is active.
QWidget *WindowInUse() {
  if (QWidget *modal = QApplication::activeModalWidget())
    return modal;
  if (QWidget *active = QApplication::activeWindow())
    return active;
  const QWidgetList windows = QApplication::topLevelWidgets();
  const auto main = std::find_if(windows.begin(), windows.end(), [](const QWidget *window) {
    return window->isVisible() && window->windowType() == Qt::Window;
  });
  return main == windows.end() ? nullptr : *main;
}

/// Work shows an hourglass; while it waits for an answer, the pointer is an arrow.
class ArrowPointer {
public:
  ArrowPointer() {
    if (mNeeded)
      QApplication::setOverrideCursor(Qt::ArrowCursor);
  }
  ArrowPointer(const ArrowPointer &) = delete;
  ArrowPointer &operator=(const ArrowPointer &) = delete;
  ~ArrowPointer() {
    if (mNeeded)
      QApplication::restoreOverrideCursor();
  }

private:
  const bool mNeeded = QApplication::overrideCursor() != nullptr;
};

} // namespace

BoxAnswer QtMessageBoxes::Show(const MessageBox &box) {
  DiscardPendingInput();
  const ArrowPointer arrow;
  const Buttons buttons = ButtonsOf(box.buttons);
  QMessageBox window(WindowInUse());
  window.setWindowTitle(ToQString(box.title));
  window.setIcon(IconOf(box.icon));
  window.setTextFormat(Qt::PlainText);
  window.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  window.setText(Shown(box.text));
  window.setStandardButtons(buttons.all);
  window.setDefaultButton(buttons.first);
  window.setEscapeButton(buttons.refusal);
  BoundText(window);
  return AnswerOf(window.exec());
}

} // namespace turfdesk
