// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "packaging/dlgUncheckedLibs.h"
#include "packaging/frmCourseCompress.h"
#include "packaging/frmStatusCompress.h"
#include "support/basVorinRegistry.h"

#include "gui/FormsFixture.h"
#include "gui/ModalWatch.h"
#include "samples/GameFiles.h"

#include <QAction>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>

#include <functional>

namespace turfdesk {

namespace {

using Texts = std::vector<std::string>;

const std::string Package = R"(C:\Golf\Old Elm.hlz)";

/// The main window with three courses: Bare has nothing, Old Elm two libraries and media, Twice names a library twice.
class PackFormsTest : public test::FormsFixture {
protected:
  PackFormsTest() {
    const samples::LibrarySpec grass{.name = "Grass"};
    const samples::LibrarySpec trees{.name = "Trees"};
    AddLibrary(grass);
    AddLibrary(trees);
    AddCourse({.name = "Bare"});
    AddCourse({.name = "Twice", .libraries = {grass, grass}});
    const samples::CourseSpec elm{.name = "Old Elm", .libraries = {grass, trees}};
    AddCourse(elm);
    AddMedia(elm, "Picture", "Elm.bmp");
    AddMedia(elm, "Music", "Elm.wav");
    AddMedia(elm, "AVI", "Elm.avi");
    AddMedia(elm, "Text", "Elm.txt");
    ShowMain(window);
    state.lstCourses.Select(&state.lstCourses.At(1));
  }

  void AddLibrary(const samples::LibrarySpec &library) {
    const std::string path = R"(C:\Golf\)" + library.name + ".hlb";
    samples::WriteLibrary(world.Host(path), library);
    RegisterLibrary(state, samples::KeyOf(library), library.name, path);
  }
  void AddCourse(const samples::CourseSpec &course) {
    const std::string path = R"(C:\Golf\)" + course.name + ".hlc";
    samples::WriteCourse(world.Host(path), course);
    RegisterCourse(state, samples::KeyOf(course), course.name, path);
  }
  void AddMedia(const samples::CourseSpec &course, const char *value, const std::string &name) {
    samples::WriteFile(world.Host(R"(C:\Golf\)" + name), samples::ToBytes(name));
    SetRegistryValue(state, LocalMachine, CourseEntryKey(samples::KeyOf(course)), value, R"(C:\Golf\)" + name);
  }

  /// Presses the button of the main window and acts in the dialog, which must be gone afterwards.
  void Compress(const std::function<void(frmCourseCompress &)> &act) {
    OpenBy([this] { Click(window, "btnCourseCompress"); }, act);
  }
  static void OpenBy(const std::function<void()> &way, const std::function<void(frmCourseCompress &)> &act) {
    int opened = 0;
    const test::ModalWatch<frmCourseCompress> watch([&](frmCourseCompress &dialog) {
      ++opened;
      act(dialog);
    });
    way();
    EXPECT_EQ(opened, 1);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  }
  /// Accepts the dialog, and closes the status window when it has its verdict, which is given back. Notes the windows
  /// that are visible while the package is written.
  std::string Write(const std::function<void()> &accept, const std::function<void(frmStatusCompress &)> &look = {}) {
    std::string verdict;
    world.screen.onEvents = [this] {
      QCoreApplication::processEvents();
      if (dynamic_cast<frmStatusCompress *>(QApplication::activeModalWidget()) != nullptr)
        NoteWindows();
    };
    const test::ModalWatch<frmStatusCompress> watch(
        [&](frmStatusCompress &status) {
          EXPECT_EQ(status.windowTitle(), "Compressing");
          verdict = Caption(status, "lblStatus_0") + "|" + Caption(status, "lblStatus_1");
          if (look)
            look(status);
          Click(status, "btnClose");
        },
        [](frmStatusCompress &status) { return Find<QPushButton>(status, "btnClose").isVisible(); });
    accept();
    // A key that stands for a button presses it a moment later.
    EXPECT_TRUE(QTest::qWaitFor([&verdict] { return !verdict.empty(); }));
    return verdict;
  }
  void NoteWindows() {
    windows.clear();
    for (const QWidget *shown : QApplication::topLevelWidgets())
      if (shown->isVisible())
        windows.append(shown->objectName());
    windows.sort();
  }
  /// Answers the dialog about libraries left out.
  static void AnswerUnchecked(QWidget &dialog, const std::function<void(dlgUncheckedLibs &)> &answer) {
    int asked = 0;
    const test::ModalWatch<dlgUncheckedLibs> watch([&](dlgUncheckedLibs &question) {
      ++asked;
      EXPECT_EQ(question.windowTitle(), "Required Libraries not Included");
      answer(question);
    });
    Click(dialog, "btnCompress");
    EXPECT_EQ(asked, 1);
  }

  static std::string Text(QWidget &dialog, const char *box) {
    return Find<QLineEdit>(dialog, box).text().toStdString();
  }
  static RowListWidget &Libraries(QWidget &dialog) { return Find<RowListWidget>(dialog, "lstLibraries"); }
  static bool IsChecked(RowListWidget &list, int row) {
    return list.model()->index(row, 0).data(Qt::CheckStateRole) == Qt::Checked;
  }
  static void ClickCheckBox(RowListWidget &list, int row) {
    const QRect place = list.visualRect(list.model()->index(row, 0));
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, {place.left() + place.height() / 2, place.center().y()});
  }
  Texts Packed() {
    Texts names;
    const auto zip = world.platform->CreateZipLayer();
    zip->ZipFilename = Package;
    zip->FilesToProcess = "*.*";
    zip->ListingFile = [&names](const std::string &name) { names.push_back(name); };
    zip->ListZipContents();
    return names;
  }
  bool Exists(const std::string &path) const { return std::filesystem::exists(world.Host(path)); }

  frmTurfManager window{state};
  QStringList windows;
};

const std::string Success = "|Course files have been successfully compressed.";

} // namespace

TEST_F(PackFormsTest, TheDialogShowsWhatGoesIntoThePackage) {
  Compress([](frmCourseCompress &dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Compress \"Old Elm\"");
    EXPECT_EQ(Text(dialog, "txtFilename"), Package);
    EXPECT_EQ(Text(dialog, "txtCourse"), R"(C:\Golf\Old Elm.hlc)");
    EXPECT_EQ(Text(dialog, "txtMedia_0"), R"(C:\Golf\Elm.bmp)");
    EXPECT_EQ(Text(dialog, "txtMedia_1"), R"(C:\Golf\Elm.wav)");
    EXPECT_EQ(Text(dialog, "txtMedia_2"), "") << "the video does not go in";
    EXPECT_EQ(Text(dialog, "txtMedia_3"), R"(C:\Golf\Elm.txt)");
    EXPECT_FALSE(Find<QLineEdit>(dialog, "txtMedia_2").isVisible());
    RowListWidget &list = Libraries(dialog);
    EXPECT_EQ(list.model()->index(1, 0).data().toString(), "Trees");
    EXPECT_EQ(list.model()->index(1, 1).data().toString(), R"(C:\Golf\Trees.hlb)");
    EXPECT_TRUE(IsChecked(list, 0) && IsChecked(list, 1));
    EXPECT_EQ(NamesOfControls(dialog).join('|').toStdString(),
              "Compress Filename|Course Filename|Course Picture|Course Music|Course Video|Course Text|"
              "Select Course Package|Libraries to compress|OK|Cancel");
    QTest::keyClicks(&Find<QLineEdit>(dialog, "txtCourse"), "locked");
    EXPECT_EQ(Text(dialog, "txtCourse"), R"(C:\Golf\Old Elm.hlc)");
    dialog.close();
    EXPECT_TRUE(dialog.isVisible()) << "it has no close box";
    QTest::keyClick(&dialog, Qt::Key_C, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&dialog] { return !dialog.isVisible(); }));
  });
  EXPECT_FALSE(Exists(Package));
}

TEST_F(PackFormsTest, OpensByButtonMenuAndKeyboard) {
  auto &courses = Find<RowListWidget>(window, "lstCourses");
  const auto escape = [](frmCourseCompress &dialog) {
    EXPECT_EQ(Text(dialog, "txtFilename"), Package);
    QTest::keyClick(&dialog, Qt::Key_Escape);
  };
  const auto menu = [] { return dynamic_cast<QMenu *>(QApplication::activePopupWidget()); };
  OpenBy([&] { QTest::keyClick(&Find<QPushButton>(window, "btnCourseCompress"), Qt::Key_Space); }, escape);
  OpenBy(
      [&] {
        QTest::mouseClick(courses.viewport(), Qt::RightButton, {}, Middle(courses, 1));
        const QRect entry = menu()->actionGeometry(&Find<QAction>(window, "menuCourseCompress"));
        QTest::mouseClick(menu(), Qt::LeftButton, {}, entry.center());
      },
      escape);
  OpenBy(
      [&] {
        courses.setFocus();
        QTest::keyClick(&courses, Qt::Key_Menu);
        for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Return})
          QTest::keyClick(menu(), key);
      },
      escape);
}

TEST_F(PackFormsTest, WithoutACourseThatCanBePackedThereIsNoDialog) {
  state.lstCourses.Select(&state.lstCourses.At(2));
  Click(window, "btnCourseCompress");
  EXPECT_EQ(world.boxes.TakeTexts(),
            Texts{"frmTurfManager.btnCourseCompress_Click(): Key is not unique in collection"});
  state.noCompressCourses = {state.lstCourses.At(2).Tag()};
  Click(window, "btnCourseCompress");
  EXPECT_EQ(world.boxes.TakeTexts(), Texts{"This course can not be compressed."});
  state.lstCourses.Select(nullptr);
  Click(window, "btnCourseCompress");
  EXPECT_EQ(world.boxes.TakeTexts(), Texts{"No course or library has been selected."});
  state.lstCourses.Clear();
  Click(window, "btnCourseCompress");
  EXPECT_EQ(world.boxes.TakeTexts(), Texts{"No courses installed."});
}

TEST_F(PackFormsTest, WithAllLibrariesTheDialogIsHiddenWhileThePackageIsWrittenAndGoneThen) {
  Compress([this](frmCourseCompress &dialog) {
    Libraries(dialog).setFocus(Qt::TabFocusReason);
    const std::string verdict = Write([&dialog] { QTest::keyClick(&Libraries(dialog), Qt::Key_Return); },
                                      [this](frmStatusCompress &status) {
                                        std::filesystem::remove(world.Host(Package));
                                        status.hide();
                                        status.show();
                                        QTest::qWait(50);
                                        EXPECT_FALSE(Exists(Package)) << "one window writes one package";
                                      });
    EXPECT_EQ(verdict, Success);
    EXPECT_FALSE(dialog.isVisible());
  });
  EXPECT_EQ(windows, (QStringList{"frmStatusCompress", "frmTurfManager"}));
  EXPECT_TRUE(world.boxes.shown.empty());
}

TEST_F(PackFormsTest, ACourseWithoutLibrariesHasNoCheckBoxesAndIsWrittenAtOnce) {
  state.lstCourses.Select(&state.lstCourses.At(0));
  Compress([this](frmCourseCompress &dialog) {
    EXPECT_EQ(Libraries(dialog).model()->rowCount(), 0);
    EXPECT_EQ(Text(dialog, "txtMedia_0") + Text(dialog, "txtMedia_1") + Text(dialog, "txtMedia_3"), "");
    EXPECT_EQ(Write([&dialog] { QTest::keyClick(&dialog, Qt::Key_O, Qt::AltModifier); }), Success);
  });
  EXPECT_TRUE(Exists(R"(C:\Golf\Bare.hlz)"));
}

TEST_F(PackFormsTest, NoLeavesTheDialogAndWritesNothing) {
  Compress([](frmCourseCompress &dialog) {
    ClickCheckBox(Libraries(dialog), 1);
    const std::function<void(dlgUncheckedLibs &)> refusals[] = {
        [](dlgUncheckedLibs &question) {
          EXPECT_TRUE(Caption(question, "txtLibUnchecked").starts_with("Libraries necessary for this course to run"));
          EXPECT_EQ(question.focusWidget(), &Find<QPushButton>(question, "No"));
          QTest::keyClick(&question, Qt::Key_Return);
        },
        [](dlgUncheckedLibs &question) { Click(question, "No"); },
        [](dlgUncheckedLibs &question) { QTest::keyClick(&question, Qt::Key_Escape); },
        [](dlgUncheckedLibs &question) { question.close(); },
    };
    for (const auto &refuse : refusals) {
      AnswerUnchecked(dialog, refuse);
      EXPECT_EQ(QApplication::activeModalWidget(), &dialog);
      EXPECT_FALSE(IsChecked(Libraries(dialog), 1));
    }
    Click(dialog, "btnClose");
  });
  EXPECT_FALSE(Exists(Package));
}

TEST_F(PackFormsTest, YesWritesBehindTheDialogWhichCanThenBeAcceptedAgain) {
  const auto yes = [](dlgUncheckedLibs &question) {
    QTest::keyClick(&question, Qt::Key_Tab);
    EXPECT_EQ(question.focusWidget(), &Find<QPushButton>(question, "Yes"));
    QTest::keyClick(question.focusWidget(), Qt::Key_Space);
  };
  Compress([&](frmCourseCompress &dialog) {
    ClickCheckBox(Libraries(dialog), 0);
    EXPECT_EQ(Write([&] { AnswerUnchecked(dialog, yes); }), Success);
    EXPECT_EQ(windows, (QStringList{"frmCourseCompress", "frmStatusCompress", "frmTurfManager"}));
    EXPECT_EQ(Packed(), (Texts{"Old Elm.hlc", "Elm.bmp", "Elm.wav", "Elm.txt", "Trees.hlb"}));
    EXPECT_EQ(QApplication::activeModalWidget(), &dialog);
    EXPECT_EQ(Text(dialog, "txtFilename"), Package);
    EXPECT_FALSE(IsChecked(Libraries(dialog), 0));

    ClickCheckBox(Libraries(dialog), 1);
    world.boxes.answers = {true};
    EXPECT_EQ(Write([&] { AnswerUnchecked(dialog, yes); }), Success);
    EXPECT_EQ(world.boxes.TakeTexts(), Texts{Package + "\r\n\r\nFile already exists. Do you wish to replace?"});
    EXPECT_EQ(Packed(), (Texts{"Old Elm.hlc", "Elm.bmp", "Elm.wav", "Elm.txt"}));
    EXPECT_EQ(Write([&] { AnswerUnchecked(dialog, yes); }), "|Error compressing course files.") << "not to be replaced";
    Click(dialog, "btnClose");
  });
}

TEST_F(PackFormsTest, ALibraryThatMayNotBePackedStaysUnchecked) {
  state.noCompressLibraries = {state.lstLibraries.At(1).Tag()};
  const Texts message = {"This library can not be compressed."};
  Compress([&](frmCourseCompress &dialog) {
    EXPECT_EQ(world.boxes.TakeTexts(), message) << "before the dialog shows";
    RowListWidget &list = Libraries(dialog);
    EXPECT_FALSE(IsChecked(list, 1));
    ClickCheckBox(list, 1);
    EXPECT_EQ(world.boxes.TakeTexts(), message);
    EXPECT_FALSE(IsChecked(list, 1));
    QTest::keyClick(&list, Qt::Key_Space);
    EXPECT_EQ(world.boxes.TakeTexts(), message);
    EXPECT_FALSE(IsChecked(list, 1));
    ClickCheckBox(list, 0);
    EXPECT_FALSE(IsChecked(list, 0));
    EXPECT_TRUE(world.boxes.shown.empty());
    Click(dialog, "btnClose");
  });
}

TEST_F(PackFormsTest, TheFileDialogNamesThePackage) {
  const auto choose = [](QWidget &dialog, const std::function<void(QFileDialog &)> &act) {
    const test::ModalWatch<QFileDialog> watch(act);
    Click(dialog, "btnFilename");
  };
  Compress([&](frmCourseCompress &dialog) {
    choose(dialog, [](QFileDialog &files) {
      EXPECT_EQ(files.windowTitle(), "Select Course Package");
      EXPECT_EQ(files.nameFilters().size(), 2);
      EXPECT_EQ(files.findChild<QLineEdit *>("fileNameEdit")->text(), "Old Elm.hlz");
      QTest::keyClick(&files, Qt::Key_Escape);
    });
    EXPECT_EQ(Text(dialog, "txtFilename"), Package);
    choose(dialog, [](QFileDialog &files) {
      auto &name = *files.findChild<QLineEdit *>("fileNameEdit");
      name.setText("other");
      QTest::keyClick(&name, Qt::Key_Return);
    });
    EXPECT_EQ(Text(dialog, "txtFilename"), R"(C:\Golf\other.hlz)");
    EXPECT_EQ(Write([&dialog] { Click(dialog, "btnCompress"); }), Success);
  });
  EXPECT_TRUE(Exists(R"(C:\Golf\other.hlz)"));
}

TEST_F(PackFormsTest, ATypedPathMayBeOneOfTheHost) {
  Compress([this](frmCourseCompress &dialog) {
    auto &name = Find<QLineEdit>(dialog, "txtFilename");
    name.selectAll();
    QTest::keyClicks(&name, QString::fromStdString(world.Host(R"(C:\Golf\typed)").string()));
    EXPECT_EQ(Write([&name] { QTest::keyClick(&name, Qt::Key_Return); }), Success);
  });
  EXPECT_TRUE(Exists(R"(C:\Golf\typed)"));
}

} // namespace turfdesk
