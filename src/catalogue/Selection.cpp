// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "catalogue/Selection.h"

#include "support/Prompts.h"
#include "support/StringTable.h"

namespace turfdesk {

bool ListHasItems(SharedState &state, std::int32_t which) {
  if (which == ActiveCourses && state.lstCourses.Count() == 0) {
    ShowInfo(state, LoadResString(StringId::NoCourses));
    return false;
  }
  if (which == ActiveLibraries && state.lstLibraries.Count() == 0) {
    ShowInfo(state, LoadResString(StringId::NoLibraries));
    return false;
  }
  return true;
}

Row *SelectedRow(SharedState &state, std::int32_t which) {
  if (!ListHasItems(state, which))
    return nullptr;
  Row *row = (which == ActiveCourses ? state.lstCourses : state.lstLibraries).SelectedItem();
  if (row == nullptr)
    ShowError(state, LoadResString(StringId::NothingSelected));
  return row;
}

void ActivateList(SharedState &state, std::int32_t which) {
  state.activeList = which;
  ListView &other = which == ActiveCourses ? state.lstLibraries : state.lstCourses;
  other.Select(nullptr);
}

} // namespace turfdesk
