// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/posix/HostPaths.h"

#include "platform/NextName.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <memory>

namespace turfdesk {

using MallocedText = std::unique_ptr<char, decltype(&std::free)>;

std::string AbsoluteHostPath(std::string_view path) {
  std::string absolute;
  const auto append = [&absolute](std::string_view part) {
    while (!part.empty())
      if (const std::string_view name = NextName(part, IsSlash); !name.empty() && name != ".")
        absolute.append("/").append(name);
  };
  if (!path.starts_with('/')) {
    const MallocedText current(getcwd(nullptr, 0), &std::free);
    if (!current)
      return "";
    append(current.get());
  }
  append(path);
  return absolute.empty() ? "/" : absolute;
}

std::string RealHostPath(const std::string &path) {
  const MallocedText real(realpath(path.c_str(), nullptr), &std::free);
  return real ? real.get() : "";
}

SplitHostPath SplitName(const std::string &path) {
  const std::size_t separator = path.rfind('/');
  return {separator == 0 ? "/" : path.substr(0, separator), path.substr(separator + 1)};
}

int MakeFolders(const std::string &folder, mode_t mode, std::vector<std::string> *made) {
  struct stat status;
  if (stat(folder.c_str(), &status) == 0)
    return S_ISDIR(status.st_mode) ? 0 : ENOTDIR;
  for (std::size_t end = 0; end != std::string::npos;) {
    end = folder.find('/', end + 1);
    const std::string part = folder.substr(0, end);
    if (mkdir(part.c_str(), mode) == 0) {
      if (made != nullptr)
        made->push_back(part);
    } else if (errno != EEXIST) {
      return errno;
    }
  }
  return 0;
}

} // namespace turfdesk
