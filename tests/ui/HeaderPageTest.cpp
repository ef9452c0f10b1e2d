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
#include "maps/HeaderFields.h"

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
  const MapLayout& map = DemoRom().layout.Map(1, 1);
  EXPECT_EQ(Box(1)->text(), HexOf(DemoRom().bytes, map.primary_header + 3, 2));  // file byte order
  for (int i = 0; i < kHeaderFieldCount; ++i) {
    EXPECT_EQ(Box(i)->text().toStdString(), HeaderFieldText(i, Document().Primary(), Document().Secondary(), 0));
  }
  EXPECT_EQ(Box(8)->text() + Box(9)->text() + Box(10)->text(), "0F1410");  // 20 x 16, all four
  EXPECT_EQ(Page().extra_byte_label()->text(), "Angel:");
  EXPECT_EQ(Connections(), "1111");
  for (int i = 0; i < 4; ++i)
    EXPECT_TRUE(Page().connection_frame()->selector(i)->isEnabledTo(Page().connection_frame()));
  // Records of nine bytes: no extra-byte selector, the narrow box.
  EXPECT_FALSE(Page().extra_byte_selector()->isVisibleTo(&Page()));
  EXPECT_FALSE(Page().extra_selector_label()->isVisibleTo(&Page()));
  EXPECT_EQ(Box(2)->width(), window_->placement().ToPixelsX(840));
  // The connection editor is on; the link data view waits until the header tab is selected.
  EXPECT_TRUE(Page().connection_frame()->isEnabled());
  EXPECT_FALSE(Page().link_data_frame()->isEnabled());
  EXPECT_FALSE(window_->state().changes_pending);
}

// The rules of each box are HeaderFields'; here keys reach them one at a time.
TEST_F(HeaderPageTest, TypedTextsReachTheBuffersByteForByte) {
  MainWindow& window = OpenEditorWith(WriteDemoRom());
  PrimaryHeaderBuffer primary = Document().Primary();
  SecondaryHeaderBuffer secondary = Document().Secondary();
  Type(Box(5), "1234567");  // the seventh key is ignored: 123456 stays
  secondary.bytes[6] = 0x56;
  EXPECT_EQ(Box(5)->text(), "1234567");
  EXPECT_TRUE(window.state().changes_pending);
  Type(Box(6), "5B4A");  // file order
  secondary.bytes[7] = 0x5B;
  secondary.bytes[8] = 0x4A;
  Type(Box(10), "0C");  // the height box stores the width
  secondary.bytes[2] = 0x0C;
  Type(Box(2), "0D");
  primary.bytes[8] = 0x0D;
  EXPECT_EQ(Document().Primary().bytes, primary.bytes);
  EXPECT_EQ(Document().Secondary().bytes, secondary.bytes);
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
  Activate(HeaderCombo(0), 3);
  EXPECT_EQ(Document().Primary().bytes, before.bytes);
  EXPECT_TRUE(window_->state().changes_pending);

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

  EXPECT_TRUE(Box(2)->toolTip().startsWith("Primärer Header, Byte 8\n"));
  selector->setValue(2);
  EXPECT_EQ(Page().extra_byte_label()->text(), "Wetter:");
  EXPECT_EQ(Box(2)->text(), "22");
  // The tip names the byte now shown, on the box and on its label.
  EXPECT_TRUE(Box(2)->toolTip().startsWith("Primärer Header, Byte 10\n"));
  EXPECT_EQ(Page().extra_byte_label()->toolTip(), Box(2)->toolTip());
  Type(Box(2), "7F");
  EXPECT_EQ(Document().Primary().bytes[10], 0x7F);
  selector->setValue(3);
  EXPECT_EQ(Page().extra_byte_label()->text(), "Res:");
  EXPECT_EQ(Box(2)->text(), "33");
}

TEST_F(HeaderPageTest, ASwitchWithoutEditsAsksNothing) {
  OpenEditorWith(WriteDemoRom());
  const std::size_t asked = prompter_.asked.size();
  ClickTab(MainWindow::kEventTab);
  ClickTab(MainWindow::kHeaderTab);
  ClickTab(MainWindow::kMapTab);
  EXPECT_EQ(window_->state().current_tab, MainWindow::kMapTab);
  EXPECT_EQ(prompter_.asked.size(), asked);
}

// Leaving the header page with Border typed over: Yes reloads everything but the edited
// headers, No reads the headers again, Cancel stays with the edits.
TEST_F(HeaderPageTest, LeavingWithEditsAsksWhetherToApplyThem) {
  using A = Prompter::Answer;
  using S = MapLoadStep;
  const struct Case {
    A answer;
    int tab, lands_on;
    bool edited;
    std::vector<S> steps;
  } cases[] = {
      {A::kYes, MainWindow::kEventTab, MainWindow::kEventTab, true, {S::kTileset, S::kEvents, S::kEventControls, S::kMapBuilt}},
      {A::kNo, MainWindow::kMapTab, MainWindow::kMapTab, false, {S::kHeaderPage}},
      {A::kCancel, MainWindow::kMapTab, MainWindow::kHeaderTab, true, {}},
  };
  const MapLayout& map = DemoRom().layout.Map(1, 1);
  const auto rom = [&](std::int64_t at, std::size_t n) {
    return std::vector<std::uint8_t>(DemoRom().bytes.begin() + at, DemoRom().bytes.begin() + at + n);
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(static_cast<int>(c.answer));
    OpenEditorWith(WriteDemoRom());
    ClickTab(MainWindow::kHeaderTab);
    Type(Box(3), "42");
    steps_.clear();
    prompter_.ExpectMessage(kApplyText, c.answer);
    ClickTab(c.tab);
    EXPECT_EQ(prompter_.asked.back().title, QString::fromUtf8("Änderungen übernehmen?"));
    EXPECT_EQ(prompter_.asked.back().buttons, Prompter::Buttons::kYesNoCancel);
    EXPECT_EQ(window_->state().current_tab, c.lands_on);
    EXPECT_EQ(window_->tab_strip()->currentIndex(), c.lands_on);
    EXPECT_EQ(steps_, c.steps);
    std::vector<std::uint8_t> secondary = rom(map.secondary_header, SecondaryHeaderBuffer::kSize);
    if (c.edited) secondary[0] = 0x42;
    EXPECT_EQ(std::vector<std::uint8_t>(Document().Secondary().bytes.begin(), Document().Secondary().bytes.end()), secondary);
    EXPECT_EQ(std::vector<std::uint8_t>(Document().Primary().bytes.begin(), Document().Primary().bytes.end()),
              rom(map.primary_header, PrimaryHeaderBuffer::kSize));
    EXPECT_EQ(Box(3)->text().toStdString(), Hex2(secondary[0]));
    EXPECT_EQ(window_->state().changes_pending, c.answer == A::kCancel);
    EXPECT_EQ(window_->state().apply_mode, 0);
    EXPECT_EQ(Page().isVisible(), c.lands_on == MainWindow::kHeaderTab);
  }
}

}  // namespace
}  // namespace kartova::test
