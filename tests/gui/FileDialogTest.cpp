// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "widgets/FileDialog.h"

#include "platform/RuntimeError.h"

#include "common/TestWorld.h"
#include "gui/ModalWatch.h"
#include "samples/Basics.h"

#include <QAbstractItemView>
#include <QFileDialog>
#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

#include <functional>

namespace turfdesk {

namespace {

class FileDialogTest : public testing::Test {
protected:
  FileDialogTest() {
    for (const char *name : {"Photo.Bmp", "loud.WAV", "quiet.mp3", "readme.txt"})
      samples::WriteFile(world.Host(R"(C:\Media\)" + std::string(name)), samples::ToBytes(name));
    owner.show();
  }

  /// What the user chooses who does this in the dialog; "(none)" when he cancels.
  std::string Choose(const FileDialogRequest &request, const std::function<void(QFileDialog &)> &act) {
    const test::ModalWatch<QFileDialog> watch(act);
    return ShowOpenDialog(owner, *world.platform, request).value_or("(none)");
  }
  static QLineEdit &NameBox(QFileDialog &dialog) { return *dialog.findChild<QLineEdit *>("fileNameEdit"); }
  /// Pasted, so that no list of completions comes up and takes the key.
  static void Enter(QFileDialog &dialog, const std::string &name) {
    NameBox(dialog).setText(QString::fromStdString(name));
    QTest::keyClick(&NameBox(dialog), Qt::Key_Return);
  }
  static QStringList Files(const QFileDialog &dialog) {
    const auto &view = *dialog.findChild<QAbstractItemView *>("treeView");
    QStringList names;
    for (int row = 0; row < view.model()->rowCount(view.rootIndex()); ++row)
      names.append(view.model()->index(row, 0, view.rootIndex()).data().toString());
    names.sort();
    return names;
  }

  test::TestWorld world;
  QWidget owner;
  const FileDialogRequest music{"Select Music", R"(C:\Media)", "", ".mp3", "Music (*.wav; *.mp3)|*.wav; *.mp3|"};
};

} // namespace

TEST_F(FileDialogTest, ShowsWhatFitsWithoutRegardToCase) {
  const std::string chosen = Choose(music, [](QFileDialog &dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Select Music");
    EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptOpen);
    EXPECT_FALSE(dialog.testOption(QFileDialog::DontUseNativeDialog));
    EXPECT_EQ(NameBox(dialog).text(), "");
    EXPECT_TRUE(QTest::qWaitFor([&dialog] {
      return Files(dialog) == QStringList{"loud.WAV", "quiet.mp3"};
    })) << Files(dialog).join(' ').toStdString();
    // What desktops get whose dialogs tell case apart.
    EXPECT_EQ(dialog.nameFilters(), QStringList("Music (*.wav; *.mp3) (*.wav *.[wW][aA][vV] *.mp3 *.[mM][pP]3)"));
    Enter(dialog, "loud.WAV");
  });
  EXPECT_EQ(chosen, R"(C:\Media\loud.WAV)");
}

TEST_F(FileDialogTest, AFileIsPreselectedByTheNameThatTheDiskHas) {
  const FileDialogRequest picture{"t", R"(c:\MEDIA\)", "PHOTO.BMP", ".bmp",
                                  "Package (*.hlz)|*.hlz|All Files (*.*)|*.*"};
  // Where the disk does not tell case apart, the name that was asked for is a name of the file, too.
  const std::string name = std::filesystem::exists(world.Host(R"(C:\Media\PHOTO.BMP)")) ? "PHOTO.BMP" : "Photo.Bmp";
  const std::string chosen = Choose(picture, [&name](QFileDialog &dialog) {
    EXPECT_EQ(NameBox(dialog).text().toStdString(), name);
    EXPECT_EQ(dialog.nameFilters().last(), "All Files (*.*) (*)");
    QTest::keyClick(&NameBox(dialog), Qt::Key_Return);
  });
  EXPECT_TRUE(chosen.ends_with("\\" + name)) << chosen;
}

TEST_F(FileDialogTest, ANewNameGetsTheDefaultExtensionUnlessItHasOne) {
  EXPECT_EQ(Choose(music, [](QFileDialog &dialog) { Enter(dialog, "new"); }), R"(C:\Media\new.mp3)");
  EXPECT_EQ(Choose(music, [](QFileDialog &dialog) { Enter(dialog, "new.song"); }), R"(C:\Media\new.song)");
}

TEST_F(FileDialogTest, AWindowsPathCanBeTyped) {
  for (const char *typed : {R"(C:\No such\new.song)", "C:/No such/./new.song"})
    EXPECT_EQ(Choose(music, [typed](QFileDialog &dialog) { Enter(dialog, typed); }), R"(C:\No such\new.song)");
  world.MakeFolder(R"(C:\Golf)");
  const std::string chosen = Choose(music, [](QFileDialog &dialog) {
    Enter(dialog, R"(c:\golf)");
    EXPECT_TRUE(dialog.isVisible()) << "the folder is opened";
    EXPECT_EQ(NameBox(dialog).text(), "") << "where the next name is typed";
    Enter(dialog, "new.mp3");
  });
  EXPECT_EQ(chosen, R"(C:\Golf\new.mp3)");
}

TEST_F(FileDialogTest, CancelChoosesNothing) {
  EXPECT_EQ(Choose(music, [](QFileDialog &dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); }), "(none)");
}

TEST_F(FileDialogTest, InPlaceOfAFolderThatIsGoneItStartsInTheOther) {
  for (const char *folder : {"", R"(C:\Gone)", R"(Q:\)", "no path"}) {
    FileDialogRequest request = music;
    request.initDir = folder;
    request.fileName = "old.mp3";
    request.otherwiseDir = world.MakeFolder(R"(C:\Golf)");
    Choose(request, [folder](QFileDialog &dialog) {
      EXPECT_EQ(dialog.directory().dirName(), "Golf") << folder;
      EXPECT_EQ(NameBox(dialog).text(), "old.mp3") << folder;
      dialog.reject();
    });
  }
}

TEST_F(FileDialogTest, AFileBeyondAllDrivesIsRefused) {
  const test::TempFolder elsewhere;
  if (!std::filesystem::remove(world.Home() / "drives" / "z:"))
    GTEST_SKIP() << "Every file is on a drive here.";
  try {
    Choose(music, [&elsewhere](QFileDialog &dialog) { Enter(dialog, (elsewhere.Path() / "a.mp3").string()); });
    FAIL() << "was chosen";
  } catch (const RuntimeError &error) {
    EXPECT_EQ(error.Number(), ErrorNumber::BadFileName);
  }
}

} // namespace turfdesk
