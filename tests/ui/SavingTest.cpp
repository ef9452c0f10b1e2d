#include <QMenu>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <filesystem>
#include <functional>
#include <numeric>

#include "EditorFixture.h"
#include "demo/DemoRom.h"
#include "ui/GraphicsController.h"

namespace kartova::test {
namespace {

using Offsets = std::vector<std::int64_t>;
const QString kSaveQuestion = QString::fromUtf8("Änderungen speichern?");

class SavingTest : public EditorTest {
 protected:
  void SetUp() override {
    OpenEditorWith(rom_ = WriteDemoRom());
    map_ = DemoRom().layout.Map(1, 1);
  }
  // The border block (secondary byte 0) typed into Header(3), and one map cell painted.
  void EditBorderAndPaint() {
    Type(Box(3), "5A");
    Document().PaintCell(3, 3, 0x42);
    Document().EndStroke();
    window_->DocumentEdited();
  }
  // Where a file (the ROM by default) differs from the demo ROM, -1 standing for its length.
  Offsets Changed(std::string path = {}) const {
    const std::vector<std::uint8_t> bytes = ReadFileBytes(path.empty() ? rom_ : path);
    const std::vector<std::uint8_t>& demo = DemoRom().bytes;
    Offsets offsets;
    for (std::size_t i = 0; i < std::min(bytes.size(), demo.size()); ++i)
      if (bytes[i] != demo[i]) offsets.push_back(static_cast<std::int64_t>(i));
    if (bytes.size() != demo.size()) offsets.push_back(-1);
    return offsets;
  }
  Offsets BothEdits() const { return {map_.secondary_header, map_.blocks}; }
  int ByteOnDisk(std::int64_t offset) const { return ReadFileBytes(rom_)[static_cast<std::size_t>(offset)]; }
  bool TitleMarked() const { return ShownTitle(*window_).contains('*'); }
  void FailSavesAt(WriteStep failing, int error) {
    Document().SetWriteFaultHook([=](WriteStep step) { return step == failing ? error : 0; });
  }

  std::string rom_;
  MapLayout map_;
};

TEST_F(SavingTest, EachScopeWritesOnlyItsRegionsAndTheTitleFollows) {
  EXPECT_EQ(ShownTitle(*window_), "Kartova v1.38 - demo.gbc");
  EditBorderAndPaint();
  EXPECT_EQ(ShownTitle(*window_), "Kartova v1.38 - demo.gbc*");
  Click("mnuSaveMap");
  EXPECT_EQ(Changed(), Offsets{map_.blocks});
  EXPECT_TRUE(TitleMarked()) << "the header edit is not saved yet";
  Click("mnuSaveEvents");  // the events were not edited: the same bytes again
  EXPECT_EQ(Changed(), Offsets{map_.blocks});
  Click("mnuSaveFull");
  EXPECT_EQ(Changed(), BothEdits());
  EXPECT_EQ(ByteOnDisk(map_.secondary_header), 0x5A);
  EXPECT_EQ(ShownTitle(*window_), "Kartova v1.38 - demo.gbc");
  EXPECT_EQ(window_->state().reload_scope, 0);
  Click("mnuUndo");  // a saved edit undone differs from the file again
  EXPECT_TRUE(TitleMarked());

  // Opening the Save menu saves in full; its entry then saves once more.
  int renames = 0;
  Document().SetWriteFaultHook([&](WriteStep step) {
    renames += step == WriteStep::kRename;
    return 0;
  });
  emit window_->menu().Submenu("mnuSave")->aboutToShow();
  EXPECT_EQ(renames, 1);
  EXPECT_FALSE(TitleMarked());
  Click("mnuSaveMap");
  EXPECT_EQ(renames, 2);
  EXPECT_EQ(Changed(), Offsets{map_.secondary_header}) << "the paint was undone";
}

TEST_F(SavingTest, AFailedSaveShowsTheFileAndTheReasonAndChangesNothing) {
  EditBorderAndPaint();
  FailSavesAt(WriteStep::kWrite, ENOSPC);
  prompter_.ExpectMessage({});
  Click("mnuSaveFull");
  const std::string shown = prompter_.asked.back().text.toStdString();
  EXPECT_NE(shown.find(rom_), std::string::npos) << shown;
  EXPECT_NE(shown.find(std::strerror(ENOSPC)), std::string::npos) << shown;
  EXPECT_TRUE(prompter_.asked.back().detail.startsWith("Datei: " + QString::fromStdString(dir_.path().string())));
  EXPECT_EQ(Changed(), Offsets{});
  EXPECT_TRUE(TitleMarked());
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir_.path()), {}), 3) << "no temporary file left";

  // Failing after Ja to the question, the map and its edits stay.
  FailSavesAt(WriteStep::kRename, EIO);
  prompter_.ExpectMessage(kSaveQuestion, Prompter::Answer::kYes);
  prompter_.ExpectMessage({});
  ClickMap(1);
  EXPECT_EQ(std::pair(Document().SelectedMap(), window_->map_selector()->map_index()), std::pair(0, 0));
  EXPECT_EQ(Document().Grid().At(3, 3), 0x42);

  // A ROM deleted behind the editor's back is not made up again from the one map in memory.
  std::filesystem::remove(rom_);
  Document().SetWriteFaultHook({});
  prompter_.ExpectMessage({});
  Click("mnuSaveFull");
  EXPECT_FALSE(std::filesystem::exists(rom_));
}

TEST_F(SavingTest, ARomWrittenByAnotherProgramIsOnlySavedOverWhenTheUserSaysSo) {
  EditBorderAndPaint();
  std::vector<std::uint8_t> theirs = DemoRom().bytes;
  theirs[0x1F0000] = 0xAB;
  WriteFileBytes(rom_, theirs);
  std::filesystem::last_write_time(rom_, std::filesystem::last_write_time(rom_) + std::chrono::seconds(2));

  prompter_.ExpectMessage({}, Prompter::Answer::kNo);
  Click("mnuSaveFull");
  EXPECT_TRUE(prompter_.asked.back().text.contains(QString::fromUtf8("von einem anderen Programm verändert")));
  EXPECT_EQ(Changed(), Offsets{0x1F0000});
  EXPECT_TRUE(TitleMarked());

  prompter_.ExpectMessage({}, Prompter::Answer::kYes);
  Click("mnuSaveFull");
  EXPECT_EQ(Changed(), (Offsets{map_.secondary_header, map_.blocks, 0x1F0000}));
  Click("mnuSaveMap");  // the file is the editor's own again: no question
}

TEST_F(SavingTest, SaveAsWritesTheCopyAndMakesItCurrent) {
  EditBorderAndPaint();
  const QString copy = QString::fromStdString(dir_.File("kopie.gbc"));
  prompter_.ExpectSaveFile(copy);
  Click("mnuSaveAs");
  EXPECT_EQ(prompter_.asked.back().text, QString::fromUtf8("Rom Speichern Unter"));
  EXPECT_EQ(Changed(), Offsets{});
  EXPECT_EQ(Changed(copy.toStdString()), BothEdits());
  EXPECT_EQ(ShownTitle(*window_), "Kartova v1.38 - kopie.gbc");

  // Cancelled, nothing happens; into a folder that is not there, the copy stays current.
  prompter_.ExpectSaveFile(std::nullopt);
  Click("mnuSaveAs");
  prompter_.ExpectSaveFile(QString::fromStdString(dir_.File("fehlt/neu.gbc")));
  prompter_.ExpectMessage({});
  Click("mnuSaveAs");
  EXPECT_EQ(window_->rom_path(), copy);
}

TEST_F(SavingTest, UnsavedChangesAreAskedAboutBeforeTheyWouldBeLost) {
  EditBorderAndPaint();
  // Abbrechen: the map, its edits and both selectors stay.
  ClickBank(1);
  prompter_.ExpectMessage(kSaveQuestion, Prompter::Answer::kCancel);
  ClickMap(0);
  EXPECT_EQ(std::pair(window_->map_selector()->bank_index(), window_->map_selector()->map_index()), std::pair(0, 0));
  prompter_.ExpectMessage(kSaveQuestion, Prompter::Answer::kCancel);
  Click("mnuReloadFull");
  EXPECT_EQ(Document().Grid().At(3, 3), 0x42);
  prompter_.ExpectMessage(kSaveQuestion, Prompter::Answer::kCancel);
  EXPECT_FALSE(window_->close());

  // Nein: the other map is loaded and the edits are gone.
  prompter_.ExpectMessage(kSaveQuestion, Prompter::Answer::kNo);
  ClickMap(1);
  EXPECT_EQ(Document().SelectedMap(), 1);
  EXPECT_FALSE(TitleMarked());
  EXPECT_FALSE(Document().History().CanUndo());

  // Ja: saved in full, then the window closes.
  Type(Box(3), "07");
  prompter_.ExpectMessage(kSaveQuestion, Prompter::Answer::kYes);
  EXPECT_TRUE(window_->close());
  const std::int64_t border = DemoRom().layout.Map(1, 2).secondary_header;
  EXPECT_EQ(Changed(), Offsets{border});
  EXPECT_EQ(ByteOnDisk(border), 0x07);
}

TEST_F(SavingTest, HeaderAndConnectionEditsAreUndoneAndRedoneOneBoxAtATime) {
  const QString border = Box(3)->text(), length = Box(14)->text();
  Type(Box(3), "1F");  // two keys, one step
  const SecondaryHeaderBuffer typed_border = Document().Secondary();
  Type(Box(14), "07");  // the strip length of the shown connection: one byte more
  EXPECT_EQ(Document().History().Count(), 2u);
  const auto &now = Document().Secondary().bytes, &was = typed_border.bytes;
  EXPECT_EQ(std::inner_product(now.begin(), now.end(), was.begin(), 0, std::plus<>(), std::not_equal_to<>()), 1);

  Click("mnuUndo");
  EXPECT_EQ(Document().Secondary().bytes, typed_border.bytes);
  EXPECT_EQ(Box(14)->text() + Box(3)->text(), length + "1F");
  Click("mnuUndo");
  EXPECT_EQ(Box(3)->text(), border);
  EXPECT_FALSE(Enabled("mnuUndo"));
  EXPECT_FALSE(TitleMarked());
  Click("mnuRedo");
  Click("mnuRedo");
  EXPECT_EQ(Box(3)->text() + Box(14)->text(), "1F07");
  EXPECT_FALSE(Enabled("mnuRedo"));
  EXPECT_TRUE(window_->state().changes_pending);
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

  // Refused files are named whole, with the system's reason below.
  const std::string missing = dir_.File("fehlt/karte.map");
  prompter_.ExpectSaveFile(QString::fromStdString(missing));
  prompter_.ExpectMessage({});
  Click("mnuMapExp");
  EXPECT_TRUE(prompter_.asked.back().text.startsWith(QString::fromStdString(
      "Die Map konnte nicht nach \"" + missing + "\" exportiert werden.\n\nGrund: " + std::strerror(ENOENT))))
      << prompter_.asked.back().text.toStdString();
  prompter_.ExpectOpenFile(QString::fromStdString(dir_.path().string()));  // a folder: refused
  prompter_.ExpectMessage({});
  Click("mnuMapImp");
  EXPECT_TRUE(prompter_.asked.back().text.startsWith(
      QString::fromStdString("Die Map \"" + dir_.path().string() + "\" konnte nicht importiert werden.\n\nGrund: ")));
  EXPECT_EQ(prompter_.asked.back().detail.toStdString(), "Datei: " + dir_.path().string());
}

}  // namespace
}  // namespace kartova::test
