#pragma once

#include <map>
#include <string>
#include <vector>

namespace kartova::test {

struct CliResult {
  int status = -1;  // exit status; -1 when the program crashed or did not finish
  std::string out;
  std::string err;
};

// Runs the command line tool (by default the one built with the tests) with args and the
// given extra environment variables, and waits for it.
CliResult RunCli(const std::vector<std::string>& args,
                 const std::map<std::string, std::string>& environment = {},
                 const std::string& program = KARTOVA_CLI_PATH);

#if defined(__linux__)
// Runs the tool without Qt in between: the arguments reach it as the bytes they are (names
// that are no UTF-8, say), and with stderr_on_terminal its standard error is a pseudo
// terminal, as when a person watches it run.
CliResult RunCliDirect(const std::vector<std::string>& args, bool stderr_on_terminal = false);
#endif

}  // namespace kartova::test
