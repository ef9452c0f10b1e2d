// kartova-cli render-all ROM OUTDIR [--time N] [--zoom 1|2] [--jobs N]: every map as a picture,
// with an index of them.

#include <algorithm>
#include <filesystem>
#include <optional>
#include <ostream>
#include <string>
#include <system_error>
#include <thread>

#include "cli/Command.h"
#include "cli/MapLoading.h"
#include "cli/Messages.h"
#include "cli/OutputFile.h"
#include "cli/RenderAll.h"
#include "rom/SafeFileWriter.h"

namespace kartova::cli {

namespace {

constexpr const char* kUsage = "render-all ROM OUTDIR [--time N] [--zoom 1|2] [--jobs N]";
constexpr int kMaxJobs = 256;

std::filesystem::path PathOf(const std::string& text) {
  return std::filesystem::path(std::u8string(text.begin(), text.end()));
}

int DefaultJobs() {
  const unsigned cores = std::thread::hardware_concurrency();
  return cores == 0 ? 1 : static_cast<int>(std::min<unsigned>(cores, kMaxJobs));
}

// The options of a valid command line; nullopt for wrong usage.
std::optional<RenderAllOptions> ParseOptions(const SplitArguments& split) {
  auto option = [&](const char* name, int fallback) -> std::optional<int> {
    const auto it = split.options.find(name);
    return it == split.options.end() ? fallback : SmallNumber(it->second);
  };
  const std::optional<int> time = option("time", 8);
  const std::optional<int> zoom = option("zoom", 1);
  const std::optional<int> jobs = option("jobs", DefaultJobs());
  if (!split.error.empty() || split.positional.size() != 2 || !time || *time > 8 || !zoom ||
      *zoom < 1 || *zoom > 2 || !jobs || *jobs < 1 || *jobs > kMaxJobs)
    return std::nullopt;
  return RenderAllOptions{.rom = split.positional[0], .out_dir = split.positional[1],
                          .time = *time, .zoom = *zoom, .jobs = *jobs};
}

// Creates the output directory with its parents; false (and the message printed) when it is
// something else or cannot be made.
bool MakeOutputDirectory(const CommandContext& ctx, const std::string& dir) {
  std::error_code ec;
  std::filesystem::create_directories(PathOf(dir), ec);
  std::error_code status_ec;
  if (std::filesystem::is_directory(PathOf(dir), status_ec)) return true;
  PrintError(ctx.err, "cannot create the directory " + dir + (ec ? ": " + ec.message() : std::string()));
  return false;
}

int RunRenderAll(const CommandContext& ctx) {
  const SplitArguments split = SplitOptions(ctx.args, {"time", "zoom", "jobs"});
  const std::optional<RenderAllOptions> options = ParseOptions(split);
  if (!options)
    return CommandUsageError(ctx, split,
                             "render-all needs a ROM file and an output directory; --time takes 0-8, "
                             "--zoom 1 or 2, --jobs 1-" + std::to_string(kMaxJobs),
                             kUsage);
  // Refused before the ROM is read; a directory that is missing is only made once the ROM
  // has opened, so that a wrong ROM name leaves nothing behind.
  std::error_code ec;
  const std::filesystem::file_status status = std::filesystem::status(PathOf(options->out_dir), ec);
  if (std::filesystem::exists(status) && !std::filesystem::is_directory(status)) {
    PrintError(ctx.err, options->out_dir + " is not a directory");
    return 1;
  }
  std::vector<MapRendering> maps = ListAllMaps(options->rom, ctx.settings);
  if (!MakeOutputDirectory(ctx, options->out_dir)) return 1;

  RenderProgress progress;
  if (ctx.err_is_terminal)
    progress = [&](std::size_t done, std::size_t total) {
      ctx.err << "\r  " << done << "/" << total << " maps" << std::flush;
    };
  RenderMaps(maps, *options, ctx.settings, progress);
  if (ctx.err_is_terminal && !maps.empty()) ctx.err << "\n";

  int status_code = 0;
  for (const MapRendering& m : maps) {
    if (m.read_past_end) PrintWarning(ctx.err, ReadPastEndWarning(options->rom, m.bank, m.map));
    if (m.error.empty()) continue;
    PrintError(ctx.err, "map " + std::to_string(m.bank) + "." + std::to_string(m.map) + ": " + m.error);
    status_code = 1;
  }
  const std::string index = PathIn(options->out_dir, "index.json");
  try {
    WriteNewFile(index, JsonText(IndexJson(maps)));
  } catch (const FileWriteError& e) {
    PrintError(ctx.err, FileErrorText("write", e));
    return 1;
  }
  return status_code;
}

const CommandRegistrar kRenderAllCommand(Command{
    "render-all", kUsage, "Draw every map into a folder of PNGs with an index.",
    "Renders every map of every map bank as the render command does into OUTDIR/BANK-MAP.png "
    "(numbers from 1, such as 24-3.png) and lists them in OUTDIR/index.json: one object per "
    "map in bank and map order with bank, map, name, width, height and file, or error instead "
    "of file for a map that could not be loaded or written. OUTDIR and its parents are created "
    "as needed. --time and --zoom as for render; --jobs N renders on N threads (default: one "
    "per core); the pictures are the same whatever N is. A progress line is shown when "
    "standard error is a terminal. Exits with 1 when any map failed, naming each.",
    RunRenderAll});

}  // namespace

}  // namespace kartova::cli
