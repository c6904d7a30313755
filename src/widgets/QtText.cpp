// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "widgets/QtText.h"
#include "platform/ShownText.h"

#include <QGuiApplication>
#include <QScreen>
#include <QTextLayout>
#include <QToolTip>

namespace turfdesk {

QString ToQString(std::string_view utf8) { return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size())); }

std::string ToUtf8(const QString &text) { return text.toStdString(); }

QString Shown(std::string_view message) { return ToQString(WithSymbols(message)); }

QString OneLine(std::string_view utf8) { return Shown(AsOneLine(utf8)); }

QStringList BreakIntoLines(const QString &text, const QFont &font, int width) {
  // Both of no width. Lines break behind a folder, but not around the backslash of a drive.
  const QString breakHere(QChar(0x200B));
  const QString noBreak(QChar(0x2060));
  QString breakable = text;
  breakable.replace("\\", noBreak + "\\" + breakHere);
  breakable.replace(":" + noBreak + "\\" + breakHere, ":" + noBreak + "\\" + noBreak);
  QTextLayout layout(breakable, font);
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  layout.setTextOption(option);
  QStringList lines;
  layout.beginLayout();
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLineWidth(width);
    lines.append(breakable.mid(line.textStart(), line.textLength()).remove(breakHere).remove(noBreak));
  }
  layout.endLayout();
  return lines;
}

QString PlainToolTip(const QString &text) {
  if (text.isEmpty())
    return {};
  constexpr int margins = 40;
  const int room = QGuiApplication::primaryScreen()->availableSize().width() - margins;
  const QString lines = BreakIntoLines(text, QToolTip::font(), room).join('\n');
  return R"(<div style="white-space:pre">)" + lines.toHtmlEscaped() + "</div>";
}

} // namespace turfdesk
