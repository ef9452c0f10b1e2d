#include <QComboBox>
#include <QCoreApplication>
#include <QDir>
#include <QGuiApplication>
#include <QScreen>

#include "MainWindowFixture.h"

namespace kartova::test {
namespace {

using StartupTest = MainWindowTest;

TEST_F(StartupTest, FirstStartWithEmptySettings) {
  ObservedMainWindow& window = StartWindow();
  EXPECT_TRUE(prompter_.asked.empty());
  EXPECT_EQ(store_->kind(), SettingsStore::kRegistry);
  EXPECT_EQ(ShownTitle(window), "Kartova v1.38");
  EXPECT_EQ(window.size(), QSize(PixelsX(9060), PixelsY(7920)));
  const QRect screen = window.screen()->geometry();
  EXPECT_NEAR(window.x(), (screen.width() - window.width()) / 2, 1);
  EXPECT_NEAR(window.y(), (screen.height() - window.height()) / 2, 1);
  EXPECT_EQ(window.windowState(), Qt::WindowNoState);

  EXPECT_EQ(CheckedItems(), "mnuDayAuto mnuEventZoom mnuLangDe mnuSavePropertyReg mnuScrModeDyn "
                            "mnuScrSpeedNormal mnuShowDirLine mnuStdAutoLoad ");
  EXPECT_FLOAT_EQ(window.view_options().scroll_speed(), 1.0f);
  EXPECT_EQ(window.view_options().zoom(ViewOptions::View::kEvent) * 10 +
                window.view_options().zoom(ViewOptions::View::kMap),
            21);
  EXPECT_EQ(window.state().time_of_day, 8);
  EXPECT_EQ(window.findChild<QComboBox*>("Combo1")->currentIndex(), 0);
  EXPECT_EQ(window.DialogFolder(), QDir::homePath());
  EXPECT_TRUE(window.opened_paths.empty());
  // A start writes nothing but a repaired selector.
  EXPECT_EQ(Registry("WinSizeX"), "<none>");
}

TEST_F(StartupTest, SavedGeometryIsRestoredWithinTheScreen) {
  PresetRegistry("WinSizeX", "9900");
  PresetRegistry("WinSizeY", "8100");
  PresetRegistry("WinPosX", "300");
  PresetRegistry("WinPosY", "-450");
  ObservedMainWindow& window = StartWindow();
  EXPECT_EQ(window.size(), QSize(PixelsX(9900), PixelsY(8100)));
  EXPECT_EQ(window.pos(), QPoint(PixelsX(300), PixelsY(-450)));
}

TEST_F(StartupTest, OversizedSettingsFallBackByTheOldRules) {
  const QScreen* screen = QGuiApplication::primaryScreen();
  const int tall = static_cast<int>((screen->geometry().height() + 100) * 1440.0 /
                                    screen->logicalDotsPerInchY());
  PresetRegistry("WinSizeX", "99999999999999999999");
  PresetRegistry("WinSizeY", std::to_string(tall));
  PresetRegistry("WinPosX", "900000");
  ObservedMainWindow& window = StartWindow();
  // A height that does not fit narrows the window and is kept.
  EXPECT_EQ(window.size(), QSize(PixelsX(7920), PixelsY(tall)));
  EXPECT_NEAR(window.x(), (screen->geometry().width() - window.width()) / 2, 1);
  EXPECT_LT(window.y(), 0);
}

TEST_F(StartupTest, UnreadableSizesEndAtTheMinimum) {
  PresetRegistry("WinSizeX", "abc");
  PresetRegistry("WinSizeY", "-5000");
  PresetRegistry("WindowState", "7");
  ObservedMainWindow& window = StartWindow();
  EXPECT_EQ(window.windowState(), Qt::WindowNoState);
  window.resize(10, 10);
  QCoreApplication::processEvents();
  EXPECT_EQ(TwipsTextX(window.width()), "6495");
  EXPECT_EQ(TwipsTextY(window.height()), "7920");
}

using CloseTest = MainWindowTest;

// Maximised, the normal size is kept and the maximised position written.
TEST_F(CloseTest, ClosingWritesTheGeometryKeys) {
  for (bool maximised : {false, true}) {
    SCOPED_TRACE(maximised);
    ObservedMainWindow& window = StartWindow();
    window.resize(PixelsX(9600), PixelsY(8400));
    window.move(PixelsX(600), PixelsY(750));
    QCoreApplication::processEvents();
    if (maximised) {
      window.showMaximized();
      QCoreApplication::processEvents();
      ASSERT_TRUE(window.isMaximized());
      ASSERT_NE(window.pos(), QPoint(PixelsX(600), PixelsY(750)));
      window.close();
    } else {
      Click("mnuExit");
    }
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(Registry("WindowState"), maximised ? "2" : "0");
    EXPECT_EQ(Registry("WinSizeX"), TwipsTextX(PixelsX(9600)));
    EXPECT_EQ(Registry("WinSizeY"), TwipsTextY(PixelsY(8400)));
    EXPECT_EQ(Registry("WinPosX"), TwipsTextX(maximised ? window.x() : PixelsX(600)));
    EXPECT_EQ(Registry("WinPosY"), TwipsTextY(maximised ? window.y() : PixelsY(750)));
  }
  EXPECT_EQ(Ini("WinSizeX"), "<none>");
}

TEST_F(CloseTest, AStoredMaximisedStateIsRestoredOverTheNormalSize) {
  PresetRegistry("WindowState", "2");
  ObservedMainWindow& window = StartWindow();
  EXPECT_TRUE(window.isMaximized());
  window.close();
  EXPECT_EQ(Registry("WinSizeX"), TwipsTextX(PixelsX(9060)));
}

using SettingsBackEndTest = MainWindowTest;

const QString kAmbiguous = QString::fromUtf8(
    "Nicht eindeutiger Eigenschaften-Pfad. Registry wurde als Standard-Source gesetzt.");
const QString kNextStart =
    QString::fromUtf8("Änderungen werden erst beim nächsten Neustart von Kartova sichtbar.");

TEST_F(SettingsBackEndTest, DisagreeingSelectorsAreRepairedWithAMessage) {
  PresetIni("DefaultPropertyPath", "ini");
  prompter_.ExpectMessage(kAmbiguous);
  StartWindow();
  EXPECT_EQ(prompter_.asked[0].icon, Prompter::Icon::kCritical);
  EXPECT_EQ(prompter_.asked[0].buttons, Prompter::Buttons::kOk);
  EXPECT_EQ(Ini("DefaultPropertyPath") + Registry("DefaultPropertyPath"), "regreg");
  EXPECT_TRUE(Checked("mnuSavePropertyReg") && !Checked("mnuSavePropertyINI"));
}

TEST_F(SettingsBackEndTest, AgreeingIniSelectorReadsAndWritesTheIniFile) {
  PresetIni("DefaultPropertyPath", "INI");
  PresetRegistry("DefaultPropertyPath", "INI");
  PresetIni("ZoomMap", "1");
  ObservedMainWindow& window = StartWindow();
  EXPECT_TRUE(Checked("mnuSavePropertyINI") && !Checked("mnuSavePropertyReg"));
  EXPECT_TRUE(Checked("mnuMapZoom"));
  window.close();
  EXPECT_NE(Ini("WinSizeX"), "<none>");
  EXPECT_EQ(Registry("WinSizeX"), "<none>");
}

TEST_F(SettingsBackEndTest, SwitchingTakesEffectOnlyAtTheNextStart) {
  ObservedMainWindow& window = StartWindow();
  prompter_.ExpectMessage(kNextStart);
  Click("mnuSavePropertyINI");
  EXPECT_TRUE(Checked("mnuSavePropertyINI") && !Checked("mnuSavePropertyReg"));
  EXPECT_EQ(Ini("DefaultPropertyPath") + Registry("DefaultPropertyPath"), "iniini");
  // The registry is still the active kind: its item does nothing now.
  Click("mnuSavePropertyReg");
  EXPECT_EQ(prompter_.asked.size(), 1u);
  window.resize(PixelsX(9900), PixelsY(8100));
  QCoreApplication::processEvents();
  window.close();
  EXPECT_NE(Registry("WinSizeX"), "<none>");
  EXPECT_EQ(Ini("WinSizeX"), "<none>");

  // The next start reads the INI file, where the geometry is missing.
  ObservedMainWindow& next = StartWindow();
  EXPECT_EQ(next.size(), QSize(PixelsX(9060), PixelsY(7920)));
  prompter_.ExpectMessage(kNextStart);
  Click("mnuSavePropertyReg");
  EXPECT_EQ(Ini("DefaultPropertyPath") + Registry("DefaultPropertyPath"), "regreg");
}

// The language follows "Language" at the next start (main() installs the translation before
// the window is built); the item only stores the choice and says so.
TEST_F(SettingsBackEndTest, TheLanguageItemStoresTheChoiceForTheNextStart) {
  PresetRegistry("Language", "fr");
  StartWindow();
  EXPECT_TRUE(Checked("mnuLangDe") && !Checked("mnuLangEn"));
  prompter_.ExpectMessage(QString::fromUtf8(
      "Die Sprache wird beim nächsten Start gewechselt.\nThe language will change at the next start."));
  Click("mnuLangEn");
  EXPECT_TRUE(Checked("mnuLangEn") && !Checked("mnuLangDe"));
  EXPECT_EQ(Registry("Language"), "en");
  Click("mnuLangEn");  // the language chosen already: nothing to say
  EXPECT_EQ(prompter_.asked.size(), 1u);

  StartWindow();
  EXPECT_TRUE(Checked("mnuLangEn") && !Checked("mnuLangDe"));
  prompter_.ExpectMessage({});
  Click("mnuLangDe");
  EXPECT_EQ(Registry("Language"), "de");
}

}  // namespace
}  // namespace kartova::test
