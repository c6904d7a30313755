// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

// A program that the tests start. Its first argument says what it does; files are paths of the host:
//   note FILE [ARGUMENT...]   writes the arguments into the file, each on a line
//   await FILE DONE           waits until the file is there, then appends "done" to the other
//   talk                      writes to standard output, and more when there is something to read
//   temp HOME FILE TARGET     writes the path of its temporary folder, in which it makes a link to the target folder

#include "platform/CommandLine.h"
#include "platform/Platform.h"
#include "samples/Basics.h"

#include <chrono>
#include <fstream>
#include <iostream>
#include <map>
#include <stdexcept>
#include <thread>

namespace {

using namespace turfdesk;
using namespace turfdesk::samples;
using Arguments = std::vector<std::string>;

void Note(const Arguments &arguments) {
  std::string text;
  for (std::size_t i = 2; i < arguments.size(); ++i)
    text += arguments[i] + "\n";
  WriteFile(HostPath(arguments[1]), ToBytes(text));
}

void Await(const Arguments &arguments) {
  while (!std::filesystem::exists(HostPath(arguments[1])))
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  std::ofstream(HostPath(arguments[2]), std::ios::binary | std::ios::app) << "done";
}

void Talk(const Arguments & /*arguments*/) {
  std::string line;
  std::cout << "output " << (std::getline(std::cin, line) ? "with" : "without") << " input" << std::endl;
}

void Complain(const Arguments & /*arguments*/) { std::cerr << "complaint" << std::endl; }

void UseTempFolder(const Arguments &arguments) {
  const auto platform = MakePlatform(arguments[1]);
  const auto service = platform->CreateFileService();
  const std::string folder = service->GetTempFolder();
  const std::filesystem::path host = HostPath(platform->ToHostPath(folder));
  if (folder != service->GetTempFolder() || !std::filesystem::is_directory(host))
    throw std::runtime_error("no folder to keep");
  WriteFile(host / "deep" / "locked", {});
  std::filesystem::permissions(host / "deep" / "locked", std::filesystem::perms::owner_read);
  // Where none can be made, there is none to be followed.
  std::error_code ignored;
  std::filesystem::create_directory_symlink(HostPath(arguments[3]), host / "deep" / "link", ignored);
  WriteFile(HostPath(arguments[2]), ToBytes(folder));
}

} // namespace

int main(int argc, char **argv) {
  try {
    const Arguments arguments = CommandArguments(argc, argv);
    const std::map<std::string, void (*)(const Arguments &)> deeds = {
        {"note", Note}, {"await", Await}, {"talk", Talk}, {"complain", Complain}, {"temp", UseTempFolder}};
    deeds.at(arguments.at(0))(arguments);
    return 0;
  } catch (const std::exception &error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
}
