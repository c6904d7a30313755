// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "common/GolfWorld.h"

#include "catalogue/Catalogue.h"
#include "catalogue/LoadLists.h"
#include "samples/Packages.h"
#include "support/basVorinRegistry.h"

#include <chrono>

namespace turfdesk::test {

namespace {

/// Writes what all golf worlds begin with.
class GolfBuilder : public TestProgram, public GolfContent {
public:
  using TestProgram::TestProgram;

  void Build() {
    for (const char *folder : {R"(C:\Other)", R"(C:\Temp)"})
      MakeFolder(folder);
    InstallWorld();
    OfferDownloads();
  }

private:
  void InstallWorld() {
    Put(R"(C:\Golf\Elm.hlc)", elm);
    Put(R"(C:\Golf\Oak.hlc)", oak);
    RegisterCourse(state, elmKey, elm.name, R"(C:\Golf\Elm.hlc)");
    RegisterCourse(state, oakKey, oak.name, R"(C:\Golf\Oak.hlc)");
    for (const samples::LibrarySpec &library : {grass, trees, water}) {
      const std::string path = R"(C:\Golf\)" + library.name + ".hlb";
      Put(path, library);
      RegisterLibrary(state, samples::KeyOf(library), library.name, path);
    }
    AddMedia("Picture", R"(C:\Media\Elm.bmp)");
    AddMedia("Music", R"(C:\Golf\Elm.mp3)");
    AddMedia("AVI", R"(C:\Golf\Elm.avi)");
    AddMedia("Text", R"(C:\Golf\Elm.txt)");
    for (const std::string &key : {elmKey, oakKey})
      Put(R"(C:\QuillonGolf\Courses\)" + key + ".sta");
    for (const std::string &key : {grassKey, treesKey})
      Put(R"(C:\QuillonGolf\SwapFiles\)" + key + ".swp");
    Put(R"(C:\Golf\Elm.hlz)");
  }

  void OfferDownloads() {
    Put(R"(C:\Downloads\Birch.hlc)", birch);
    Put(R"(C:\Downloads\Moss.hlb)", moss);
    samples::WritePackage(Host(R"(C:\Downloads\Birch.hlz)"), Package(birch, "Birch", {moss, sand}));
    samples::CourseSpec newElm = elm;
    samples::LibrarySpec newGrass = grass;
    newElm.seed = newGrass.seed = 2;
    Put(R"(C:\New\Elm.hlc)", newElm);
    Put(R"(C:\New\Grass.hlb)", newGrass);
    samples::WritePackage(Host(R"(C:\New\Elm.hlz)"), Package(newElm, "Elm", {newGrass}));
    for (const char *name : {"Elm.hlc", "Elm.bmp", "Elm.mp3", "Elm.avi", "Elm.txt", "Grass.hlb", "Trees.hlb"})
      Put(R"(C:\Taken\)" + std::string(name));
  }

  void AddMedia(const char *valueName, const std::string &path) {
    Put(path);
    SetRegistryValue(state, LocalMachine, CourseEntryKey(elmKey), valueName, path);
  }

  static std::vector<samples::PackageEntry> Package(const samples::CourseSpec &course, const std::string &name,
                                                    const std::vector<samples::LibrarySpec> &libraries) {
    std::vector<samples::PackageEntry> entries = {{name + ".hlc", samples::CourseBytes(course)}};
    for (const samples::LibrarySpec &library : libraries)
      entries.push_back({library.name + ".hlb", samples::LibraryBytes(library)});
    for (const char *extension : {".bmp", ".mp3", ".avi", ".txt"})
      entries.push_back({name + extension, samples::ToBytes(name + extension + " of a package")});
    return entries;
  }

  void Put(const std::string &path, const samples::CourseSpec &course) const {
    samples::WriteCourse(Host(path), course);
  }
  void Put(const std::string &path, const samples::LibrarySpec &library) const {
    samples::WriteLibrary(Host(path), library);
  }
  /// A file that says where it was made.
  void Put(const std::string &path) const { samples::WriteFile(Host(path), samples::ToBytes("first at " + path)); }
};

void BuildGolf(const std::filesystem::path &home) { GolfBuilder(home).Build(); }

} // namespace

GolfHome::GolfHome() {
  Fill(mHome, BuildGolf);
  // All worlds are alike, down to the times that a package records.
  using std::chrono::sys_seconds, std::chrono::sys_days, std::chrono::year;
  const auto time = std::chrono::file_clock::from_sys(sys_seconds(sys_days(year(2002) / 6 / 1)));
  for (const auto &[path, content] : Files())
    std::filesystem::last_write_time(DriveOf(Path()) / samples::HostPath(path), time);
}

GolfProgram::GolfProgram(const std::filesystem::path &home) : TestProgram(home) {
  files.tempFolder = R"(C:\Temp)";
  files.onDelete = [this](std::string_view path) { mDeleted.emplace_back(path); };
  registry.onDelete = [this](std::string_view keyPath) {
    mDeleted.emplace_back(keyPath.substr(keyPath.rfind('\\') + 1));
  };
  LoadCourses(state);
  LoadLibraries(state);
}

} // namespace turfdesk::test
