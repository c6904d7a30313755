// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "catalogue/Catalogue.h"
#include "support/basVorinRegistry.h"

#include "gui/FormsFixture.h"
#include "samples/GameFiles.h"

#include <QMenu>

#include <string>
#include <vector>

namespace turfdesk::test {

using Texts = std::vector<std::string>;

/// A main window on two courses and two libraries with their files in C:\Golf. Links uses three libraries, of which
/// Walls is not catalogued; it has a picture and a video in C:\Media. moor shares Water with it.
class ManageFixture : public FormsFixture {
protected:
  ManageFixture() {
    for (const samples::LibrarySpec &library : {grass, water}) {
      const std::string path = R"(C:\Golf\)" + library.name + ".hlb";
      samples::WriteLibrary(world.Host(path), library);
      RegisterLibrary(state, samples::KeyOf(library), library.name, path);
    }
    for (const samples::CourseSpec &course : {links, moor}) {
      const std::string path = R"(C:\Golf\)" + course.name + ".hlc";
      samples::WriteCourse(world.Host(path), course);
      RegisterCourse(state, samples::KeyOf(course), course.name, path);
    }
    SetMedia("Picture", R"(C:\Media\links.bmp)");
    SetMedia("AVI", R"(C:\Media\links.avi)");
    samples::WriteFile(world.Host(R"(C:\Media\links.bmp)"), samples::ToBytes("picture"));
    samples::WriteFile(world.Host(R"(C:\Media\links.avi)"), samples::ToBytes("film"));
  }

  void SetUp() override { ShowMain(window); }

  void SetMedia(const std::string &valueName, const std::string &path) {
    SetRegistryValue(state, LocalMachine, CourseEntryKey(linksKey), valueName, path);
  }
  RowListWidget &List(const char *name) { return Find<RowListWidget>(window, name); }
  void ClickRow(const char *list, int row, Qt::MouseButton button = Qt::LeftButton) {
    Show(window);
    QTest::mouseClick(List(list).viewport(), button, {}, Middle(List(list), row));
  }
  void ClickMenuEntry(const char *list, const char *entry) {
    ClickRow(list, 0, Qt::RightButton);
    auto *menu = dynamic_cast<QMenu *>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(&Find<QAction>(window, entry)).center());
  }
  const samples::LibrarySpec grass{.name = "grass"};
  const samples::LibrarySpec walls{.name = "Walls"};
  const samples::LibrarySpec water{.name = "Water"};
  const samples::CourseSpec links{.name = "Links", .libraries = {water, walls, grass}};
  const samples::CourseSpec moor{.name = "moor", .libraries = {water}};
  const std::string linksKey = samples::KeyOf(links);
  const std::string moorKey = samples::KeyOf(moor);
  frmTurfManager window{state};
};

} // namespace turfdesk::test
