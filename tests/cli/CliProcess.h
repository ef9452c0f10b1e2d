#pragma once

#include <gtest/gtest.h>

#include <QJsonObject>
#include <map>
#include <string>
#include <vector>

#include "support/TempDir.h"

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

QJsonObject JsonOf(const CliResult& r);

// A directory of its own for every test, with a ROM and a ROM definition file in it; Run
// passes the definition with --ini.
class CliTest : public ::testing::Test {
 protected:
  CliResult Run(std::vector<std::string> args) const {
    args.insert(args.begin(), {"--ini", ini});
    return RunCli(args);
  }
  void Write(const std::vector<std::uint8_t>& bytes, const std::string& definition = "") const {
    WriteFileBytes(rom, bytes);
    WriteFileText(ini, definition);
  }

  TempDir dir;
  std::string rom = dir.File("rom.gbc"), ini = dir.File("rom.ini");
};

}  // namespace kartova::test
