// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "samples/WorldBuilder.h"

#include "avi/AviFile.h"
#include "avi/Scene.h"
#include "platform/CaseFold.h"
#include "samples/Media.h"

#include <algorithm>

namespace turfdesk::samples {

namespace {

constexpr std::string_view GameKey = "Software\\KESTRAVON\\Marrowfell 2002";
constexpr std::string_view InstallDirValue = "InstallDir";

std::string InGame(std::string_view rest) { return std::string(WorldBuilder::InstallDir) + '\\' + std::string(rest); }

std::string LibraryPath(const LibrarySpec &library) { return InGame("Libraries\\" + library.name + ".hlb"); }

std::string CourseKeyPath(const CourseSpec &course) { return "Courses\\" + KeyOf(course); }

} // namespace

WorldBuilder::WorldBuilder(const std::filesystem::path &home)
    : mPlatform(MakePlatform(Utf8(home))), mDrive(HostPath(mPlatform->ToHostPath("C:\\"))) {}

std::filesystem::path WorldBuilder::OnDrive(std::string_view windowsPath) const {
  // The platform would look for each name in a folder, where thousands of courses may be.
  std::string relative(windowsPath.substr(std::string_view("C:\\").size()));
  std::ranges::replace(relative, '\\', '/');
  return mDrive / HostPath(relative);
}

bool WorldBuilder::HasAnotherGame() {
  const RegistryBranch branch = {RegistryRoot::LocalMachine, std::string(GameKey)};
  for (const RegistryKeyContent &key : mPlatform->Branches().Read({&branch, 1}))
    for (const RegistryValue &value : key.values)
      if (EqualsIgnoringCase(key.keyPath, GameKey) && EqualsIgnoringCase(value.name, InstallDirValue))
        return !EqualsIgnoringCase(value.data.text, InstallDir);
  return false;
}

void WorldBuilder::AddGame() {
  for (const char *folder : {"Bin", "Courses", "Libraries", "SwapFiles"})
    std::filesystem::create_directories(OnDrive(InGame(folder)));
  Enter("", InstallDirValue, std::string(InstallDir));
  Enter("", "TurfManager", InGame("Bin"));
  Enter("", "Target", std::string(OldCourses));
}

void WorldBuilder::CopyConverters(const std::filesystem::path &from) const {
  for (const char *converter : {"LayoutConverter.exe", "QuillonConverter.exe"})
    std::filesystem::copy_file(from / converter, OnDrive(InGame("Bin")) / converter,
                               std::filesystem::copy_options::overwrite_existing);
}

std::filesystem::path WorldBuilder::AddLibrary(const LibrarySpec &library) {
  const std::string path = LibraryPath(library);
  WriteLibrary(OnDrive(path), library);
  EnterLibrary(library, path);
  return OnDrive(path);
}

void WorldBuilder::AddLibraryWithoutFile(const LibrarySpec &library) { EnterLibrary(library, LibraryPath(library)); }

void WorldBuilder::AddCourse(const CourseSpec &course, const std::string &baseName, const CourseMedia &media) {
  const std::string basePath = InGame("Courses\\" + baseName);
  WriteCourse(OnDrive(basePath + ".hlc"), course);
  WriteMedia(course, basePath, media);
  EnterCourse(course, basePath, media);
}

void WorldBuilder::AddCourseWithoutFiles(const CourseSpec &course, const std::string &baseName,
                                         const CourseMedia &media) {
  EnterCourse(course, InGame("Courses\\" + baseName), media);
}

void WorldBuilder::SetName(const CourseSpec &course) { Enter(CourseKeyPath(course), "Name", course.name); }

void WorldBuilder::SetCourseFile(const CourseSpec &course, std::string_view valueName, const std::string &windowsPath) {
  Enter(CourseKeyPath(course), valueName, windowsPath);
}

void WorldBuilder::AddStatistics(const CourseSpec &course) {
  WriteFile(OnDrive(InGame("Courses\\" + KeyOf(course) + ".sta")), ToBytes("rounds played: 3\r\n"));
}

void WorldBuilder::AddSwapFile(const LibrarySpec &library) {
  WriteFile(OnDrive(InGame("SwapFiles\\" + KeyOf(library) + ".swp")), Bytes(512));
}

void WorldBuilder::WriteCatalogue() {
  mPlatform->Branches().Apply(mEntries);
  mEntries.clear();
}

void WorldBuilder::Enter(const std::string &keyPath, std::string_view valueName, const std::string &value) {
  RegistryChange entry;
  entry.kind = RegistryChange::Kind::SetValue;
  entry.keyPath = keyPath.empty() ? std::string(GameKey) : std::string(GameKey) + '\\' + keyPath;
  entry.valueName = valueName;
  entry.data.text = value;
  mEntries.push_back(std::move(entry));
}

void WorldBuilder::EnterCourse(const CourseSpec &course, const std::string &basePath, const CourseMedia &media) {
  const auto pathIf = [&](bool there, const char *extension) { return there ? basePath + extension : std::string(); };
  SetName(course);
  SetCourseFile(course, "Filename", basePath + ".hlc");
  SetCourseFile(course, "Picture", pathIf(media.picture, ".bmp"));
  SetCourseFile(course, "Music", pathIf(media.music, ".wav"));
  SetCourseFile(course, "AVI", pathIf(media.video, ".avi"));
  // Unlike the others this value is not there until there is a text.
  if (media.text)
    SetCourseFile(course, "Text", basePath + ".txt");
}

void WorldBuilder::EnterLibrary(const LibrarySpec &library, const std::string &path) {
  const std::string key = "Libraries\\" + KeyOf(library);
  Enter(key, "Name", library.name);
  Enter(key, "Filename", path);
}

void WorldBuilder::WriteMedia(const CourseSpec &course, const std::string &basePath, const CourseMedia &media) {
  if (media.picture)
    WriteFile(OnDrive(basePath + ".bmp"), PictureBytes(320, 240, course.seed));
  if (media.music)
    WriteFile(OnDrive(basePath + ".wav"), MusicBytes(4, course.seed));
  if (media.video)
    WriteFile(OnDrive(basePath + ".avi"), FilmBytes());
  if (media.text)
    WriteFile(OnDrive(basePath + ".txt"), ToBytes(ToWindows1252(CourseNotes(course.name, course.seed))));
}

Bytes FilmBytes() {
  constexpr int frames = 6;
  std::vector<avi::Image> images;
  images.reserve(frames);
  for (int frame = 0; frame < frames; ++frame)
    images.push_back(avi::DrawScene(frame * avi::SceneFrames / frames));
  return avi::MakeAvi(images, 2);
}

} // namespace turfdesk::samples
