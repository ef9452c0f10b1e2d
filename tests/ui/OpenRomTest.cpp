#include <QAbstractItemView>
#include <QDir>
#include <QFontMetrics>
#include <QLabel>
#include <QTabBar>
#include <QTest>
#include <filesystem>
#include <tuple>

#include "EditorFixture.h"
#include "demo/DemoRom.h"
#include "rom/HexText.h"
#include "ui/HeaderPage.h"
#include "ui/IndexedPictureBox.h"
#include "ui/MapPage.h"
#include "ui/MapView.h"
#include "ui/MapSelector.h"

namespace kartova::test {
namespace {

QStringList Items(const QComboBox* combo) {
  QStringList items;
  for (int i = 0; i < combo->count(); ++i) items << combo->itemText(i);
  return items;
}

using OpenRomTest = EditorTest;

TEST_F(OpenRomTest, CancellingTheDialogChangesNothing) {
  MainWindow& window = StartEditor();
  prompter_.ExpectOpenFile(std::nullopt);
  Click("mnuLoad");
  ASSERT_EQ(prompter_.asked.size(), 1u);
  EXPECT_EQ(prompter_.asked[0].text, QString::fromUtf8("Rom Öffnen"));
  EXPECT_EQ(prompter_.asked[0].start_dir, QDir::homePath());
  EXPECT_EQ(prompter_.asked[0].filters.join("|").toStdString(),
            "Alle Gameboy-Roms (*.gb*)|Backup-Dateien (*.bak *.old)|Alle Dateien (*.*)");
  EXPECT_TRUE(window.rom_path().isEmpty());
  EXPECT_EQ(ShownTitle(window), "Kartova v1.38");
  // The empty map page says how to open a ROM.
  const QLabel* hint = window.map_page()->empty_hint();
  EXPECT_TRUE(hint->isVisible());
  EXPECT_TRUE(hint->text().startsWith(QString::fromUtf8("Keine ROM geöffnet.\nÜber File → Load Rom ...")));
  EXPECT_EQ(hint->geometry(), window.map_page()->map_view()->picture()->rect());
  EXPECT_FALSE(Enabled("mnuSaveAs") || Enabled("mnuReload"));
  EXPECT_EQ(Combo("Combo3")->count(), 0);
}

TEST_F(OpenRomTest, OpeningSelectsBankOneAndLoadsItsFirstMap) {
  MainWindow& window = OpenEditorWith(WriteDemoRom());
  EXPECT_EQ(ShownTitle(window), "Kartova v1.38 - demo.gbc");
  EXPECT_FALSE(window.map_page()->empty_hint()->isVisible());
  EXPECT_EQ(Combo("Combo2")->count(), 26);
  EXPECT_EQ(Combo("Combo2")->currentText(), "Mapbank 1");
  EXPECT_EQ(Items(Combo("Combo3")).join("|"),
            QString::fromUtf8("Mühlental - 1.1|Weg 11 - 1.2|Weg 12 - 1.3|Weißensee - 1.4|"
                              "Mühlental - 1.5|Mühlental - 1.6"));
  EXPECT_EQ(Combo("Combo3")->currentIndex(), 0);
  EXPECT_EQ(Document().SelectedBank(), 0);
  EXPECT_EQ(Document().SelectedMap(), 0);
  EXPECT_EQ(steps_, (std::vector<MapLoadStep>{MapLoadStep::kHeaderPage, MapLoadStep::kTileset,
                                              MapLoadStep::kEvents, MapLoadStep::kEventControls,
                                              MapLoadStep::kMapBuilt}));
  // Names from the definition and the ROM, not bare codes.
  EXPECT_EQ(HeaderCombo(0)->currentText(), QString::fromUtf8("00 - Außenwelt"));
  EXPECT_EQ(HeaderCombo(2)->currentText(), QString::fromUtf8("00 - Mühlental"));
  EXPECT_EQ(HeaderCombo(2)->count(), 95);
  // The drop-down lists are as wide as their longest entry.
  EXPECT_GE(HeaderCombo(0)->view()->minimumWidth(),
            QFontMetrics(window.font()).horizontalAdvance(QString::fromUtf8("01 - Außenwelt (Kopie)")));
  EXPECT_EQ(window.state().view_lock, 0);
  EXPECT_EQ(window.state().rom_loading, 0);
  // Every file command is offered but the standard file, which there is none of; nothing is
  // edited yet, so there is nothing to undo.
  EXPECT_EQ(EnabledAmong({"mnuSave", "mnuReload", "mnuStdSet", "mnuSaveFull", "mnuSaveAs", "mnuMapExp",
                          "mnuMapImp", "mnuStdLoad", "mnuUndo", "mnuRedo"}),
            "mnuSave mnuReload mnuStdSet mnuSaveFull mnuSaveAs mnuMapExp mnuMapImp ");
}

TEST_F(OpenRomTest, AReadOnlyRomCannotBeSavedInPlace) {
  const std::string rom = WriteDemoRom();
  std::filesystem::permissions(rom, std::filesystem::perms::owner_read | std::filesystem::perms::group_read);
  OpenEditorWith(rom);
  EXPECT_FALSE(Enabled("mnuSave"));
  EXPECT_TRUE(Enabled("mnuReload"));
  EXPECT_EQ(Combo("Combo3")->currentIndex(), 0);
}

// The standard file opens at startup; a command line ROM opens after it, and a missing one is
// reported and not created.
TEST_F(OpenRomTest, TheStandardFileOpensAtStartupAndTheCommandLineRomAfterIt) {
  const std::string standard = WriteDemoRom("standard.gbc");
  PresetIni("StdFile", standard);
  StartEditor();
  EXPECT_EQ(ShownTitle(*window_), "Kartova v1.38 - standard.gbc (Standard)");
  EXPECT_EQ(EnabledAmong({"mnuStdSet", "mnuStdLoad", "mnuStdClear"}), "mnuStdClear ");

  const std::string missing = dir_.File("fehlt.gbc");
  prompter_.ExpectMessage(QString::fromStdString("Datei nicht gefunden: " + missing));
  StartEditor(QString::fromStdString(missing));
  EXPECT_EQ(prompter_.asked.back().icon, Prompter::Icon::kCritical);
  EXPECT_FALSE(std::filesystem::exists(missing));
  EXPECT_EQ(Document().RomPath(), standard);
  EXPECT_EQ(ShownTitle(*window_), "Kartova v1.38 - standard.gbc (Standard)");

  WriteDemoRom("demo.gbc");
  const QString cwd = QDir::currentPath();
  QDir::setCurrent(QString::fromStdString(dir_.path().string()));
  StartEditor(QStringLiteral("demo.gbc"));
  QDir::setCurrent(cwd);
  EXPECT_EQ(window_->rom_path().toStdString(), dir_.File("demo.gbc"));
  EXPECT_EQ(ShownTitle(*window_), "Kartova v1.38 - demo.gbc");
  EXPECT_EQ(EnabledAmong({"mnuStdSet", "mnuStdLoad", "mnuStdClear"}), "mnuStdSet mnuStdLoad mnuStdClear ");
  EXPECT_EQ(Combo("Combo3")->currentIndex(), 0);
}

// The open checks and their texts are the document's; here the window shows them and keeps the
// previous ROM with the map chosen in it.
TEST_F(OpenRomTest, AFailedOpenIsReportedAndThePreviousRomStays) {
  AddDefinitions("[42524F4B454E" + std::string(20, '0') + "]\nHeaderLengthA=31\n");  // "BROKEN"
  const std::string demo = WriteDemoRom();
  MainWindow& window = OpenEditorWith(demo);
  ClickMap(2);
  const std::string missing = dir_.File("fehlt.gbc"), folder = dir_.File("ordner.gbc");
  std::filesystem::create_directory(folder);
  const std::string broken = WriteRom("broken.gbc", RomBuilder().Title("BROKEN").Build());
  using Icon = Prompter::Icon;
  const std::tuple<std::string, QString, Icon> cases[] = {
      {missing, QString::fromStdString("Datei nicht gefunden: " + missing), Icon::kCritical},
      {folder, QString::fromStdString("Ist ein Verzeichnis: " + folder), Icon::kCritical},
      {broken, SubscriptMessage(), Icon::kNone},  // its definition cannot be read
  };
  for (const auto& [path, message, icon] : cases) {
    SCOPED_TRACE(path);
    steps_.clear();
    prompter_.ExpectOpenFile(QString::fromStdString(path));
    prompter_.ExpectMessage(message);
    Click("mnuLoad");
    EXPECT_EQ(prompter_.asked.back().icon, icon);
    EXPECT_EQ(window.rom_path().toStdString(), demo);
    EXPECT_EQ(Document().RomPath(), demo);
    EXPECT_EQ(Document().HeaderLength(), 9);
    EXPECT_EQ(ShownTitle(window), "Kartova v1.38 - demo.gbc");
    EXPECT_EQ(Combo("Combo3")->count(), 6);
    EXPECT_EQ(Combo("Combo3")->currentIndex(), 2);
    EXPECT_EQ(Document().SelectedMap(), 2);
    EXPECT_TRUE(steps_.empty());
  }
  EXPECT_FALSE(std::filesystem::exists(missing));
}

using ReloadTest = EditorTest;

TEST_F(ReloadTest, MapScopeRereadsTheDefinitionAndKeepsBankAndMap) {
  MainWindow& window = OpenEditorWith(WriteDemoRom());
  ClickBank(1);
  ClickMap(1);
  store_->WriteIni("DemoTilesets", "00", "Wiese");
  steps_.clear();
  Click("mnuReloadMap");
  EXPECT_EQ(Combo("Combo2")->currentIndex(), 1);
  EXPECT_EQ(Combo("Combo3")->currentIndex(), 1);
  EXPECT_EQ(Combo("Combo3")->currentText(), "Weg 13 - 2.2");
  EXPECT_EQ(HeaderCombo(0)->itemText(0), "00 - Wiese");
  // The headers page is refreshed, the events are not read again.
  EXPECT_EQ(steps_, (std::vector<MapLoadStep>{MapLoadStep::kHeaderPage, MapLoadStep::kTileset,
                                              MapLoadStep::kEventControls, MapLoadStep::kMapBuilt}));
  EXPECT_EQ(window.state().reload_scope, 0);
}

TEST_F(ReloadTest, ADefinitionBrokenMeanwhileKeepsTheRomCurrent) {
  MainWindow& window = OpenEditorWith(WriteDemoRom());
  OpenThroughDialog(WriteDemoRom("zweite.gbc"));
  store_->WriteIni(DemoDefinitionSection(), "HeaderLengthA", "31");
  prompter_.ExpectMessage(SubscriptMessage());
  Click("mnuReloadFull");
  EXPECT_EQ(window.rom_path().toStdString(), dir_.File("zweite.gbc"));
  EXPECT_EQ(Document().RomPath(), dir_.File("zweite.gbc"));
  EXPECT_EQ(window.state().reload_scope, 0);
}

TEST_F(ReloadTest, AVanishedFileIsReported) {
  const std::string rom = WriteDemoRom();
  MainWindow& window = OpenEditorWith(rom);
  std::filesystem::remove(rom);
  prompter_.ExpectMessage("Keine Datei geladen.");
  Click("mnuReloadEvents");
  EXPECT_EQ(window.state().reload_scope, 0);
  EXPECT_EQ(Combo("Combo3")->currentIndex(), 0);
}

TEST_F(ReloadTest, AMapThatNoLongerExistsIsReportedWithBankAndMapFromOne) {
  OpenEditorWith(WriteDemoRom());
  ClickMap(5);
  WriteRom("demo.gbc", RomBuilder().Title(kDemoTitle).Map(1, {}).Map(1, {}).Build());
  steps_.clear();
  prompter_.ExpectMessage("Fehler: Ziel-Map (1.6) existiert nicht.");
  Click("mnuReloadFull");
  EXPECT_EQ(Combo("Combo3")->count(), 2);
  EXPECT_EQ(Combo("Combo3")->currentIndex(), -1);
  EXPECT_TRUE(steps_.empty());
  EXPECT_EQ(Document().SelectedMap(), 5);
}

using MapListTest = EditorTest;

TEST_F(MapListTest, ABankIsListedOnItsClickAndAMapLoadsOnlyOnItsOwn) {
  OpenEditorWith(WriteDemoRom());
  ClickBank(2);
  EXPECT_EQ(Items(Combo("Combo3")).join("|"), "Felsengrotte - 3.1|Felsengrotte - 3.2");
  EXPECT_EQ(Combo("Combo3")->currentIndex(), -1);
  EXPECT_EQ(Document().SelectedBank(), 0);

  // A selection the program makes itself loads nothing.
  window_->state().rom_loading = 1;
  ClickMap(1);
  EXPECT_EQ(Document().SelectedBank(), 0);
  window_->state().rom_loading = 0;

  ClickMap(1);
  EXPECT_EQ(Document().SelectedBank(), 2);
  EXPECT_EQ(Document().SelectedMap(), 1);
  EXPECT_EQ(Box(9)->text(), "0A");
  for (const char* name : {"HScroll1", "VScroll1", "VScroll2", "VScroll3", "HScroll3"})
    if (QWidget* bar = window_->findChild<QWidget*>(name)) {
      EXPECT_TRUE(bar->isEnabled()) << name;
    }
}

// Alt+Down and Alt+Up choose in the map list as the user does, the question about unsaved
// changes included; the ends of the list and a window without a ROM ignore them, as the
// file keys ignore a ROM that is not there.
TEST_F(MapListTest, KeysOpenAndStepThroughTheMapsOfTheBank) {
  MainWindow& window = StartEditor();
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  const auto key = [&](Qt::Key key, Qt::KeyboardModifiers modifiers) { QTest::keyClick(&window, key, modifiers); };
  for (const Qt::Key file_key : {Qt::Key_F5, Qt::Key_S, Qt::Key_Down}) key(file_key, Qt::NoModifier);
  key(Qt::Key_S, Qt::ControlModifier);
  key(Qt::Key_Down, Qt::AltModifier);
  EXPECT_TRUE(prompter_.asked.empty());

  prompter_.ExpectOpenFile(QString::fromStdString(WriteDemoRom()));
  key(Qt::Key_O, Qt::ControlModifier);
  ASSERT_EQ(Document().SelectedMap(), 0);
  key(Qt::Key_Up, Qt::AltModifier);
  EXPECT_EQ(window.map_selector()->map_index(), 0);
  key(Qt::Key_Down, Qt::AltModifier);
  EXPECT_EQ(Document().SelectedMap(), 1);
  ClickMap(5);
  key(Qt::Key_Down, Qt::AltModifier);
  EXPECT_EQ(window.map_selector()->map_index(), 5);

  Document().PaintCell(3, 3, 0x42);
  window.DocumentEdited();
  prompter_.ExpectMessage(QString::fromUtf8("Änderungen speichern?"), Prompter::Answer::kCancel);
  key(Qt::Key_Up, Qt::AltModifier);
  EXPECT_EQ(std::pair(Document().SelectedMap(), window.map_selector()->map_index()), std::pair(5, 5));
  prompter_.ExpectMessage(QString::fromUtf8("Änderungen speichern?"), Prompter::Answer::kNo);
  key(Qt::Key_Up, Qt::AltModifier);
  EXPECT_EQ(Document().SelectedMap(), 4);

  int loads = 0;
  QObject::connect(&window.events(), &PageEvents::MapLoadStepDone, &window, [&] { ++loads; });
  key(Qt::Key_F5, Qt::NoModifier);
  EXPECT_GT(loads, 0);
  EXPECT_EQ(Document().SelectedMap(), 4);
}

TEST_F(MapListTest, AMapWhoseDataLiesPastTheEndOfTheFileIsLoadedWithAWarning) {
  OpenEditorWith(WriteDemoRom());
  const std::vector<std::uint8_t>& bytes = DemoRom().bytes;
  const std::int64_t cut = DemoRom().layout.Map(1, 2).blocks + 20;
  WriteRom("demo.gbc", std::vector<std::uint8_t>(bytes.begin(), bytes.begin() + cut));
  ClickMap(1);
  EXPECT_EQ(Document().SelectedMap(), 1);
  EXPECT_TRUE(window_->panel(1)->text().startsWith(QStringLiteral("Achtung: Die ROM-Datei endet vor den Daten")));
  WriteRom("demo.gbc", bytes);
  ClickMap(0);
  EXPECT_FALSE(window_->panel(1)->text().startsWith(QStringLiteral("Achtung")));
}

TEST_F(MapListTest, ALocationAbove94EndsTheListWithTheRuntimeError) {
  OpenEditorWith(WriteDemoRom());
  std::vector<std::uint8_t> bytes = DemoRom().bytes;
  bytes.at(static_cast<std::size_t>(DemoRom().layout.Map(1, 3).primary_header + 5)) = 0x5F;
  WriteRom("demo.gbc", bytes);
  prompter_.ExpectMessage(SubscriptMessage());
  ClickBank(0);
  EXPECT_EQ(Items(Combo("Combo3")).join("|"), QString::fromUtf8("Mühlental - 1.1|Weg 11 - 1.2"));
  // The box says what was being read, from which file and where.
  const QString offset = QStringLiteral("%1").arg(Document().HeaderOffset(0, 0), 6, 16, QLatin1Char('0')).toUpper();
  EXPECT_EQ(prompter_.asked.back().detail.toStdString(),
            "Beim Lesen der Map-Liste aus demo.gbc, Tabelle bei 0x" + offset.toStdString() + "\nDatei: " +
                dir_.File("demo.gbc"));
}

}  // namespace
}  // namespace kartova::test
