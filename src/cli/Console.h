// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "cli/Transcript.h"
#include "platform/MessageBoxes.h"
#include "platform/Screen.h"
#include "platform/StatusWindow.h"

#include <istream>
#include <ostream>
#include <string>

namespace turfdesk {

/// Who answers the questions.
enum class Answering { AllYes, AllNo, Ask };

/// Message boxes at a console: noted in the transcript, and printed on the stream unless that is null. With Ask each
/// question is printed and one line read for it; "y", "yes" and "ok" agree, anything else and the end of input refuse.
class ConsoleBoxes final : public MessageBoxes {
public:
  ConsoleBoxes(Transcript &transcript, Answering answering, std::istream &input, std::ostream &prompts,
               std::ostream *messages)
      : mTranscript(transcript), mAnswering(answering), mInput(input), mPrompts(prompts), mMessages(messages) {}

  BoxAnswer Show(const MessageBox &box) override;

private:
  bool Agrees(const MessageBox &box);

  Transcript &mTranscript;
  Answering mAnswering;
  std::istream &mInput;
  std::ostream &mPrompts;
  std::ostream *mMessages;
};

/// A label that only holds its text.
class TextLabel final : public Label {
public:
  void SetCaption(std::string_view text) override { mCaption = text; }
  std::string Caption() const override { return mCaption; }

private:
  std::string mCaption;
};

/// The window that a console does not have: its labels, and nothing to look at.
class ConsoleStatusWindow final : public StatusWindow {
public:
  Label &FileLabel() override { return mFile; }
  Label &RouteLabel() override { return mRoute; }
  Animation &WorkAnimation() override { return mAnimation; }
  Progress &WorkProgress() override { return mProgress; }
  void ShowCloseButton() override {}

private:
  class NoAnimation final : public Animation {
  public:
    void SetAutoPlay(bool) override {}
    void Open(std::string_view) override {}
    void Close() override {}
  };

  TextLabel mFile;
  TextLabel mRoute;
  NoAnimation mAnimation;
  NoProgress mProgress;
};

/// Notes a step whenever the window would have been repainted with a new pair of labels, and prints it on the stream
/// unless that is null.
class ConsoleScreen final : public Screen {
public:
  ConsoleScreen(Transcript &transcript, ConsoleStatusWindow &window, std::ostream *steps)
      : mTranscript(transcript), mWindow(window), mSteps(steps) {}

  void DoEvents() override;
  void Repaint() override {}
  void SetMousePointer(MousePointer) override {}

private:
  Transcript &mTranscript;
  ConsoleStatusWindow &mWindow;
  std::ostream *mSteps;
  std::string mShownFile;
  std::string mShownRoute;
};

/// A message as a console may show it (ShownText.h).
std::string ConsoleText(std::string_view message);

/// A name, a path or a label, which may be of strangers, as one line.
std::string ConsoleLine(std::string_view text);

} // namespace turfdesk
