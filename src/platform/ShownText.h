// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <string>
#include <string_view>

namespace turfdesk {

// Names come from files, packages and settings of strangers. Shown as they are, control characters in them would
// command the terminal, line breaks forge lines of ours, and direction marks turn the letters around. All texts are
// UTF-8.

/// A name, path or other text of strangers as a part of a message: its line breaks are marked, so that they are not
/// taken for the message's own.
std::string AsOneLine(std::string_view text);

/// The message with every text in it as it was given to AsOneLine. For programs that read it.
std::string WithoutMarks(std::string_view message);

/// The message for a terminal. Control characters, direction marks and bytes that are no UTF-8 become escapes, such as
/// \x1B and \u202E; of the line breaks those that are not marked stay, as LF.
std::string WithEscapes(std::string_view message);

/// The message for a window: the same characters become symbols.
std::string WithSymbols(std::string_view message);

} // namespace turfdesk
