// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "widgets/QtText.h"

namespace turfdesk {

QString ToQString(std::string_view utf8) { return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size())); }

std::string ToUtf8(const QString &text) { return text.toStdString(); }

QString OneLine(std::string_view utf8) {
  QString line = ToQString(utf8);
  for (QChar &character : line)
    if (character.category() == QChar::Other_Control)
      character = u' ';
  return line;
}

QString PlainToolTip(const QString &text) {
  return text.isEmpty() ? QString() : "<span>" + text.toHtmlEscaped() + "</span>";
}

} // namespace turfdesk
