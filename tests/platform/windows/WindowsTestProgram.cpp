// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

// A program that the tests start. Its first argument says what it does:
//   note FILE [ARGUMENT...]   writes the arguments into the file, each on a line
//   await FILE DONE           waits until the file is there, then appends "done" to the other
//   talk                      writes to standard output, and more when there is something to read
//   temp FILE TARGET          writes the path of its temporary folder, in which it makes a link to the target folder
//   die FOLDER                is killed with half a file written and a temporary folder made in the folder

#include "platform/CommandLine.h"
#include "platform/windows/SystemPath.h"
#include "platform/windows/TempFolder.h"
#include "platform/windows/WideText.h"
#include "platform/windows/WindowsFileService.h"
#include "platform/windows/WindowsStagedFiles.h"

#include <windows.h>

#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>

namespace turfdesk {

namespace {

using Arguments = std::vector<std::string>;

std::filesystem::path HostPath(const std::string &path) {
  std::wstring systemPath;
  if (ToSystemPath(path, systemPath) != 0)
    throw std::runtime_error("no path: " + path);
  return systemPath;
}

void WriteFile(const std::string &path, std::string_view text) {
  const auto file = WindowsStagedFiles().Create(path, false);
  file->Write({reinterpret_cast<const std::uint8_t *>(text.data()), text.size()});
  file->Commit(false);
}

void Note(const Arguments &arguments) {
  std::string text;
  for (std::size_t i = 2; i < arguments.size(); ++i)
    text += arguments[i] + "\n";
  WriteFile(arguments[1], text);
}

void Await(const Arguments &arguments) {
  while (GetFileAttributesW(HostPath(arguments[1]).c_str()) == INVALID_FILE_ATTRIBUTES)
    Sleep(10);
  std::ofstream(HostPath(arguments[2]), std::ios::binary | std::ios::app) << "done";
}

void Talk() {
  std::string line;
  std::cout << "output " << (std::getline(std::cin, line) ? "with" : "without") << " input" << std::endl;
}

void UseTempFolder(const Arguments &arguments) {
  WindowsFileService service;
  const std::string folder = service.GetTempFolder();
  if (folder != service.GetTempFolder() || !service.DirExists(folder))
    throw std::runtime_error("no folder to keep");
  CreateDirectoryW(HostPath(folder + "\\deep").c_str(), nullptr);
  WriteFile(folder + "\\deep\\locked", "x");
  SetFileAttributesW(HostPath(folder + "\\deep\\locked").c_str(), FILE_ATTRIBUTE_READONLY);
  // Where the user may make none, there is none to be followed.
  CreateSymbolicLinkW(HostPath(folder + "\\deep\\link").c_str(), HostPath(arguments[2]).c_str(),
                      SYMBOLIC_LINK_FLAG_DIRECTORY);
  WriteFile(arguments[1], folder);
}

[[noreturn]] void Die(const Arguments &arguments) {
  WindowsStagedFile file(arguments[1] + "\\x", false);
  MakeTempFolder(HostPath(arguments[1]));
  constexpr std::uint8_t half[] = {1, 2, 3};
  file.Write(half);
  TerminateProcess(GetCurrentProcess(), 1);
  std::abort();
}

int Run(const Arguments &arguments) {
  const std::string &deed = arguments.at(0);
  if (deed == "note")
    Note(arguments);
  else if (deed == "await")
    Await(arguments);
  else if (deed == "talk")
    Talk();
  else if (deed == "temp")
    UseTempFolder(arguments);
  else if (deed == "die")
    Die(arguments);
  else
    return 2;
  return 0;
}

} // namespace

} // namespace turfdesk

int main(int argc, char **argv) {
  try {
    return turfdesk::Run(turfdesk::CommandArguments(argc, argv));
  } catch (const std::exception &error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
}
