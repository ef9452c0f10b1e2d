#pragma once

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

// Shows the case by its name in test output.
inline void PrintTo(const BadInput& input, std::ostream* os) { *os << input.name; }

// The catalogue, built once (from the demo ROM and RomBuilder patches; random data with a
// fixed seed).
const std::vector<BadInput>& BadInputs();
const BadInput& BadInputNamed(const std::string& name);

// Writes the case's ROM image to path.
void WriteBadInput(const BadInput& input, const std::string& path);

}  // namespace kartova::test
