#pragma once

#include <QComboBox>
#include <QLineEdit>
#include <string>
#include <vector>

#include "MainWindowFixture.h"
#include "demo/RomBuilder.h"
#include "maps/RomDocument.h"
#include "ui/HeaderPage.h"
#include "ui/MapSelector.h"

namespace kartova::test {

// The demo ROM with its layout, built once for the whole test program.
const BuiltRom& DemoRom();

// The real editor with the demo's ROM definition installed in Kartova.ini (the INI back end
// selected in both stores), ROM images written to the test's directory, and helpers that act as
// the user does: choosing in the selectors, typing into boxes.
class EditorTest : public MainWindowTest {
 protected:
  EditorTest();

  std::string WriteRom(const std::string& name, const std::vector<std::uint8_t>& bytes) {
    WriteFileBytes(dir_.File(name), bytes);
    return dir_.File(name);
  }
  std::string WriteDemoRom(const std::string& name = "demo.gbc") { return WriteRom(name, DemoRom().bytes); }
  // More definition sections for Kartova.ini.
  void AddDefinitions(const std::string& ini_text);

  // Starts the editor and opens path through "Load Rom ...".
  MainWindow& OpenEditorWith(const std::string& path);
  void OpenThroughDialog(const std::string& path) {
    prompter_.ExpectOpenFile(QString::fromStdString(path));
    Click("mnuLoad");
  }

  QComboBox* Combo(const char* name) const { return window_->findChild<QComboBox*>(name); }
  QLineEdit* Box(int index) const { return window_->header_page()->header(index); }
  QComboBox* HeaderCombo(int index) const { return window_->header_page()->header_combo(index); }
  // A click on entry index of Combo2 or Combo3.
  void ClickBank(int index) { Activate(window_->map_selector()->bank_list(), index); }
  void ClickMap(int index) { Activate(window_->map_selector()->map_list(), index); }
  static void Activate(QComboBox* combo, int index);
  // Replaces the box's text key by key, as typing over a selection does.
  static void Type(QLineEdit* box, const QString& text);
  // Selects a page by clicking its tab.
  void ClickTab(int tab);

  RomDocument& Document() const { return window_->document(); }

  // Steps of the map loads since the editor started.
  std::vector<MapLoadStep> steps_;

 private:
  std::string ini_text_;
};

}  // namespace kartova::test
