// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "catalogue/CatalogueRows.h"
#include "catalogue/LoadLists.h"
#include "manage/frmCourseProperties.h"
#include "manage/frmLibraryProperties.h"
#include "platform/RuntimeError.h"
#include "widgets/NameList.h"
#include "widgets/PathBox.h"

#include "gui/ManageFixture.h"
#include "gui/ModalWatch.h"

#include <QFileDialog>

#include <functional>

namespace turfdesk {

namespace {

using test::Texts;

class PropertiesFormsTest : public test::ManageFixture {
protected:
  Texts SavedMedia() {
    return {GetCoursePicture(state, linksKey), GetCourseMusic(state, linksKey), GetCourseText(state, linksKey)};
  }
  /// Opens the properties of Links by its button, and gives the window to the user.
  void InCourseProperties(const std::function<void(frmCourseProperties &)> &act) {
    ClickRow("lstCourses", 0);
    const test::ModalWatch<frmCourseProperties> watch(act);
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
};

const Texts Before = {R"(C:\Media\links.bmp)", "", ""};

} // namespace

TEST_F(PropertiesFormsTest, CoursePropertiesShowTheRow) {
  InCourseProperties([](frmCourseProperties &dialog) {
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

TEST_F(PropertiesFormsTest, OpeningAndClosingWritesNothing) {
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

TEST_F(PropertiesFormsTest, ATypedPathIsSavedHoweverTheWindowCloses) {
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

TEST_F(PropertiesFormsTest, AChangeIsNoticedWhenTheFocusLeavesTheBoxAndStays) {
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

TEST_F(PropertiesFormsTest, AnotherWindowAndTheMenuOfABoxDoNotTakeTheFocusFromIt) {
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

TEST_F(PropertiesFormsTest, AFileChosenInTheDialogIsSavedAlsoWhenItIsTheSame) {
  SetMedia("Text", "written by somebody else");
  InCourseProperties([](frmCourseProperties &dialog) {
    {
      const test::ModalWatch<QFileDialog> cancel([](QFileDialog &files) {
        EXPECT_EQ(files.windowTitle(), "Select Picture");
        EXPECT_EQ(files.directory().dirName(), "Media");
        EXPECT_TRUE(files.nameFilters().first().startsWith("Pictures (*.bmp; *.tga; *.dds)"));
        EXPECT_EQ(Find<QLineEdit>(files, "fileNameEdit").text(), "links.bmp");
        QTest::keyClick(&files, Qt::Key_Escape);
      });
      Click(dialog, "btnMedia_0");
    }
    dialog.close();
  });
  EXPECT_EQ(SavedMedia()[2], "written by somebody else") << "Cancel is no change";

  InCourseProperties([](frmCourseProperties &dialog) {
    const test::ModalWatch<QFileDialog> accept(
        [](QFileDialog &files) { QTest::keyClick(&Find<QLineEdit>(files, "fileNameEdit"), Qt::Key_Return); });
    Find<QPushButton>(dialog, "btnMedia_0").setFocus();
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    EXPECT_TRUE(dialog.isVisible()) << "Enter pressed the button that has the focus";
    QTest::keyClick(&dialog, Qt::Key_Escape);
  });
  EXPECT_EQ(SavedMedia(), Before);

  InCourseProperties([](frmCourseProperties &dialog) {
    const test::ModalWatch<QFileDialog> choose([](QFileDialog &files) {
      Find<QLineEdit>(files, "fileNameEdit").setText("new");
      QTest::keyClick(&Find<QLineEdit>(files, "fileNameEdit"), Qt::Key_Return);
    });
    Click(dialog, "btnMedia_0");
    EXPECT_EQ(Find<PathBox>(dialog, "txtMedia_0").Path(), R"(C:\Media\new.bmp)") << "the row does not come back";
    dialog.close();
  });
  EXPECT_EQ(SavedMedia()[0], R"(C:\Media\new.bmp)");
  EXPECT_TRUE(world.boxes.shown.empty());
}

TEST_F(PropertiesFormsTest, APathOfTheHostCanBeTypedAndAnEmptyBoxStartsBesideTheCourse) {
  const std::string music = world.Host(R"(C:\Media\dune.mp3)").string();
  InCourseProperties([&music](frmCourseProperties &dialog) {
    const test::ModalWatch<QFileDialog> look([](QFileDialog &files) {
      EXPECT_EQ(files.directory().dirName(), "Golf");
      files.reject();
    });
    Click(dialog, "btnMedia_1");
    Type(dialog, "txtMedia_1", music.c_str());
    Type(dialog, "txtMedia_3", "no path");
    dialog.close();
  });
  EXPECT_EQ(SavedMedia(), (Texts{Before[0], R"(C:\Media\dune.mp3)", "no path"}));
}

TEST_F(PropertiesFormsTest, AReloadBehindThePropertiesLosesNothing) {
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

TEST_F(PropertiesFormsTest, APathThatCannotBeSavedIsToldAndTheOthersAre) {
  test::FaultyRegistry &registry = test::FaultyRegistry::Install(state);
  registry.failingValue = "Music";
  const auto typeAndClose = [](frmCourseProperties &dialog) {
    Type(dialog, "txtMedia_1", "m");
    Type(dialog, "txtMedia_3", "t");
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
  };
  InCourseProperties(typeAndClose);
  EXPECT_EQ(world.boxes.TakeTexts(), Texts{"Unable to save music settings.\r\n\r\nAccess is denied."});
  EXPECT_EQ(SavedMedia(), (Texts{Before[0], "", "t"}));

  registry.onFailure = [] { throw RuntimeError(ErrorNumber::PathFileAccess); };
  InCourseProperties(typeAndClose);
  EXPECT_EQ(world.boxes.TakeTexts(), Texts{"frmCourseProperties.Save(): Path/File access error"});
}

TEST_F(PropertiesFormsTest, LibraryPropertiesShowTheCoursesThatUseIt) {
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

} // namespace turfdesk
