// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "conversion/dlgInvalidDir.h"
#include "conversion/dlgWaitConvert.h"
#include "conversion/frmCourseConvert.h"
#include "shell/Main.h"
#include "widgets/DirectoryList.h"
#include "widgets/DriveList.h"
#include "widgets/FileList.h"
#include "widgets/QtScreen.h"

#include "common/UnreadyDrive.h"
#include "gui/FormsFixture.h"
#include "gui/ModalWatch.h"
#include "samples/OldCourses.h"
#include "samples/WorldBuilder.h"

#include <QPointer>
#include <QTimer>

#include <functional>
#include <optional>

namespace turfdesk {

namespace {

using namespace std::chrono_literals;

const std::string OldCourses = R"(C:\Old Courses)";

/// The main window of a game with converters and old courses, over a screen that really repaints.
class ConvertFormsTest : public test::FormsFixture {
protected:
  ConvertFormsTest() {
    samples::WorldBuilder builder(world.Home());
    builder.AddGame();
    builder.CopyConverters(SAMPLE_CONVERTERS);
    builder.WriteCatalogue();
    samples::WriteOldCourse(world.Host(OldCourses) / "Elm", {"Elm", 800ms});
    if (!Main(live, ""))
      throw std::runtime_error("the services could not be created");
    window = std::make_unique<frmTurfManager>(live);
    ShowMain(*window);
  }

  std::vector<frmCourseConvert *> Forms() const {
    std::vector<frmCourseConvert *> forms;
    for (auto *form : window->findChildren<frmCourseConvert *>())
      if (form->isVisible())
        forms.push_back(form);
    return forms;
  }

  frmCourseConvert &Open() {
    Click(*window, "btnConvert");
    const auto forms = Forms();
    if (forms.size() != 1 || !QTest::qWaitForWindowActive(forms[0]))
      throw std::runtime_error("there is not one form");
    return *forms[0];
  }

  frmCourseConvert &OpenOnCourse() {
    frmCourseConvert &form = Open();
    Find<DirectoryList>(form, "dirSource").SetPath(OldCourses + R"(\Elm)");
    return form;
  }

  using Act = std::function<void(dlgWaitConvert &)>;

  /// Presses Convert, and does one thing after the other while the converter is at work. In between no events are
  /// served but those that the program itself serves.
  void ConvertWhile(frmCourseConvert &form, const std::vector<Act> &acts) {
    std::size_t acted = 0;
    QTimer timer;
    timer.callOnTimeout([&] {
      auto &wait = *form.findChild<dlgWaitConvert *>();
      if (wait.isVisible() && acted < acts.size())
        acts[acted++](wait);
    });
    timer.start(100);
    Click(form, "btnConvert");
    EXPECT_EQ(acted, acts.size());
  }

  std::string Drive(QWidget &form) { return Find<DriveList>(form, "driveSource").Drive(); }
  std::string Folder(QWidget &form) { return Find<DirectoryList>(form, "dirSource").Path(); }

  QtScreen screen;
  SharedState live{*world.platform, world.boxes, screen};
  std::unique_ptr<frmTurfManager> window;
};

/// Counts the paintings of a widget.
class Paintings final : public QObject {
public:
  explicit Paintings(QWidget &widget) { widget.installEventFilter(this); }
  bool eventFilter(QObject *, QEvent *event) override {
    count += event->type() == QEvent::Paint ? 1 : 0;
    return false;
  }
  int count = 0;
};

} // namespace

TEST_F(ConvertFormsTest, OneFormStandsBesideTheMainWindow) {
  frmCourseConvert &form = Open();
  EXPECT_EQ(form.windowTitle(), "MF2001 Layout Converter");
  EXPECT_FALSE(form.isModal());
  EXPECT_EQ(Drive(form) + "|" + Folder(form), "C:|" + OldCourses);
  EXPECT_EQ(NamesOfControls(form),
            (QStringList{"Source drive", "Source directory", "Course files", "Convert--->", "Close"}));
  EXPECT_EQ(Find<QPushButton>(form, "btnConvert").text(), "Convert--->");
  EXPECT_TRUE(Find<QPushButton>(form, "btnClose").isDefault());
  const std::string text = Caption(form, "Label1");
  EXPECT_NE(text.find("convert and install." + std::string(119, ' ') + "WARNING: This"), std::string::npos) << text;
  EXPECT_TRUE(text.ends_with("dependion upon the speed of your computer."));
  EXPECT_FALSE(Find<FileList>(form, "fileSource").isVisible());

  Click(*window, "btnRefresh");
  auto &button = Find<QPushButton>(*window, "btnConvert");
  window->activateWindow();
  button.setFocus();
  QTest::keyClick(&button, Qt::Key_Space);
  EXPECT_EQ(Forms(), std::vector{&form});
  EXPECT_TRUE(QTest::qWaitForWindowActive(&form)) << "the second press brings it to the front";
}

TEST_F(ConvertFormsTest, KeysAndButtonCloseItForGood) {
  const std::function<void(frmCourseConvert &)> ways[] = {
      [](frmCourseConvert &form) { QTest::keyClick(&form, Qt::Key_Escape); },
      [](frmCourseConvert &form) { QTest::keyClick(&Find<DriveList>(form, "driveSource"), Qt::Key_Return); },
      [](frmCourseConvert &form) { Click(form, "btnClose"); }, [](frmCourseConvert &form) { form.close(); }};
  for (const auto &way : ways) {
    const QPointer form(&OpenOnCourse());
    way(*form);
    ASSERT_TRUE(QTest::qWaitFor([&form] { return form == nullptr; }));
    EXPECT_EQ(Folder(Open()), OldCourses) << "a new form starts anew";
    Click(*Forms()[0], "btnClose");
  }
  EXPECT_TRUE(world.boxes.shown.empty());
}

TEST_F(ConvertFormsTest, WithoutItsStartFolderItOpensWhereListsStart) {
  std::filesystem::rename(world.Host(OldCourses), world.Host(R"(C:\Elsewhere)"));
  EXPECT_EQ(Folder(Open()), world.platform->Folders().StartFolder());
  EXPECT_TRUE(world.boxes.shown.empty());
}

TEST_F(ConvertFormsTest, AFolderWithoutCourseFilesLeavesTheFormForAnotherTry) {
  frmCourseConvert &form = Open();
  auto &button = Find<QPushButton>(form, "btnConvert");
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
    int shown = 0;
    const test::ModalWatch<dlgInvalidDir> watch([&shown, key](dlgInvalidDir &dialog) {
      ++shown;
      EXPECT_EQ(dialog.windowTitle(), "Invalid Directory");
      EXPECT_EQ(Caption(dialog, "Label1"), "This directory does not contain a course that can be converted." +
                                               std::string(27, ' ') + "Please select a valid directory.");
      EXPECT_TRUE(Find<QPushButton>(dialog, "OKButton").isDefault());
      QTest::keyClick(&dialog, key);
    });
    button.setFocus();
    QTest::keyClick(&button, Qt::Key_Return);
    EXPECT_EQ(shown, 1);
    EXPECT_TRUE(form.isVisible());
  }
  EXPECT_FALSE(std::filesystem::exists(world.Host(R"(C:\Games\Marrowfell 2002\Bin\LayoutConverter.exe.arguments)")));
  EXPECT_TRUE(world.boxes.shown.empty());

  auto &folders = Find<DirectoryList>(form, "dirSource");
  folders.setFocus();
  QTest::keyClick(&folders, Qt::Key_Down);
  QTest::keyClick(&folders, Qt::Key_Return);
  EXPECT_EQ(Folder(form), OldCourses + R"(\Elm)");
  Click(form, "btnConvert");
  EXPECT_EQ(world.boxes.TakeTexts(), std::vector<std::string>{"The course was converted successfully."});
  EXPECT_EQ(Find<RowListWidget>(*window, "lstCourses").model()->index(0, 0).data().toString(), "Elm");
}

TEST_F(ConvertFormsTest, FilesThatComeLaterCount) {
  frmCourseConvert &form = Open();
  samples::WriteOldCourse(world.Host(OldCourses), {"Oak", 0ms});
  const test::ModalWatch<dlgInvalidDir> watch([](dlgInvalidDir &dialog) { dialog.close(); });
  Click(form, "btnConvert");
  EXPECT_EQ(world.boxes.TakeTexts(), std::vector<std::string>{"The course was converted successfully."});
}

TEST_F(ConvertFormsTest, TheWaitIsPaintedAndTheConverterStartedOnce) {
  const QPointer form(&OpenOnCourse());
  std::optional<Paintings> inWait;
  std::optional<Paintings> inMain;
  const Act look = [&](dlgWaitConvert &wait) {
    EXPECT_EQ(wait.windowTitle(), "Course Converting...");
    EXPECT_EQ(Caption(wait, "Label1"), "Please wait while your course is being converted...");
    EXPECT_FALSE(wait.windowFlags().testFlag(Qt::WindowCloseButtonHint));
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    Find<QPushButton>(*form, "btnConvert").click();
    inWait.emplace(wait);
    inMain.emplace(*window);
    wait.update();
    window->update();
  };
  const Act lookAgain = [&](dlgWaitConvert &) {
    EXPECT_GE(inWait->count, 1);
    EXPECT_GE(inMain->count, 1);
  };
  ConvertWhile(*form, {look, lookAgain});
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
  ASSERT_EQ(world.boxes.shown.size(), 1U) << "the second press during the wait did nothing";
  EXPECT_TRUE(Forms().empty());
  EXPECT_TRUE(QTest::qWaitFor([&form] { return form == nullptr; }));
}

TEST_F(ConvertFormsTest, NothingTheUserDoesClosesTheWait) {
  dlgWaitConvert wait(window.get());
  Show(wait);
  QTest::keyClick(&wait, Qt::Key_Escape);
  QTest::keyClick(&wait, Qt::Key_Return);
  wait.close();
  EXPECT_TRUE(wait.isVisible());
}

TEST_F(ConvertFormsTest, InputDuringTheWaitIsLost) {
  frmCourseConvert &form = OpenOnCourse();
  const Act press = [&](dlgWaitConvert &) {
    auto &button = Find<QPushButton>(*window, "btnRefresh");
    const QSignalSpy pressed(&button, &QPushButton::pressed);
    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::keyClick(&button, Qt::Key_Space);
    window->close();
    form.close();
    EXPECT_TRUE(pressed.isEmpty());
    EXPECT_TRUE(window->isVisible() && form.isVisible());
  };
  ConvertWhile(form, {press});
  EXPECT_EQ(world.boxes.TakeTexts(), std::vector<std::string>{"The course was converted successfully."});
  Click(*window, "btnConvert");
  EXPECT_EQ(Forms().size(), 1U) << "afterwards input acts again";
}

TEST_F(ConvertFormsTest, WhatGoesWrongIsToldAndTheFormStays) {
  const test::UnreadyDrive unready(world.Home());
  frmCourseConvert &form = OpenOnCourse();
  auto &drive = Find<DriveList>(form, "driveSource");
  drive.setFocus();
  QTest::keyClick(&drive, Qt::Key_A);
  EXPECT_EQ(world.boxes.TakeTexts(), std::vector<std::string>{"Disk not ready"});
  EXPECT_EQ(Drive(form) + "|" + Folder(form), "C:|" + OldCourses + R"(\Elm)");

  const std::string converter = R"(C:\Games\Marrowfell 2002\Bin\LayoutConverter.exe)";
  std::filesystem::remove(world.Host(converter));
  Click(form, "btnConvert");
  EXPECT_EQ(world.boxes.TakeTexts(),
            std::vector{"Unable to start the converter.\r\n\r\n" + converter + "\r\n\r\nFile not found"});

  std::filesystem::remove_all(world.Host(OldCourses));
  Click(form, "btnConvert");
  EXPECT_EQ(world.boxes.TakeTexts(), std::vector<std::string>{"frmCourseConvert.btnConvert_Click(): Path not found"});
  EXPECT_TRUE(form.isVisible());
}

TEST_F(ConvertFormsTest, TheQuillonButtonTellsOfAMissingConverter) {
  const std::string converter = R"(C:\Games\Marrowfell 2002\Bin\QuillonConverter.exe)";
  std::filesystem::remove(world.Host(converter));
  Click(*window, "btnConvertQuillon");
  EXPECT_EQ(world.boxes.TakeTexts(),
            std::vector{"Unable to start the converter.\r\n\r\n" + converter + "\r\n\r\nFile not found"});
}

TEST_F(ConvertFormsTest, TheFormDoesNotKeepTheProgramAlive) {
  Open();
  QTimer close;
  close.callOnTimeout([this] { window->close(); });
  close.start(0);
  QTimer patience;
  patience.callOnTimeout([] { QApplication::exit(1); });
  patience.start(5000);
  EXPECT_EQ(QApplication::exec(), 0);
}

} // namespace turfdesk
