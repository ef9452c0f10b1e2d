#pragma once

#include <functional>
#include <iosfwd>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "rom/SettingsReader.h"

namespace kartova::cli {

// What a command gets: its own arguments (after the command name, global options removed),
// the settings it reads definitions from, and the two output streams.
struct CommandContext {
  std::vector<std::string> args;
  const SettingsReader& settings;
  std::ostream& out;
  std::ostream& err;
  // The error stream is a terminal, where a progress line can be redrawn in place.
  bool err_is_terminal = false;
};

struct Command {
  std::string name;
  std::string usage;  // e.g. "info ROM"
  std::string help;   // one paragraph for --help
  std::function<int(const CommandContext&)> run;
};

// Each command file registers itself with a static CommandRegistrar, so that adding a command
// needs no edit elsewhere.
std::vector<Command>& Commands();
struct CommandRegistrar {
  explicit CommandRegistrar(Command c) { Commands().push_back(std::move(c)); }
};

}  // namespace kartova::cli
