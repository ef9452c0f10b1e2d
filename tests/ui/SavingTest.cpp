#include <QMenu>
#include <cerrno>
#include <filesystem>

#include "EditorFixture.h"
#include "demo/DemoRom.h"
#include "ui/GraphicsController.h"

namespace kartova::test {
namespace {

const QString kSaveQuestion = QString::fromUtf8("Änderungen speichern?");

// Offsets at which two files of the same length differ.
std::vector<std::int64_t> Differences(const std::vector<std::uint8_t>& a, const std::vector<std::uint8_t>& b) {
  std::vector<std::int64_t> offsets;
  for (std::size_t i = 0; i < std::min(a.size(), b.size()); ++i)
    if (a[i] != b[i]) offsets.push_back(static_cast<std::int64_t>(i));
  return offsets;
}

class SavingTest : public EditorTest {
 protected:
  void SetUp() override {
    rom_ = WriteDemoRom();
    OpenEditorWith(rom_);
    map_ = DemoRom().layout.Map(1, 1);
  }
  // The border block (secondary byte 0) typed into Header(3), and one map cell painted.
  void EditBorderAndPaint() {
    Type(Box(3), "5A");
    Document().PaintCell(3, 3, 0x42);
    Document().EndStroke();
    window_->DocumentEdited();
  }
  std::vector<std::uint8_t> OnDisk() const { return ReadFileBytes(rom_); }
  bool TitleMarked() const { return ShownTitle(*window_).contains('*'); }

  std::string rom_;
  MapLayout map_;
};

TEST_F(SavingTest, EachScopeWritesOnlyItsRegionsAndTheTitleFollows) {
  EXPECT_EQ(ShownTitle(*window_), "Kartova v1.38 - demo.gbc");
  EditBorderAndPaint();
  EXPECT_EQ(ShownTitle(*window_), "Kartova v1.38 - demo.gbc*");

  Click("mnuSaveMap");
  EXPECT_EQ(Differences(DemoRom().bytes, OnDisk()), std::vector<std::int64_t>{map_.blocks});
  EXPECT_TRUE(TitleMarked()) << "the header edit is not saved yet";

  Click("mnuSaveEvents");  // the events were not edited: the same bytes again
  EXPECT_EQ(Differences(DemoRom().bytes, OnDisk()), std::vector<std::int64_t>{map_.blocks});

  Click("mnuSaveFull");
  EXPECT_EQ(Differences(DemoRom().bytes, OnDisk()), (std::vector<std::int64_t>{map_.secondary_header, map_.blocks}));
  EXPECT_EQ(OnDisk()[static_cast<std::size_t>(map_.secondary_header)], 0x5A);
  EXPECT_EQ(ShownTitle(*window_), "Kartova v1.38 - demo.gbc");
  EXPECT_EQ(window_->reload_scope(), 0);

  // Undoing a saved edit makes the document differ from the file again.
  Click("mnuUndo");
  EXPECT_TRUE(TitleMarked());
}

TEST_F(SavingTest, OpeningTheSaveMenuSavesInFullAndTheEntrySavesAgain) {
  int renames = 0;
  Document().SetWriteFaultHook([&](WriteStep step) {
    renames += step == WriteStep::kRename;
    return 0;
  });
  EditBorderAndPaint();
  emit window_->menu().Submenu("mnuSave")->aboutToShow();
  EXPECT_EQ(renames, 1);
  EXPECT_FALSE(TitleMarked());
  Click("mnuSaveMap");
  EXPECT_EQ(renames, 2);
  EXPECT_EQ(Differences(DemoRom().bytes, OnDisk()), (std::vector<std::int64_t>{map_.secondary_header, map_.blocks}));
}

TEST_F(SavingTest, AFailedSaveShowsTheFileAndTheReasonAndChangesNothing) {
  EditBorderAndPaint();
  Document().SetWriteFaultHook([](WriteStep step) { return step == WriteStep::kWrite ? ENOSPC : 0; });
  prompter_.ExpectMessage({});
  Click("mnuSaveFull");
  const QString shown = prompter_.asked.back().text;
  EXPECT_TRUE(shown.contains(QString::fromStdString(rom_))) << shown.toStdString();
  EXPECT_TRUE(shown.contains(QString::fromStdString(std::strerror(ENOSPC)))) << shown.toStdString();
  EXPECT_EQ(OnDisk(), DemoRom().bytes);
  EXPECT_TRUE(TitleMarked());
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir_.path()), {}), 3) << "no temporary file left";

  // A ROM deleted behind the editor's back is not made up again from the one map in memory.
  std::filesystem::remove(rom_);
  Document().SetWriteFaultHook({});
  prompter_.ExpectMessage({});
  Click("mnuSaveFull");
  EXPECT_FALSE(std::filesystem::exists(rom_));
}

TEST_F(SavingTest, SaveAsWritesTheCopyAndMakesItCurrent) {
  EditBorderAndPaint();
  const std::string copy = dir_.File("kopie.gbc");
  prompter_.ExpectSaveFile(QString::fromStdString(copy));
  Click("mnuSaveAs");
  EXPECT_EQ(prompter_.asked.back().text, QString::fromUtf8("Rom Speichern Unter"));
  EXPECT_EQ(OnDisk(), DemoRom().bytes);
  EXPECT_EQ(Differences(DemoRom().bytes, ReadFileBytes(copy)), (std::vector<std::int64_t>{map_.secondary_header, map_.blocks}));
  EXPECT_EQ(window_->rom_path(), QString::fromStdString(copy));
  EXPECT_EQ(ShownTitle(*window_), "Kartova v1.38 - kopie.gbc");

  // Cancelled, nothing happens; into a folder that is not there, the copy stays current.
  prompter_.ExpectSaveFile(std::nullopt);
  Click("mnuSaveAs");
  prompter_.ExpectSaveFile(QString::fromStdString(dir_.File("fehlt/neu.gbc")));
  prompter_.ExpectMessage({});
  Click("mnuSaveAs");
  EXPECT_EQ(window_->rom_path(), QString::fromStdString(copy));
}

TEST_F(SavingTest, UnsavedChangesAreAskedAboutBeforeTheyWouldBeLost) {
  EditBorderAndPaint();
  // Abbrechen: the map, its edits and both selectors stay.
  ClickBank(1);
  prompter_.ExpectMessage(kSaveQuestion, Prompter::Answer::kCancel);
  ClickMap(0);
  EXPECT_EQ(window_->map_selector()->bank_index(), 0);
  EXPECT_EQ(window_->map_selector()->map_index(), 0);
  EXPECT_EQ(Document().SelectedBank(), 0);
  EXPECT_EQ(Document().Grid().At(3, 3), 0x42);
  prompter_.ExpectMessage(kSaveQuestion, Prompter::Answer::kCancel);
  Click("mnuReloadFull");
  EXPECT_EQ(Document().Grid().At(3, 3), 0x42);
  prompter_.ExpectMessage(kSaveQuestion, Prompter::Answer::kCancel);
  EXPECT_FALSE(window_->close());

  // Nein: the other map is loaded and the edits are gone.
  prompter_.ExpectMessage(kSaveQuestion, Prompter::Answer::kNo);
  ClickMap(1);
  EXPECT_EQ(Document().SelectedMap(), 1);
  EXPECT_EQ(OnDisk(), DemoRom().bytes);
  EXPECT_FALSE(TitleMarked());
  EXPECT_FALSE(Document().History().CanUndo());

  // Ja: saved in full, then the window closes.
  Type(Box(3), "07");
  prompter_.ExpectMessage(kSaveQuestion, Prompter::Answer::kYes);
  EXPECT_TRUE(window_->close());
  EXPECT_EQ(OnDisk()[static_cast<std::size_t>(DemoRom().layout.Map(1, 2).secondary_header)], 0x07);
}

TEST_F(SavingTest, ASaveThatFailsOnTheQuestionKeepsEverything) {
  EditBorderAndPaint();
  Document().SetWriteFaultHook([](WriteStep step) { return step == WriteStep::kRename ? EIO : 0; });
  prompter_.ExpectMessage(kSaveQuestion, Prompter::Answer::kYes);
  prompter_.ExpectMessage({});
  ClickMap(1);
  EXPECT_EQ(Document().SelectedMap(), 0);
  EXPECT_EQ(window_->map_selector()->map_index(), 0);
  EXPECT_EQ(Document().Grid().At(3, 3), 0x42);
}

TEST_F(SavingTest, HeaderAndConnectionEditsAreUndoneAndRedoneOneBoxAtATime) {
  const QString border = Box(3)->text();
  const QString length = Box(14)->text();
  Type(Box(3), "1F");  // two keys, one step
  const SecondaryHeaderBuffer typed_border = Document().Secondary();
  Type(Box(14), "07");  // the strip length of the shown connection
  EXPECT_EQ(Document().History().Count(), 2u);
  EXPECT_EQ(Differences({typed_border.bytes.begin(), typed_border.bytes.end()},
                        {Document().Secondary().bytes.begin(), Document().Secondary().bytes.end()})
                .size(),
            1u);

  Click("mnuUndo");
  EXPECT_EQ(Document().Secondary().bytes, typed_border.bytes);
  EXPECT_EQ(Box(14)->text(), length);
  EXPECT_EQ(Box(3)->text(), "1F");
  Click("mnuUndo");
  EXPECT_EQ(Box(3)->text(), border);
  EXPECT_FALSE(Enabled("mnuUndo"));
  EXPECT_FALSE(TitleMarked());
  Click("mnuRedo");
  Click("mnuRedo");
  EXPECT_EQ(Box(3)->text(), "1F");
  EXPECT_EQ(Box(14)->text(), "07");
  EXPECT_FALSE(Enabled("mnuRedo"));
  EXPECT_TRUE(window_->changes_pending());
}

TEST_F(SavingTest, ExportThenImportLeavesTheMapAndAChangedFileIsOneStep) {
  const std::string file = dir_.File("karte.map");
  prompter_.ExpectSaveFile(QString::fromStdString(file));
  Click("mnuMapExp");
  std::vector<std::uint8_t> exported = ReadFileBytes(file);
  ASSERT_EQ(exported.size(), 1u + 20 * 16);
  EXPECT_EQ(exported[0], 0xFF);

  exported[1] = 0x33;  // the top-left block
  WriteFileBytes(file, exported);
  const int rebuilds = window_->graphics()->rebuilds();
  prompter_.ExpectOpenFile(QString::fromStdString(file));
  Click("mnuMapImp");
  EXPECT_EQ(Document().Grid().At(3, 3), 0x33);
  EXPECT_GT(window_->graphics()->rebuilds(), rebuilds);
  EXPECT_TRUE(TitleMarked());
  Click("mnuUndo");
  EXPECT_EQ(Document().Grid().At(3, 3), DemoRom().bytes[static_cast<std::size_t>(map_.blocks)]);

  // A folder cannot be imported from or exported to.
  prompter_.ExpectOpenFile(QString::fromStdString(dir_.path().string()));
  prompter_.ExpectMessage({});
  Click("mnuMapImp");
  prompter_.ExpectSaveFile(QString::fromStdString(dir_.path().string()));
  prompter_.ExpectMessage({});
  Click("mnuMapExp");
}

}  // namespace
}  // namespace kartova::test
