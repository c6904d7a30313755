// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "shell/MainCommands.h"

#include "catalogue/LoadLists.h"
#include "install/frmCourseInstall.h"
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

void btnRefresh_Click(SharedState &state, QWidget &) {
  LoadCourses(state);
  LoadLibraries(state);
}

void btnCourseDownload_Click(SharedState &state, QWidget &) {
  state.fileService->OpenDocument(state.courseDownload);
  if (state.fileService->LastError() != 0)
    ShowError(state, state.fileService->LastErrorText());
}

// Not a request to close, which a window could refuse.
void btnExit_Click(SharedState &, QWidget &) { QCoreApplication::exit(0); }

constexpr std::array Commands = {
    MainCommand{"btnCourseInstall", false, &btnCourseInstall_Click},
    MainCommand{"btnCourseProperties", false, nullptr},
    MainCommand{"btnCourseUninstall", false, nullptr},
    MainCommand{"btnCourseMove", false, nullptr},
    MainCommand{"btnCourseCompress", true, nullptr},
    MainCommand{"btnCourseClear", true, nullptr},
    MainCommand{"btnRefresh", false, &btnRefresh_Click},
    MainCommand{"btnConvertQuillon", false, nullptr},
    MainCommand{"btnConvert", false, nullptr},
    MainCommand{"btnAbout", false, nullptr},
    MainCommand{"btnExit", false, &btnExit_Click},
    MainCommand{"btnCourseDownload", false, &btnCourseDownload_Click},
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
