// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "shell/MainCommands.h"

#include "catalogue/LoadLists.h"
#include "catalogue/Selection.h"
#include "conversion/RunQuillonConverter.h"
#include "conversion/frmCourseConvert.h"
#include "install/frmCourseInstall.h"
#include "manage/ClearStatistics.h"
#include "manage/Uninstall.h"
#include "manage/frmCourseMove.h"
#include "manage/frmCourseProperties.h"
#include "manage/frmLibraryProperties.h"
#include "packaging/frmCourseCompress.h"
#include "shell/frmAbout.h"
#include "support/Prompts.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>

namespace turfdesk {

namespace {

void btnCourseInstall_Click(SharedState &state, QWidget &window) {
  frmCourseInstall dialog(state, &window);
  dialog.exec();
}

void btnCourseProperties_Click(SharedState &state, QWidget &window) {
  const Row *item = SelectedRow(state, state.activeList);
  if (item == nullptr)
    return;
  if (state.activeList == ActiveCourses)
    frmCourseProperties(state, *item, &window).exec();
  else
    frmLibraryProperties(state, *item, &window).exec();
}

void btnCourseUninstall_Click(SharedState &state, QWidget &) { UninstallSelected(state); }

void btnCourseMove_Click(SharedState &state, QWidget &window) {
  if (const Row *item = SelectedRow(state, state.activeList))
    frmCourseMove(state, *item, &window).exec();
}

void btnCourseClear_Click(SharedState &state, QWidget &) { ClearSelectedStatistics(state); }

void btnRefresh_Click(SharedState &state, QWidget &) { LoadLists(state); }

void btnCourseDownload_Click(SharedState &state, QWidget &) {
  state.fileService->OpenDocument(state.courseDownload);
  if (state.fileService->LastError() != 0)
    ShowError(state, state.fileService->LastErrorText());
}

void btnAbout_Click(SharedState &state, QWidget &window) {
  frmAbout dialog(state, &window);
  dialog.exec();
}

void btnConvertQuillon_Click(SharedState &state, QWidget &) { RunQuillonConverter(state); }

// Not a request to close, which a window could refuse.
void btnExit_Click(SharedState &, QWidget &) { QCoreApplication::exit(0); }

constexpr std::array Commands = {
    MainCommand{"btnCourseInstall", false, true, &btnCourseInstall_Click},
    MainCommand{"btnCourseProperties", false, true, &btnCourseProperties_Click},
    MainCommand{"btnCourseUninstall", false, true, &btnCourseUninstall_Click},
    MainCommand{"btnCourseMove", false, true, &btnCourseMove_Click},
    MainCommand{"btnCourseCompress", true, true, &OpenCompressDialog},
    MainCommand{"btnCourseClear", true, true, &btnCourseClear_Click},
    MainCommand{"btnRefresh", false, false, &btnRefresh_Click},
    MainCommand{"btnConvertQuillon", false, false, &btnConvertQuillon_Click},
    MainCommand{"btnConvert", false, false, &frmCourseConvert::Open},
    MainCommand{"btnAbout", false, false, &btnAbout_Click},
    MainCommand{"btnExit", false, false, &btnExit_Click},
    MainCommand{"btnCourseDownload", false, false, &btnCourseDownload_Click},
};

constexpr std::array CourseEntries = {
    MenuEntry{"menuCourseUninstall", "Uninstall", "btnCourseUninstall"},
    MenuEntry{"menuCourseMove", "Move...", "btnCourseMove"},
    MenuEntry{"menuCourseCompress", "Compress...", "btnCourseCompress"},
    MenuEntry{"menuCourseClearStats", "Clear Statistics", "btnCourseClear"},
    MenuEntry{"menuCourseLine", "-", nullptr},
    MenuEntry{"menuCourseProperties", "Properties...", "btnCourseProperties"},
};

constexpr std::array LibraryEntries = {
    MenuEntry{"menuLibraryUninstall", "Uninstall", "btnCourseUninstall"},
    MenuEntry{"menuLibraryMove", "Move...", "btnCourseMove"},
    MenuEntry{"menuLibraryLine", "-", nullptr},
    MenuEntry{"menuLibraryProperties", "Properties", "btnCourseProperties"},
};

} // namespace

std::span<const MainCommand> MainCommands() { return Commands; }

const MainCommand &CommandOfButton(std::string_view button) {
  return *std::ranges::find(Commands, button, &MainCommand::button);
}

std::span<const MenuEntry> CourseMenuEntries() { return CourseEntries; }

std::span<const MenuEntry> LibraryMenuEntries() { return LibraryEntries; }

} // namespace turfdesk
