#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace kartova::test {

// A broken ROM image, optionally with a broken ROM definition, for catalogue tests that feed
// every command and the editor window with input no game ever had.
struct BadInput {
  std::string name;  // a test name: letters, digits and underscores
  std::string what;  // how it is broken
  std::vector<std::uint8_t> bytes;
  // When non-zero the file is this many zero bytes (written sparse); bytes is empty then.
  std::uint64_t zero_size = 0;
  // The ROM definition INI to use; nullopt: the demo's.
  std::optional<std::string> ini;
};

// Shows the case by its name in test output and test names.
inline void PrintTo(const BadInput& input, std::ostream* os) { *os << input.name; }
inline std::string BadInputName(const ::testing::TestParamInfo<BadInput>& info) { return info.param.name; }

// The catalogue, built once (from the demo ROM and RomBuilder patches; random data with a
// fixed seed).
const std::vector<BadInput>& BadInputs();
// The demo as built, the control case: every command and the window must get through it quietly.
BadInput IntactDemoInput();

// Writes the case's ROM image to path.
void WriteBadInput(const BadInput& input, const std::string& path);

}  // namespace kartova::test
