// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "common/GolfWorld.h"

#include <functional>
#include <ostream>
#include <string>
#include <vector>

namespace turfdesk {

enum class Work { Install, Move, Uninstall, Compress };

/// A command as a user gives it in a golf world, answering every question with Yes.
struct Command {
  const char *name;
  Work work;
  std::function<bool(test::GolfProgram &program)> run;
  /// The files, below drive C:, whose content is to be gone afterwards: replaced or uninstalled.
  std::vector<std::string> givenUp = {};
  /// Is it one of those that between them do everything?
  bool isBroad = false;
};

inline void PrintTo(const Command &command, std::ostream *stream) { *stream << command.name; }

/// Every kind of work that touches files, on new and on existing ground.
const std::vector<Command> &Commands();
/// For tests in which each command takes long.
std::vector<Command> BroadestCommands();

} // namespace turfdesk
