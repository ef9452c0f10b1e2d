#include "cli/Command.h"

namespace kartova::cli {

std::vector<Command>& Commands() {
  static std::vector<Command> commands;
  return commands;
}

}  // namespace kartova::cli
