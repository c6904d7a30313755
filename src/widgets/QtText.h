// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace turfdesk {

QString ToQString(std::string_view utf8);
std::string ToUtf8(const QString &text);

/// A message as a window may show it (ShownText.h), with LF for its own line breaks.
QString Shown(std::string_view message);

/// A name, a path or a label, which may be of strangers, as a window may show it: in one line.
QString OneLine(std::string_view utf8);

/// A tool tip that shows the text as it stands, also where it looks like markup.
QString PlainToolTip(const QString &text);

} // namespace turfdesk
