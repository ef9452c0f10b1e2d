#include "MainWindowFixture.h"

#include <QAction>
#include <QCoreApplication>
#include <filesystem>

#include "settings/QtRegistry.h"

namespace kartova::test {

MainWindowTest::MainWindowTest() : program_dir_(dir_.File("program")) {
  std::filesystem::create_directory(program_dir_);
  store_ = std::make_unique<SettingsStore>(program_dir_, std::make_unique<QtRegistry>(dir_.File("registry.ini")));
}

template <typename Window>
Window& MainWindowTest::Start(const QString& rom_argument) {
  auto window = std::make_unique<Window>(*store_, prompter_);
  Window& started = *window;
  window_ = std::move(window);
  StartupOptions options;
  options.rom_path = rom_argument;
  window_->set_startup_options(options);
  window_->Start();
  window_->show();
  QCoreApplication::processEvents();
  return started;
}

ObservedMainWindow& MainWindowTest::StartWindow() { return Start<ObservedMainWindow>({}); }

MainWindow& MainWindowTest::StartEditor(const QString& rom_argument) { return Start<MainWindow>(rom_argument); }

void MainWindowTest::Click(const char* item) {
  QAction* action = window_->menu().Item(item);
  ASSERT_NE(action, nullptr) << item;
  ASSERT_TRUE(action->isEnabled()) << item;
  action->trigger();
}

std::string MainWindowTest::CheckedItems() const {
  QStringList names;
  for (const QString& item : window_->menu().ItemNames())
    if (window_->menu().Checked(item)) names << item + " ";
  names.sort();
  return names.join("").toStdString();
}

std::string MainWindowTest::EnabledAmong(std::initializer_list<const char*> items) const {
  std::string names;
  for (const char* item : items)
    if (Enabled(item)) names += std::string(item) + " ";
  return names;
}

}  // namespace kartova::test
