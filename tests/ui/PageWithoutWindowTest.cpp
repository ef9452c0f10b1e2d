// The header page with its connection and link data frames, built on a document and a
// PageContext of the test's own: no main window exists here, so everything the page reaches
// beyond itself has to go through the context.

#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <gtest/gtest.h>

#include "ScriptedPrompter.h"
#include "demo/RomBuilder.h"
#include "maps/ConnectionEditor.h"
#include "maps/HeaderFields.h"
#include "maps/RomDocument.h"
#include "rom/RuntimeError.h"
#include "support/MemorySettings.h"
#include "support/TempDir.h"
#include "ui/ConnectionFrame.h"
#include "ui/HeaderPage.h"
#include "ui/LinkDataFrame.h"
#include "ui/PageContext.h"

namespace kartova::test {
namespace {

class TestContext : public PageContext {
 public:
  PageState& state() override { return state_; }
  Prompter& prompter() override { return prompter_; }
  PageEvents& events() override { return events_; }
  void DocumentEdited() override { ++edits; }
  bool SwitchToMap(int bank_index, int map_index) override {
    switches.emplace_back(bank_index, map_index);
    return false;
  }
  bool FollowWarpTo(int, int) override {
    ADD_FAILURE() << "the header page follows no warps";
    return false;
  }
  void ShowStatus(int, const QString&) override {}

  PageState state_;
  ScriptedPrompter prompter_;
  PageEvents events_;
  int edits = 0;
  std::vector<std::pair<int, int>> switches;
};

// Map 1.1, 10 x 9, has a southern (1.2) and an eastern (1.3) neighbour.
BuiltRom ConnectedWorld() {
  return RomBuilder()
      .Map(1, {.width = 10, .height = 9,
               .connections = {{.direction = Direction::kSouth, .target = {1, 2}},
                               {.direction = Direction::kEast, .target = {1, 3}}}})
      .Map(1, {.width = 10, .height = 6, .connections = {{.direction = Direction::kNorth, .target = {1, 1}}}})
      .Map(1, {.width = 8, .height = 9, .connections = {{.direction = Direction::kWest, .target = {1, 1}}}})
      .BuildWithLayout();
}

class PageWithoutWindowTest : public ::testing::Test {
 protected:
  PageWithoutWindowTest() {
    WriteFileBytes(path_, ConnectedWorld().bytes);
    document_.OpenRom(path_, settings_);
    page_.ApplyDefinition(document_.Definition());
    // What the window does at a map load: the header page first, then the others listen.
    document_.LoadSelectedMap(0, 0, [this](MapLoadStep step) {
      if (step == MapLoadStep::kHeaderPage) {
        page_.ShowHeaderFields(-1);
        page_.ShowHeaderCombos(-1);
        page_.MatchConnectionSelectors();
      }
      emit context_.events().MapLoadStepDone(step);
    });
    context_.state_.changes_pending = false;
  }

  ConnectionFrame& Frame() const { return *page_.connection_frame(); }
  ConnectionRecord Slot(int slot) const { return ReadConnectionSlot(document_.Secondary().bytes, slot); }

  TempDir dir_;
  std::string path_ = dir_.File("connected.gbc");
  MemorySettings settings_;
  RomDocument document_;
  TestContext context_;
  HeaderPage page_{document_, context_};
};

TEST_F(PageWithoutWindowTest, ShowsTheLoadedMapAndReportsOnlyTheUsersEditsToTheContext) {
  EXPECT_EQ(page_.header(8)->text() + page_.header(9)->text() + page_.header(10)->text(), "050A09");
  EXPECT_TRUE(Frame().selector(3)->isChecked());  // east, the first direction set
  EXPECT_EQ(context_.edits, 0);
  EXPECT_EQ(context_.state_.updating_controls, kUpdatingIdle);
  EXPECT_FALSE(document_.History().CanUndo());
  // The link data view waits for the window to ask for it.
  EXPECT_FALSE(page_.link_data_frame()->isEnabled());
  emit context_.events_.LinkDataViewRequested();
  EXPECT_TRUE(page_.link_data_frame()->isEnabled());

  ConnectionRecord east = Slot(1);
  page_.header(12)->setText("1234");
  east[2] = 0x12;
  east[3] = 0x34;
  EXPECT_EQ(Slot(1), east);
  EXPECT_GT(context_.edits, 0);
  EXPECT_TRUE(context_.state_.changes_pending);
  EXPECT_TRUE(document_.History().CanUndo());
  // While the context says the page is being refilled, a write is no edit.
  const int edits = context_.edits;
  context_.state_.updating_controls = kUpdatingShowingHeaders;
  page_.header(12)->setText("5678");
  EXPECT_EQ(Slot(1), east);
  EXPECT_EQ(context_.edits, edits);
}

TEST_F(PageWithoutWindowTest, ANeighbourIsOpenedThroughTheContextAndErrorsEndAtItsBoundary) {
  Frame().command(3)->click();  // "Fenster zeigen" of the eastern record: map 1.3
  EXPECT_EQ(context_.switches, (std::vector<std::pair<int, int>>{{0, 2}}));
  page_.header(19)->setText("09");  // no such map: nothing happens
  Frame().command(3)->click();

  // Banks 0 and 27 raise the subscript error inside the handler; the context's prompter shows
  // it and the page goes on.
  for (const char* bank : {"00", "1B"}) {
    page_.header(11)->setText(bank);
    context_.prompter_.ExpectMessage(QString::fromStdString(RuntimeError::SubscriptOutOfRange().GermanMessage()));
    Frame().command(4)->click();
  }
  EXPECT_EQ(context_.prompter_.asked.size(), 2u);
  EXPECT_EQ(context_.switches.size(), 1u);
}

}  // namespace
}  // namespace kartova::test
