// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "catalogue/LoadLists.h"

#include "catalogue/Catalogue.h"
#include "catalogue/CatalogueRows.h"
#include "platform/RuntimeError.h"
#include "support/ErrorHandling.h"
#include "support/basVorinRegistry.h"

#include <exception>
#include <string>
#include <utility>

namespace turfdesk {

namespace {

using NameOf = std::string (*)(SharedState &, std::string_view key);
using FillRow = void (*)(SharedState &, std::string_view key, Row &row);

/// A value of a wrong type concerns one row: the others are loaded, and the first such value is told afterwards.
class WrongTypes {
public:
  template <typename Read> void PassOver(Read &&read) {
    try {
      std::forward<Read>(read)();
    } catch (const RuntimeError &error) {
      if (error.Number() != ErrorNumber::TypeMismatch)
        throw;
      if (!mFirst)
        mFirst = std::current_exception();
    }
  }

  void Throw() const {
    if (mFirst)
      std::rethrow_exception(mFirst);
  }

private:
  std::exception_ptr mFirst;
};

void FillList(SharedState &state, ListView &list, std::string_view listKey, NameOf nameOf, FillRow fillRow,
              WrongTypes &wrongTypes) {
  const ListView::Update update(list);
  list.SetSorted(true);
  list.Clear();
  for (const std::string &key : GetSubkeys(state, LocalMachine, listKey)) {
    std::string name;
    wrongTypes.PassOver([&] { name = nameOf(state, key); });
    Row &row = list.Add(key, name);
    wrongTypes.PassOver([&] { fillRow(state, key, row); });
  }
}

void SelectFirstRow(const SharedState &state, ListView &list, std::int32_t which) {
  list.Select(state.activeList == which && list.Count() > 0 ? &list.At(0) : nullptr);
}

} // namespace

void LoadCourses(SharedState &state) {
  Guarded(state, "frmTurfManager.LoadCourses(): ", [&state] {
    WrongTypes wrongTypes;
    FillList(state, state.lstCourses, CoursesKey, &GetCourseName, &FillCourseRow, wrongTypes);
    SelectFirstRow(state, state.lstCourses, ActiveCourses);
    wrongTypes.Throw();
  });
}

void LoadLibraries(SharedState &state) {
  Guarded(state, "frmTurfManager.LoadLibraries(): ", [&state] {
    WrongTypes wrongTypes;
    FillList(state, state.lstLibraries, LibrariesKey, &GetLibraryName, &FillLibraryRow, wrongTypes);
    SelectFirstRow(state, state.lstLibraries, ActiveLibraries);
    wrongTypes.Throw();
  });
}

} // namespace turfdesk
