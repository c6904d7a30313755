// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "catalogue/CatalogueRows.h"
#include "platform/RuntimeError.h"
#include "widgets/AviAnimation.h"
#include "widgets/DirectoryList.h"
#include "widgets/DriveList.h"
#include "widgets/StatusDialog.h"

#include "common/UnreadyDrive.h"
#include "gui/ManageFixture.h"
#include "gui/ModalWatch.h"

#include <QLineEdit>
#include <QTimer>

#include <functional>

namespace turfdesk {

namespace {

using test::Texts;

class ManageFormsTest : public test::ManageFixture {
protected:
  /// The window that this opens, as "object name: title". It is closed by Escape.
  static std::string WhatOpens(const std::function<void()> &open) {
    std::string what;
    const test::ModalWatch<QDialog> watch([&what](QDialog &dialog) {
      what = (dialog.objectName() + ": " + dialog.windowTitle()).toStdString();
      QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    open();
    return what;
  }
  /// Clicks btnMove, gives the status window to the user when the work is done, and closes it.
  void MoveTo(QDialog &dialog, const std::function<void(StatusDialog &)> &atEnd) {
    const test::ModalWatch<StatusDialog> watch(
        [&atEnd](StatusDialog &status) {
          atEnd(status);
          Click(status, "btnClose");
        },
        [](StatusDialog &status) { return Find<QPushButton>(status, "btnClose").isVisible(); });
    Click(dialog, "btnMove");
  }
};

const std::string Nothing = "No course or library has been selected.";

} // namespace

TEST_F(ManageFormsTest, WindowsOpenByButtonMenuDoubleClickAndKey) {
  const std::string course = "frmCourseProperties: \"Links\" Course Properties";
  const std::string library = "frmLibraryProperties: \"grass\" Library Properties";
  ClickRow("lstCourses", 0);
  EXPECT_EQ(WhatOpens([this] { Click(window, "btnCourseProperties"); }), course);
  EXPECT_EQ(WhatOpens([this] { ClickMenuEntry("lstCourses", "menuCourseProperties"); }), course);
  EXPECT_EQ(WhatOpens([this] { QTest::keyClick(&List("lstCourses"), Qt::Key_Return); }), course);
  Find<QPushButton>(window, "btnCourseProperties").setFocus();
  EXPECT_EQ(WhatOpens([this] { QTest::keyClick(window.focusWidget(), Qt::Key_Enter); }), course);
  ClickRow("lstCourses", 0, Qt::RightButton);
  auto &menu = Find<QMenu>(window, "menuCourse");
  for (const char *entry : {"menuCourseCompress", "menuCourseClearStats", "menuCourseCompress"}) {
    QTest::keyClick(&menu, Qt::Key_C);
    EXPECT_EQ(menu.activeAction()->objectName(), entry);
  }
  EXPECT_EQ(WhatOpens([&menu] { QTest::keyClick(&menu, Qt::Key_P); }), course);
  EXPECT_EQ(WhatOpens([this] {
              QTest::mouseDClick(List("lstCourses").viewport(), Qt::LeftButton, {}, Middle(List("lstCourses"), 0));
            }),
            course);
  EXPECT_EQ(WhatOpens([this] { Click(window, "btnCourseMove"); }), "frmCourseMove: Move \"Links\" Course");
  EXPECT_EQ(WhatOpens([this] { ClickMenuEntry("lstCourses", "menuCourseMove"); }),
            "frmCourseMove: Move \"Links\" Course");

  ClickRow("lstLibraries", 0);
  EXPECT_EQ(WhatOpens([this] { Click(window, "btnCourseProperties"); }), library);
  EXPECT_EQ(WhatOpens([this] { ClickMenuEntry("lstLibraries", "menuLibraryProperties"); }), library);
  EXPECT_EQ(WhatOpens([this] { ClickMenuEntry("lstLibraries", "menuLibraryMove"); }),
            "frmCourseMove: Move \"grass\" Library");
  EXPECT_TRUE(world.boxes.shown.empty());
}

TEST_F(ManageFormsTest, WithNothingSelectedEachCommandSaysSoAndDoesNothing) {
  state.lstCourses.Select(nullptr);
  for (const char *button : {"btnCourseProperties", "btnCourseMove", "btnCourseUninstall", "btnCourseClear"}) {
    EXPECT_EQ(WhatOpens([this, button] { Click(window, button); }), "") << button;
    ASSERT_EQ(world.boxes.shown.size(), 1U) << button;
    EXPECT_EQ(world.boxes.shown[0].icon, BoxIcon::Stop);
    EXPECT_EQ(world.boxes.TakeTexts(), Texts{Nothing}) << button;
  }
  state.lstLibraries.Clear();
  ClickRow("lstLibraries", 0);
  EXPECT_EQ(WhatOpens([this] { Click(window, "btnCourseProperties"); }), "");
  EXPECT_EQ(world.boxes.TakeTexts(), Texts{"No libraries installed."});
}

TEST_F(ManageFormsTest, ACourseMovesOnceToTheDirectoryThatIsHighlightedButNotOpen) {
  world.MakeFolder(R"(C:\Golf\Old)");
  world.boxes.answers = {true};
  Texts steps;
  const test::ModalWatch<QDialog> dialogWatch([&](QDialog &dialog) {
    auto &directories = Find<DirectoryList>(dialog, "dirDestination");
    EXPECT_EQ(Find<DriveList>(dialog, "driveDestination").Drive(), "C:");
    EXPECT_EQ(directories.HighlightedPath(), R"(C:\Golf)");
    QTest::mouseClick(directories.viewport(), Qt::LeftButton, {},
                      directories.visualItemRect(directories.findItems("Old", Qt::MatchExactly).first()).center());
    EXPECT_EQ(directories.Path(), R"(C:\Golf)");
    world.screen.onEvents = [&] {
      QCoreApplication::processEvents();
      auto *status = dynamic_cast<StatusDialog *>(QApplication::activeModalWidget());
      ASSERT_NE(status, nullptr);
      EXPECT_TRUE(!dialog.isVisible() && !Find<QPushButton>(*status, "btnClose").isVisible());
      EXPECT_TRUE(steps.empty() || Find<AviAnimation>(*status, "Animation1").IsPlaying());
      steps.push_back(Caption(*status, "lblStatus_0") + ": " + Caption(*status, "lblStatus_1"));
    };
    MoveTo(dialog, [this](StatusDialog &status) {
      world.screen.onEvents = [] { QCoreApplication::processEvents(); };
      EXPECT_EQ(status.windowTitle(), "Moving");
      EXPECT_EQ(Caption(status, "lblStatus_0") + Caption(status, "lblStatus_1"), "Successfully moved \"Links\"");
      status.repaint();
      status.activateWindow();
      QTest::qWait(20);
    });
    EXPECT_FALSE(dialog.isVisible());
  });
  Click(window, "btnCourseMove");

  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  EXPECT_EQ(steps.front(), ": ");
  EXPECT_EQ(steps.back(), R"(grass.hlb: "C:\Golf" to "C:\Golf\Old")");
  EXPECT_NE(std::ranges::find(steps, R"(links.bmp: "C:\Media" to "C:\Golf\Old")"), steps.end());
  EXPECT_EQ(world.boxes.shown.size(), 1U) << "a second run would ask and fail again";
  const Row &row = *state.lstCourses.FindKey(linksKey);
  EXPECT_EQ(row.SubItems(column::Filename), R"(C:\Golf\Old\Links.hlc)");
  EXPECT_EQ(GetCoursePicture(state, linksKey), R"(C:\Golf\Old\links.bmp)");
  for (const char *name : {"Links.hlc", "links.bmp", "links.avi", "grass.hlb"})
    EXPECT_TRUE(std::filesystem::exists(world.Host(R"(C:\Golf\Old\)" + std::string(name)))) << name;
  EXPECT_TRUE(std::filesystem::exists(world.Host(R"(C:\Golf\Water.hlb)"))) << "moor uses it, too";
}

TEST_F(ManageFormsTest, ALibraryMovesAndARowThatIsGoneIsToldInTheStatusWindow) {
  state.defaultDir = world.MakeFolder(R"(C:\Elsewhere)");
  ClickRow("lstLibraries", 1);
  const auto move = [this](const std::function<void()> &before) {
    std::string verdict;
    const test::ModalWatch<QDialog> dialogWatch([&](QDialog &dialog) {
      before();
      MoveTo(dialog, [&verdict](StatusDialog &status) { verdict = Caption(status, "lblStatus_1"); });
    });
    Click(window, "btnCourseMove");
    return verdict;
  };
  EXPECT_EQ(move([] {}), "Successfully moved \"Water\"");
  EXPECT_TRUE(std::filesystem::exists(world.Host(R"(C:\Elsewhere\Water.hlb)")));
  EXPECT_TRUE(world.boxes.shown.empty());
  EXPECT_EQ(move([this] { state.lstLibraries.Clear(); }), "Move failed.");
  EXPECT_EQ(world.boxes.TakeTexts(), Texts{Nothing});
}

TEST_F(ManageFormsTest, ADriveThatIsNotReadyIsToldAndCancelLeavesAllAsItWas) {
  const test::UnreadyDrive unready(world.Home());
  ClickRow("lstCourses", 1);
  const test::ModalWatch<QDialog> watch([this](QDialog &dialog) {
    auto &drive = Find<DriveList>(dialog, "driveDestination");
    EXPECT_EQ(dialog.focusWidget(), &drive);
    QTest::keyClick(&drive, Qt::Key_A);
    EXPECT_EQ(world.boxes.TakeTexts(), Texts{"Disk not ready"});
    EXPECT_EQ(drive.Drive() + Find<DirectoryList>(dialog, "dirDestination").Path(), R"(A:C:\Golf)");
    EXPECT_TRUE(Find<QPushButton>(dialog, "btnMove").isDefault());
    EXPECT_EQ(NamesOfControls(dialog),
              (QStringList{"Destination drive", "Destination directory", "New Folder...", "OK", "Cancel"}));
    QTest::keyClick(&dialog, Qt::Key_C, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&dialog] { return !dialog.isVisible(); }));
  });
  Click(window, "btnCourseMove");
  EXPECT_EQ(state.lstCourses.FindKey(moorKey)->SubItems(column::Filename), R"(C:\Golf\moor.hlc)");
  EXPECT_TRUE(world.boxes.shown.empty());
}

TEST_F(ManageFormsTest, UninstallActsOnTheListInUseAndAsksFirst) {
  ClickRow("lstCourses", 0);
  Click(window, "btnCourseUninstall");
  EXPECT_EQ(world.boxes.TakeTexts().size(), 1U);
  EXPECT_EQ(List("lstCourses").model()->rowCount(), 2) << "No changes nothing";

  world.boxes.answers = {true, true};
  Click(window, "btnCourseUninstall");
  EXPECT_EQ(world.boxes.shown.size(), 3U) << "the course, its own library, the verdict";
  EXPECT_EQ(world.boxes.TakeTexts().back(), "Links\r\n\r\nCourse was successfully uninstalled.");
  EXPECT_EQ(List("lstCourses").model()->rowCount(), 1);
  EXPECT_EQ(List("lstLibraries").model()->rowCount(), 1);
  EXPECT_FALSE(std::filesystem::exists(world.Host(R"(C:\Golf\Links.hlc)")));

  EXPECT_EQ(Selected(state.lstCourses), "moor") << "the row behind it";
  world.boxes.answers = {true, true};
  ClickMenuEntry("lstLibraries", "menuLibraryUninstall");
  EXPECT_EQ(world.boxes.TakeTexts().size(), 3U) << "the library, its user, the verdict";
  EXPECT_EQ(List("lstLibraries").model()->rowCount(), 0);
}

TEST_F(ManageFormsTest, ClearThrowsTheStatisticsAwayWhenTheUserAgrees) {
  state.installDir = R"(C:\Golf)";
  const auto statistics = world.Host(R"(C:\Golf\Courses\)" + moorKey + ".sta");
  samples::WriteFile(statistics, samples::ToBytes("rounds"));
  ClickRow("lstCourses", 1);
  Click(window, "btnCourseClear");
  EXPECT_EQ(world.boxes.TakeTexts().size(), 1U);
  EXPECT_TRUE(std::filesystem::exists(statistics));
  world.boxes.answers = {true};
  ClickMenuEntry("lstCourses", "menuCourseClearStats");
  EXPECT_TRUE(std::filesystem::exists(statistics)) << "they are another course's";
  world.boxes.answers = {true};
  ClickRow("lstCourses", 1);
  Click(window, "btnCourseClear");
  EXPECT_FALSE(std::filesystem::exists(statistics));
}

TEST_F(ManageFormsTest, WhatAnotherProgramHasChangedIsLoadedBeforeACommandActs) {
  const std::string loaded = "The catalogue was changed by another program. The lists have been loaded again.";
  test::TestProgram other(world.Home());
  ClickRow("lstCourses", 1);
  RegisterCourse(other.state, "{A}", "Aachen", R"(C:\Golf\Links.hlc)");
  world.boxes.answers = {true};
  Click(window, "btnCourseUninstall");
  EXPECT_EQ(world.boxes.TakeTexts(), Texts{loaded}) << "the command is chosen again";
  EXPECT_EQ(List("lstCourses").model()->rowCount(), 3);
  EXPECT_EQ(Selected(state.lstCourses), "moor") << "it has moved down";
  world.boxes.answers = {true};
  Click(window, "btnCourseUninstall");
  EXPECT_EQ(world.boxes.TakeTexts().back(), "moor\r\n\r\nCourse was successfully uninstalled.");
  ClickRow("lstCourses", 1);
  EXPECT_EQ(WhatOpens([this] { Click(window, "btnCourseMove"); }), "frmCourseMove: Move \"Links\" Course");
  EXPECT_TRUE(world.boxes.shown.empty()) << "our own changes are known";

  // A change that comes while a form is open keeps it from writing; the window tells of it when it is back.
  WhatOpens([&] {
    QTimer::singleShot(0, [&] {
      ASSERT_TRUE(DeleteRegistryKey(other.state, LocalMachine, CourseEntryKey(linksKey)));
      auto *dialog = QApplication::activeModalWidget();
      Find<QLineEdit>(*dialog, "txtMedia_0").setText("C:\\typed.bmp");
    });
    Click(window, "btnCourseProperties");
  });
  EXPECT_TRUE(QTest::qWaitFor([this] { return world.boxes.shown.size() == 2; }));
  EXPECT_EQ(world.boxes.TakeTexts(),
            (Texts{"Links\r\n\r\nThis course is no longer installed. Nothing has been saved.", loaded}));
  EXPECT_FALSE(CourseKeyExists(state, linksKey));
  EXPECT_EQ(Selected(state.lstCourses), "Aachen");

  // Also without a command, as soon as the window is the active one again.
  QWidget elsewhere;
  Show(elsewhere);
  ASSERT_TRUE(DeleteRegistryKey(other.state, LocalMachine, CourseEntryKey("{A}")));
  Show(window);
  EXPECT_TRUE(QTest::qWaitFor([this] { return !world.boxes.shown.empty(); }));
  EXPECT_EQ(world.boxes.TakeTexts(), Texts{loaded});
  EXPECT_EQ(List("lstCourses").model()->rowCount(), 0);
}

TEST_F(ManageFormsTest, ATreeThatFailsIsToldAndTheListsStay) {
  test::FaultyRegistry &registry = test::FaultyRegistry::Install(state);
  registry.firstFailing = 1;
  registry.onFailure = [] { throw RuntimeError(ErrorNumber::PathFileAccess); };
  ClickRow("lstCourses", 1);
  world.boxes.answers = {true};
  Click(window, "btnCourseUninstall");
  ASSERT_EQ(world.boxes.shown.size(), 3U);
  EXPECT_EQ(world.boxes.shown[1].text, "Path/File access error");
  EXPECT_EQ(world.boxes.shown[2].text, "Unable to uninstall course.");
  EXPECT_EQ(List("lstCourses").model()->rowCount(), 2);
}

} // namespace turfdesk
