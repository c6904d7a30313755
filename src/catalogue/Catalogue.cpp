// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "catalogue/Catalogue.h"

#include "support/Prompts.h"
#include "support/basVorinRegistry.h"

namespace turfdesk {

namespace {

std::string EntryKey(std::string_view listKey, std::string_view entry) {
  std::string path;
  path.reserve(listKey.size() + 1 + entry.size());
  path += listKey;
  path += '\\';
  path += entry;
  return path;
}

std::string CourseValue(SharedState &state, std::string_view courseKey, std::string_view valueName) {
  return GetRegistryValue(state, LocalMachine, CourseEntryKey(courseKey), valueName, "");
}

std::string LibraryValue(SharedState &state, std::string_view libraryKey, std::string_view valueName) {
  return GetRegistryValue(state, LocalMachine, LibraryEntryKey(libraryKey), valueName, "");
}

/// Writes the two values that courses and libraries share.
bool WriteNameAndFile(SharedState &state, std::string_view entryKey, std::string_view name, std::string_view filename) {
  return SetRegistryValue(state, LocalMachine, entryKey, "Name", name) &&
         SetRegistryValue(state, LocalMachine, entryKey, "Filename", filename);
}

bool WriteWhereAbsent(SharedState &state, std::string_view entryKey, std::string_view valueName) {
  return RegistryValueExists(state, LocalMachine, entryKey, valueName) ||
         SetRegistryValue(state, LocalMachine, entryKey, valueName, "");
}

} // namespace

std::string GetCourseName(SharedState &state, std::string_view courseKey) {
  return CourseValue(state, courseKey, "Name");
}

std::string GetCourseFilename(SharedState &state, std::string_view courseKey) {
  return CourseValue(state, courseKey, "Filename");
}

std::string GetCoursePicture(SharedState &state, std::string_view courseKey) {
  return CourseValue(state, courseKey, "Picture");
}

std::string GetCourseMusic(SharedState &state, std::string_view courseKey) {
  return CourseValue(state, courseKey, "Music");
}

std::string GetCourseVideo(SharedState &state, std::string_view courseKey) {
  return CourseValue(state, courseKey, "AVI");
}

std::string GetCourseText(SharedState &state, std::string_view courseKey) {
  return CourseValue(state, courseKey, "Text");
}

std::string GetLibraryName(SharedState &state, std::string_view libraryKey) {
  return LibraryValue(state, libraryKey, "Name");
}

std::string GetLibraryFilename(SharedState &state, std::string_view libraryKey) {
  return LibraryValue(state, libraryKey, "Filename");
}

bool CourseKeyExists(SharedState &state, std::string_view courseKey) {
  return RegistryKeyExists(state, LocalMachine, CourseEntryKey(courseKey));
}

bool LibraryKeyExists(SharedState &state, std::string_view libraryKey) {
  return RegistryKeyExists(state, LocalMachine, LibraryEntryKey(libraryKey));
}

std::string CourseEntryKey(std::string_view courseKey) { return EntryKey(CoursesKey, courseKey); }

std::string LibraryEntryKey(std::string_view libraryKey) { return EntryKey(LibrariesKey, libraryKey); }

bool RegisterCourse(SharedState &state, std::string_view courseKey, std::string_view name, std::string_view filename) {
  const std::string entryKey = CourseEntryKey(courseKey);
  const bool written = WriteNameAndFile(state, entryKey, name, filename) &&
                       WriteWhereAbsent(state, entryKey, "Picture") && WriteWhereAbsent(state, entryKey, "Music") &&
                       WriteWhereAbsent(state, entryKey, "AVI");
  if (!written)
    ShowError(state, GetRegistryError(state));
  return written;
}

bool RegisterLibrary(SharedState &state, std::string_view libraryKey, std::string_view name,
                     std::string_view filename) {
  const bool written = WriteNameAndFile(state, LibraryEntryKey(libraryKey), name, filename);
  if (!written)
    ShowError(state, GetRegistryError(state));
  return written;
}

} // namespace turfdesk
