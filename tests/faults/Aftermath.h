// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "Commands.h"

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace turfdesk {

inline bool AgreeToEverything(const MessageBox & /*box*/) { return true; }

/// The name and the paths that a row shows, by "course " or "library " and its key.
using Rows = std::map<std::string, std::vector<std::string>>;

/// All that a world holds at a moment.
struct Picture {
  /// Contents by path below drive C:.
  std::map<std::string, std::string> files;
  /// What a program that is started now shows.
  Rows rows;
};

/// Takes a picture of a home, which takes a settings store that opens and lists that load without a word.
Picture Look(const std::filesystem::path &home);

/// The pictures by which the outcome of a command is judged.
struct Pictures {
  Picture before;
  /// After the same command without a fault.
  Picture done;
  Picture now;
};

/// All but what is to be judged: a world, and the same after the command has run without a fault.
Pictures LookBeforeAndAfter(const Command &command);

/// Each content that there was and that the command does not give up lies whole somewhere.
void ExpectNothingLost(const Pictures &pictures);

/// Each path holds what it held before or what it is to hold: nothing half, nothing left over. What is in C:\Temp may
/// stay there, whole. mayLeaveHidden: a hidden temporary file beside the others may remain.
void ExpectOldOrNewFiles(const Pictures &pictures, bool mayLeaveHidden);

/// What a move replaces is there, if only under a hidden name, unless the catalogue names what has replaced it.
void ExpectForeignFilesKept(const Command &command, const Pictures &pictures);

/// Each value of the catalogue is what it was before or what it is to be.
void ExpectOldOrNewCatalogue(const Pictures &pictures);

/// Verdict, boxes, files, catalogue and rows after a command has run with faults in its way.
void ExpectOrderly(const Command &command, test::GolfProgram &program, bool result, const Pictures &pictures);

} // namespace turfdesk
