#include <QCheckBox>
#include <QLabel>
#include <QRadioButton>
#include <QSpinBox>

#include "EditorFixture.h"
#include "rom/HexText.h"
#include "ui/ConnectionFrame.h"
#include "ui/HeaderPage.h"
#include "ui/LinkDataFrame.h"
#include "ui/WindowPlacement.h"

namespace kartova::test {
namespace {

const QString kApplyText = QString::fromUtf8(
    "Damit die Änderungen sichtbar werden, müssen sie jetzt übernommen werden. Dazu werden alle "
    "Daten außer den Headern neu aus dem Rom geladen. 'Nein' stellt den Ursprungszustand der "
    "Daten wieder her.");

QString HexOf(const std::vector<std::uint8_t>& bytes, std::int64_t offset, int count) {
  std::string text;
  for (int i = 0; i < count; ++i) text += Hex2(bytes.at(static_cast<std::size_t>(offset + i)));
  return QString::fromStdString(text);
}

class HeaderPageTest : public EditorTest {
 protected:
  HeaderPage& Page() const { return *window_->header_page(); }
  std::string Connections() const {
    std::string checks;
    for (int i = 0; i < 4; ++i) checks += Page().connection_check(i)->isChecked() ? '1' : '0';
    return checks;
  }
};

TEST_F(HeaderPageTest, TheBoxesShowTheHeadersOfTheLoadedMap) {
  OpenEditorWith(WriteDemoRom());
  const std::vector<std::uint8_t>& rom = DemoRom().bytes;
  const MapLayout& map = DemoRom().layout.Map(1, 1);
  EXPECT_EQ(Box(0)->text(), HexOf(rom, map.primary_header, 1));
  EXPECT_EQ(Box(1)->text(), HexOf(rom, map.primary_header + 3, 2));  // file byte order
  EXPECT_EQ(Box(2)->text(), HexOf(rom, map.primary_header + 8, 1));
  EXPECT_EQ(Box(3)->text(), HexOf(rom, map.secondary_header, 1));
  EXPECT_EQ(Box(4)->text(), HexOf(rom, map.secondary_header + 3, 3));
  EXPECT_EQ(Box(6)->text(), HexOf(rom, map.secondary_header + 7, 2));
  EXPECT_EQ(Box(7)->text(), HexOf(rom, map.secondary_header + 9, 2));
  EXPECT_EQ(Box(8)->text(), "0F");
  EXPECT_EQ(Box(9)->text(), "14");   // 20 blocks wide
  EXPECT_EQ(Box(10)->text(), "10");  // 16 high
  EXPECT_EQ(Page().extra_byte_label()->text(), "Angel:");
  EXPECT_EQ(Connections(), "1111");
  for (int i = 0; i < 4; ++i)
    EXPECT_TRUE(Page().connection_frame()->selector(i)->isEnabledTo(Page().connection_frame()));
  // Records of nine bytes: no extra-byte selector, the narrow box.
  EXPECT_FALSE(Page().extra_byte_selector()->isVisibleTo(&Page()));
  EXPECT_FALSE(Page().extra_selector_label()->isVisibleTo(&Page()));
  EXPECT_EQ(Box(2)->width(), window_->placement().ToPixelsX(840));
  // The map has connections: the editor is on, showing the east record; the link data view
  // waits until the header tab is selected.
  EXPECT_TRUE(Page().connection_frame()->isEnabled());
  EXPECT_FALSE(Page().link_data_frame()->isEnabled());
  EXPECT_EQ(Page().connection_frame()->length_label()->text(), QString::fromUtf8("ST-Höhe:"));
  EXPECT_FALSE(window_->changes_pending());
}

TEST_F(HeaderPageTest, TypedTextsReachTheBuffersByteForByte) {
  MainWindow& window = OpenEditorWith(WriteDemoRom());
  PrimaryHeaderBuffer primary = Document().Primary();
  SecondaryHeaderBuffer secondary = Document().Secondary();

  Type(Box(3), "1FF");  // one byte keeps the low eight bits
  secondary.bytes[0] = 0xFF;
  EXPECT_TRUE(window.changes_pending());
  Type(Box(5), "1234567");  // the seventh character is ignored: 123456 stays
  secondary.bytes[6] = 0x56;
  EXPECT_EQ(Box(5)->text(), "1234567");
  Type(Box(6), "5B4A");  // file order
  secondary.bytes[7] = 0x5B;
  secondary.bytes[8] = 0x4A;
  Type(Box(7), "xy");  // no hex number: nothing
  Type(Box(10), "0C");  // the height box stores the width
  secondary.bytes[2] = 0x0C;
  Type(Box(2), "0D");
  primary.bytes[8] = 0x0D;
  Type(Box(8), "0");
  secondary.bytes[11] = 0x00;
  EXPECT_EQ(Connections(), "0000");
  Type(Box(8), "5");
  secondary.bytes[11] = 0x05;
  EXPECT_EQ(Connections(), "0101");

  EXPECT_EQ(Document().Primary().bytes, primary.bytes);
  EXPECT_EQ(Document().Secondary().bytes, secondary.bytes);
  EXPECT_EQ(Box(10)->text(), "0C");
}

TEST_F(HeaderPageTest, CombosStoreTypedCodesButNotListTexts) {
  std::vector<std::uint8_t> bytes = DemoRom().bytes;
  // A tileset code beyond the five names, still a valid header.
  bytes.at(static_cast<std::size_t>(DemoRom().layout.Map(1, 2).primary_header + 1)) = 0x28;
  OpenEditorWith(WriteRom("demo.gbc", bytes));
  ClickMap(1);
  EXPECT_EQ(HeaderCombo(0)->currentIndex(), -1);
  EXPECT_EQ(HeaderCombo(0)->currentText(), "28");

  const PrimaryHeaderBuffer before = Document().Primary();
  HeaderCombo(0)->setCurrentIndex(3);
  emit HeaderCombo(0)->activated(3);
  EXPECT_EQ(Document().Primary().bytes, before.bytes);
  EXPECT_TRUE(window_->changes_pending());

  Type(HeaderCombo(3)->lineEdit(), "0A");
  EXPECT_EQ(Document().Primary().Music(), 0x0A);
  EXPECT_EQ(HeaderCombo(3)->currentText(), "0A");  // no completion from the list
}

TEST_F(HeaderPageTest, LongerRecordsShowTheirExtraBytesByName) {
  const std::string extra_section = "4558545241" + std::string(22, '0');  // "EXTRA"
  AddDefinitions("[" + extra_section + "]\nHeaderLengthA=12\nResName0=Flags\nResName1=Wetter\n");
  OpenEditorWith(WriteRom(
      "extra.gbc",
      RomBuilder().Title("EXTRA").HeaderLength(12).Map(1, {.extra_header_bytes = {0x11, 0x22, 0x33}}).Build()));
  QSpinBox* selector = Page().extra_byte_selector();
  EXPECT_TRUE(selector->isVisibleTo(&Page()));
  EXPECT_TRUE(Page().extra_selector_label()->isVisibleTo(&Page()));
  EXPECT_EQ(selector->maximum(), 3);
  EXPECT_EQ(Box(2)->width(), window_->placement().ToPixelsX(1320));

  selector->setValue(2);
  EXPECT_EQ(Page().extra_byte_label()->text(), "Wetter:");
  EXPECT_EQ(Box(2)->text(), "22");
  Type(Box(2), "7F");
  EXPECT_EQ(Document().Primary().bytes[10], 0x7F);
  selector->setValue(3);
  EXPECT_EQ(Page().extra_byte_label()->text(), "Res:");
  EXPECT_EQ(Box(2)->text(), "33");
}

class TabSwitchTest : public HeaderPageTest {
 protected:
  // On the header page with Border typed over.
  void EditBorder() {
    OpenEditorWith(WriteDemoRom());
    ClickTab(MainWindow::kHeaderTab);
    Type(Box(3), "42");
    steps_.clear();
  }
  std::uint8_t RomBorder() const { return DemoByte(DemoRom().layout.Map(1, 1).secondary_header); }
};

TEST_F(TabSwitchTest, WithoutEditsNothingIsAsked) {
  OpenEditorWith(WriteDemoRom());
  const std::size_t asked = prompter_.asked.size();
  ClickTab(MainWindow::kEventTab);
  ClickTab(MainWindow::kHeaderTab);
  ClickTab(MainWindow::kMapTab);
  EXPECT_EQ(window_->current_tab(), MainWindow::kMapTab);
  EXPECT_EQ(prompter_.asked.size(), asked);
}

TEST_F(TabSwitchTest, CancelStaysOnTheHeaderPageWithTheEdits) {
  EditBorder();
  prompter_.ExpectMessage(kApplyText, Prompter::Answer::kCancel);
  ClickTab(MainWindow::kMapTab);
  EXPECT_EQ(prompter_.asked.back().title, QString::fromUtf8("Änderungen übernehmen?"));
  EXPECT_EQ(prompter_.asked.back().buttons, Prompter::Buttons::kYesNoCancel);
  EXPECT_EQ(window_->tab_strip()->currentIndex(), MainWindow::kHeaderTab);
  EXPECT_EQ(window_->current_tab(), MainWindow::kHeaderTab);
  EXPECT_TRUE(Page().isVisible());
  EXPECT_TRUE(window_->changes_pending());
  EXPECT_EQ(window_->apply_mode(), 0);
  EXPECT_EQ(Document().Secondary().BorderBlock(), 0x42);
  EXPECT_TRUE(steps_.empty());
}

TEST_F(TabSwitchTest, NoRestoresTheHeadersFromTheRom) {
  EditBorder();
  prompter_.ExpectMessage(kApplyText, Prompter::Answer::kNo);
  ClickTab(MainWindow::kMapTab);
  EXPECT_EQ(window_->current_tab(), MainWindow::kMapTab);
  EXPECT_EQ(Document().Secondary().BorderBlock(), RomBorder());
  EXPECT_EQ(Box(3)->text(), QString::fromStdString(Hex2(RomBorder())));
  EXPECT_EQ(steps_, std::vector<MapLoadStep>{MapLoadStep::kHeaderPage});
  EXPECT_FALSE(window_->changes_pending());
  EXPECT_EQ(window_->apply_mode(), 0);
}

TEST_F(TabSwitchTest, YesReloadsEverythingButTheEditedHeaders) {
  EditBorder();
  prompter_.ExpectMessage(kApplyText, Prompter::Answer::kYes);
  ClickTab(MainWindow::kEventTab);
  EXPECT_EQ(window_->current_tab(), MainWindow::kEventTab);
  EXPECT_EQ(Document().Secondary().BorderBlock(), 0x42);
  EXPECT_EQ(Box(3)->text(), "42");
  EXPECT_EQ(steps_, (std::vector<MapLoadStep>{MapLoadStep::kTileset, MapLoadStep::kEvents,
                                              MapLoadStep::kEventControls, MapLoadStep::kMapBuilt}));
  EXPECT_FALSE(window_->changes_pending());
  EXPECT_EQ(window_->apply_mode(), 0);
}

}  // namespace
}  // namespace kartova::test
