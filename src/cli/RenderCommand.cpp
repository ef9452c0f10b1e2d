// kartova-cli render ROM BANK MAP OUT.png [--time N] [--zoom 1|2]: the bordered map as a picture.

#include <ostream>
#include <string>

#include "cli/Command.h"
#include "cli/MapLoading.h"
#include "cli/MapPicture.h"
#include "cli/Messages.h"
#include "cli/PngWriter.h"
#include "rom/SafeFileWriter.h"

namespace kartova::cli {

namespace {

constexpr const char* kUsage = "render ROM BANK MAP OUT.png [--time N] [--zoom 1|2]";

int RunRender(const CommandContext& ctx) {
  const MapCommandLine line = ParseMapCommandLine(ctx.args, 4, {"time", "zoom"});
  const std::optional<int> zoom = line.Option("zoom", 1);
  if (!line.valid || !zoom || *zoom < 1 || *zoom > 2)
    return CommandUsageError(ctx, line.split,
                             "render needs a ROM file, a map bank 1-26, a map number from 1 and an "
                             "output file; --time takes 0-8, --zoom 1 or 2",
                             kUsage);
  LoadedMap loaded;
  if (const std::optional<int> failed = LoadMap(ctx, line, loaded)) return *failed;
  const IndexedImage picture = RenderGrid(loaded.document, *zoom);
  const std::string& out_path = line.split.positional[3];
  try {
    WritePng(out_path, picture, PngPalette(loaded.document.Colours()));
  } catch (const FileWriteError& error) {
    PrintError(ctx.err, FileErrorText("write", error));
    return 1;
  }
  return ReportGridError(ctx, loaded);
}

const CommandRegistrar kRenderCommand(Command{
    "render", kUsage, "Draw one map with its margin into a PNG picture.",
    "Loads map MAP of map bank BANK as the map command does and writes the whole bordered grid "
    "(the map with its three-block margin and the neighbours' strips) to OUT.png in the "
    "colours of the colour table: (width + 6) x 32 x zoom by (height + 6) x 32 x zoom pixels, "
    "an indexed PNG. --time N picks the lighting 0-7 of the Palette / Lighting menu, 8 (the "
    "default) is Auto; --zoom 2 draws every block at double size. A neighbour strip outside "
    "the grid writes the picture as far as the grid was built, then prints the runtime error "
    "and exits with 1.",
    RunRender});

}  // namespace

}  // namespace kartova::cli
