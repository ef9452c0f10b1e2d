// kartova-cli make-demo DIR: writes the demo ROM and its ROM definition, something to open.

#include <filesystem>
#include <ostream>
#include <string>
#include <string_view>
#include <system_error>

#include "cli/Command.h"
#include "cli/Messages.h"
#include "cli/OutputFile.h"
#include "demo/DemoRom.h"
#include "rom/SafeFileWriter.h"

namespace kartova::cli {

namespace {

std::filesystem::path PathOf(const std::string& text) {
  return std::filesystem::path(std::u8string(text.begin(), text.end()));
}

std::string Utf8(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return std::string(text.begin(), text.end());
}

constexpr const char* kUsage = "make-demo DIR";

int RunMakeDemo(const CommandContext& ctx) {
  const SplitArguments split = SplitOptions(ctx.args, {});
  if (!split.error.empty() || split.positional.size() != 1)
    return CommandUsageError(ctx, split, "make-demo needs exactly one directory", kUsage);
  const std::string& dir_text = split.positional[0];
  const std::filesystem::path dir = PathOf(dir_text);
  std::error_code ec;
  std::filesystem::create_directories(dir, ec);
  if (ec || !std::filesystem::is_directory(dir, ec)) {
    PrintError(ctx.err, "cannot create the directory " + dir_text + (ec ? ": " + ec.message() : std::string()));
    return 1;
  }
  const std::vector<std::uint8_t> rom = BuildDemoRom();
  const std::string ini = DemoDefinitionIni();
  try {
    WriteNewFile(Utf8(dir / "demo.gbc"), std::string_view(reinterpret_cast<const char*>(rom.data()), rom.size()));
    WriteNewFile(Utf8(dir / "demo.ini"), ini);
  } catch (const FileWriteError& error) {
    PrintError(ctx.err, FileErrorText("write", error));
    return 1;
  }
  ctx.out << "Wrote " << (dir / "demo.gbc").string() << " and " << (dir / "demo.ini").string()
          << "\n";
  return 0;
}

const CommandRegistrar kMakeDemoCommand(Command{
    "make-demo",
    kUsage,
    "Write a demo ROM and its ROM definition.",
    "Writes the demo ROM DIR/demo.gbc and its ROM definition DIR/demo.ini, creating DIR if "
    "needed. Open the ROM with the definition file to explore a small world of two towns, "
    "routes, houses and a cave.",
    RunMakeDemo,
});

}  // namespace

}  // namespace kartova::cli
