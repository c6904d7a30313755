// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "widgets/QtText.h"
#include "platform/ShownText.h"

namespace turfdesk {

QString ToQString(std::string_view utf8) { return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size())); }

std::string ToUtf8(const QString &text) { return text.toStdString(); }

QString Shown(std::string_view message) { return ToQString(WithSymbols(message)); }

QString OneLine(std::string_view utf8) { return Shown(AsOneLine(utf8)); }

QString PlainToolTip(const QString &text) {
  return text.isEmpty() ? QString() : "<span>" + text.toHtmlEscaped() + "</span>";
}

} // namespace turfdesk
