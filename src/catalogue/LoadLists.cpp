// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "catalogue/LoadLists.h"

#include "catalogue/Catalogue.h"
#include "catalogue/CatalogueRows.h"
#include "platform/RuntimeError.h"
#include "support/ErrorHandling.h"
#include "support/Prompts.h"
#include "support/basVorinRegistry.h"
#include "support/basVorinString.h"

namespace turfdesk {

namespace {

constexpr std::string_view ChangedWords = "The catalogue was changed by another program.";

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

bool UseChanged(SharedState &state) { return CatalogueChanged(state) || UpdateLibraryLists(state); }

bool StoppedBy(SharedState &state, bool (*changed)(SharedState &), std::string_view undone) {
  std::string words(ChangedWords);
  try {
    if (!changed(state))
      return false;
  } catch (const std::exception &error) {
    words = DescriptionOf(error);
  }
  ShowError(state, words + Newlines(2) + std::string(undone));
  return true;
}

} // namespace

void LoadCourses(SharedState &state) {
  state.coursesOutOfReach.clear();
  state.allCoursesListed = Guarded(state, "frmTurfManager.LoadCourses(): ", [&state] {
    state.registryService->SetRootKey(LocalMachine);
    state.registryService->WatchKey(BaseKey);
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

void LoadLists(SharedState &state) {
  LoadCourses(state);
  LoadLibraries(state);
}

bool CatalogueChanged(SharedState &state) { return state.registryService->WatchedKeyChanged(); }

bool LoadAgainIfChanged(SharedState &state) {
  bool changed = false;
  // A tree that cannot be read is told by what needs it.
  PassOver([&] { changed = state.commandsAtWork == 0 && CatalogueChanged(state); });
  if (!changed)
    return false;
  const CommandAtWork loading(state);
  ListView &list = state.activeList == ActiveCourses ? state.lstCourses : state.lstLibraries;
  const std::string selected = list.SelectedItem() ? list.SelectedItem()->Key() : "";
  LoadLists(state);
  if (Row *row = list.FindKey(selected))
    list.Select(row);
  ShowInfo(state, std::string(ChangedWords) + " The lists have been loaded again.");
  return true;
}

bool StoppedByChange(SharedState &state, std::string_view undone) {
  return StoppedBy(state, &CatalogueChanged, undone);
}

bool StoppedByChangeOfUse(SharedState &state, std::string_view undone) { return StoppedBy(state, &UseChanged, undone); }

} // namespace turfdesk
