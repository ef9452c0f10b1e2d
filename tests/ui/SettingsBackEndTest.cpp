#include <QCoreApplication>

#include "MainWindowFixture.h"

namespace kartova::test {
namespace {

const QString kAmbiguous = QString::fromUtf8(
    "Nicht eindeutiger Eigenschaften-Pfad. Registry wurde als Standard-Source gesetzt.");
const QString kNextStart =
    QString::fromUtf8("Änderungen werden erst beim nächsten Neustart von Kartova sichtbar.");

using SettingsBackEndTest = MainWindowTest;

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

}  // namespace
}  // namespace kartova::test
