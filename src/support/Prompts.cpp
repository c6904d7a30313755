// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "support/Prompts.h"

#include "support/StringTable.h"

namespace turfdesk {

namespace {

BoxAnswer ShowTitled(SharedState &state, std::string_view text, BoxButtons buttons, BoxIcon icon) {
  const BoxAnswer answer = state.boxes.Show({std::string(text), LoadResString(StringId::Title), buttons, icon});
  state.screen.DoEvents();
  return answer;
}

} // namespace

bool AskYesNo(SharedState &state, std::string_view text) {
  return ShowTitled(state, text, BoxButtons::YesNo, BoxIcon::Question) == BoxAnswer::Yes;
}

bool AskOkCancel(SharedState &state, std::string_view text) {
  return ShowTitled(state, text, BoxButtons::OkCancel, BoxIcon::Question) == BoxAnswer::Ok;
}

void ShowError(SharedState &state, std::string_view text) { ShowTitled(state, text, BoxButtons::Ok, BoxIcon::Stop); }

void ShowInfo(SharedState &state, std::string_view text) { ShowTitled(state, text, BoxButtons::Ok, BoxIcon::None); }

void ShowPlainBox(MessageBoxes &boxes, std::string_view text) {
  boxes.Show({std::string(text), "TurfDesk", BoxButtons::Ok, BoxIcon::None});
}

} // namespace turfdesk
