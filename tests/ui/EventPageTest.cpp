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

class EventPageTest : public EditorTest {
 protected:
  void SetUp() override { OpenEditorWith(WriteDemoRom()); }
  EventPage& Page() const { return *window_->event_page(); }
  QLineEdit* Text(int index) const { return Page().field(index); }
  QString Caption() const { return Page().caption_frame()->title(); }
  const MapEventSet& Events() const { return Document().Events(); }
  void Choose(int kind, int index) { Activate(Page().event_list(kind), index); }
  // The kinds whose frame is shown.
  std::vector<int> ShownFrames() const {
    std::vector<int> shown;
    for (int kind = 0; kind < kEventKindCount; ++kind)
      if (Page().field_frame(kind)->isVisibleTo(&Page())) shown.push_back(kind);
    return shown;
  }
  // Only the kind's frame is shown, captioned with the record's name, every field its text.
  void ExpectShown(int kind, int index) const {
    const char* names[] = {"Warp ", "Trigger ", "Signpost ", "People ", "Enter-Script ", "Time-Script "};
    EXPECT_EQ(Caption(), names[kind] + QString::number(index));
    EXPECT_EQ(ShownFrames(), std::vector<int>{kind});
    for (const EventField& field : EventFieldsOf(kind))
      EXPECT_EQ(Text(field.text_index)->text().toStdString(), EventFieldText(field, Events().Record(kind, index)))
          << "Text(" << field.text_index << ") of kind " << kind << ", record " << index;
  }
  // Chooses the record and runs the edit: exactly these (offset, value) bytes of it change.
  template <typename Edit>
  void ExpectEdit(int kind, int index, std::initializer_list<std::pair<int, int>> changes, Edit edit) {
    Choose(kind, index);
    MapEventSet expected = Events();
    for (auto [offset, value] : changes)
      expected.Record(kind, index)[static_cast<std::size_t>(offset)] = static_cast<std::uint8_t>(value);
    edit();
    EXPECT_EQ(Events(), expected) << "kind " << kind << ", record " << index;
  }
};

TEST_F(EventPageTest, EachLoadFillsTheListsShowsTheFirstRecordAndSetsLabelsAndArrowLimits) {
  const QStringList lists[] = {{"Warp 0", "Warp 1"}, {"Trigger 0"}, {"Sign 0", "Sign 1"},
                               {"People 0", "People 1"}, {"Enter 0"}, {"Time 0"}};
  for (int kind = 0; kind < kEventKindCount; ++kind) {
    QComboBox* list = Page().event_list(kind);
    QStringList items;
    for (int i = 0; i < list->count(); ++i) items << list->itemText(i);
    EXPECT_EQ(items, lists[kind]);
    EXPECT_EQ(std::pair(list->isEnabled(), list->currentIndex()), std::pair(true, 0)) << kind;
  }
  ExpectShown(kEventEnter, 0);
  EXPECT_EQ(Page().selected_index(), 255) << "the load leaves no event selected";
  const auto bank = static_cast<int>(DemoRom().layout.Map(1, 1).script_header / 0x4000);
  for (int number = 35; number <= 39; ++number)
    EXPECT_EQ(Page().bank_label(number)->text().toStdString(), Hex2(bank) + ":") << number;

  // Record 0 of the first list with records, also where that item was chosen before.
  Choose(kEventEnter, 0);
  ClickMap(5);  // 1.6: an Enter script of its own
  ExpectShown(kEventEnter, 0);
  ClickMap(1);  // 1.2: a warp, no scripts
  ExpectShown(kEventWarp, 0);
  EXPECT_EQ(Page().selected_index(), 0);
  EXPECT_FALSE(Page().event_list(kEventEnter)->isEnabled());
  ClickMap(2);  // 1.3: signposts and people only
  ExpectShown(kEventSign, 0);

  // A map of 6 x 5 blocks without any event, opened from 1.1.
  ClickMap(0);
  OpenThroughDialog(WriteRom("leer.gbc", RomBuilder().Title(kDemoTitle).Map(1, {.width = 6, .height = 5}).Build()));
  for (int kind = 0; kind < kEventKindCount; ++kind)
    EXPECT_EQ(std::pair(Page().event_list(kind)->isEnabled(), Page().event_list(kind)->count()), std::pair(false, 0));
  EXPECT_EQ(Caption(), "Daten");
  EXPECT_TRUE(ShownFrames().empty()) << "the frame of the previous map is hidden";
  const int maxima[] = {0, 17, 15, 17, 15, 21, 19, 17, 15};
  for (int number = 1; number <= 8; ++number) {
    EXPECT_EQ(Page().up_down(number)->maximum(), maxima[number]) << number;
    EXPECT_EQ(&Page().up_down(number)->buddy(), Text(UpDownField(number))) << number;
  }
  Text(2)->setText("15");  // steps stay within 0 and the limit
  Page().up_down(4)->Step(1);
  EXPECT_EQ(Text(2)->text(), "15");
  Text(2)->setText("0");
  Page().up_down(4)->down_button()->click();
  EXPECT_EQ(Text(2)->text(), "0");
}

TEST_F(EventPageTest, ChoosingFromAListShowsTheRecordUnlessShownOrLoading) {
  for (int kind : {kEventWarp, kEventTrigger, kEventSign, kEventPeople, kEventTime, kEventEnter}) {
    const int last = Events().Count(kind) - 1;
    Choose(kind, last);
    ExpectShown(kind, last);
    EXPECT_EQ(std::pair(Page().selected_kind(), Page().selected_index()), std::pair(kind, last));
  }

  // The item already shown is not shown again; another one is.
  Choose(kEventWarp, 1);
  Page().set_fields_updating(2);
  Text(3)->setText("ZZ");
  Page().set_fields_updating(0);
  Choose(kEventWarp, 1);
  EXPECT_EQ(Text(3)->text(), "ZZ");
  Choose(kEventWarp, 0);

  // While the program itself moves the lists, a choice does nothing.
  Page().set_lists_loading(true);
  Choose(kEventPeople, 1);
  Page().set_lists_loading(false);
  window_->state().rom_loading = 1;
  Choose(kEventPeople, 1);
  window_->state().rom_loading = 0;
  ExpectShown(kEventWarp, 0);
  EXPECT_FALSE(Document().History().CanUndo()) << "showing a record is no edit";
}

TEST_F(EventPageTest, TypingStoresExactlyTheFieldsBytes) {
  // Bytes keep the low 8 bits, words the low 16, high byte first; no number of <= 6 digits: ignored.
  ExpectEdit(kEventPeople, 1, {{0, 0xFF}, {9, 0x23}, {10, 0x45}, {11, 0xFF}, {12, 0x01}}, [&] {
    Type(Text(21), "1FF");
    Type(Text(26), "12345");
    Type(Text(27), "FF01");
    Text(23)->setText("1234567");
    Text(22)->selectAll();
    QTest::keyClick(Text(22), Qt::Key_Backspace);
    Type(Text(24), "H");  // "&HH"
  });
  EXPECT_EQ(Text(23)->text(), "1234567");
  // The script fields edit the record of their own list, though no event is selected.
  ExpectEdit(kEventEnter, 0, {{2, 0x7E}}, [&] { Type(Text(30), "7E"); });

  // Positions are decimal; people show theirs as stored, 4 being the map's first column.
  ExpectEdit(kEventWarp, 1, {{1, 9}}, [&] {
    Type(Text(1), "9");
    Text(2)->setText("1A");
  });
  ExpectEdit(kEventPeople, 0, {{2, 4}}, [&] { Type(Text(19), "4"); });
  EXPECT_EQ(Text(19)->text(), "4");
  // The arrows step the field, and the field moves the event.
  const int x = Events().Record(kEventTrigger, 0)[2] + 1;
  ExpectEdit(kEventTrigger, 0, {{2, x}}, [&] { Page().up_down(1)->up_button()->click(); });
  EXPECT_EQ(Text(10)->text(), QString::number(x));
}

TEST_F(EventPageTest, TheKeyFilterRewritesTypedKeysAndTheKeysOfOneFieldAreOneUndoStep) {
  Choose(kEventWarp, 0);
  const MapEventSet original = Events();
  QLineEdit* box = Text(3);  // the target warp, a hex byte
  const QString shown = box->text();
  auto stored = [&] { return Events().Record(kEventWarp, 0)[2]; };
  Type(box, "!ga");
  EXPECT_EQ(box->text(), "1A");
  QTest::keyClicks(box, QString::fromUtf8("§x="));
  EXPECT_EQ(box->text(), "1A30");
  QTest::keyClick(box, Qt::Key_Backspace);
  EXPECT_EQ(stored(), 0xA3);
  QTest::keyClick(box, Qt::Key_Left);
  QTest::keyClick(box, Qt::Key_Delete);
  EXPECT_EQ(box->text(), "1A");
  EXPECT_EQ(stored(), 0x1A);
  QTest::keyClick(box, Qt::Key_Return);  // the field is left: its step is closed
  Type(box, "7");
  EXPECT_EQ(stored(), 0x07);

  Click("mnuUndo");
  EXPECT_EQ(box->text(), "1A");
  EXPECT_EQ(stored(), 0x1A);
  Click("mnuUndo");
  EXPECT_EQ(box->text(), shown);
  EXPECT_EQ(Events(), original);
  EXPECT_FALSE(Document().History().CanUndo());
}

}  // namespace
}  // namespace kartova::test
