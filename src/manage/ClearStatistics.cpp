// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "manage/ClearStatistics.h"

#include "catalogue/LoadLists.h"
#include "catalogue/Selection.h"
#include "catalogue/SideFiles.h"
#include "platform/ShownText.h"
#include "support/ErrorHandling.h"
#include "support/Prompts.h"
#include "support/StringTable.h"
#include "support/basVorinString.h"

#include <string>

namespace turfdesk {

namespace {

bool ClearStatisticsOf(SharedState &state, const Row &course) {
  if (!AskYesNo(state, LoadResString(StringId::SureToClearStatistics) + Newlines(2) + AsOneLine(course.Text())))
    return false;
  if (StoppedByChange(state, "Nothing has been cleared."))
    return false;
  const bool cleared = DeleteCourseStats(state, course.Tag());
  if (cleared)
    ShowInfo(state, LoadResString(StringId::StatisticsCleared));
  else
    ShowError(state, LoadResString(StringId::UnableToClearStatistics));
  return cleared;
}

} // namespace

bool ClearSelectedStatistics(SharedState &state) {
  bool cleared = false;
  Guarded(state, "frmTurfManager.btnCourseClear_Click(): ", [&] {
    if (const Row *course = SelectedRow(state, ActiveCourses))
      cleared = ClearStatisticsOf(state, *course);
  });
  return cleared;
}

} // namespace turfdesk
