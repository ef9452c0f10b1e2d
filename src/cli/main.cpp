// kartova-cli: the editor's data paths from the command line.

#include <algorithm>
#include <cerrno>
#include <exception>
#include <iostream>
#include <optional>
#include <sstream>
#include <string>
#include <system_error>
#include <vector>

#include <unistd.h>

#include "cli/CliSettings.h"
#include "cli/Command.h"
#include "cli/Messages.h"
#include "maps/RomFileChecks.h"
#include "rom/RuntimeError.h"

namespace kartova::cli {

namespace {

constexpr int kExitError = 1;
constexpr int kExitUsage = 2;
constexpr std::size_t kHelpWidth = 78;
constexpr std::size_t kSummaryColumn = 22;

const char* const kUsage = "Usage: kartova-cli [--ini FILE] COMMAND [ARGS...]";

// text broken into lines of at most kHelpWidth characters, each indented.
std::string Wrapped(const std::string& text, std::size_t indent) {
  std::istringstream words(text);
  std::string out, line, word;
  const std::string pad(indent, ' ');
  while (words >> word) {
    if (!line.empty() && pad.size() + line.size() + 1 + word.size() > kHelpWidth) {
      out += pad + line + "\n";
      line.clear();
    }
    line += (line.empty() ? "" : " ") + word;
  }
  if (!line.empty()) out += pad + line + "\n";
  return out;
}

std::vector<const Command*> SortedCommands() {
  std::vector<const Command*> sorted;
  for (const Command& c : Commands()) sorted.push_back(&c);
  std::sort(sorted.begin(), sorted.end(),
            [](const Command* a, const Command* b) { return a->name < b->name; });
  return sorted;
}

const Command* FindCommand(const std::string& name) {
  for (const Command& c : Commands())
    if (c.name == name) return &c;
  return nullptr;
}

void PrintCommandHelp(std::ostream& out, const Command& c) {
  out << UsageLine(c.usage) << "\n" << Wrapped(c.help, 2);
}

void PrintHelp(std::ostream& out) {
  out << kUsage << "\n\n"
      << Wrapped("Reads Game Boy Color ROM images with the editor's own code and prints what it "
                 "finds, mostly as JSON.", 0)
      << "\nCommands:\n";
  for (const Command* c : SortedCommands()) {
    std::string name = "  " + c->name;
    name.resize(std::max(kSummaryColumn, name.size() + 2), ' ');
    out << name << c->summary << "\n";
  }
  out << "\nOptions (before the command, after it or among its arguments; '--' ends them):\n"
      << "  --ini FILE    Read settings and ROM definitions from the INI file FILE.\n"
      << "  -h, --help    Show this help; with a command, that command's usage.\n"
      << "  --version     Print the version of kartova-cli and exit.\n"
      << "\n'kartova-cli help COMMAND' shows what a command does and its options.\n\n"
      << "Settings:\n"
      << Wrapped("Without --ini, settings and ROM definitions come from the store the editor "
                 "uses: Kartova.ini (beside this program; in $XDG_CONFIG_HOME/Kartova/, by default "
                 "~/.config/Kartova/, when the program is installed, that is when "
                 "../share/kartova lies beside its directory) when both selectors ([Settings] "
                 "DefaultPropertyPath in Kartova.ini and in the per-user store) say something "
                 "other than \"reg\" and agree, otherwise the per-user store. Only "
                 "install-definition writes to it.", 2)
      << "\nExit status: 0 success, 1 error, 2 wrong usage.\n";
}

// The progress line of a long command is for a person watching, not for a log file.
bool StderrIsTerminal(const std::ostream& err) {
  return &err == &std::cerr && ::isatty(STDERR_FILENO) == 1;
}

int UsageError(std::ostream& err, const std::string& message) {
  PrintError(err, message);
  err << kUsage << "\nTry 'kartova-cli help'.\n";
  return kExitUsage;
}

// The command line with the global options taken out, wherever they stand before "--".
struct GlobalOptions {
  std::optional<std::string> ini;
  bool help = false;
  bool version = false;
  std::string command;             // empty when none was given
  std::vector<std::string> args;   // the command's arguments, a "--" among them kept
  std::string error;               // wrong usage
};

bool LooksLikeOption(const std::string& a) { return a.size() > 1 && a[0] == '-'; }

GlobalOptions ParseGlobalOptions(const std::vector<std::string>& args) {
  GlobalOptions g;
  // Before the command name only global options may stand; after it, the command's own
  // options are left to the command.
  auto take = [&](const std::string& word) {
    if (g.command.empty())
      g.command = word;
    else
      g.args.push_back(word);
  };
  for (std::size_t i = 0; i < args.size(); ++i) {
    const std::string& a = args[i];
    if (a == "--") {
      // The command's name may itself follow "--"; the command still learns where the
      // options ended.
      std::size_t next = i + 1;
      if (g.command.empty() && next < args.size()) g.command = args[next++];
      g.args.push_back("--");
      g.args.insert(g.args.end(), args.begin() + static_cast<std::ptrdiff_t>(next), args.end());
      break;
    }
    if (a == "--help" || a == "-h") {
      g.help = true;
    } else if (a == "--version") {
      g.version = true;
    } else if (a == "--ini") {
      if (i + 1 >= args.size()) {
        g.error = "--ini needs a file name";
        break;
      }
      g.ini = args[++i];
    } else if (a.rfind("--ini=", 0) == 0) {
      g.ini = a.substr(6);
    } else if (g.command.empty() && LooksLikeOption(a)) {
      g.error = "unknown option '" + a + "'";
      break;
    } else {
      take(a);
    }
  }
  return g;
}

int RunHelp(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
  const SplitArguments split = SplitOptions(args, {});
  if (!split.error.empty()) return UsageError(err, split.error);
  if (split.positional.empty()) {
    PrintHelp(out);
    return 0;
  }
  if (split.positional.size() > 1) return UsageError(err, "help takes one command name");
  const Command* c = FindCommand(split.positional[0]);
  if (c == nullptr) return UsageError(err, "unknown command '" + split.positional[0] + "'");
  PrintCommandHelp(out, *c);
  return 0;
}

int RunCommand(const Command& command, const std::vector<std::string>& args,
               const std::optional<std::string>& ini, const std::string& program_dir,
               std::ostream& out, std::ostream& err) {
  try {
    OpenedSettings settings = OpenCliSettings(ini, program_dir);
    if (!settings.reader) {
      PrintError(err, settings.error);
      return kExitError;
    }
    return command.run(CommandContext{args, *settings.reader, out, err, StderrIsTerminal(err)});
  } catch (const RuntimeError& e) {
    PrintError(err, RuntimeErrorText(e));
  } catch (const RomOpenError& e) {
    PrintError(err, e.GermanMessage());
  } catch (const std::exception& e) {
    PrintError(err, e.what());
  }
  return kExitError;
}

int Run(const std::vector<std::string>& args, const std::string& program_dir, std::ostream& out,
        std::ostream& err) {
  const GlobalOptions g = ParseGlobalOptions(args);
  if (!g.error.empty()) return UsageError(err, g.error);
  if (g.version) {
    out << kProgramName << " " << KARTOVA_VERSION << "\n";
    return 0;
  }
  if (g.command == "help") return RunHelp(g.args, out, err);
  if (g.command.empty()) {
    if (!g.help) return UsageError(err, "no command given");
    PrintHelp(out);
    return 0;
  }
  const Command* command = FindCommand(g.command);
  if (command == nullptr) return UsageError(err, "unknown command '" + g.command + "'");
  if (g.help) {
    PrintCommandHelp(out, *command);
    return 0;
  }
  return RunCommand(*command, g.args, g.ini, program_dir, out, err);
}

}  // namespace

}  // namespace kartova::cli

int main(int argc, char** argv) {
  const std::vector<std::string> args(argv + std::min(argc, 1), argv + argc);
  const int status = kartova::cli::Run(args, kartova::cli::ProgramDirectory(argc > 0 ? argv[0] : nullptr),
                                       std::cout, std::cerr);
  errno = 0;
  std::cout.flush();
  if (!std::cout) {
    const int error = errno;
    kartova::cli::PrintError(std::cerr, std::string("could not write the output") +
                                            (error != 0 ? ": " + std::generic_category().message(error) : ""));
    return 1;
  }
  return status;
}
