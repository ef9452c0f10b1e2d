#include <algorithm>

#include "EditorFixture.h"
#include "support/BadInputs.h"

namespace kartova::test {
namespace {

// The editor window on every broken input: opened through the dialog, the first maps of the
// first banks chosen and shown on every page, then saved under a new name. The window must come
// through all of it, say only what it is known to say, and never write the file it opened.
class BadInputWindowTest : public EditorTest, public ::testing::WithParamInterface<BadInput> {
 protected:
  BadInputWindowTest() {
    prompter_.answer_anything = true;
    const BadInput& input = GetParam();
    if (input.ini) WriteFileText(store_->IniPath(), "[Settings]\nDefaultPropertyPath=ini\n" + *input.ini + "\n");
  }
};

// What the editor may say about a broken ROM or definition.
bool KnownMessage(const QString& text) {
  static const QStringList known = {
      "Laufzeitfehler",           "Fehler: Ziel-Map",     "Fehler: Ziel-Bank",
      "Datei nicht gefunden",     "zu klein",             "konnte nicht gespeichert werden",
      QString::fromUtf8("Änderungen speichern?"), "Keine Datei geladen",
      // The question on leaving the header page. Maps 0 blocks high and north connections
      // whose records do not fit the map raise it without any typing: a load that ends in a
      // runtime error leaves the flag the refill of the header page set.
      QString::fromUtf8("Damit die Änderungen sichtbar werden, müssen sie jetzt übernommen werden."),
  };
  return std::any_of(known.begin(), known.end(), [&](const QString& k) { return text.contains(k); });
}

TEST_P(BadInputWindowTest, TheWindowSurvivesAndNeverWritesTheSource) {
  const BadInput& input = GetParam();
  SCOPED_TRACE(input.name + ": " + input.what);
  const std::string source = dir_.File("kaputt.gbc");
  WriteBadInput(input, source);
  const std::string copy = dir_.File("kopie.gbc");

  OpenEditorWith(source);
  std::vector<int> banks;
  for (int b = 0; b < static_cast<int>(Document().MapCountPerBank().size()) && banks.size() < 3; ++b)
    if (Document().MapCountPerBank()[static_cast<std::size_t>(b)] > 0) banks.push_back(b);
  for (int bank : banks) {
    ClickBank(bank);
    const int maps = std::min(3, window_->map_selector()->map_count());
    for (int map = 0; map < maps; ++map) {
      ClickMap(map);
      for (int tab = 0; tab < 4; ++tab) ClickTab(tab);
    }
  }
  if (Enabled("mnuSaveAs")) {
    prompter_.ExpectSaveFile(QString::fromStdString(copy));
    Click("mnuSaveAs");
  }

  for (const ScriptedPrompter::Asked& asked : prompter_.asked) {
    if (asked.kind == ScriptedPrompter::Kind::kMessage) {
      EXPECT_TRUE(KnownMessage(asked.text)) << "unknown message: " << asked.text.toStdString();
    }
  }
  if (input.name == "IntactDemo") {  // the harness itself: quiet, and the copy written
    EXPECT_EQ(banks.size(), 3u);
    EXPECT_EQ(prompter_.asked.size(), 2u) << prompter_.asked.back().text.toStdString();
    EXPECT_TRUE(ReadFileBytes(copy) == input.bytes);
  }
  window_.reset();
  const std::vector<std::uint8_t> now = ReadFileBytes(source);
  if (input.zero_size != 0) {
    EXPECT_EQ(now.size(), input.zero_size);
    EXPECT_TRUE(std::all_of(now.begin(), now.end(), [](std::uint8_t b) { return b == 0; }));
  } else {
    EXPECT_TRUE(now == input.bytes) << "the source file was written";
  }
}

INSTANTIATE_TEST_SUITE_P(BadInputControl, BadInputWindowTest, ::testing::Values(IntactDemoInput()), BadInputName);
INSTANTIATE_TEST_SUITE_P(BadInput, BadInputWindowTest, ::testing::ValuesIn(BadInputs()), BadInputName);

}  // namespace
}  // namespace kartova::test
