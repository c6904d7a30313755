// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "widgets/FileDialog.h"

#include "platform/RuntimeError.h"
#include "platform/WindowsNames.h"
#include "widgets/QtText.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>

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

void OpenStartFolder(QFileDialog &dialog, Platform &platform, const FileDialogRequest &request) {
  for (const std::string &folder : {request.initDir, request.otherwiseDir}) {
    const QString hostFolder = ToQString(platform.ToHostPath(folder));
    if (hostFolder.isEmpty() || !QDir(hostFolder).exists())
      continue;
    dialog.setDirectory(hostFolder);
    return;
  }
}

/// The name as the disk has it, which may differ in case.
QString NameOnDisk(Platform &platform, const FileDialogRequest &request) {
  const std::string path = request.initDir + (request.initDir.ends_with('\\') ? "" : "\\") + request.fileName;
  const QFileInfo onDisk(ToQString(platform.ToHostPath(path)));
  return onDisk.exists() ? onDisk.fileName() : ToQString(request.fileName);
}

bool IsWindowsPath(const QString &text) {
  const std::string path = ToUtf8(text);
  return IsFullWindowsPath(path) || path.starts_with("\\\\");
}

/// A dialog that knows of no drives takes a Windows path for the name of a file in the folder that it shows.
std::string ChosenPath(Platform &platform, const QFileDialog &dialog) {
  QString chosen = dialog.selectedFiles().first();
  if (const QString name = dialog.directory().relativeFilePath(chosen); IsWindowsPath(name))
    chosen = name;
  std::string path = platform.ToWindowsPath(ToUtf8(QDir::toNativeSeparators(chosen)));
  if (path.empty())
    throw RuntimeError(ErrorNumber::BadFileName);
  return path;
}

/// A folder that is typed as a Windows path is opened, as any other folder is.
class OpenDialog final : public QFileDialog {
public:
  OpenDialog(QWidget &parent, Platform &platform, const FileDialogRequest &request)
      : QFileDialog(&parent, ToQString(request.title)), mPlatform(platform) {}

protected:
  void accept() override {
    auto *name = findChild<QLineEdit *>("fileNameEdit");
    if (name != nullptr && IsWindowsPath(name->text())) {
      const QFileInfo folder(ToQString(mPlatform.ToHostPath(ToUtf8(name->text()))));
      if (folder.isDir()) {
        setDirectory(folder.absoluteFilePath());
        // What is typed next is a name in there.
        name->clear();
        return;
      }
    }
    QFileDialog::accept();
  }

private:
  Platform &mPlatform;
};

} // namespace

std::optional<std::string> ShowOpenDialog(QWidget &parent, Platform &platform, const FileDialogRequest &request) {
  OpenDialog dialog(parent, platform, request);
  dialog.setAcceptMode(QFileDialog::AcceptOpen);
  dialog.setFileMode(QFileDialog::AnyFile);
  // The descriptions name the patterns already.
  dialog.setOption(QFileDialog::HideNameFilterDetails);
  dialog.setNameFilters(NameFilters(request.filter));
  dialog.setDefaultSuffix(ToQString(request.defaultExtension));
  OpenStartFolder(dialog, platform, request);
  if (!request.fileName.empty())
    dialog.selectFile(NameOnDisk(platform, request));
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
    return std::nullopt;
  return ChosenPath(platform, dialog);
}

} // namespace turfdesk
