// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "support/SharedState.h"

#include <span>
#include <string_view>

class QWidget;

namespace turfdesk {

/// A verb of the main window.
struct MainCommand {
  /// Object name of the button that starts it.
  const char *button;
  /// There is nothing for it to do while the commands act on the list of libraries.
  bool coursesOnly;
  /// It takes its input from the lists, or changes what they show.
  bool actsOnCatalogue;
  /// window is the main window, over which dialogs open.
  void (*run)(SharedState &state, QWidget &window);
};

std::span<const MainCommand> MainCommands();

/// The command of a button that stands in the table.
const MainCommand &CommandOfButton(std::string_view button);

/// An entry of a context menu. It does what a button does.
struct MenuEntry {
  /// Object name.
  const char *name;
  /// "-" is a line between entries.
  const char *caption;
  const char *button;
};

std::span<const MenuEntry> CourseMenuEntries();
std::span<const MenuEntry> LibraryMenuEntries();

} // namespace turfdesk
