// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/FolderReader.h"
#include "platform/RuntimeError.h"

#include <map>
#include <string>
#include <vector>

namespace turfdesk::test {

/// Drives A: (not ready), C: and D: with a few folders, without a disk.
class FakeFolders final : public FolderReader {
public:
  std::vector<std::string> Drives() override { return {"A:", "C:", "D:"}; }
  std::vector<std::string> Subfolders(std::string_view folder) override { return Find(folder)->second.folders; }
  std::vector<std::string> Files(std::string_view folder, std::string_view pattern) override {
    lastPattern = pattern;
    return Find(folder)->second.files;
  }
  std::string StartFolder() override { return "C:\\"; }
  std::string CanonicalFolder(std::string_view folder) override {
    const std::string path = folder.size() == 2 ? std::string(folder) + '\\' : std::string(folder);
    return Find(path)->first;
  }

  bool MakeFolder(std::string_view path) override {
    const std::size_t name = path.rfind('\\') + 1;
    Find(path.substr(0, name == 3 ? name : name - 1))->second.folders.emplace_back(path.substr(name));
    return tree.try_emplace(std::string(path)).second;
  }

  struct Content {
    std::vector<std::string> folders;
    std::vector<std::string> files;
  };
  std::map<std::string, Content, std::less<>> tree = {
      {"C:\\", {{"Games", "Temp"}, {}}},
      {R"(C:\Games)", {{"Marrowfell", "Locked"}, {"Alpha.hlc", "beta.HLC", "gamma.hlz"}}},
      {R"(C:\Games\Marrowfell)", {{}, {"only.hlb"}}},
      {"D:\\", {{}, {}}},
  };
  std::string lastPattern;

private:
  std::map<std::string, Content, std::less<>>::iterator Find(std::string_view folder) {
    if (folder.starts_with("A:"))
      throw RuntimeError(ErrorNumber::DiskNotReady);
    const auto found = tree.find(folder);
    if (found == tree.end())
      throw RuntimeError(ErrorNumber::PathFileAccess);
    return found;
  }
};

} // namespace turfdesk::test
