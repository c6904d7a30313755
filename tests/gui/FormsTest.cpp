// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "install/frmCourseInstall.h"
#include "widgets/AviAnimation.h"
#include "widgets/DirectoryList.h"
#include "widgets/DriveList.h"
#include "widgets/FileList.h"
#include "widgets/StatusDialog.h"

#include "common/UnreadyDrive.h"
#include "gui/FormsFixture.h"
#include "gui/ModalWatch.h"
#include "samples/GameFiles.h"
#include "samples/Packages.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QTimer>

namespace turfdesk {

namespace {

class FormsTest : public test::FormsFixture {};

} // namespace

TEST_F(FormsTest, TheListWithTheFocusIsTheOneThatCommandsActOn) {
  AddToCatalogue(3, 2);
  frmTurfManager window(state);
  ShowMain(window);
  auto &courses = Find<RowListWidget>(window, "lstCourses");
  auto &libraries = Find<RowListWidget>(window, "lstLibraries");
  EXPECT_EQ(state.activeList, ActiveCourses);
  EXPECT_EQ(Selected(state.lstCourses) + "|" + Selected(state.lstLibraries), "Course 0|");

  QTest::mouseClick(libraries.viewport(), Qt::LeftButton, {}, Middle(libraries, 1));
  EXPECT_EQ(state.activeList, ActiveLibraries);
  EXPECT_EQ(Selected(state.lstCourses) + "|" + Selected(state.lstLibraries), "|Library 1");
  EXPECT_FALSE(courses.selectionModel()->hasSelection());
  const auto isEnabled = [&window](const char *button) { return Find<QPushButton>(window, button).isEnabled(); };
  EXPECT_FALSE(isEnabled("btnCourseCompress") || isEnabled("btnCourseClear")) << "there is no such thing for libraries";
  EXPECT_TRUE(isEnabled("btnCourseMove"));

  Click(window, "btnRefresh");
  EXPECT_EQ(state.activeList, ActiveLibraries) << "a button takes the focus and leaves the list";
  EXPECT_EQ(Selected(state.lstCourses) + "|" + Selected(state.lstLibraries), "|Library 0");

  QTest::mouseClick(courses.viewport(), Qt::RightButton, {}, Middle(courses, 2));
  auto *menu = dynamic_cast<QMenu *>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr);
  EXPECT_EQ(menu->objectName(), "menuCourse");
  EXPECT_EQ(state.activeList, ActiveCourses) << "before the menu opens";
  EXPECT_TRUE(isEnabled("btnCourseCompress") && isEnabled("btnCourseClear"));
  EXPECT_EQ(Selected(state.lstCourses), "Course 2");
  menu->close();

  libraries.setFocus(Qt::TabFocusReason);
  EXPECT_EQ(Selected(state.lstLibraries), "Library 0") << "the keyboard always has a row to act on";
}

TEST_F(FormsTest, MenusHoldTheirEntriesAndEveryCommandIsThere) {
  frmTurfManager window(state);
  ShowMain(window);
  const auto captions = [&window](const char *menu) {
    QStringList texts;
    for (const QAction *action : Find<QMenu>(window, menu).actions())
      texts.append(action->isSeparator() ? "-" : action->text());
    return texts;
  };
  EXPECT_EQ(captions("menuCourse"),
            (QStringList{"Uninstall", "Move...", "Compress...", "Clear Statistics", "-", "Properties..."}));
  EXPECT_EQ(captions("menuLibrary"), (QStringList{"Uninstall", "Move...", "-", "Properties"}));
  for (const MainCommand &command : MainCommands())
    EXPECT_TRUE(Find<QPushButton>(window, command.button).isEnabled()) << command.button;
  for (const std::span<const MenuEntry> entries : {CourseMenuEntries(), LibraryMenuEntries()})
    for (const MenuEntry &entry : entries)
      EXPECT_TRUE(entry.button == nullptr || Find<QAction>(window, entry.name).isEnabled()) << entry.name;
  EXPECT_FALSE(Find<QPushButton>(window, "btnCourseDownload").isVisibleTo(&window));
}

TEST_F(FormsTest, AnEmptyCatalogueShowsNoMessageAndNoMenu) {
  frmTurfManager window(state);
  ShowMain(window);
  auto &courses = Find<RowListWidget>(window, "lstCourses");
  QTest::mouseClick(courses.viewport(), Qt::RightButton, {}, {20, 20});
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
  EXPECT_TRUE(world.boxes.shown.empty());
  EXPECT_EQ(window.windowTitle(), "Turf Desk");
}

TEST_F(FormsTest, ExitEndsTheEventLoop) {
  frmTurfManager window(state);
  ShowMain(window);
  QTimer click;
  click.callOnTimeout([&window] { Click(window, "btnExit"); });
  click.start(0);
  QTimer patience;
  patience.callOnTimeout([] { QApplication::exit(1); });
  patience.start(5000);
  EXPECT_EQ(QApplication::exec(), 0);
}

TEST_F(FormsTest, APackageFromTheCommandLineIsInstalledAndItsRowsShow) {
  const samples::LibrarySpec grass{.name = "Grass"};
  const samples::LibrarySpec trees{.name = "Trees"};
  const samples::CourseSpec course{.name = "Harbour", .libraries = {grass, trees}};
  samples::WritePackage(world.Host(R"(C:\Downloads\Package.hlz)"), {{"Harbour.hlc", samples::CourseBytes(course)},
                                                                    {"Grass.hlb", samples::LibraryBytes(grass)},
                                                                    {"Trees.hlb", samples::LibraryBytes(trees)}});
  samples::WriteFile(world.Host(R"(C:\Downloads\readme.txt)"), samples::ToBytes("not offered"));
  state.commandFile = R"(C:\Downloads\PACKAGE.HLZ)";
  AddToCatalogue(60, 1);

  int dialogs = 0;
  QStringList files;
  world.screen.onEvents = [&files] {
    QCoreApplication::processEvents();
    if (auto *status = dynamic_cast<StatusDialog *>(QApplication::activeModalWidget())) {
      files.append(QString::fromStdString(Caption(*status, "lblStatus_0")));
      EXPECT_FALSE(Find<QPushButton>(*status, "btnClose").isVisible());
      EXPECT_TRUE(Find<AviAnimation>(*status, "Animation1").IsPlaying());
    }
  };
  const test::ModalWatch<frmCourseInstall> dialogWatch([&](frmCourseInstall &dialog) {
    ++dialogs;
    EXPECT_EQ(state.commandFile + "|" + state.defaultDir, R"(|C:\Downloads)");
    auto &fileSource = Find<FileList>(dialog, "fileSource");
    ASSERT_EQ(fileSource.ListCount(), 1);
    EXPECT_TRUE(fileSource.Selected(0)) << "the names differ only in case";
    Find<DirectoryList>(dialog, "dirDestination").SetPath(R"(C:\Golf)");
    EXPECT_EQ(Caption(dialog, "lblDestination"), R"(The files will go to C:\Golf)");
    const test::ModalWatch<StatusDialog> statusWatch(
        [](StatusDialog &status) {
          EXPECT_EQ(status.windowTitle(), "Installing");
          EXPECT_EQ(Caption(status, "lblStatus_0"), "");
          EXPECT_EQ(Caption(status, "lblStatus_1"), "Install completed successfully.");
          Click(status, "btnClose");
        },
        [](StatusDialog &status) { return Find<QPushButton>(status, "btnClose").isVisible(); });
    Click(dialog, "btnInstall");
    EXPECT_TRUE(dialog.isVisible() && fileSource.Selected(0)) << "the dialog is back as it was";
    Click(dialog, "btnClose");
  });
  frmTurfManager window(state);
  window.show();
  ASSERT_TRUE(QTest::qWaitFor([&] { return dialogs == 1 && QApplication::activeModalWidget() == nullptr; }));
  EXPECT_TRUE(files.contains("Trees.hlb") && files.contains("Harbour.hlc"));
  EXPECT_EQ(Find<RowListWidget>(window, "lstLibraries").model()->rowCount(), 3);
  EXPECT_EQ(state.activeList, ActiveCourses);
  EXPECT_EQ(Selected(state.lstCourses) + "|" + Selected(state.lstLibraries), "Harbour|");
  auto &courses = Find<RowListWidget>(window, "lstCourses");
  EXPECT_EQ(window.focusWidget(), &courses);
  EXPECT_EQ(courses.selectionModel()->selectedRows().value(0).data().toString(), "Harbour");
  EXPECT_TRUE(courses.viewport()->rect().contains(Middle(courses, 60))) << "scrolled to";
  window.hide();
  window.show();
  QTest::qWait(50);
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << "only the first activation opens the dialog";
}

TEST_F(FormsTest, InstallNeedsASelection) {
  frmCourseInstall dialog(state, nullptr);
  Show(dialog);
  EXPECT_EQ(Find<DirectoryList>(dialog, "dirSource").Path(), R"(C:\Golf)");
  EXPECT_EQ(Find<DirectoryList>(dialog, "dirDestination").Path(), R"(C:\Golf)");
  Click(dialog, "btnInstall");
  ASSERT_EQ(world.boxes.shown.size(), 1U);
  EXPECT_EQ(world.boxes.shown[0].text, "No files have been selected. Please select a file to install.");
  EXPECT_EQ(world.boxes.shown[0].icon, BoxIcon::None);
}

TEST_F(FormsTest, ADriveThatIsNotReadyIsToldAndLeavesTheDirectory) {
  const test::UnreadyDrive unready(world.Home());
  samples::WriteCourse(world.Host(R"(C:\Golf\one.hlc)"), {.name = "One"});
  frmCourseInstall dialog(state, nullptr);
  Show(dialog);
  auto &drive = Find<DriveList>(dialog, "driveSource");
  drive.setFocus();
  QTest::keyClick(&drive, Qt::Key_A);
  ASSERT_EQ(world.boxes.shown.size(), 1U);
  EXPECT_EQ(world.boxes.shown[0].text, "Disk not ready");
  EXPECT_EQ(drive.Drive(), "A:");
  EXPECT_EQ(Find<DirectoryList>(dialog, "dirSource").Path(), R"(C:\Golf)");
  EXPECT_EQ(Find<FileList>(dialog, "fileSource").ListCount(), 1);
}

TEST_F(FormsTest, OfSeveralFilesThoseOfTheFirstOnesFolderAreSelected) {
  for (const char *file : {R"(C:\Dl\a.hlb)", R"(C:\Dl\b.hlc)", R"(C:\Dl\c.hlz)", R"(C:\Other\b.hlc)"})
    samples::WriteFile(world.Host(file), {});
  state.commandFile = R"(C:\Dl\c.hlz)";
  state.furtherCommandFiles = {R"(C:\Other\b.hlc)", R"(C:\Dl\sub\..\a.hlb)"};
  EXPECT_EQ(frmCourseInstall(state, nullptr).Request().files, (std::vector<std::string>{"a.hlb", "c.hlz"}));
  EXPECT_TRUE(frmCourseInstall(state, nullptr).Request().files.empty()) << "they are taken up once";
}

TEST_F(FormsTest, AGoneDirectoryOpensTheDialogWithNothingSelected) {
  // The lists then begin in the current folder, where a file of the same name is another one.
  samples::WriteFile(world.Host(R"(C:\Golf\x.hlz)"), samples::ToBytes("another"));
  std::filesystem::current_path(world.Host(R"(C:\Golf)"));
  state.commandFile = R"(C:\Gone\x.hlz)";
  frmCourseInstall dialog(state, nullptr);
  EXPECT_EQ(state.defaultDir, R"(C:\Gone)");
  EXPECT_EQ(Find<DirectoryList>(dialog, "dirSource").Path(), world.platform->Folders().StartFolder());
  EXPECT_TRUE(dialog.Request().files.empty());
  EXPECT_TRUE(world.boxes.shown.empty());
}

TEST_F(FormsTest, EveryControlIsCalledWhatItShows) {
  frmTurfManager window(state);
  ShowMain(window);
  EXPECT_EQ(NamesOfControls(window).filter("Convert"),
            (QStringList{"Convert Quillon 2000 Course...", "Convert MF 2001 Course..."}));
  frmCourseInstall dialog(state, &window);
  EXPECT_EQ(NamesOfControls(dialog),
            (QStringList{"Source drive", "Source directory", "Files to install", "Install --->", "Close",
                         "Destination drive", "Destination directory", "New Folder..."}));
  for (const QString &name : NamesOfControls(window)) {
    EXPECT_FALSE(name.isEmpty() || name.contains("&")) << name.toStdString();
  }
}

} // namespace turfdesk
