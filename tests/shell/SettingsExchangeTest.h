// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "shell/SettingsExchange.h"

#include "common/TestWorld.h"

#include <gtest/gtest.h>

#include <fstream>

namespace turfdesk {

inline const std::string header = "Windows Registry Editor Version 5.00\n";
inline const std::string base = R"(HKEY_LOCAL_MACHINE\Software\KESTRAVON\Marrowfell 2002)";
inline constexpr const char *file = R"(C:\settings.reg)";

inline void WriteText(const std::filesystem::path &path, const std::string &text) {
  std::ofstream(path, std::ios::binary) << text;
}

inline std::string ContentOf(const std::filesystem::path &path) {
  std::ifstream content(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(content), {}};
}

inline std::string SettingsOf(SharedState &state) {
  std::string text;
  EXPECT_TRUE(ReadSettingsText(state, text));
  return text;
}

inline std::string SettingsIn(const std::filesystem::path &home) {
  test::TestProgram program(home);
  return SettingsOf(program.state);
}

inline bool Import(test::TestProgram &program, const std::string &text) {
  WriteText(program.Host(file), text);
  ImportCounts counts;
  return ImportSettings(program.state, file, counts);
}

/// An import that changes, makes and deletes keys and values, and the settings before and after it.
struct Change {
  Change() {
    test::TestWorld world;
    Import(world, old);
    before = SettingsOf(world.state);
    Import(world, update);
    after = SettingsOf(world.state);
  }

  const std::string old = header + "[-HKEY_CLASSES_ROOT\\.hlb]\n[-" + base + "]\n[" + base +
                          "]\n\"InstallDir\"=\"old\"\n\"Gone\"=\"x\"\n[" + base +
                          "\\Courses\\{1}]\n\"Name\"=\"one\"\n[" + base + "\\Courses\\{1}\\Below]\n\"n\"=dword:1\n";
  const std::string update = header + "[-" + base + "\\Courses]\n[" + base +
                             "]\n\"InstallDir\"=\"new\"\n\"Gone\"=-\n[" + base +
                             "\\Courses\\{2}]\n\"Name\"=\"two\"\n\"Text\"=\"" + std::string(20000, 'x') +
                             "\"\n[HKEY_CLASSES_ROOT\\.hlb]\n@=\"type\"\n";
  std::string before;
  std::string after;
};

} // namespace turfdesk
