#include "EditorFixture.h"

#include <QCoreApplication>
#include <QTabBar>
#include <QTest>

#include "demo/DemoRom.h"
#include "ui/MapSelector.h"
#include "ui/HeaderPage.h"

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

std::string EditorTest::WriteRom(const std::string& name, const std::vector<std::uint8_t>& bytes) {
  const std::string path = dir_.File(name);
  WriteFileBytes(path, bytes);
  return path;
}

std::string EditorTest::WriteDemoRom(const std::string& name) { return WriteRom(name, DemoRom().bytes); }

MainWindow& EditorTest::OpenEditorWith(const std::string& path) {
  MainWindow& window = StartEditor();
  QObject::connect(&window, &MainWindow::MapLoadStepDone, &window,
                   [this](MapLoadStep step) { steps_.push_back(step); });
  OpenThroughDialog(path);
  return window;
}

void EditorTest::OpenThroughDialog(const std::string& path) {
  prompter_.ExpectOpenFile(QString::fromStdString(path));
  Click("mnuLoad");
}

QComboBox* EditorTest::Combo(const char* name) const { return window_->findChild<QComboBox*>(name); }

QLineEdit* EditorTest::Box(int index) const { return window_->header_page()->header(index); }

QComboBox* EditorTest::HeaderCombo(int index) const { return window_->header_page()->header_combo(index); }

void EditorTest::ClickBank(int index) {
  QComboBox* combo = window_->map_selector()->bank_list();
  combo->setCurrentIndex(index);
  emit combo->activated(index);
}

void EditorTest::ClickMap(int index) {
  QComboBox* combo = window_->map_selector()->map_list();
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

std::uint8_t EditorTest::DemoByte(std::int64_t offset) const {
  return DemoRom().bytes.at(static_cast<std::size_t>(offset));
}

}  // namespace kartova::test
