// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <QFont>
#include <QString>
#include <QStringList>

#include <string>
#include <string_view>

namespace turfdesk {

QString ToQString(std::string_view utf8);
std::string ToUtf8(const QString &text);

/// The text for a control of one line: control characters, which a damaged file's name can hold, become blanks.
QString OneLine(std::string_view utf8);

/// Breaks a text that may hold paths into lines no wider than this many pixels: behind blanks and backslashes, and
/// inside a word only where that alone is too wide for a line.
QStringList BreakIntoLines(const QString &text, const QFont &font, int width);

/// A tool tip that shows the text as it stands, also where it looks like markup, in one line if the screen is wide
/// enough for it.
QString PlainToolTip(const QString &text);

} // namespace turfdesk
