// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "catalogue/LoadLists.h"

#include "catalogue/Catalogue.h"
#include "catalogue/CatalogueRows.h"
#include "support/ErrorHandling.h"
#include "support/basVorinRegistry.h"

namespace turfdesk {

namespace {

using NameOf = std::string (*)(SharedState &, std::string_view key);

/// The tree at one moment: a list shows no mixture, and a look at the file for each value would take longer than the
/// rest of the load.
class StillTree {
public:
  explicit StillTree(RegistryService &service) : mService(service) { mService.HoldStill(true); }
  StillTree(const StillTree &) = delete;
  StillTree &operator=(const StillTree &) = delete;
  ~StillTree() { mService.HoldStill(false); }

private:
  RegistryService &mService;
};

void FillList(SharedState &state, ListView &list, std::string_view listKey, NameOf nameOf, FillRow fillRow) {
  const ListView::Update update(list);
  const StillTree still(*state.registryService);
  list.SetSorted(true);
  list.Clear();
  for (const std::string &key : GetSubkeys(state, LocalMachine, listKey))
    FillOrRemove(state, list, fillRow, key, list.Add(key, nameOf(state, key)));
}

void SelectFirstRow(const SharedState &state, ListView &list, std::int32_t which) {
  list.Select(state.activeList == which && list.Count() > 0 ? &list.At(0) : nullptr);
}

} // namespace

void LoadCourses(SharedState &state) {
  state.coursesOutOfReach.clear();
  state.allCoursesListed = Guarded(state, "frmTurfManager.LoadCourses(): ", [&state] {
    FillList(state, state.lstCourses, CoursesKey, &GetCourseName, &FillCourseRow);
    SelectFirstRow(state, state.lstCourses, ActiveCourses);
  });
}

void LoadLibraries(SharedState &state) {
  Guarded(state, "frmTurfManager.LoadLibraries(): ", [&state] {
    FillList(state, state.lstLibraries, LibrariesKey, &GetLibraryName, &FillLibraryRow);
    SelectFirstRow(state, state.lstLibraries, ActiveLibraries);
  });
}

} // namespace turfdesk
