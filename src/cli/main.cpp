// kartova-cli: the editor's data paths from the command line.

#include <algorithm>
#include <exception>
#include <iostream>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include <unistd.h>

#include "cli/CliSettings.h"
#include "cli/Command.h"
#include "maps/RomFileChecks.h"
#include "rom/RuntimeError.h"

namespace kartova::cli {

namespace {

constexpr int kExitError = 1;
constexpr int kExitUsage = 2;
constexpr std::size_t kHelpWidth = 78;

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
  out << "  kartova-cli [--ini FILE] " << c.usage << "\n" << Wrapped(c.help, 6);
}

void PrintHelp(std::ostream& out) {
  out << kUsage << "\n\n"
      << Wrapped("Reads Game Boy Color ROM images with the editor's own code and prints what it "
                 "finds, mostly as JSON.", 0)
      << "\nOptions:\n"
      << "  --ini FILE    Read settings and ROM definitions from the INI file FILE.\n"
      << "  -h, --help    Show this help. 'kartova-cli help COMMAND' shows one command.\n"
      << "  --version     Print the version of kartova-cli and exit.\n"
      << "\nCommands:\n";
  for (const Command* c : SortedCommands()) {
    PrintCommandHelp(out, *c);
    out << "\n";
  }
  out << "Settings:\n"
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
  err << "kartova-cli: " << message << "\n" << kUsage << "\nTry 'kartova-cli --help'.\n";
  return kExitUsage;
}

int RunHelp(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
  if (args.empty()) {
    PrintHelp(out);
    return 0;
  }
  const Command* c = FindCommand(args[0]);
  if (c == nullptr) return UsageError(err, "unknown command '" + args[0] + "'");
  PrintCommandHelp(out, *c);
  return 0;
}

int RunCommand(const Command& command, const std::vector<std::string>& args,
               const std::optional<std::string>& ini, const std::string& program_dir,
               std::ostream& out, std::ostream& err) {
  if (args.size() == 1 && (args[0] == "--help" || args[0] == "-h")) {
    PrintCommandHelp(out, command);
    return 0;
  }
  try {
    OpenedSettings settings = OpenCliSettings(ini, program_dir);
    if (!settings.reader) {
      err << "kartova-cli: " << settings.error << "\n";
      return kExitError;
    }
    return command.run(CommandContext{args, *settings.reader, out, err, StderrIsTerminal(err)});
  } catch (const RuntimeError& e) {
    err << e.GermanMessage() << "\n";
  } catch (const RomOpenError& e) {
    err << e.GermanMessage() << "\n";
  } catch (const std::exception& e) {
    err << "kartova-cli: " << e.what() << "\n";
  }
  return kExitError;
}

int Run(const std::vector<std::string>& args, const std::string& program_dir, std::ostream& out,
        std::ostream& err) {
  std::optional<std::string> ini;
  std::size_t i = 0;
  for (; i < args.size(); ++i) {
    const std::string& a = args[i];
    if (a == "--help" || a == "-h") {
      PrintHelp(out);
      return 0;
    }
    if (a == "--version") {
      out << "kartova-cli " << KARTOVA_VERSION << "\n";
      return 0;
    }
    if (a == "--ini") {
      if (i + 1 >= args.size()) return UsageError(err, "--ini needs a file name");
      ini = args[++i];
    } else if (a.rfind("--ini=", 0) == 0) {
      ini = a.substr(6);
    } else if (a.size() > 1 && a[0] == '-') {
      return UsageError(err, "unknown option '" + a + "'");
    } else {
      break;
    }
  }
  if (i >= args.size()) return UsageError(err, "no command given");
  const std::string& name = args[i];
  const std::vector<std::string> rest(args.begin() + static_cast<std::ptrdiff_t>(i) + 1, args.end());
  if (name == "help") return RunHelp(rest, out, err);
  const Command* command = FindCommand(name);
  if (command == nullptr) return UsageError(err, "unknown command '" + name + "'");
  return RunCommand(*command, rest, ini, program_dir, out, err);
}

}  // namespace

}  // namespace kartova::cli

int main(int argc, char** argv) {
  const std::vector<std::string> args(argv + std::min(argc, 1), argv + argc);
  const int status = kartova::cli::Run(args, kartova::cli::ProgramDirectory(argc > 0 ? argv[0] : nullptr),
                                       std::cout, std::cerr);
  std::cout.flush();
  if (!std::cout) {
    std::cerr << "kartova-cli: could not write the output\n";
    return 1;
  }
  return status;
}
