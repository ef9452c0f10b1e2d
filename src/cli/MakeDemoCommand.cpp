// kartova-cli make-demo DIR: writes the demo ROM and its ROM definition, something to open.

#include <filesystem>
#include <fstream>
#include <ostream>
#include <string>
#include <system_error>

#include "cli/Command.h"
#include "demo/DemoRom.h"

namespace kartova::cli {

namespace {

std::filesystem::path PathOf(const std::string& text) {
  return std::filesystem::path(std::u8string(text.begin(), text.end()));
}

// Writes bytes to path; false (and the reason in `why`) when the file could not be written
// completely.
bool WriteFile(const std::filesystem::path& path, const char* data, std::size_t size,
               std::string& why) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  if (!file) {
    why = "cannot create " + path.string();
    return false;
  }
  file.write(data, static_cast<std::streamsize>(size));
  file.close();
  if (!file) {
    why = "cannot write " + path.string();
    return false;
  }
  return true;
}

int RunMakeDemo(const CommandContext& ctx) {
  if (ctx.args.size() != 1) {
    ctx.err << "kartova-cli: make-demo needs exactly one directory\n"
            << "Usage: kartova-cli make-demo DIR\n";
    return 2;
  }
  const std::filesystem::path dir = PathOf(ctx.args[0]);
  std::error_code ec;
  std::filesystem::create_directories(dir, ec);
  if (ec || !std::filesystem::is_directory(dir, ec)) {
    ctx.err << "kartova-cli: cannot create the directory " << ctx.args[0]
            << (ec ? ": " + ec.message() : std::string()) << "\n";
    return 1;
  }
  const std::vector<std::uint8_t> rom = BuildDemoRom();
  const std::string ini = DemoDefinitionIni();
  std::string why;
  if (!WriteFile(dir / "demo.gbc", reinterpret_cast<const char*>(rom.data()), rom.size(), why) ||
      !WriteFile(dir / "demo.ini", ini.data(), ini.size(), why)) {
    ctx.err << "kartova-cli: " << why << "\n";
    return 1;
  }
  ctx.out << "Wrote " << (dir / "demo.gbc").string() << " and " << (dir / "demo.ini").string()
          << "\n";
  return 0;
}

const CommandRegistrar kMakeDemoCommand(Command{
    "make-demo",
    "make-demo DIR",
    "Writes the demo ROM DIR/demo.gbc and its ROM definition DIR/demo.ini, creating DIR if "
    "needed. Open the ROM with the definition file to explore a small world of two towns, "
    "routes, houses and a cave.",
    RunMakeDemo,
});

}  // namespace

}  // namespace kartova::cli
