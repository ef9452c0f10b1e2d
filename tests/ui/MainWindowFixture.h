#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include "ScriptedPrompter.h"
#include "settings/SettingsStore.h"
#include "rom/RuntimeError.h"
#include "support/TempDir.h"
#include "ui/MainWindow.h"

namespace kartova::test {

// The title as the window shows it: the [*] placeholder becomes "*" while the document has
// unsaved changes and disappears otherwise.
inline QString ShownTitle(const QWidget& window) {
  QString title = window.windowTitle();
  return title.replace(QStringLiteral("[*]"), window.isWindowModified() ? QStringLiteral("*") : QString());
}

inline QString SubscriptMessage() {
  return QString::fromStdString(RuntimeError::SubscriptOutOfRange().GermanMessage());
}

// The real main window, with OpenRom observed instead of opening anything.
class ObservedMainWindow : public MainWindow {
 public:
  using MainWindow::MainWindow;
  void OpenRom() override { opened_paths.push_back(rom_path()); }
  std::vector<QString> opened_paths;
};

// A program directory and a registry file of its own for every test, so that no user settings
// are read or touched; the window is started and shown on the offscreen platform.
class MainWindowTest : public ::testing::Test {
 protected:
  MainWindowTest();
  ~MainWindowTest() override { window_.reset(); }

  // Settings as they were before the program started, and as they are now.
  void PresetRegistry(const std::string& key, const std::string& value) { store_->WriteRegistry("Settings", key, value); }
  void PresetIni(const std::string& key, const std::string& value) { store_->WriteIni("Settings", key, value); }
  std::string Registry(const std::string& key) const { return store_->ReadRegistry("Settings", key, "<none>"); }
  std::string Ini(const std::string& key) const { return store_->ReadIni("Settings", key, "<none>"); }

  ObservedMainWindow& StartWindow();
  // The real editor, OpenRom and all; rom_argument is its command line ROM.
  MainWindow& StartEditor(const QString& rom_argument = {});
  // A click on a menu item; the item must be enabled.
  void Click(const char* item);
  bool Checked(const char* item) const { return window_->menu().Checked(item); }
  bool Enabled(const char* item) const { return window_->menu().Enabled(item); }
  // Every checked item of the menu in name order, and the enabled ones among items in their
  // order; each name followed by a blank.
  std::string CheckedItems() const;
  std::string EnabledAmong(std::initializer_list<const char*> items) const;

  int PixelsX(double twips) const { return window_->placement().ToPixelsX(twips); }
  int PixelsY(double twips) const { return window_->placement().ToPixelsY(twips); }
  std::string TwipsTextX(int pixels) const { return std::to_string(window_->placement().ToTwipsX(pixels)); }
  std::string TwipsTextY(int pixels) const { return std::to_string(window_->placement().ToTwipsY(pixels)); }

  TempDir dir_;
  std::string program_dir_;
  std::unique_ptr<SettingsStore> store_;
  ScriptedPrompter prompter_;
  std::unique_ptr<MainWindow> window_;

 private:
  template <typename Window>
  Window& Start(const QString& rom_argument);
};

}  // namespace kartova::test
