// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "shell/frmAbout.h"

#include "gui/FormsFixture.h"
#include "gui/ModalWatch.h"

#include <QRegularExpression>

#include <functional>

namespace turfdesk {

namespace {

class AboutTest : public test::FormsFixture {
protected:
  AboutTest() { ShowMain(window); }

  /// Opens the box and acts in it; it must be gone afterwards.
  void About(const std::function<void()> &open, const std::function<void(frmAbout &)> &act) {
    int opened = 0;
    const test::ModalWatch<frmAbout> watch([&](frmAbout &about) {
      ++opened;
      act(about);
    });
    open();
    EXPECT_EQ(opened, 1);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  }
  void About(const std::function<void(frmAbout &)> &act) {
    About([this] { Click(window, "btnAbout"); }, act);
  }

  frmTurfManager window{state};
};

} // namespace

TEST_F(AboutTest, SaysWhatTheProgramIs) {
  About([](frmAbout &about) {
    EXPECT_EQ(about.windowTitle(), "About TurfDesk");
    EXPECT_EQ(Caption(about, "lblTitle"), "Turf Desk");
    const QRegularExpression version(R"(^Version \d+\.\d+\.\d+$)");
    EXPECT_TRUE(version.match(Find<QLabel>(about, "lblVersion").text()).hasMatch()) << Caption(about, "lblVersion");
    EXPECT_NE(Caption(about, "lblDescription").find("MIT"), std::string::npos);
    EXPECT_EQ(Caption(about, "lblDisclaimer"), "");
    EXPECT_FALSE(Find<QLabel>(about, "picIcon").pixmap().isNull());
    Click(about, "cmdOK");
  });
}

TEST_F(AboutTest, OpensAndClosesByKeys) {
  const auto press = [this] { QTest::keyClick(&Find<QPushButton>(window, "btnAbout"), Qt::Key_Space); };
  About(press, [](frmAbout &about) { QTest::keyClick(&about, Qt::Key_Escape); });
  About(press, [](frmAbout &about) { QTest::keyClick(&about, Qt::Key_Return); });
  About(press, [](frmAbout &about) { about.close(); });
  EXPECT_TRUE(world.boxes.shown.empty());
}

TEST_F(AboutTest, SystemInfoIsToldToBeMissingAndTheBoxStays) {
  const std::vector<std::string> message = {"System Information Is Unavailable At This Time"};
  // Wine has such a tool.
  RegistryChange forget;
  forget.kind = RegistryChange::Kind::DeleteKey;
  for (const char *key : {R"(SOFTWARE\Microsoft\Shared Tools\MSINFO)", R"(SOFTWARE\Microsoft\Shared Tools Location)"}) {
    forget.keyPath = key;
    world.platform->Branches().Apply({&forget, 1});
  }
  About([&](frmAbout &about) {
    QTest::keyClick(&about, Qt::Key_S, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !world.boxes.shown.empty(); }));
    EXPECT_EQ(world.boxes.TakeTexts(), message);
    Click(about, "cmdSysInfo");
    EXPECT_EQ(world.boxes.TakeTexts(), message);
    EXPECT_TRUE(about.isVisible());
    Click(about, "cmdOK");
  });
}

} // namespace turfdesk
