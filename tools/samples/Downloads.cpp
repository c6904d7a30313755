// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "samples/GameFiles.h"
#include "samples/HostileFiles.h"
#include "samples/Media.h"
#include "samples/Packages.h"
#include "samples/World.h"

namespace turfdesk::samples {

namespace {

/// Makes the pieces of one world, all of the same size and seed.
class Pieces {
public:
  Pieces(std::uint64_t fileSize, std::uint64_t seed) : mFileSize(fileSize), mSeed(seed) {}

  LibrarySpec Library(const std::string &name) {
    LibrarySpec library;
    library.name = name;
    library.size = mFileSize;
    library.seed = ++mSeed;
    return library;
  }

  CourseSpec Course(const std::string &name, const std::vector<std::string> &libraries) {
    CourseSpec course;
    course.name = name;
    course.size = mFileSize;
    course.seed = ++mSeed;
    for (const std::string &library : libraries)
      course.libraries.push_back(Library(library));
    return course;
  }

  std::uint64_t NextSeed() { return ++mSeed; }

private:
  std::uint64_t mFileSize;
  std::uint64_t mSeed;
};

PackageEntry Entry(const CourseSpec &course, const std::string &baseName) {
  return {baseName + ".hlc", CourseBytes(course)};
}

PackageEntry Entry(const LibrarySpec &library) { return {library.name + ".hlb", LibraryBytes(library)}; }

PackageEntry Picture(const std::string &baseName, std::uint64_t seed) {
  return {baseName + ".bmp", PictureBytes(640, 480, seed)};
}

PackageEntry Music(const std::string &baseName, std::uint64_t seed) { return {baseName + ".wav", MusicBytes(8, seed)}; }

PackageEntry Text(const std::string &baseName, const std::string &courseName, std::uint64_t seed) {
  return {baseName + ".txt", ToBytes(ToWindows1252(CourseNotes(courseName, seed)))};
}

// All that a package can hold, and nothing of it installed yet.
std::vector<PackageEntry> HarbourMist(Pieces &pieces) {
  const std::string name = "Harbour Mist";
  const CourseSpec course = pieces.Course(name, {"Harbour Lights", "Mooring Posts", "Fishing Boats"});
  std::vector<PackageEntry> entries = {Entry(course, name), Picture(name, course.seed), Music(name, course.seed),
                                       Text(name, name, course.seed)};
  for (const LibrarySpec &library : course.libraries)
    entries.push_back(Entry(library));
  return entries;
}

// A newer edition of a course that the sample world has installed, with libraries that it has as well.
std::vector<PackageEntry> NewEdition(Pieces &pieces) {
  const std::string name = "Öresund Links";
  CourseSpec course = pieces.Course(name, {"Seaside Grasses", "Dune Fences", "Nordic Pines"});
  course.version = 3;
  std::vector<PackageEntry> entries = {Entry(course, name), Picture(name, course.seed)};
  for (const LibrarySpec &library : course.libraries)
    entries.push_back(Entry(library));
  return entries;
}

void WritePackages(const std::filesystem::path &folder, Pieces &pieces) {
  WritePackage(folder / "Harbour Mist.hlz", HarbourMist(pieces));
  WritePackage(folder / HostPath("Öresund Links (new edition).hlz"), NewEdition(pieces));

  CourseSpec course = pieces.Course("Fjällbacka Pines", {});
  WritePackage(folder / HostPath("Fjällbacka Pines.hlz"),
               {Entry(course, course.name), Picture(course.name, course.seed), Text(course.name, course.name, 3)});

  course = pieces.Course("Winter Rules", {});
  WritePackage(folder / "Winter Rules.hlz", {Entry(course, course.name)});

  course = pieces.Course("Kirinotani", {"Bamboo Screens"});
  WritePackage(folder / HostPath("霧の谷.hlz"), {Entry(course, "霧の谷"), Entry(course.libraries[0]),
                                                 Music("霧の谷", course.seed), Text("霧の谷", course.name, 5)});

  // Folders within the package, and files that are nobody's business.
  course = pieces.Course("Two Mills", {"Mill Wheels"});
  WritePackage(folder / "Two Mills.hlz", {Entry(course, "Two Mills"),
                                          {"read me first.nfo", ToBytes("Have fun!\r\n")},
                                          {"Libraries/Mill Wheels.hlb", LibraryBytes(course.libraries[0])},
                                          {"Media\\Two Mills.bmp", PictureBytes(320, 240, course.seed)}});

  // It asks for a library that neither the package nor the sample world has.
  course = pieces.Course("Lonely Larch", {"Vanished Larches"});
  WritePackage(folder / "Lonely Larch.hlz", {Entry(course, course.name)});
}

void WriteLooseFiles(const std::filesystem::path &folder, Pieces &pieces) {
  const CourseSpec rivers = pieces.Course("Two Rivers", {});
  WriteCourse(folder / "Two Rivers.hlc", rivers);
  WriteFile(folder / "Two Rivers.bmp", PictureBytes(320, 240, rivers.seed));
  WriteFile(folder / "Two Rivers.wav", MusicBytes(4, rivers.seed));
  WriteFile(folder / "Two Rivers.txt", ToBytes(CourseNotes("Two Rivers", rivers.seed)));
  WriteCourse(folder / "Quarry Lane.hlc", pieces.Course("Quarry Lane", {"Dry Stone Walls", "Beech Hangers"}));
  WriteLibrary(folder / "Beech Hangers.hlb", pieces.Library("Beech Hangers"));
  WriteLibrary(folder / HostPath("Vänern Reeds.hlb"), pieces.Library("Vänern Reeds"));
}

void WriteHostileFiles(const std::filesystem::path &folder) {
  for (const auto &files : {HostileCourses(), HostileLibraries(), HostilePackages()})
    for (const HostileFile &file : files)
      WriteFile(folder / HostPath(file.filename), file.content);
}

} // namespace

void WriteDownloads(const std::filesystem::path &folder, std::uint64_t fileSize, std::uint64_t seed) {
  Pieces pieces(fileSize, seed * 7919);
  WritePackages(folder, pieces);
  WriteLooseFiles(folder, pieces);
  WriteHostileFiles(folder / "Troublesome");
}

} // namespace turfdesk::samples
