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

}  // namespace kartova::test
