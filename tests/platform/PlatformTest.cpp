// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "PlatformTest.h"

#include "samples/Basics.h"

#include <algorithm>
#include <array>

namespace turfdesk::test {

PlatformTest::PlatformTest() : mPlatform(MakePlatform(samples::Utf8(mHome.Path()))) {}

// A folder that somebody is in cannot be deleted everywhere.
PlatformTest::~PlatformTest() { std::filesystem::current_path(std::filesystem::temp_directory_path()); }

std::string PlatformTest::Put(const std::string &path, std::string_view content) const {
  samples::WriteFile(Host(path), samples::ToBytes(content));
  return path;
}

std::string PlatformTest::Content(const std::string &path) const {
  if (!std::filesystem::is_regular_file(Host(path)))
    return "(no file)";
  const samples::Bytes content = samples::ReadFile(Host(path));
  return {content.begin(), content.end()};
}

Texts PlatformTest::Entries(const std::string &folder) const {
  Texts names;
  for (const auto &entry : std::filesystem::directory_iterator(Host(folder)))
    if (!IsOfSystem(entry.path()))
      names.push_back(samples::Utf8(entry.path().filename()));
  std::ranges::sort(names);
  return names;
}

void PlatformTest::Run(const std::string &program, const Texts &arguments) const {
  Processes &programs = mPlatform->Programs();
  const ProcessHandle handle = programs.OpenProcess(programs.Shell(program, arguments, WindowStyle::Hidden));
  ASSERT_NE(handle, 0U);
  programs.WaitForSingleObject(handle, nullptr, nullptr);
  programs.CloseHandle(handle);
}

void Write(StagedFile &file, std::string_view text) {
  file.Write({reinterpret_cast<const std::uint8_t *>(text.data()), text.size()});
}

std::string LeftoverName(const TemporaryNames &names, std::uint8_t number) {
  std::array<std::uint8_t, TemporaryNames::RandomLength> random{};
  random.fill(number);
  return names.Name(random);
}

void CopyNow(FileCopier &copier, const std::string &from, const std::string &to, const FileCopier::Report &report) {
  const auto copy = copier.Stage(from, to, report);
  copy->Place();
  copy->Keep();
}

std::string LargeContent() {
  std::string content(std::size_t{9} << 20U, '\0');
  for (std::size_t i = 0; i < content.size(); i += 1000)
    content[i] = static_cast<char>(i / 1000);
  return content;
}

} // namespace turfdesk::test
