// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <sys/types.h>

#include <string>
#include <string_view>
#include <vector>

namespace turfdesk {

constexpr bool IsSlash(char c) { return c == '/'; }

/// The host path from its root on, without "." and empty names. ".." stays: what it leads to is for the disk to say.
/// "" for a relative path when the current folder is gone.
std::string AbsoluteHostPath(std::string_view path);

/// The host path with all links followed, or "" when it does not exist.
std::string RealHostPath(const std::string &path);

struct SplitHostPath {
  std::string folder;
  std::string name;
};
/// The two parts of an absolute path.
SplitHostPath SplitName(const std::string &path);

/// Makes a folder with those of its parents that are missing; made, where given, takes up those that were, outermost
/// first. Gives 0 or the system's number of the failure.
int MakeFolders(const std::string &folder, mode_t mode, std::vector<std::string> *made = nullptr);

} // namespace turfdesk
