#include <QGroupBox>
#include <QLabel>
#include <QTest>
#include <QToolButton>

#include "EditorFixture.h"
#include "demo/DemoRom.h"
#include "events/EventFields.h"
#include "rom/HexText.h"
#include "ui/EventFieldFrames.h"
#include "ui/EventPage.h"

namespace kartova::test {
namespace {

using Bytes = std::vector<std::uint8_t>;

QStringList Items(const QComboBox* list) {
  QStringList items;
  for (int i = 0; i < list->count(); ++i) items << list->itemText(i);
  return items;
}

class EventPageTest : public EditorTest {
 protected:
  void SetUp() override {
    rom_ = WriteDemoRom();
    OpenEditorWith(rom_);
  }
  EventPage& Page() const { return *window_->event_page(); }
  QLineEdit* Text(int index) const { return Page().field(index); }
  QString Caption() const { return Page().caption_frame()->title(); }
  const MapEventSet& Events() const { return Document().Events(); }
  Bytes Record(int kind, int index) const {
    const auto record = Events().Record(kind, index);
    return {record.begin(), record.end()};
  }
  void Choose(int kind, int index) { Activate(Page().event_list(kind), index); }
  // The kinds whose frame is shown.
  std::vector<int> ShownFrames() const {
    std::vector<int> shown;
    for (int kind = 0; kind < kEventKindCount; ++kind)
      if (Page().field_frame(kind)->isVisibleTo(&Page())) shown.push_back(kind);
    return shown;
  }
  void ExpectFieldsShow(int kind, int index) const {
    for (const EventField& field : EventFieldsOf(kind))
      EXPECT_EQ(Text(field.text_index)->text().toStdString(), EventFieldText(field, Events().Record(kind, index)))
          << "Text(" << field.text_index << ") of kind " << kind << ", record " << index;
  }
  // Clears a field as the user does: everything selected, then Backspace.
  static void Erase(QLineEdit* box) {
    box->selectAll();
    QTest::keyClick(box, Qt::Key_Backspace);
  }

  std::string rom_;
};

TEST_F(EventPageTest, AfterOpeningTheListsHoldTheRecordsAndEnterZeroIsShown) {
  EXPECT_EQ(Items(Page().event_list(kEventEnter)), QStringList{"Enter 0"});
  EXPECT_EQ(Items(Page().event_list(kEventTime)), QStringList{"Time 0"});
  EXPECT_EQ(Items(Page().event_list(kEventWarp)), (QStringList{"Warp 0", "Warp 1"}));
  EXPECT_EQ(Items(Page().event_list(kEventTrigger)), QStringList{"Trigger 0"});
  EXPECT_EQ(Items(Page().event_list(kEventSign)), (QStringList{"Sign 0", "Sign 1"}));
  EXPECT_EQ(Items(Page().event_list(kEventPeople)), (QStringList{"People 0", "People 1"}));
  for (int kind = 0; kind < kEventKindCount; ++kind) {
    EXPECT_TRUE(Page().event_list(kind)->isEnabled()) << kind;
    EXPECT_EQ(Page().event_list(kind)->currentIndex(), 0) << kind;
  }

  EXPECT_EQ(Caption(), "Enter-Script 0");
  EXPECT_EQ(ShownFrames(), std::vector<int>{kEventEnter});
  ExpectFieldsShow(kEventEnter, 0);
  EXPECT_EQ(Page().selected_kind(), kEventEnter);
  EXPECT_EQ(Page().selected_index(), 255) << "the load leaves no event selected";
  EXPECT_FALSE(Page().lists_loading());

  // Every load shows record 0 of the first list that has records, also where that item was
  // chosen on the map before.
  Choose(kEventEnter, 0);
  ClickMap(5);  // 1.6: an Enter script of its own
  EXPECT_EQ(Caption(), "Enter-Script 0");
  ExpectFieldsShow(kEventEnter, 0);
  ClickMap(1);  // 1.2: a warp, no scripts
  EXPECT_EQ(Caption(), "Warp 0");
  ExpectFieldsShow(kEventWarp, 0);
  EXPECT_EQ(Page().selected_index(), 0);
  EXPECT_FALSE(Page().event_list(kEventEnter)->isEnabled());
  ClickMap(2);  // 1.3: signposts and people only
  EXPECT_EQ(Caption(), "Signpost 0");
  EXPECT_EQ(ShownFrames(), std::vector<int>{kEventSign});
}

TEST_F(EventPageTest, ChoosingFromAListShowsTheKindsFrameCaptionAndRecord) {
  const char* prefixes[] = {"Warp ", "Trigger ", "Signpost ", "People ", "Enter-Script ", "Time-Script "};
  for (int kind : {kEventWarp, kEventTrigger, kEventSign, kEventPeople, kEventTime, kEventEnter}) {
    const int last = Events().Count(kind) - 1;
    Choose(kind, last);
    EXPECT_EQ(Caption(), prefixes[kind] + QString::number(last));
    EXPECT_EQ(ShownFrames(), std::vector<int>{kind});
    EXPECT_EQ(Page().selected_kind(), kind);
    EXPECT_EQ(Page().selected_index(), last);
    ExpectFieldsShow(kind, last);
  }

  // The item already shown is not shown again; another one is.
  Choose(kEventWarp, 1);
  Page().set_fields_updating(2);
  Text(3)->setText("ZZ");
  Page().set_fields_updating(0);
  Choose(kEventWarp, 1);
  EXPECT_EQ(Text(3)->text(), "ZZ");
  Choose(kEventWarp, 0);
  ExpectFieldsShow(kEventWarp, 0);

  // While the program itself moves the lists, a choice does nothing.
  Page().set_lists_loading(true);
  Choose(kEventPeople, 1);
  Page().set_lists_loading(false);
  window_->set_rom_loading(1);
  Choose(kEventPeople, 1);
  window_->set_rom_loading(0);
  EXPECT_EQ(Page().selected_kind(), kEventWarp);
  EXPECT_EQ(Caption(), "Warp 0");
  EXPECT_EQ(Document().History().CanUndo(), false) << "showing a record is no edit";
}

TEST_F(EventPageTest, TypingStoresExactlyTheFieldsBytes) {
  Choose(kEventPeople, 1);
  const MapEventSet before = Events();
  Bytes person = Record(kEventPeople, 1);
  Type(Text(21), "1FF");  // a byte keeps the low eight bits
  person[0] = 0xFF;
  Type(Text(26), "12345");  // a word keeps the low sixteen, high byte first
  person[9] = 0x23;
  person[10] = 0x45;
  Type(Text(27), "FF01");
  person[11] = 0xFF;
  person[12] = 0x01;
  EXPECT_EQ(Record(kEventPeople, 1), person);

  // Texts that are no number of at most six digits are left alone.
  Text(23)->setText("1234567");
  Erase(Text(22));
  Type(Text(24), "H");  // "&HH"
  EXPECT_EQ(Text(23)->text(), "1234567");
  EXPECT_EQ(Record(kEventPeople, 1), person);

  MapEventSet expected = before;
  std::copy(person.begin(), person.end(), expected.Record(kEventPeople, 1).begin());
  EXPECT_EQ(Events(), expected) << "no other record changed";

  // The script fields edit the record of their own list, though no event is selected.
  Choose(kEventEnter, 0);
  Bytes enter = Record(kEventEnter, 0);
  Type(Text(30), "7E");
  enter[2] = 0x7E;
  EXPECT_EQ(Record(kEventEnter, 0), enter);
}

TEST_F(EventPageTest, PositionFieldsMoveTheSelectedEvent) {
  Choose(kEventWarp, 1);
  Bytes warp = Record(kEventWarp, 1);
  Type(Text(1), "9");
  warp[1] = 9;
  EXPECT_EQ(Record(kEventWarp, 1), warp);
  Text(2)->setText("1A");  // a hex letter is no position
  EXPECT_EQ(Record(kEventWarp, 1), warp);

  // People show their stored position: 4 is the map's first column.
  Choose(kEventPeople, 0);
  Bytes person = Record(kEventPeople, 0);
  Type(Text(19), "4");
  person[2] = 4;
  EXPECT_EQ(Record(kEventPeople, 0), person);
  EXPECT_EQ(Text(19)->text(), "4");

  // The arrows step the field, and the field moves the event.
  Choose(kEventTrigger, 0);
  Bytes trigger = Record(kEventTrigger, 0);
  Page().up_down(1)->up_button()->click();
  trigger[2] = static_cast<std::uint8_t>(trigger[2] + 1);
  EXPECT_EQ(Record(kEventTrigger, 0), trigger);
  EXPECT_EQ(Text(10)->text(), QString::number(trigger[2]));
}

TEST_F(EventPageTest, TheKeyFilterRewritesAndDropsTypedCharacters) {
  Choose(kEventWarp, 0);
  QLineEdit* box = Text(3);
  Type(box, "!ga");
  EXPECT_EQ(box->text(), "1A");
  QTest::keyClicks(box, QString::fromUtf8("§x="));
  EXPECT_EQ(box->text(), "1A30");
  QTest::keyClick(box, Qt::Key_Backspace);
  EXPECT_EQ(box->text(), "1A3");
  EXPECT_EQ(Record(kEventWarp, 0)[2], 0xA3);
  QTest::keyClick(box, Qt::Key_Left);
  QTest::keyClick(box, Qt::Key_Delete);
  EXPECT_EQ(box->text(), "1A");
  EXPECT_EQ(Record(kEventWarp, 0)[2], 0x1A);
}

TEST_F(EventPageTest, TheKeysTypedIntoOneFieldAreOneUndoStep) {
  Choose(kEventTrigger, 0);
  const Bytes original = Record(kEventTrigger, 0);
  const QString shown = Text(8)->text();
  Type(Text(8), "3C");
  QTest::keyClick(Text(8), Qt::Key_Return);  // the field is left: its step is closed
  Type(Text(8), "7");
  EXPECT_EQ(Record(kEventTrigger, 0)[0], 0x07);

  Click("mnuUndo");
  EXPECT_EQ(Text(8)->text(), "3C");
  EXPECT_EQ(Record(kEventTrigger, 0)[0], 0x3C);
  Click("mnuUndo");
  EXPECT_EQ(Text(8)->text(), shown);
  EXPECT_EQ(Record(kEventTrigger, 0), original);
  EXPECT_FALSE(Document().History().CanUndo());
}

TEST_F(EventPageTest, BankLabelsAndArrowLimitsFollowTheLoadedMap) {
  const auto bank = static_cast<int>(DemoRom().layout.Map(1, 1).script_header / 0x4000);
  for (int number = 35; number <= 39; ++number)
    EXPECT_EQ(Page().bank_label(number)->text().toStdString(), Hex2(bank) + ":") << number;

  // A map of 6 x 5 blocks without any event.
  OpenThroughDialog(WriteRom("leer.gbc", RomBuilder().Title(kDemoTitle).Map(1, {.width = 6, .height = 5}).Build()));
  for (int kind = 0; kind < kEventKindCount; ++kind) {
    EXPECT_FALSE(Page().event_list(kind)->isEnabled()) << kind;
    EXPECT_EQ(Page().event_list(kind)->count(), 0) << kind;
  }
  EXPECT_EQ(Caption(), "Daten");
  EXPECT_TRUE(ShownFrames().empty()) << "the Enter frame of the previous map is hidden";
  const int maxima[] = {0, 17, 15, 17, 15, 21, 19, 17, 15};
  for (int number = 1; number <= 8; ++number) {
    EXPECT_EQ(Page().up_down(number)->maximum(), maxima[number]) << number;
    EXPECT_EQ(&Page().up_down(number)->buddy(), Text(UpDownField(number))) << number;
  }

  // Steps stay within 0 and the limit.
  Text(2)->setText("15");
  Page().up_down(4)->Step(1);
  EXPECT_EQ(Text(2)->text(), "15");
  Text(2)->setText("0");
  Page().up_down(4)->down_button()->click();
  EXPECT_EQ(Text(2)->text(), "0");
}

TEST_F(EventPageTest, AFullSaveWritesTheEditedRecordsAtTheirPlaces) {
  Choose(kEventPeople, 1);
  Type(Text(23), "3D");  // movement, byte 4
  Choose(kEventEnter, 0);
  Type(Text(31), "5A");  // Res-2, byte 3
  Click("mnuSaveFull");

  const MapLayout& map = DemoRom().layout.Map(1, 1);
  std::int64_t people = map.event_header + 2;
  for (int kind : {kEventWarp, kEventTrigger, kEventSign})
    people += 1 + Events().Count(kind) * kEventRecordSize[static_cast<size_t>(kind)];
  const std::int64_t movement = people + 1 + 13 + 4;
  const std::int64_t res2 = map.script_header + 1 + 3;

  const Bytes on_disk = ReadFileBytes(rom_);
  ASSERT_EQ(on_disk.size(), DemoRom().bytes.size());
  std::vector<std::int64_t> changed;
  for (std::size_t i = 0; i < on_disk.size(); ++i)
    if (on_disk[i] != DemoRom().bytes[i]) changed.push_back(static_cast<std::int64_t>(i));
  EXPECT_EQ(changed, (std::vector<std::int64_t>{std::min(res2, movement), std::max(res2, movement)}));
  EXPECT_EQ(on_disk[static_cast<std::size_t>(movement)], 0x3D);
  EXPECT_EQ(on_disk[static_cast<std::size_t>(res2)], 0x5A);
}

}  // namespace
}  // namespace kartova::test
