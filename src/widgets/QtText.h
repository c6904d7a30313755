// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace turfdesk {

QString ToQString(std::string_view utf8);
std::string ToUtf8(const QString &text);

/// The text for a control of one line: control characters, which a damaged file's name can hold, become blanks.
QString OneLine(std::string_view utf8);

/// A tool tip that shows the text as it stands, also where it looks like markup.
QString PlainToolTip(const QString &text);

} // namespace turfdesk
