// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "widgets/FileDialog.h"

#include "platform/RuntimeError.h"
#include "widgets/QtText.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>

namespace turfdesk {

namespace {

/// The pattern with both cases of each letter: "*.[bB][mM][pP]".
QString InAnyCase(const QString &pattern) {
  QString anyCase;
  for (const QChar character : pattern) {
    const QString lower = character.toLower();
    const QString upper = character.toUpper();
    anyCase += lower == upper ? QString(character) : '[' + lower + upper + ']';
  }
  return anyCase;
}

/// One alternative in Qt's form. Some desktops' dialogs tell case apart and others know no brackets, so each pattern
/// stands in both forms.
QString NameFilter(const QString &description, const QString &patterns) {
  QStringList forms;
  for (const QString &part : patterns.split(';')) {
    const QString pattern = part.trimmed();
    // On Windows this one fits names without a dot, too.
    if (pattern == "*.*")
      forms.append("*");
    else
      forms.append({pattern, InAnyCase(pattern)});
  }
  return description + " (" + forms.join(' ') + ')';
}

QStringList NameFilters(const std::string &filter) {
  const QStringList fields = ToQString(filter).split('|');
  QStringList filters;
  for (qsizetype i = 0; i + 1 < fields.size(); i += 2)
    filters.append(NameFilter(fields[i], fields[i + 1]));
  return filters;
}

void OpenStartFolder(QFileDialog &dialog, const QString &hostFolder) {
  if (!hostFolder.isEmpty() && QDir(hostFolder).exists())
    dialog.setDirectory(hostFolder);
}

/// The name as the disk has it, which may differ in case.
QString NameOnDisk(Platform &platform, const FileDialogRequest &request) {
  const std::string path = request.initDir + (request.initDir.ends_with('\\') ? "" : "\\") + request.fileName;
  const QFileInfo onDisk(ToQString(platform.ToHostPath(path)));
  return onDisk.exists() ? onDisk.fileName() : ToQString(request.fileName);
}

std::string ChosenPath(Platform &platform, const QString &hostPath) {
  std::string path = platform.ToWindowsPath(ToUtf8(QDir::toNativeSeparators(hostPath)));
  if (path.empty())
    throw RuntimeError(ErrorNumber::BadFileName);
  return path;
}

} // namespace

std::optional<std::string> ShowOpenDialog(QWidget &parent, Platform &platform, const FileDialogRequest &request) {
  QFileDialog dialog(&parent, ToQString(request.title));
  dialog.setAcceptMode(QFileDialog::AcceptOpen);
  dialog.setFileMode(QFileDialog::AnyFile);
  // The descriptions name the patterns already.
  dialog.setOption(QFileDialog::HideNameFilterDetails);
  dialog.setNameFilters(NameFilters(request.filter));
  dialog.setDefaultSuffix(ToQString(request.defaultExtension));
  OpenStartFolder(dialog, ToQString(platform.ToHostPath(request.initDir)));
  if (!request.fileName.empty())
    dialog.selectFile(NameOnDisk(platform, request));
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
    return std::nullopt;
  return ChosenPath(platform, dialog.selectedFiles().first());
}

} // namespace turfdesk
