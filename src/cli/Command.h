#pragma once

#include <functional>
#include <iosfwd>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cli/Arguments.h"
#include "rom/SettingsReader.h"

namespace kartova::cli {

// What a command gets: its own arguments (after the command name, global options removed;
// a "--" that ends the options is kept, so that SplitOptions sees it), the settings it reads
// definitions from, and the two output streams.
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
  std::string usage;    // e.g. "info ROM"
  std::string summary;  // one line for the list of commands, at most 56 characters
  std::string help;     // one paragraph for `help COMMAND`
  std::function<int(const CommandContext&)> run;
};

// Each command file registers itself with a static CommandRegistrar, so that adding a command
// needs no edit elsewhere.
std::vector<Command>& Commands();
struct CommandRegistrar {
  explicit CommandRegistrar(Command c) { Commands().push_back(std::move(c)); }
};

// "Usage: kartova-cli [--ini FILE] USAGE", a line of its own.
std::string UsageLine(const std::string& usage);

// Wrong usage of a command: the reason the arguments could not be split (an unknown option,
// say) when there is one, else `what` ("map needs a ROM file, ..."), then the command's usage
// line. Returns the exit status 2.
int CommandUsageError(const CommandContext& ctx, const SplitArguments& split, const std::string& what,
                      const std::string& usage);

}  // namespace kartova::cli
