// kartova-cli export-map / import-map ROM BANK MAP FILE.map: a map's block layout to and from
// a .map file, by the editor's own rules.

#include <filesystem>
#include <ostream>
#include <string>
#include <system_error>

#include "cli/Command.h"
#include "cli/JsonText.h"
#include "cli/MapLoading.h"
#include "cli/Messages.h"
#include "rom/SafeFileWriter.h"

namespace kartova::cli {

namespace {

constexpr const char* kExportUsage = "export-map ROM BANK MAP OUT.map";
constexpr const char* kImportUsage = "import-map ROM BANK MAP IN.map";

// Only a regular file (or none yet) can be a .map file. Refused before the ROM is opened: a
// named pipe would block the read, and the core names a directory in the system's words only.
bool RefuseNonFile(const CommandContext& ctx, const std::string& path) {
  std::error_code ec;
  const std::filesystem::path file(std::u8string(path.begin(), path.end()));
  const std::filesystem::file_status status = std::filesystem::status(file, ec);
  if (std::filesystem::is_directory(status))
    PrintError(ctx.err, path + " is a directory, not a .map file");
  else if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status))
    PrintError(ctx.err, path + " is not a regular file");
  else
    return false;
  return true;
}

int FileError(const CommandContext& ctx, const char* verb, const FileWriteError& error) {
  PrintError(ctx.err, FileErrorText(verb, error));
  return 1;
}

int RunExportMap(const CommandContext& ctx) {
  const MapCommandLine line = ParseMapCommandLine(ctx.args, 4, {});
  if (!line.valid)
    return CommandUsageError(ctx, line.split,
                             "export-map needs a ROM file, a map bank 1-26, a map number from 1 and "
                             "an output file",
                             kExportUsage);
  const std::string& out_path = line.split.positional[3];
  if (RefuseNonFile(ctx, out_path)) return 1;
  LoadedMap loaded;
  if (const std::optional<int> failed = LoadMap(ctx, line, loaded)) return *failed;
  const RomDocument& doc = loaded.document;
  try {
    doc.ExportMap(out_path);
  } catch (const FileWriteError& error) {
    return FileError(ctx, "write", error);
  }
  Json json = Json::object();
  json["file"] = out_path;
  json["width"] = doc.Grid().MapWidth();
  json["height"] = doc.Grid().MapHeight();
  json["bytes"] = doc.MapFileBytes().size();
  ctx.out << JsonText(json);
  // The rows are read before the neighbours' strips, so the file is whole even then.
  return ReportGridError(ctx, loaded);
}

int RunImportMap(const CommandContext& ctx) {
  const MapCommandLine line = ParseMapCommandLine(ctx.args, 4, {});
  if (!line.valid)
    return CommandUsageError(ctx, line.split,
                             "import-map needs a ROM file, a map bank 1-26, a map number from 1 and "
                             "a .map file",
                             kImportUsage);
  const std::string& in_path = line.split.positional[3];
  if (RefuseNonFile(ctx, in_path)) return 1;
  LoadedMap loaded;
  if (const std::optional<int> failed = LoadMap(ctx, line, loaded)) return *failed;
  // A load that failed part-way is no basis for writing into the ROM.
  if (ReportGridError(ctx, loaded) != 0) return 1;
  RomDocument& doc = loaded.document;
  MapImport imported;
  try {
    imported = doc.ImportMap(in_path);
  } catch (const FileWriteError& error) {
    return FileError(ctx, "read", error);
  }
  try {
    doc.SaveRom(kReloadMapOnly);
  } catch (const FileWriteError& error) {
    return FileError(ctx, "write", error);
  }
  Json json = Json::object();
  json["offset"] = doc.Secondary().BlockDataFileOffset();
  json["bytes"] = doc.Grid().MapWidth() * doc.Grid().MapHeight();
  json["read"] = imported.blocks_read;
  ctx.out << JsonText(json);
  return 0;
}

const CommandRegistrar kExportMapCommand(Command{
    "export-map", kExportUsage, "Write a map's block layout to a .map file.",
    "Loads map MAP of map bank BANK as the map command does and writes its layout to OUT.map "
    "as the editor's File / Export Map does: the marker byte FF, then the blocks row after row from "
    "the top, width bytes a row. An existing longer file keeps its tail; the file is replaced "
    "safely. Prints JSON: file, width, height and bytes (1 + width x height).",
    RunExportMap});

const CommandRegistrar kImportMapCommand(Command{
    "import-map", kImportUsage, "Read a .map file into a map and save it into the ROM.",
    "Loads map MAP of map bank BANK, reads IN.map into it as the editor's File / Import Map does (a "
    "leading FF is skipped; rows of the map's width; a short file leaves the remaining blocks "
    "as they were; a missing file is created empty and changes nothing) and saves the map's "
    "block rows into ROM safely: either the old ROM or the new one is on disk. Prints JSON: "
    "offset (file offset of the block data), bytes (width x height, the bytes written) and "
    "read (the block bytes taken from IN.map).",
    RunImportMap});

}  // namespace

}  // namespace kartova::cli
