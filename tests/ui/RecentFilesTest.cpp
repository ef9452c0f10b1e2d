#include <QAction>
#include <QApplication>
#include <QDir>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QUrl>
#include <filesystem>

#include "EditorFixture.h"
#include "ui/RecentFiles.h"

namespace kartova::test {
namespace {

const QString kSaveQuestion = QString::fromUtf8("Änderungen speichern?");

// The recent files, a ROM dropped on the window and the folders the file dialogs start in: the
// ways to a file that are not the open dialog's own.
class RecentFilesTest : public EditorTest {
 protected:
  QMenu& Menu() const { return *window_->menu().Submenu("mnuRecent"); }
  // The submenu as it opens: each entry's caption, "-" before a greyed one.
  QStringList Shown() const {
    emit Menu().aboutToShow();
    QStringList shown;
    for (const QAction* action : Menu().actions())
      if (!action->isSeparator()) shown << (action->isEnabled() ? "" : "-") + action->text();
    return shown;
  }
  QAction* Entry(int number) const { return Menu().actions().value(number - 1); }
  std::string Stored(int number) const {
    return store_->ReadIni("RecentFiles", "File" + std::to_string(number), "<none>");
  }
  QString Path(const std::string& name) const { return QString::fromStdString(dir_.File(name)); }
  void Paint() {
    Document().PaintCell(3, 3, 0x42);
    window_->DocumentEdited();
  }
};

TEST_F(RecentFilesTest, TheLastEightRomsComeFirstWithoutTwinsAndSurviveARestart) {
  StartEditor();
  EXPECT_EQ(Shown(), QStringList({"-(leer)", "-Liste leeren"}));
  OpenThroughDialog(WriteDemoRom("a&b.gbc"));
  EXPECT_EQ(Shown(), QStringList({"&1 a&&b.gbc", "Liste leeren"}));
  EXPECT_EQ(Entry(1)->toolTip(), Path("a&b.gbc"));
  EXPECT_EQ(Entry(1)->statusTip(), Path("a&b.gbc"));

  RecentFiles& recent = window_->recent_files();
  for (int i = 1; i <= 6; ++i) recent.Add(Path("weg" + std::to_string(i) + ".gbc"));
  OpenThroughDialog(WriteDemoRom("a&b.gbc"));  // opened again: back to the top, once
  const QString cwd = QDir::currentPath();
  QDir::setCurrent(QString::fromStdString(dir_.path().string()));
  recent.Add("./weg2.gbc");  // the same file by another name
  QDir::setCurrent(cwd);
  EXPECT_EQ(Shown(), QStringList({"-&1 weg2.gbc", "&2 a&&b.gbc", "-&3 weg6.gbc", "-&4 weg5.gbc", "-&5 weg4.gbc",
                                  "-&6 weg3.gbc", "-&7 weg1.gbc", "Liste leeren"}));
  EXPECT_TRUE(Entry(1)->toolTip().contains(Path("weg2.gbc"))) << Entry(1)->toolTip().toStdString();
  recent.Add(Path("weg7.gbc"));
  recent.Add(Path("weg8.gbc"));
  EXPECT_EQ(recent.files().size(), 8);
  EXPECT_EQ(recent.files().back(), Path("weg3.gbc"));
  EXPECT_EQ(Stored(1), dir_.File("weg8.gbc"));
  EXPECT_EQ(Stored(4), dir_.File("a&b.gbc"));

  const QStringList before = recent.files();
  StartEditor();
  EXPECT_EQ(window_->recent_files().files(), before);
  // A file deleted while the menu is open is refused as the open dialog's choice would be.
  Shown();
  ASSERT_TRUE(Entry(4)->isEnabled());
  std::filesystem::remove(dir_.File("a&b.gbc"));
  prompter_.ExpectMessage(QString::fromStdString("Datei nicht gefunden: " + dir_.File("a&b.gbc")));
  Entry(4)->trigger();
  EXPECT_EQ(prompter_.asked.back().detail.toStdString(), "Beim Öffnen der ROM-Datei " + dir_.File("a&b.gbc"));
  EXPECT_EQ(Shown()[3], "-&4 a&&b.gbc");

  Menu().actions().back()->trigger();  // "Liste leeren"
  EXPECT_EQ(Shown(), QStringList({"-(leer)", "-Liste leeren"}));
  EXPECT_EQ(Stored(1) + Stored(8), "");
}

TEST_F(RecentFilesTest, AnEntryOpensItsRomAfterTheQuestionAboutUnsavedChanges) {
  const std::string first = WriteDemoRom("erste.gbc");
  OpenEditorWith(first);
  OpenThroughDialog(WriteDemoRom("zweite.gbc"));
  Shown();
  ASSERT_EQ(Entry(2)->text(), "&2 erste.gbc");
  Paint();
  prompter_.ExpectMessage(kSaveQuestion, Prompter::Answer::kCancel);
  Entry(2)->trigger();
  EXPECT_EQ(Document().RomPath(), dir_.File("zweite.gbc"));

  prompter_.ExpectMessage(kSaveQuestion, Prompter::Answer::kNo);
  Entry(2)->trigger();
  EXPECT_EQ(Document().RomPath(), first);
  EXPECT_EQ(ShownTitle(*window_), "Kartova v1.38 - erste.gbc");
  EXPECT_EQ(Shown().mid(0, 2), QStringList({"&1 erste.gbc", "&2 zweite.gbc"}));
}

// Only a local file is taken; of several the first, and it opens once the drop is over.
TEST_F(RecentFilesTest, AFileDroppedOnTheWindowOpensAndOtherDropsAreRefused) {
  MainWindow& window = StartEditor();
  const auto drop = [&](const QList<QUrl>& urls) {
    QMimeData data;
    data.setUrls(urls);
    const QPoint at = window.rect().center();
    QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &enter);
    if (!enter.isAccepted()) return false;
    QDropEvent dropped(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &dropped);
    QApplication::processEvents();
    return dropped.isAccepted();
  };
  const QUrl web("http://example.org/demo.gbc");
  EXPECT_FALSE(drop({}));
  EXPECT_FALSE(drop({web}));
  QMimeData text;
  text.setText(QString::fromStdString(WriteDemoRom()));
  QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&window, &enter);
  EXPECT_FALSE(enter.isAccepted());
  EXPECT_TRUE(window.rom_path().isEmpty());

  EXPECT_TRUE(drop({web, QUrl::fromLocalFile(Path("demo.gbc")), QUrl::fromLocalFile(Path("x.gbc"))}));
  EXPECT_EQ(ShownTitle(window), "Kartova v1.38 - demo.gbc");

  Paint();
  prompter_.ExpectMessage(kSaveQuestion, Prompter::Answer::kCancel);
  EXPECT_TRUE(drop({QUrl::fromLocalFile(QString::fromStdString(WriteDemoRom("zweite.gbc")))}));
  EXPECT_EQ(Document().RomPath(), dir_.File("demo.gbc"));
  EXPECT_TRUE(window.isWindowModified());
}

// The dialogs start in the current ROM's folder; without one, in the folder last chosen in a
// dialog while that is there, else at home.
TEST_F(RecentFilesTest, FileDialogsStartInTheRomsFolderElseInTheLastOneChosen) {
  std::filesystem::create_directories(dir_.File("roms"));
  std::filesystem::create_directories(dir_.File("kopien"));
  OpenEditorWith(WriteDemoRom("roms/demo.gbc"));
  EXPECT_EQ(prompter_.asked.back().start_dir, QDir::homePath());
  prompter_.ExpectSaveFile(Path("roms/karte.map"));
  Click("mnuMapExp");
  EXPECT_EQ(prompter_.asked.back().start_dir, Path("roms"));
  prompter_.ExpectSaveFile(Path("kopien/kopie.gbc"));
  Click("mnuSaveAs");
  prompter_.ExpectOpenFile(Path("roms/karte.map"));
  Click("mnuMapImp");
  EXPECT_EQ(prompter_.asked.back().start_dir, Path("kopien"));
  prompter_.ExpectSaveFile(Path("karte.map"));
  Click("mnuMapExp");
  EXPECT_EQ(Ini("LastFolder"), dir_.path().string());

  StartEditor();
  EXPECT_EQ(window_->DialogFolder(), QString::fromStdString(dir_.path().string()));
  PresetIni("LastFolder", dir_.File("fehlt"));
  StartEditor();
  EXPECT_EQ(window_->DialogFolder(), QDir::homePath());
}

}  // namespace
}  // namespace kartova::test
