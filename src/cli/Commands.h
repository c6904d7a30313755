// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "cli/Console.h"
#include "cli/Transcript.h"
#include "support/SharedState.h"

#include <array>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace turfdesk {

/// Exit statuses of turfctl.
enum class ExitStatus { Done = 0, Failed = 1, Usage = 2, NoServices = 3 };

/// What every command works with. out is where the one JSON object or the text for a person goes, errors is where
/// messages go that the answer does not hold.
struct CommandContext {
  SharedState &state;
  ConsoleStatusWindow &window;
  Transcript &transcript;
  std::ostream &out;
  std::ostream &errors;
  bool json = false;
};

struct ListOptions {
  bool courses = true;
  bool libraries = true;
};
ExitStatus ListContent(CommandContext &context, const ListOptions &options);
/// name is the key or the name of a course or a library.
ExitStatus ShowContent(CommandContext &context, const std::string &name);

struct InstallOptions {
  /// Host or Windows paths.
  std::vector<std::string> files;
  /// "" installs in place.
  std::string destination;
};
ExitStatus InstallFiles(CommandContext &context, const InstallOptions &options);

struct CompressOptions {
  /// Key or name.
  std::string course;
  /// "" for the package beside the course file.
  std::string output;
  /// Keys or names of libraries of the course to leave out.
  std::vector<std::string> without;
};
ExitStatus CompressCourse(CommandContext &context, const CompressOptions &options);

/// Which row a command is to act on.
struct RowOptions {
  /// Key or name.
  std::string name;
  /// A library, also where a course has the same key or name.
  bool library = false;
};
ExitStatus UninstallContent(CommandContext &context, const RowOptions &row);
ExitStatus MoveContent(CommandContext &context, const RowOptions &row, const std::string &destination);
ExitStatus ClearStatistics(CommandContext &context, const std::string &course);

/// Host or Windows paths in the order of CourseMediaKinds. "" clears one; one that is not given stays as it is.
using MediaOptions = std::array<std::optional<std::string>, 3>;
ExitStatus SetMedia(CommandContext &context, const std::string &course, const MediaOptions &media);

/// directory, which holds the course of MF2001, is a host or Windows path.
ExitStatus ConvertCourse(CommandContext &context, const std::string &directory);
/// Only starts the converter.
ExitStatus ConvertQuillonCourse(CommandContext &context);

ExitStatus ListSettings(CommandContext &context);
ExitStatus GetSetting(CommandContext &context, const std::string &name);
ExitStatus SetSetting(CommandContext &context, const std::string &name, const std::string &value);

// The raw tree under HKEY_LOCAL_MACHINE.
ExitStatus GetTreeValue(CommandContext &context, const std::string &key, const std::string &name);
ExitStatus SetTreeValue(CommandContext &context, const std::string &key, const std::string &name,
                        const std::string &value);
ExitStatus ListTreeKeys(CommandContext &context, const std::string &key);
ExitStatus DeleteTreeKey(CommandContext &context, const std::string &key);

/// Writes the game's settings as a registry editor's file. file is a host or Windows path; without one the bytes of the
/// file go to standard output, at a terminal as text that can be read there.
ExitStatus ExportTree(CommandContext &context, const std::optional<std::string> &file);
/// Takes the game's settings over from a registry editor's file.
ExitStatus ImportTree(CommandContext &context, const std::string &file);

/// Prints what an operation did: its result, its verdict and, as JSON, all that it showed.
ExitStatus ReportOperation(CommandContext &context, bool result, const std::string &verdict);

/// The JSON object of an operation, as one text.
std::string OperationJson(const Transcript &transcript, bool result, const std::string &verdict);

/// The end of a command whose answer has been printed: Failed when an error was shown on the way.
ExitStatus ReportAnswer(CommandContext &context);

} // namespace turfdesk
