#include <QCheckBox>
#include <QComboBox>
#include <QFontMetrics>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTextCursor>

#include "EditorFixture.h"
#include "demo/DemoRom.h"
#include "maps/ConnectionEditor.h"
#include "rom/HexText.h"
#include "rom/RuntimeError.h"
#include "ui/ConnectionFrame.h"
#include "ui/HeaderPage.h"
#include "ui/LinkDataFrame.h"
#include "ui/MapSelector.h"

namespace kartova::test {
namespace {

// Map 1.1 is 10 x 9 with a southern (1.2) and an eastern (1.3) neighbour: flags 0x05.
// 1.2 has only its northern neighbour, 1.4 none.
BuiltRom ConnectedRom() {
  std::vector<std::uint8_t> blocks(90);
  for (std::size_t i = 0; i < blocks.size(); ++i) blocks[i] = static_cast<std::uint8_t>(0x10 + i);
  return RomBuilder()
      .Title(kDemoTitle)
      .Map(1, {.border = 0x01, .width = 10, .height = 9, .blocks = blocks,
               .connections = {{.direction = Direction::kSouth, .target = {1, 2}},
                               {.direction = Direction::kEast, .target = {1, 3}}}})
      .Map(1, {.border = 0x02, .width = 10, .height = 6,
               .connections = {{.direction = Direction::kNorth, .target = {1, 1}}}})
      .Map(1, {.border = 0x03, .width = 8, .height = 9,
               .connections = {{.direction = Direction::kWest, .target = {1, 1}}}})
      .Map(1, {.width = 4, .height = 4})
      .BuildWithLayout();
}

class ConnectionFrameTest : public EditorTest {
 protected:
  void SetUp() override {
    rom_ = ConnectedRom();
    OpenEditorWith(WriteRom("connected.gbc", rom_.bytes));
    ClickTab(MainWindow::kHeaderTab);
  }
  ConnectionFrame& Frame() const { return *window_->header_page()->connection_frame(); }
  LinkDataFrame& Link() const { return *window_->header_page()->link_data_frame(); }
  QCheckBox* Con(int i) const { return window_->header_page()->connection_check(i); }
  QString Field(int number) const { return Link().field(number)->text(); }
  // Header(11) .. Header(19), blank-separated.
  QString Boxes() const {
    QStringList texts;
    for (int b = 11; b <= 19; ++b) texts << Box(b)->text();
    return texts.join(' ');
  }
  QString SlotTexts(const std::vector<std::uint8_t>& bytes, MapRef map, int slot) const {
    SecondaryHeaderBytes secondary{};
    const auto first = bytes.begin() + rom_.layout.Map(map.bank, map.number).secondary_header;
    std::copy(first, first + 60, secondary.begin());
    QStringList texts;
    for (const std::string& text : ConnectionBoxTextsOf(ReadConnectionSlot(secondary, slot)))
      texts << QString::fromStdString(text);
    return texts.join(' ');
  }
  ConnectionRecord Slot(int slot) const { return ReadConnectionSlot(Document().Secondary().bytes, slot); }
  std::string Selectors(bool enabled) const {
    std::string states;
    for (int i = 0; i < 4; ++i) {
      const QRadioButton* button = Frame().selector(i);
      states += (enabled ? button->isEnabledTo(&Frame()) : button->isChecked()) ? '1' : '0';
    }
    return states;
  }

  BuiltRom rom_;
};

TEST_F(ConnectionFrameTest, EachDirectionShowsTheRecordOfItsSlot) {
  EXPECT_EQ(Selectors(true), "0101");
  EXPECT_EQ(Selectors(false), "0001");  // east first
  EXPECT_TRUE(Frame().isEnabled());
  EXPECT_EQ(Boxes(), SlotTexts(rom_.bytes, {1, 1}, 1));
  EXPECT_EQ(Frame().length_label()->text(), QString::fromUtf8("ST-Höhe:"));
  QComboBox* list = Frame().connection_list();
  ASSERT_EQ(list->count(), 2);
  EXPECT_EQ(list->itemText(0), "1 (Unten)");
  EXPECT_EQ(list->itemText(1), "2 (Rechts)");

  Frame().selector(1)->click();
  EXPECT_EQ(Boxes(), SlotTexts(rom_.bytes, {1, 1}, 0));
  EXPECT_EQ(Frame().length_label()->text(), "ST-Breite:");
  EXPECT_FALSE(window_->state().changes_pending);

  // Another map: the selection moves to a direction it has; none at all switches off.
  ClickMap(1);
  EXPECT_EQ(Selectors(true), "1000");
  EXPECT_EQ(Selectors(false), "1000");
  EXPECT_EQ(Boxes(), SlotTexts(rom_.bytes, {1, 2}, 0));
  EXPECT_EQ(list->count(), 1);
  EXPECT_EQ(list->currentText(), "1 (Oben)");
  ClickMap(3);
  EXPECT_FALSE(Frame().isEnabled());
  EXPECT_EQ(list->count(), 0);
  EXPECT_EQ(Boxes(), "        ");
}

TEST_F(ConnectionFrameTest, TypedValuesGoIntoTheSelectedSlot) {
  const ConnectionRecord south = Slot(0);
  ConnectionRecord east = Slot(1);
  Type(Box(16), "7E");  // shows byte 8, writes byte 9
  Type(Box(12), "1234");
  east[9] = 0x7E;
  east[2] = 0x12;
  east[3] = 0x34;
  EXPECT_EQ(Slot(1), east);
  EXPECT_EQ(Slot(0), south);
  EXPECT_TRUE(window_->state().changes_pending);

  Frame().selector(1)->click();
  Type(Box(14), "33");
  EXPECT_EQ(Slot(0)[6], 0x33);
  EXPECT_EQ(Slot(1), east);
}

TEST_F(ConnectionFrameTest, ChecksSwitchTheEditorButNeverTheFlagByte) {
  ClickMap(1);  // north only
  const SecondaryHeaderBuffer before = Document().Secondary();
  Con(0)->click();
  EXPECT_FALSE(Frame().isEnabled());
  EXPECT_EQ(Boxes(), "        ");
  EXPECT_EQ(Frame().length_label()->text(), QString::fromUtf8("ST-Größe:"));
  EXPECT_EQ(Selectors(false), "0000");
  EXPECT_EQ(Box(8)->text(), "00");
  EXPECT_EQ(Document().Secondary().bytes, before.bytes);
  EXPECT_TRUE(window_->state().changes_pending);

  Con(0)->click();
  EXPECT_TRUE(Frame().isEnabled());
  EXPECT_EQ(Selectors(false), "1000");
  EXPECT_EQ(Boxes(), SlotTexts(rom_.bytes, {1, 2}, 0));

  // A direction checked on top neither enables its button nor moves a record.
  Con(3)->click();
  EXPECT_EQ(Box(8)->text(), "09");
  EXPECT_EQ(Selectors(true), "1000");
  EXPECT_EQ(Document().Secondary().bytes, before.bytes);
}

TEST_F(ConnectionFrameTest, FlagsTypedIntoHeader8SwitchTheEditor) {
  const SecondaryHeaderBuffer before = Document().Secondary();
  Type(Box(8), "0");
  for (int i = 0; i < 4; ++i) EXPECT_FALSE(Con(i)->isChecked());
  EXPECT_FALSE(Frame().isEnabled());
  EXPECT_EQ(Boxes(), "        ");
  EXPECT_EQ(Document().Secondary().ConnectionFlags(), 0);
  // Emptying the boxes stored nothing into the records.
  EXPECT_TRUE(std::equal(before.bytes.begin() + 12, before.bytes.end(),
                         Document().Secondary().bytes.begin() + 12));

  Type(Box(8), "5");
  EXPECT_TRUE(Frame().isEnabled());
  EXPECT_EQ(Selectors(false), "0001");
  EXPECT_EQ(Boxes(), SlotTexts(rom_.bytes, {1, 1}, 1));
}

TEST_F(ConnectionFrameTest, Command2MarksTheDestinationInThisMap) {
  // The box is read as one number in file byte order: a stored C733 reads 33C7, below the
  // working copy, and marks its first cell.
  Frame().command(2)->click();
  EXPECT_EQ(Field(7) + ' ' + Field(8), "-3 -3");
  Type(Box(13), "0C745");  // 0x45 cells on, 16 to a row: row 4, column 5
  Frame().command(2)->click();
  EXPECT_EQ(Link().Selection(), (LinkSelection{4 * 34 + 5 * 2, 2}));
  EXPECT_EQ(Field(7) + ' ' + Field(8) + ' ' + Field(10), "2 1 C745");
  EXPECT_TRUE(Link().grid_text()->hasFocus());
}

TEST_F(ConnectionFrameTest, Command3And4LoadTheNeighbourAndMarkInIt) {
  Type(Box(18), "0C70B");  // row 0, column 11 of a map 8 wide
  // The typed window is an edit of this map's record, which the switch would drop.
  prompter_.ExpectMessage(QString::fromUtf8("Änderungen speichern?"), Prompter::Answer::kNo);
  Frame().command(3)->click();
  EXPECT_EQ(window_->map_selector()->bank_index(), 0);
  EXPECT_EQ(window_->map_selector()->map_index(), 2);
  EXPECT_EQ(Document().MapWidth(), 8);
  EXPECT_EQ(window_->state().current_tab, MainWindow::kHeaderTab);
  EXPECT_EQ(Link().data().RowLength(), 30);
  EXPECT_EQ(Link().Selection(), (LinkSelection{11 * 2, 2}));
  EXPECT_EQ(Field(7) + ' ' + Field(8), "8 -3");
  EXPECT_EQ(Boxes(), SlotTexts(rom_.bytes, {1, 3}, 0));  // the neighbour's own record
  const std::int32_t pointer = Document().BlockDataPointer();

  // Back to 1.1 through the west record, then to the strip source in 1.3.
  Type(Box(18), "");
  Frame().command(3)->click();
  ASSERT_EQ(window_->map_selector()->map_index(), 0);
  Type(Box(12), QString::fromStdString("0" + Hex4(pointer + 13)));
  prompter_.ExpectMessage(QString::fromUtf8("Änderungen speichern?"), Prompter::Answer::kNo);
  Frame().command(4)->click();
  EXPECT_EQ(window_->map_selector()->map_index(), 2);
  EXPECT_EQ(Field(7) + ' ' + Field(8) + ' ' + Field(9),
            QString::fromStdString("5 1 " + Hex4(pointer + 13)));
}

using LinkDataViewTest = ConnectionFrameTest;

TEST_F(LinkDataViewTest, TheHeaderTabShowsTheBorderedGrid) {
  EXPECT_TRUE(Link().isEnabled());
  const QFontMetrics metrics(Link().grid_text()->font());  // columns line up
  EXPECT_EQ(metrics.horizontalAdvance("11"), metrics.horizontalAdvance("DF"));
  EXPECT_EQ(Link().data().RowLength(), 34);
  EXPECT_EQ(Link().data().TextLength(), 15 * 34 - 2);
  const QStringList lines = Link().grid_text()->toPlainText().split('\n');
  ASSERT_EQ(lines.size(), 15);
  EXPECT_EQ(lines[0], QString("01").repeated(16));
  EXPECT_EQ(lines[3], "010101" "10111213141516171819" "030303");  // west border, map, east strip
  EXPECT_EQ(Link().Selection(), (LinkSelection{0, 2}));
  EXPECT_EQ(QStringList({Field(7), Field(8), Field(9), Field(10)}).join(' '), "-3 -3 NA C700");
}

// The rules of the caret are LinkData's; here the keys and clicks reach them and the fields follow.
TEST_F(LinkDataViewTest, ArrowsWrapAndClicksSnapToCellsAndTheFieldsFollow) {
  QPlainTextEdit* text = Link().grid_text();
  text->setFocus();
  QTest::keyClick(text, Qt::Key_Left);
  EXPECT_EQ(Link().Selection(), (LinkSelection{15 * 34 - 4, 2}));
  EXPECT_EQ(Field(7) + ' ' + Field(8), "12 11");
  QTest::keyClicks(text, "AB");  // read only
  EXPECT_EQ(text->toPlainText().left(4), "0101");

  QTextCursor cursor(text->document());
  cursor.setPosition(3 * 33 + 6);  // inside the cell at map position (0, 0)
  QTest::mouseClick(text->viewport(), Qt::LeftButton, {}, text->cursorRect(cursor).center() + QPoint(3, 0));
  EXPECT_EQ(Link().Selection(), (LinkSelection{3 * 34 + 6, 2}));
  EXPECT_EQ(QStringList({Field(7), Field(8), Field(9), Field(10)}).join(' '),
            QString::fromStdString("0 0 " + Hex4(Document().BlockDataPointer()) + " C733"));
}

}  // namespace
}  // namespace kartova::test
