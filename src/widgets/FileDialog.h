// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/Platform.h"

#include <optional>
#include <string>

class QWidget;

namespace turfdesk {

/// What the platform's file dialog is to show. All texts are UTF-8, paths are Windows paths.
struct FileDialogRequest {
  std::string title;
  /// Where it starts. For "" or a folder that is gone it is otherwiseDir, and where that is gone, too, the platform's
  /// choice.
  std::string initDir;
  std::string fileName;
  /// With its leading dot; added by the dialog to a typed name that has no extension.
  std::string defaultExtension;
  /// Alternatives of description and patterns, all separated by bars: "Music (*.wav; *.mp3)|*.wav; *.mp3|". Blanks
  /// around a pattern do not count, nor does case. The first one is chosen at the start.
  std::string filter;
  std::string otherwiseDir = {};
};

/// Shows the platform's open dialog over parent. A name of a file that does not exist can be typed, and so
/// can a full Windows path on any system. Gives the chosen file's full path, or nothing when the user cancels. Throws
/// RuntimeError 52 for a file that no Windows path can name.
std::optional<std::string> ShowOpenDialog(QWidget &parent, Platform &platform, const FileDialogRequest &request);

} // namespace turfdesk
