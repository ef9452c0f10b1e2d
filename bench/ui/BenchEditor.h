#pragma once

// The real editor window for the widget benchmarks: a program directory of its own under the
// system's temporary directory, the demo's ROM definition in its Kartova.ini, the ROM given
// as on the command line, every question answered with "Nein" and every dialog cancelled.

#include <QCoreApplication>
#include <filesystem>
#include <fstream>
#include <memory>
#include <random>
#include <string>

#include "settings/SettingsStore.h"
#include "demo/DemoRom.h"
#include "settings/QtRegistry.h"
#include "ui/MainWindow.h"
#include "ui/Prompter.h"

namespace kartova::bench {

class QuietPrompter : public Prompter {
 public:
  Answer Message(const QString&, const QString&, Buttons, Icon, const QString&) override {
    return Answer::kNo;
  }
  std::optional<QString> OpenFile(const QString&, const QString&, const QStringList&) override { return {}; }
  std::optional<QString> SaveFile(const QString&, const QString&, const QStringList&) override { return {}; }
  void OpenDocument(const QString&) override {}
};

class BenchEditor {
 public:
  explicit BenchEditor(const std::string& rom_path)
      : dir_(std::filesystem::temp_directory_path() /
             ("kartova-ui-bench-" + std::to_string(std::random_device{}()))) {
    const std::filesystem::path program = dir_ / "program";
    std::filesystem::create_directories(program);
    settings_ = std::make_unique<SettingsStore>(program.string(),
                                                std::make_unique<QtRegistry>((dir_ / "registry.ini").string()));
    settings_->WriteRegistry("Settings", "DefaultPropertyPath", "ini");
    std::ofstream(settings_->IniPath()) << "[Settings]\nDefaultPropertyPath=ini\n" << DemoDefinitionIni() << "\n";
    window_ = std::make_unique<MainWindow>(*settings_, prompter_);
    StartupOptions options;
    options.rom_path = QString::fromStdString(rom_path);
    window_->set_startup_options(options);
    window_->Start();
  }
  ~BenchEditor() {
    window_.reset();
    std::error_code ec;
    std::filesystem::remove_all(dir_, ec);
  }
  BenchEditor(const BenchEditor&) = delete;
  BenchEditor& operator=(const BenchEditor&) = delete;

  MainWindow& window() { return *window_; }

 private:
  std::filesystem::path dir_;
  std::unique_ptr<SettingsStore> settings_;
  QuietPrompter prompter_;
  std::unique_ptr<MainWindow> window_;
};

}  // namespace kartova::bench
