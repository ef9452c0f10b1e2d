#include "EditorFixture.h"

#include <QCoreApplication>
#include <QTabBar>
#include <QTest>

#include "demo/DemoRom.h"

namespace kartova::test {

const BuiltRom& DemoRom() {
  static const BuiltRom rom = DemoRomBuilder().BuildWithLayout();
  return rom;
}

EditorTest::EditorTest() {
  PresetRegistry("DefaultPropertyPath", "ini");
  AddDefinitions("[Settings]\nDefaultPropertyPath=ini\n" + DemoDefinitionIni());
}

void EditorTest::AddDefinitions(const std::string& ini_text) {
  ini_text_ += ini_text + "\n";
  WriteFileText(store_->IniPath(), ini_text_);
}

MainWindow& EditorTest::OpenEditorWith(const std::string& path) {
  MainWindow& window = StartEditor();
  QObject::connect(&window.events(), &PageEvents::MapLoadStepDone, &window,
                   [this](MapLoadStep step) { steps_.push_back(step); });
  OpenThroughDialog(path);
  return window;
}

void EditorTest::Activate(QComboBox* combo, int index) {
  combo->setCurrentIndex(index);
  emit combo->activated(index);
}

void EditorTest::Type(QLineEdit* box, const QString& text) {
  box->setFocus();
  box->selectAll();
  QTest::keyClicks(box, text);
}

void EditorTest::ClickTab(int tab) {
  window_->tab_strip()->setCurrentIndex(tab);
  QCoreApplication::processEvents();
}

}  // namespace kartova::test
