// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/Ending.h"
#include "platform/RuntimeError.h"
#include "platform/ShownText.h"
#include "platform/Terminal.h"
#include "shell/Main.h"
#include "shell/ProgramIcon.h"
#include "shell/frmTurfManager.h"
#include "support/ErrorHandling.h"
#include "support/Prompts.h"
#include "support/SharedState.h"
#include "widgets/QtMessageBoxes.h"
#include "widgets/QtScreen.h"
#include "widgets/QtText.h"
#include "widgets/WindowFitter.h"

#include <QApplication>

#include <exception>
#include <iostream>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

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

constexpr std::string_view Help = R"(Usage: turfdesk [FILE...]

Looks after the add-on courses and libraries of Marrowfell 2002. With a course package (.hlz), a course (.hlc) or a
library (.hlb) the install dialog opens on it. Without a window the same work is done by turfctl.

  -h, --help   Say this, and end
  --version    Say which version this is, and end
)";

/// What the program says to one who asks at a terminal, and then ends; "" when it is to open its window.
std::string_view AnswerTo(std::string_view argument) {
  if (argument == "--help" || argument == "-h")
    return Help;
  return argument == "--version" ? "Turf Desk " TURFDESK_VERSION "\n" : "";
}

/// What stood behind the program's name and was not meant for the window system, which has taken out the rest.
std::vector<std::string> FileArguments() {
  std::vector<std::string> arguments;
  for (const QString &argument : QApplication::arguments().mid(1))
    arguments.push_back(ToUtf8(argument));
  return arguments;
}

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
    ground.fault = DescriptionOf(error);
  }
  return ground;
}

int RunOn(Platform &platform, StartBoxes &boxes, const std::vector<std::string> &arguments) {
  QtScreen screen;
  SharedState state(platform, boxes, screen);
  bool started = false;
  Guarded(state, "", [&] { started = Main(state, arguments); });
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

int Start(const Ground &ground, const std::vector<std::string> &arguments) {
  StartBoxes boxes;
  if (!ground.fault.empty()) {
    ShowPlainBox(boxes, ground.fault);
    return NoServices;
  }
  return RunOn(*ground.platform, boxes, arguments);
}

} // namespace

} // namespace turfdesk

int main(int argc, char **argv) {
  // Also where there is no screen.
  if (const std::string_view answer = argc == 2 ? turfdesk::AnswerTo(argv[1]) : ""; !answer.empty()) {
    turfdesk::UseTerminalOfCaller();
    std::cout << answer << std::flush;
    return std::cout ? 0 : 1;
  }
  turfdesk::PrepareForEnding();
  // Before the connection to the screen is made, so that both wait at the same time.
  const turfdesk::Ground ground = turfdesk::PrepareGround();
  const QApplication application(argc, argv);
  QApplication::setApplicationName("turfdesk");
  QApplication::setDesktopFileName("turfdesk");
  const turfdesk::WindowFitter fitter;
  return turfdesk::Start(ground, turfdesk::FileArguments());
}
