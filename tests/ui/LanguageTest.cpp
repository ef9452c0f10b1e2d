// The ui in German (the editor's own texts, unchanged) and in English (the translation), chosen
// from the settings at start-up.

#include <QAction>
#include <QCoreApplication>
#include <QGroupBox>
#include <QLabel>
#include <QTabBar>

#include "MainWindowFixture.h"
#include "rom/RuntimeError.h"
#include "ui/CoreTexts.h"
#include "ui/HandlerBoundary.h"
#include "ui/Language.h"
#include "ui/MainMenu.h"

namespace kartova::test {
namespace {

class LanguageTest : public MainWindowTest {
 protected:
  ~LanguageTest() override {
    window_.reset();
    InstallLanguage(UiLanguage::kGerman);
  }

  std::string MenuText(const char* item) const { return window_->menu().Item(item)->text().toStdString(); }
  std::string Tab(int index) const { return window_->tab_strip()->tabText(index).toStdString(); }
  std::string Group(const char* name) const {
    return window_->findChild<QGroupBox*>(QString::fromLatin1(name))->title().toStdString();
  }
  std::string Tip(const char* name) const {
    return window_->findChild<QWidget*>(QString::fromLatin1(name))->toolTip().toStdString();
  }
  // Qt's own caption of a Yes button in the language installed.
  static std::string QtYes() { return QCoreApplication::translate("QPlatformTheme", "&Yes").toStdString(); }
};

TEST_F(LanguageTest, TheSettingChoosesTheLanguageAndGermanIsTheDefault) {
  EXPECT_EQ(LanguageSetting(*store_), UiLanguage::kGerman);
  PresetRegistry("Language", "en");
  EXPECT_EQ(LanguageSetting(*store_), UiLanguage::kEnglish);
  PresetRegistry("Language", "fr");
  EXPECT_EQ(LanguageSetting(*store_), UiLanguage::kGerman);
  // The INI file decides when it is the store chosen at start-up.
  PresetRegistry("DefaultPropertyPath", "ini");
  PresetIni("DefaultPropertyPath", "ini");
  PresetIni("Language", "en");
  EXPECT_EQ(LanguageSetting(*store_), UiLanguage::kEnglish);
}

TEST_F(LanguageTest, GermanKeepsTheEditorsOwnTextsAndGetsQtsGermanButtons) {
  InstallLanguage(UiLanguage::kGerman);
  StartEditor();
  EXPECT_EQ(MenuText("mnuLoad"), "&Load Rom ...");
  EXPECT_EQ(MenuText("mnuEdit"), "&Bearbeiten");
  EXPECT_EQ(MenuText("mnuDay1"), "Mid-day");
  EXPECT_EQ(Tab(0), " Map ");
  EXPECT_EQ(Tab(3), " Mapheader ");
  EXPECT_EQ(Group("PrimaryHeaderFrame"), "Primary Mapheader");
  EXPECT_EQ(CoreText("Ziel-Warp:").toStdString(), "Ziel-Warp:");
  EXPECT_EQ(RuntimeErrorText(RuntimeError::SubscriptOutOfRange()).toStdString(),
            "Laufzeitfehler '9': Index außerhalb des gültigen Bereichs");
  EXPECT_EQ(Tip("HCombo(0)").substr(0, 25), "Primärer Header, Byte 1\n");
  EXPECT_EQ(QtYes(), "&Ja");
}

TEST_F(LanguageTest, EnglishTranslatesMenusLabelsTipsAndMessagesAndGoesBack) {
  InstallLanguage(UiLanguage::kEnglish);
  EXPECT_EQ(CurrentLanguage(), UiLanguage::kEnglish);
  StartEditor();
  EXPECT_EQ(MenuText("mnuLoad"), "&Open ROM…");
  EXPECT_EQ(MenuText("mnuEdit"), "&Edit");
  EXPECT_EQ(MenuText("mnuDay1"), "Day");
  EXPECT_EQ(Tab(3), " Map header ");
  EXPECT_EQ(Group("PrimaryHeaderFrame"), "Primary map header");
  EXPECT_EQ(CoreText("Ziel-Warp:").toStdString(), "Target warp:");
  EXPECT_EQ(RuntimeErrorText(RuntimeError::SubscriptOutOfRange()).toStdString(),
            "Run-time error '9': Subscript out of range");
  EXPECT_EQ(Tip("HCombo(0)").substr(0, 23), "Primary header, byte 1\n");
  EXPECT_EQ(QtYes(), "&Yes");
  RuntimeError error = RuntimeError::Overflow();
  error.AddContext({ErrorActivity::kReadingLocationNames, "/roms/rand.gbc", 0x92384});
  EXPECT_EQ(RuntimeErrorDetail(error).toStdString(),
            "While reading the location names from rand.gbc, table at 0x092384\nFile: /roms/rand.gbc");
  const std::string missing = dir_.File("missing.gbc");
  prompter_.ExpectOpenFile(QString::fromStdString(missing));
  prompter_.ExpectMessage(QString::fromStdString("File not found: " + missing));
  Click("mnuLoad");

  window_.reset();
  InstallLanguage(UiLanguage::kGerman);
  StartEditor();
  EXPECT_EQ(MenuText("mnuLoad"), "&Load Rom ...");
  EXPECT_EQ(Group("PrimaryHeaderFrame"), "Primary Mapheader");
}

}  // namespace
}  // namespace kartova::test
