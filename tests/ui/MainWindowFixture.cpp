#include "MainWindowFixture.h"

#include <QAction>
#include <QCoreApplication>
#include <filesystem>

namespace kartova::test {

MainWindowTest::MainWindowTest() : program_dir_(dir_.File("program")) {
  std::filesystem::create_directory(program_dir_);
  store_ = std::make_unique<SettingsStore>(program_dir_, dir_.File("registry.ini"));
}

MainWindowTest::~MainWindowTest() { window_.reset(); }

void MainWindowTest::PresetRegistry(const std::string& key, const std::string& value) {
  store_->WriteRegistry("Settings", key, value);
}

void MainWindowTest::PresetIni(const std::string& key, const std::string& value) {
  store_->WriteIni("Settings", key, value);
}

std::string MainWindowTest::Registry(const std::string& key) const {
  return store_->ReadRegistry("Settings", key, "<none>");
}

std::string MainWindowTest::Ini(const std::string& key) const {
  return store_->ReadIni("Settings", key, "<none>");
}

ObservedMainWindow& MainWindowTest::StartWindow() {
  auto window = std::make_unique<ObservedMainWindow>(*store_, prompter_,
                                                     QString::fromStdString(program_dir_));
  ObservedMainWindow& observed = *window;
  window_ = std::move(window);
  window_->Start();
  window_->show();
  QCoreApplication::processEvents();
  return observed;
}

MainWindow& MainWindowTest::StartEditor(const QString& rom_argument) {
  window_ = std::make_unique<MainWindow>(*store_, prompter_, QString::fromStdString(program_dir_));
  StartupOptions options;
  options.rom_path = rom_argument;
  window_->set_startup_options(options);
  window_->Start();
  window_->show();
  QCoreApplication::processEvents();
  return *window_;
}

void MainWindowTest::Click(const char* item) {
  QAction* action = window_->menu().Item(item);
  ASSERT_NE(action, nullptr) << item;
  ASSERT_TRUE(action->isEnabled()) << item;
  action->trigger();
}

std::string MainWindowTest::TwipsTextX(int pixels) const {
  return std::to_string(window_->placement().ToTwipsX(pixels));
}

std::string MainWindowTest::TwipsTextY(int pixels) const {
  return std::to_string(window_->placement().ToTwipsY(pixels));
}

}  // namespace kartova::test
