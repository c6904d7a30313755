// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "shell/Main.h"
#include "platform/ShownText.h"
#include "shell/ProgramIcon.h"
#include "shell/frmTurfManager.h"
#include "support/ErrorHandling.h"
#include "support/Prompts.h"
#include "support/SharedState.h"
#include "widgets/QtMessageBoxes.h"
#include "widgets/QtScreen.h"
#include "widgets/QtText.h"

#include <QApplication>

#include <exception>
#include <iostream>
#include <memory>
#include <string>

namespace turfdesk {

namespace {

/// The program ended because what it lives on could not be had.
constexpr int NoServices = 3;

/// Until there is a window, what a box says goes to standard error too: whoever started the program may not see the
/// screen.
class StartBoxes final : public MessageBoxes {
public:
  BoxAnswer Show(const MessageBox &box) override {
    if (!mWindowShown)
      std::cerr << box.title << ": " << WithEscapes(box.text) << '\n';
    return mBoxes.Show(box);
  }

  void NoteWindowShown() { mWindowShown = true; }

private:
  QtMessageBoxes mBoxes;
  bool mWindowShown = false;
};

/// All that stood behind the program's name and was not meant for the window system, which has taken out the rest.
std::string CommandTail() { return ToUtf8(QApplication::arguments().mid(1).join(' ')); }

/// What the program runs on, or why it cannot be had.
struct Ground {
  std::unique_ptr<Platform> platform;
  std::string fault;
};

Ground PrepareGround() {
  Ground ground;
  try {
    ground.platform = MakePlatform("");
    ground.platform->PrepareServices();
  } catch (const std::exception &error) {
    ground.fault = error.what();
  }
  return ground;
}

int RunOn(Platform &platform, StartBoxes &boxes, const std::string &commandTail) {
  QtScreen screen;
  SharedState state(platform, boxes, screen);
  bool started = false;
  Guarded(state, "", [&] { started = Main(state, commandTail); });
  if (!started)
    return NoServices;
  frmTurfManager window(state);
  QObject::connect(&window, &frmTurfManager::Loaded, [&platform] {
    QApplication::setWindowIcon(ProgramIcon());
    platform.NoteCleanStart();
  });
  window.show();
  boxes.NoteWindowShown();
  return QApplication::exec();
}

int Start(const Ground &ground, const std::string &commandTail) {
  StartBoxes boxes;
  if (!ground.fault.empty()) {
    ShowPlainBox(boxes, ground.fault);
    return NoServices;
  }
  return RunOn(*ground.platform, boxes, commandTail);
}

} // namespace

} // namespace turfdesk

int main(int argc, char **argv) {
  // Before the connection to the screen is made, so that both wait at the same time.
  const turfdesk::Ground ground = turfdesk::PrepareGround();
  const QApplication application(argc, argv);
  QApplication::setApplicationName("turfdesk");
  QApplication::setDesktopFileName("turfdesk");
  return turfdesk::Start(ground, turfdesk::CommandTail());
}
