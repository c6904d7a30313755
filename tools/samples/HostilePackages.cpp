// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "samples/GameFiles.h"
#include "samples/HostileFiles.h"
#include "samples/Packages.h"

namespace turfdesk::samples {

namespace {

PackageEntry CourseEntry(std::string name = "Trap.hlc") {
  CourseSpec course;
  course.name = "Trap";
  return {std::move(name), CourseBytes(course)};
}

PackageEntry LibraryEntry(std::string name) {
  LibrarySpec library;
  library.name = "Trap Stones";
  return {std::move(name), LibraryBytes(library)};
}

PackageEntry TextEntry(std::string name) { return {std::move(name), ToBytes("Not what it seems.\r\n")}; }

void AddBroken(std::vector<HostileFile> &files) {
  const Bytes good = PackageBytes({CourseEntry(), LibraryEntry("Stones.hlb")});
  Bytes cut = good;
  cut.resize(good.size() / 2);
  Bytes damaged = good;
  damaged[200] ^= 0x55U; // within the course's compressed data
  files.push_back({"empty-file.hlz", {}});
  files.push_back({"not-a-zip.hlz", ToBytes("This is a letter, not a package.\r\n")});
  files.push_back({"no-entries.hlz", PackageBytes({})});
  files.push_back({"cut-short.hlz", cut});
  files.push_back({"damaged-data.hlz", damaged, true});
}

// A good course stands before each, so that the name alone is at fault. Files that are not extracted do no harm.
void AddNames(std::vector<HostileFile> &files) {
  const std::pair<const char *, const char *> names[] = {
      {"absolute-name", "/tmp/outside"},    {"drive-letter", "C:\\outside"},
      {"parent-folder", "../../outside"},   {"parent-folder-backslash", "..\\..\\outside"},
      {"parent-inside", "notes/../../out"}, {"device-name", "CON"},
      {"device-folder", "NUL/readme"},      {"colon-inside", "readme:stream"},
      {"unc-name", "\\\\server\\share\\x"}, {"control-character", "read\nme"},
  };
  for (const auto &[filename, name] : names)
    files.push_back({std::string(filename) + ".hlz",
                     PackageBytes({CourseEntry(), TextEntry(std::string(name) + ".hlc"), TextEntry("readme.txt")}),
                     true});
  files.push_back({"same-name-other-case.hlz",
                   PackageBytes({CourseEntry(), LibraryEntry("Stones.hlb"), LibraryEntry("STONES.HLB")}), true});
}

void AddHeaders(std::vector<HostileFile> &files) {
  constexpr std::uint32_t symbolicLink = 0xA1FF0000;
  const RawZipEntry course = ZipEntryOf(CourseEntry());
  RawZipEntry link = ZipEntryOf({"readme.txt", ToBytes("/etc/passwd"), true});
  link.externalAttributes = symbolicLink;
  files.push_back({"symbolic-link.hlz", RawZipBytes({course, link}), true});

  RawZipEntry encrypted = course;
  encrypted.flags |= 1U;
  files.push_back({"encrypted.hlz", RawZipBytes({encrypted}), true});

  RawZipEntry understated = course;
  understated.size = 300;
  files.push_back({"size-understated.hlz", RawZipBytes({understated}), true});

  RawZipEntry overstated = course;
  overstated.size = 0xFFFFFF00;
  files.push_back({"size-overstated.hlz", RawZipBytes({overstated}), true});

  RawZipEntry miscounted = course;
  miscounted.crc = 0xDEADBEEF;
  files.push_back({"wrong-checksum.hlz", RawZipBytes({miscounted}), true});
}

// Sound archives that are no course packages, or hold a course that cannot be installed.
void AddContents(std::vector<HostileFile> &files) {
  files.push_back({"no-course.hlz", PackageBytes({LibraryEntry("Stones.hlb")}), true});
  files.push_back({"two-courses.hlz", PackageBytes({CourseEntry("One.hlc"), CourseEntry("Two.hlc")}), true});
  CourseSpec cut;
  cut.name = "Cut Short";
  cut.lies.cutAt = 100;
  files.push_back({"course-cut-short.hlz", PackageBytes({{"Cut Short.hlc", CourseBytes(cut)}}), true});
}

} // namespace

std::vector<HostileFile> HostilePackages() {
  std::vector<HostileFile> files;
  AddBroken(files);
  AddNames(files);
  AddHeaders(files);
  AddContents(files);
  return files;
}

} // namespace turfdesk::samples
