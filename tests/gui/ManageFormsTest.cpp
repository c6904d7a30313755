// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "catalogue/CatalogueRows.h"
#include "catalogue/LoadLists.h"
#include "manage/frmCourseProperties.h"
#include "manage/frmLibraryProperties.h"
#include "platform/RuntimeError.h"
#include "support/basVorinRegistry.h"
#include "widgets/AviAnimation.h"
#include "widgets/DirectoryList.h"
#include "widgets/DriveList.h"
#include "widgets/NameList.h"
#include "widgets/PathBox.h"
#include "widgets/StatusDialog.h"

#include "gui/FormsFixture.h"
#include "gui/ModalWatch.h"
#include "samples/GameFiles.h"

#include <QFileDialog>
#include <QMenu>

#include <functional>

namespace turfdesk {

namespace {

using Texts = std::vector<std::string>;

class ManageFormsTest : public test::FormsFixture {
protected:
  // Links uses all three libraries, of which walls is not catalogued; Moor shares water with it.
  ManageFormsTest() {
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
  Texts SavedMedia() {
    return {GetCoursePicture(state, linksKey), GetCourseMusic(state, linksKey), GetCourseText(state, linksKey)};
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
  /// Opens the properties of Links by its button, and gives the window to the user.
  void InCourseProperties(const std::function<void(frmCourseProperties &)> &act) {
    ClickRow("lstCourses", 0);
    const test::ModalWatch<frmCourseProperties> watch(act, test::IsActive);
    Click(window, "btnCourseProperties");
  }
  static void Type(QWidget &dialog, const char *box, const char *text) {
    auto &control = Find<PathBox>(dialog, box);
    control.setFocus(Qt::TabFocusReason);
    QTest::keyClicks(&control, text);
  }
  static void Tab(QWidget &dialog) { QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab); }
  static Texts Names(NameList &list) {
    Texts names;
    for (int row = 0; row < list.count(); ++row)
      names.push_back(list.item(row)->text().toStdString());
    return names;
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

  const samples::LibrarySpec grass{.name = "grass"};
  const samples::LibrarySpec walls{.name = "Walls"};
  const samples::LibrarySpec water{.name = "Water"};
  const samples::CourseSpec links{.name = "Links", .libraries = {water, walls, grass}};
  const samples::CourseSpec moor{.name = "moor", .libraries = {water}};
  const std::string linksKey = samples::KeyOf(links);
  const std::string moorKey = samples::KeyOf(moor);
  frmTurfManager window{state};
};

const std::string Nothing = "No course or library has been selected.";
const Texts Before = {R"(C:\Media\links.bmp)", "", ""};

} // namespace

TEST_F(ManageFormsTest, WindowsOpenByButtonMenuDoubleClickAndKey) {
  const std::string course = "frmCourseProperties: \"Links\" Course Properties";
  const std::string library = "frmLibraryProperties: \"grass\" Library Properties";
  ClickRow("lstCourses", 0);
  EXPECT_EQ(WhatOpens([this] { Click(window, "btnCourseProperties"); }), course);
  EXPECT_EQ(WhatOpens([this] { ClickMenuEntry("lstCourses", "menuCourseProperties"); }), course);
  EXPECT_EQ(WhatOpens([this] { QTest::keyClick(&List("lstCourses"), Qt::Key_Return); }), course);
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

TEST_F(ManageFormsTest, CoursePropertiesShowTheRow) {
  InCourseProperties([this](frmCourseProperties &dialog) {
    EXPECT_EQ(Find<PathBox>(dialog, "txtFilename").Path(), R"(C:\Golf\Links.hlc)");
    EXPECT_TRUE(Find<PathBox>(dialog, "txtFilename").isReadOnly() && Find<PathBox>(dialog, "txtSize").isReadOnly());
    EXPECT_EQ(Find<PathBox>(dialog, "txtSize").text(), "4 KB");
    EXPECT_EQ(Find<PathBox>(dialog, "txtMedia_0").Path(), Before[0]);
    EXPECT_EQ(Find<PathBox>(dialog, "txtMedia_3").Path(), "");
    EXPECT_EQ(Names(Find<NameList>(dialog, "lstLibraries")), (Texts{"", "grass", "Water"}));
    EXPECT_EQ(NamesOfControls(dialog),
              (QStringList{"Filename", "Size", "Libraries", "Course Picture", "Select Picture", "Course Music",
                           "Select Music", "Course Text", "Select Text", "Close"}));
    EXPECT_TRUE(Find<QPushButton>(dialog, "btnClose").isDefault());
    QTest::keyClick(&dialog, Qt::Key_Return);
    EXPECT_FALSE(dialog.isVisible());
  });
}

TEST_F(ManageFormsTest, OpeningAndClosingWritesNothing) {
  test::FaultyRegistry &registry = test::FaultyRegistry::Install(state);
  InCourseProperties([](frmCourseProperties &dialog) {
    for (int i = 0; i < 12; ++i)
      Tab(dialog);
    Click(dialog, "btnClose");
  });
  InCourseProperties([](frmCourseProperties &dialog) {
    Type(dialog, "txtMedia_1", "x");
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Backspace);
    QTest::keyClick(&dialog, Qt::Key_Escape);
  });
  EXPECT_EQ(registry.changes, 0) << "a change that was taken back in the box is none";
}

TEST_F(ManageFormsTest, ATypedPathIsSavedHoweverTheWindowCloses) {
  const std::vector<std::function<void(QDialog &)>> closings = {
      [](QDialog &dialog) { Click(dialog, "btnClose"); },
      [](QDialog &dialog) { QTest::keyClick(dialog.focusWidget(), Qt::Key_Return); },
      [](QDialog &dialog) { QTest::keyClick(dialog.focusWidget(), Qt::Key_Escape); },
      [](QDialog &dialog) { dialog.close(); },
      [](QDialog &dialog) {
        Tab(dialog);
        Click(dialog, "btnClose");
      },
  };
  for (std::size_t i = 0; i < closings.size(); ++i) {
    SetMedia("Music", "");
    LoadCourses(state);
    InCourseProperties([&closings, i](frmCourseProperties &dialog) {
      Type(dialog, "txtMedia_1", R"(C:\No such\dune.mp3)");
      closings[i](dialog);
      EXPECT_FALSE(dialog.isVisible()) << i;
    });
    EXPECT_EQ(SavedMedia(), (Texts{Before[0], R"(C:\No such\dune.mp3)", ""})) << i;
    EXPECT_EQ(state.lstCourses.FindKey(linksKey)->SubItems(column::Music), R"(C:\No such\dune.mp3)") << i;
    EXPECT_EQ(GetCourseVideo(state, linksKey), R"(C:\Media\links.avi)");
  }
  EXPECT_TRUE(world.boxes.shown.empty());
}

TEST_F(ManageFormsTest, AChangeIsNoticedWhenTheFocusLeavesTheBoxAndStays) {
  SetMedia("Text", "written by somebody else");
  InCourseProperties([](frmCourseProperties &dialog) {
    Type(dialog, "txtMedia_1", "x");
    Tab(dialog);
    Type(dialog, "txtMedia_1", "");
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Backspace);
    Click(dialog, "btnClose");
  });
  EXPECT_EQ(SavedMedia(), Before) << "all three are written, the changed one and the others";
}

TEST_F(ManageFormsTest, AnotherWindowAndTheMenuOfABoxDoNotTakeTheFocusFromIt) {
  test::FaultyRegistry &registry = test::FaultyRegistry::Install(state);
  InCourseProperties([](frmCourseProperties &dialog) {
    Type(dialog, "txtMedia_1", "x");
    for (const Qt::FocusReason reason : {Qt::PopupFocusReason, Qt::ActiveWindowFocusReason}) {
      QFocusEvent leave(QEvent::FocusOut, reason);
      QCoreApplication::sendEvent(dialog.focusWidget(), &leave);
      QFocusEvent come(QEvent::FocusIn, reason);
      QCoreApplication::sendEvent(dialog.focusWidget(), &come);
    }
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Backspace);
    QTest::keyClick(&dialog, Qt::Key_Escape);
  });
  EXPECT_EQ(registry.changes, 0);
}

TEST_F(ManageFormsTest, AFileChosenInTheDialogIsSavedAlsoWhenItIsTheSame) {
  SetMedia("Text", "written by somebody else");
  InCourseProperties([this](frmCourseProperties &dialog) {
    {
      const test::ModalWatch<QFileDialog> cancel(
          [](QFileDialog &files) {
            EXPECT_EQ(files.windowTitle(), "Select Picture");
            EXPECT_TRUE(files.nameFilters().first().startsWith("Pictures (*.bmp; *.tga; *.dds)"));
            EXPECT_EQ(Find<QLineEdit>(files, "fileNameEdit").text(), "links.bmp");
            QTest::keyClick(&files, Qt::Key_Escape);
          },
          test::IsActive);
      Click(dialog, "btnMedia_0");
    }
    dialog.close();
  });
  EXPECT_EQ(SavedMedia()[2], "written by somebody else") << "Cancel is no change";

  InCourseProperties([this](frmCourseProperties &dialog) {
    const test::ModalWatch<QFileDialog> accept(
        [](QFileDialog &files) { QTest::keyClick(&Find<QLineEdit>(files, "fileNameEdit"), Qt::Key_Return); },
        test::IsActive);
    Find<QPushButton>(dialog, "btnMedia_0").setFocus();
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    EXPECT_TRUE(dialog.isVisible()) << "Enter pressed the button that has the focus";
    QTest::keyClick(&dialog, Qt::Key_Escape);
  });
  EXPECT_EQ(SavedMedia(), Before);

  InCourseProperties([this](frmCourseProperties &dialog) {
    const test::ModalWatch<QFileDialog> choose(
        [](QFileDialog &files) {
          Find<QLineEdit>(files, "fileNameEdit").setText("new");
          QTest::keyClick(&Find<QLineEdit>(files, "fileNameEdit"), Qt::Key_Return);
        },
        test::IsActive);
    Click(dialog, "btnMedia_0");
    EXPECT_EQ(Find<PathBox>(dialog, "txtMedia_0").Path(), R"(C:\Media\new.bmp)") << "the row does not come back";
    dialog.close();
  });
  EXPECT_EQ(SavedMedia()[0], R"(C:\Media\new.bmp)");
  EXPECT_TRUE(world.boxes.shown.empty());
}

TEST_F(ManageFormsTest, AReloadBehindThePropertiesLosesNothing) {
  InCourseProperties([this](frmCourseProperties &dialog) {
    Type(dialog, "txtMedia_1", R"(C:\a.mp3)");
    LoadCourses(state);
    dialog.close();
  });
  EXPECT_EQ(state.lstCourses.FindKey(linksKey)->SubItems(column::Music), R"(C:\a.mp3)");

  InCourseProperties([this](frmCourseProperties &dialog) {
    Type(dialog, "txtMedia_1", R"(C:\b.mp3)");
    state.lstCourses.RemoveByKey(linksKey);
    dialog.close();
    EXPECT_FALSE(dialog.isVisible());
  });
  EXPECT_EQ(world.boxes.TakeTexts(),
            Texts{"frmCourseProperties.Save(): Object variable or With block variable not set"});
  EXPECT_EQ(SavedMedia()[1], R"(C:\a.mp3)");
}

TEST_F(ManageFormsTest, APathThatCannotBeSavedIsToldAndTheOthersAre) {
  test::FaultyRegistry::Install(state).failingValue = "Music";
  InCourseProperties([](frmCourseProperties &dialog) {
    Type(dialog, "txtMedia_1", "m");
    Type(dialog, "txtMedia_3", "t");
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
  });
  EXPECT_EQ(world.boxes.TakeTexts(), Texts{"Unable to save music settings.\r\n\r\nAccess is denied."});
  EXPECT_EQ(SavedMedia(), (Texts{Before[0], "", "t"}));
}

TEST_F(ManageFormsTest, ARunTimeErrorIsShownOnceUnderTheLabelOfItsCommand) {
  test::FaultyRegistry &registry = test::FaultyRegistry::Install(state);
  registry.firstFailing = 1;
  registry.onFailure = [] { throw RuntimeError(ErrorNumber::PathFileAccess); };
  InCourseProperties([](frmCourseProperties &dialog) {
    Type(dialog, "txtMedia_1", "m");
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
  });
  EXPECT_EQ(world.boxes.TakeTexts(), Texts{"frmCourseProperties.Save(): Path/File access error"});
  ClickRow("lstCourses", 1);
  world.boxes.answers = {true};
  Click(window, "btnCourseUninstall");
  ASSERT_EQ(world.boxes.shown.size(), 2U);
  EXPECT_EQ(world.boxes.shown[1].text, "frmTurfManager.btnCourseUninstall_Click(): Path/File access error");
  EXPECT_EQ(List("lstCourses").model()->rowCount(), 2);
}

TEST_F(ManageFormsTest, LibraryPropertiesShowTheCoursesThatUseIt) {
  const auto users = [this](int row) {
    Texts names;
    ClickRow("lstLibraries", row);
    const test::ModalWatch<frmLibraryProperties> watch([&names](frmLibraryProperties &dialog) {
      names = Names(Find<NameList>(dialog, "lstCourses"));
      names.push_back(Find<PathBox>(dialog, "txtFilename").Path() + ", " +
                      Find<PathBox>(dialog, "txtSize").text().toStdString());
      QTest::keyClick(&dialog, Qt::Key_Return);
    });
    Click(window, "btnCourseProperties");
    return names;
  };
  EXPECT_EQ(users(1), (Texts{"Links", "moor", R"(C:\Golf\Water.hlb, 4 KB)"}));
  EXPECT_EQ(users(0), (Texts{"Links", R"(C:\Golf\grass.hlb, 4 KB)"}));
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
  EXPECT_EQ(SavedMedia()[0], R"(C:\Golf\Old\links.bmp)");
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
  std::filesystem::create_symlink(world.Home() / "nowhere", world.Home() / "drives" / "a:");
  ClickRow("lstCourses", 1);
  const test::ModalWatch<QDialog> watch(
      [this](QDialog &dialog) {
        auto &drive = Find<DriveList>(dialog, "driveDestination");
        EXPECT_EQ(dialog.focusWidget(), &drive);
        QTest::keyClick(&drive, Qt::Key_A);
        EXPECT_EQ(world.boxes.TakeTexts(), Texts{"Disk not ready"});
        EXPECT_EQ(drive.Drive() + Find<DirectoryList>(dialog, "dirDestination").Path(), R"(A:C:\Golf)");
        EXPECT_TRUE(Find<QPushButton>(dialog, "btnMove").isDefault());
        EXPECT_EQ(NamesOfControls(dialog), (QStringList{"Destination drive", "Destination directory", "OK", "Cancel"}));
        QTest::keyClick(&dialog, Qt::Key_C, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&dialog] { return !dialog.isVisible(); }));
      },
      test::IsActive);
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

  Click(window, "btnCourseUninstall");
  EXPECT_EQ(world.boxes.TakeTexts(), Texts{Nothing}) << "the row took the selection along";
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

} // namespace turfdesk
