#include "cli/Command.h"

#include <ostream>

#include "cli/Messages.h"

namespace kartova::cli {

std::vector<Command>& Commands() {
  static std::vector<Command> commands;
  return commands;
}

std::string UsageLine(const std::string& usage) {
  return std::string("Usage: ") + kProgramName + " [--ini FILE] " + usage + "\n";
}

int CommandUsageError(const CommandContext& ctx, const SplitArguments& split, const std::string& what,
                      const std::string& usage) {
  PrintError(ctx.err, split.error.empty() ? what : split.error);
  ctx.err << UsageLine(usage);
  return 2;
}

}  // namespace kartova::cli
