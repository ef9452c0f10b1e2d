#include <QApplication>
#include <QLabel>
#include <QTest>
#include <QTimer>

#include "MainWindowFixture.h"
#include "ui/AboutWindow.h"

namespace kartova::test {
namespace {

TEST(AboutWindowTest, BorderlessModalLinksOpenWithoutClosingAndTheSurfaceClosesOnAClick) {
  ScriptedPrompter prompter;
  AboutWindow about(prompter);
  EXPECT_TRUE(about.windowFlags() & Qt::FramelessWindowHint);
  EXPECT_TRUE(about.isModal());
  about.show();
  QTest::mouseClick(about.findChild<QLabel*>("Label5"), Qt::LeftButton);
  auto* link = about.findChild<QLabel*>("Links(1)");
  QTest::mouseClick(link, Qt::LeftButton);
  QTest::mouseClick(link, Qt::RightButton);
  ASSERT_EQ(prompter.documents.size(), 2u);
  EXPECT_EQ(prompter.documents[0], "mailto:" + about.mail_address());
  EXPECT_TRUE(about.mail_address().contains('@'));
  EXPECT_EQ(prompter.documents[1], "http://" + link->text());
  EXPECT_TRUE(about.isVisible());
  QTest::mouseClick(about.findChild<QWidget*>("Deko"), Qt::RightButton);
  EXPECT_TRUE(about.isVisible());
  QTest::mouseClick(about.findChild<QWidget*>("Frame(2)"), Qt::LeftButton);
  EXPECT_FALSE(about.isVisible());
}

TEST(AboutWindowTest, LeftDragMovesTheWindowRightDoesNot) {
  ScriptedPrompter prompter;
  AboutWindow about(prompter);
  about.move(100, 100);
  about.show();
  QWidget* label = about.findChild<QWidget*>("Label(2)");
  const QPoint start = label->rect().center();
  const QPoint end = start + QPoint(40, 30);
  for (const Qt::MouseButton button : {Qt::RightButton, Qt::LeftButton}) {
    QTest::mousePress(label, button, {}, start);
    QTest::mouseMove(label, end);
    QTest::mouseRelease(label, button, {}, end);
  }
  EXPECT_EQ(about.pos(), QPoint(140, 130));
  // A drag is no click: the window stays.
  EXPECT_TRUE(about.isVisible());
}

using AboutMenuTest = MainWindowTest;

TEST_F(AboutMenuTest, TheHelpMenuShowsTheWindowModally) {
  StartWindow();
  bool seen = false;
  QTimer::singleShot(0, [&] {
    auto* about = qobject_cast<AboutWindow*>(QApplication::activeModalWidget());
    ASSERT_NE(about, nullptr);
    seen = true;
    QTest::mouseClick(about->findChild<QLabel*>("Links(0)"), Qt::LeftButton);
    QTest::mouseClick(about->findChild<QWidget*>("Label(0)"), Qt::LeftButton);
  });
  Click("mnuAbout");
  EXPECT_TRUE(seen);
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  ASSERT_EQ(prompter_.documents.size(), 1u);
  EXPECT_TRUE(prompter_.documents[0].startsWith("http://"));
}

}  // namespace
}  // namespace kartova::test
