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

/// Makes all settings what follows.
inline const std::string OldSettings =
    header + "[-HKEY_CLASSES_ROOT\\.hlb]\n[-" + base + "]\n[" + base + "]\n\"InstallDir\"=\"old\"\n\"Gone\"=\"x\"\n[" +
    base + "\\Courses\\{1}]\n\"Name\"=\"one\"\n[" + base + "\\Courses\\{1}\\Below]\n\"n\"=dword:1\n";

inline void WriteText(const std::filesystem::path &path, const std::string &text) {
  std::ofstream(path, std::ios::binary) << text;
}

inline std::string SettingsOf(SharedState &state) {
  std::string text;
  EXPECT_TRUE(ReadSettingsText(state, text));
  return text;
}

inline bool Import(test::TestProgram &program, const std::string &text) {
  WriteText(program.Host(file), text);
  ImportCounts counts;
  return ImportSettings(program.state, file, counts);
}

} // namespace turfdesk
