// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "cli/Console.h"

#include "platform/CaseFold.h"
#include "platform/ShownText.h"
#include "support/basVorinString.h"

#include <algorithm>

namespace turfdesk {

namespace {

std::string KindOf(const MessageBox &box) {
  if (box.icon == BoxIcon::Question)
    return "question";
  if (box.icon == BoxIcon::Stop)
    return "error";
  // A box under the program's file name comes from the direct functions of the settings tree.
  return box.title == "TurfDesk" ? "box" : "info";
}

BoxAnswer AnswerOf(BoxButtons buttons, bool agreed) {
  switch (buttons) {
  case BoxButtons::YesNo:
    return agreed ? BoxAnswer::Yes : BoxAnswer::No;
  case BoxButtons::OkCancel:
    return agreed ? BoxAnswer::Ok : BoxAnswer::Cancel;
  case BoxButtons::Ok:
    break;
  }
  return BoxAnswer::Ok;
}

const char *WordOf(BoxAnswer answer) {
  switch (answer) {
  case BoxAnswer::Yes:
    return "yes";
  case BoxAnswer::No:
    return "no";
  case BoxAnswer::Cancel:
    return "cancel";
  case BoxAnswer::Ok:
    break;
  }
  return "ok";
}

} // namespace

bool Transcript::HasErrors() const {
  return std::any_of(messages.begin(), messages.end(), [](const Message &message) { return message.kind == "error"; });
}

BoxAnswer ConsoleBoxes::Show(const MessageBox &box) {
  if (mMessages != nullptr)
    *mMessages << PrintedText(box) << std::endl;
  const BoxAnswer answer = AnswerOf(box.buttons, box.buttons != BoxButtons::Ok && Agrees(box));
  mTranscript.messages.push_back({KindOf(box), box.title, box.text, WordOf(answer)});
  if (mMessages != nullptr && box.buttons != BoxButtons::Ok && mAnswering != Answering::Ask)
    *mMessages << "  -> " << WordOf(answer) << std::endl;
  return answer;
}

std::string ConsoleBoxes::PrintedText(const MessageBox &box) {
  const std::string file = AsOneLine(mWindow.FileLabel().Caption());
  const bool isNamed = file.empty() || box.text.find(file) != std::string::npos;
  return ConsoleText(box.icon == BoxIcon::Stop && !isNamed ? file + ": " + box.text : box.text);
}

bool ConsoleBoxes::Agrees(const MessageBox &box) {
  if (mAnswering != Answering::Ask)
    return mAnswering == Answering::AllYes;
  if (mMessages == nullptr)
    mPrompts << ConsoleText(box.text) << std::endl;
  mPrompts << (box.buttons == BoxButtons::YesNo ? "yes or no? " : "ok or cancel? ") << std::flush;
  std::string line;
  if (!std::getline(mInput, line)) {
    // Nobody has typed an answer, nor a line break.
    mPrompts << WordOf(AnswerOf(box.buttons, false)) << std::endl;
    return false;
  }
  const std::string word = FoldCase(TrimBlanks(line.ends_with('\r') ? line.substr(0, line.size() - 1) : line));
  return word == "y" || word == "yes" || word == "ok";
}

void ConsoleScreen::DoEvents() {
  const std::string file = mWindow.FileLabel().Caption();
  const std::string route = mWindow.RouteLabel().Caption();
  if (file == mShownFile && route == mShownRoute)
    return;
  mShownFile = file;
  mShownRoute = route;
  mTranscript.steps.push_back({file, route});
  if (mSteps != nullptr && !route.empty())
    *mSteps << ConsoleLine(file) << ": " << ConsoleLine(route) << std::endl;
}

std::string ConsoleText(std::string_view message) { return WithEscapes(message); }

std::string ConsoleLine(std::string_view text) { return WithEscapes(AsOneLine(text)); }

} // namespace turfdesk
