// kartova-cli apply ROM PATCH.json [--dry-run]: map edits from a JSON patch, made by the
// editor's own edit operations and saves.
//
// The patch is first applied to a working copy of the ROM in the temporary directory, each
// entry checked just before it is applied; only a patch that went through entirely reaches the
// ROM, as one safe write of the bytes that changed. So an invalid patch or a runtime error
// leaves the ROM as it was, a dry run reports exactly what a real run writes, and a patch that
// changes nothing does not touch the file.

#include <algorithm>
#include <filesystem>
#include <ostream>
#include <string>
#include <vector>

#include "cli/ByteRuns.h"
#include "cli/Command.h"
#include "cli/JsonText.h"
#include "cli/Messages.h"
#include "cli/Patch.h"
#include "cli/PatchApplication.h"
#include "cli/WorkingCopy.h"
#include "maps/RomDocument.h"
#include "rom/HexText.h"
#include "rom/SafeFileWriter.h"

namespace kartova::cli {

namespace {

constexpr const char* kUsage = "apply ROM PATCH.json [--dry-run]";
constexpr const char* kDryRun = "--dry-run";

// The arguments without --dry-run, which may stand anywhere before a "--"; true when it was
// among them.
bool TakeDryRun(std::vector<std::string>& args) {
  const auto end = std::find(args.begin(), args.end(), "--");
  const auto kept = std::remove(args.begin(), end, kDryRun);
  const bool found = kept != end;
  args.erase(kept, end);
  return found;
}

std::string HexText(const std::vector<std::uint8_t>& bytes) {
  std::string text;
  text.reserve(bytes.size() * 2);
  for (std::uint8_t b : bytes) text += Hex2(b);
  return text;
}

Json RunsJson(const std::vector<ByteRun>& runs) {
  Json list = Json::array();
  for (const ByteRun& run : runs) {
    Json item = Json::object();
    item["offset"] = run.offset;
    item["old"] = HexText(run.old_bytes);
    item["new"] = HexText(run.new_bytes);
    list.push_back(std::move(item));
  }
  return list;
}

std::string DirectoryOf(const std::string& file) {
  const std::filesystem::path path(std::u8string(file.begin(), file.end()));
  const std::u8string dir = path.parent_path().u8string();
  return {dir.begin(), dir.end()};
}

struct ApplyLine {
  std::string rom, patch;
  bool dry_run = false;
};

int Fail(const CommandContext& ctx, const std::string& message) {
  PrintError(ctx.err, message);
  return 1;
}

// The patch tried on the working copy; the bytes it left there, or the exit status.
std::variant<std::vector<std::uint8_t>, int> TryPatch(const CommandContext& ctx, const ApplyLine& line,
                                                       const Json& entries, const std::vector<std::uint8_t>& original) {
  const std::string untouched = "; " + line.rom + " was not changed";
  PatchApplication application(ctx.settings, ctx.err, line.rom, DirectoryOf(line.patch));
  try {
    const WorkingCopy copy(line.rom, original);
    if (const std::optional<PatchProblem> problem = application.Apply(entries, copy.path())) {
      PrintError(ctx.err, line.patch + ": " + problem->Text());
      return 2;
    }
    return ReadWholeFile(copy.path());
  } catch (const RuntimeError& error) {
    PrintError(ctx.err, RuntimeErrorText(error));
    return Fail(ctx, line.patch + ": " + application.Current() + " could not be applied" + untouched);
  } catch (const FileWriteError& error) {
    // A .map file that cannot be read, or the working copy that cannot be written.
    PrintError(ctx.err, FileErrorText(application.Importing() ? "read" : "write", error));
    return Fail(ctx, line.patch + ": " + (application.Current().empty() ? "the patch" : application.Current()) +
                         " could not be applied" + untouched);
  }
}

int RunApply(const CommandContext& ctx) {
  std::vector<std::string> args = ctx.args;
  ApplyLine line;
  line.dry_run = TakeDryRun(args);
  const SplitArguments split = SplitOptions(args, {});
  if (!split.error.empty() || split.positional.size() != 2)
    return CommandUsageError(ctx, split, "apply needs a ROM file and a patch file", kUsage);
  line.rom = split.positional[0];
  line.patch = split.positional[1];

  if (const std::string reason = ReadFailureReason(line.patch); !reason.empty())
    return Fail(ctx, "could not read " + line.patch + ": " + reason);
  std::string text;
  try {
    const std::vector<std::uint8_t> bytes = ReadWholeFile(line.patch);
    text.assign(bytes.begin(), bytes.end());
  } catch (const FileWriteError& error) {
    return Fail(ctx, FileErrorText("read", error));
  }
  std::variant<Json, PatchProblem> parsed = ParsePatchText(text);
  if (const auto* problem = std::get_if<PatchProblem>(&parsed)) {
    PrintError(ctx.err, line.patch + ": " + problem->Text());
    return 2;
  }

  // The ROM is checked as every command checks it (RomOpenError), then read once.
  RomDocument().OpenRom(line.rom, ctx.settings);
  std::vector<std::uint8_t> original;
  try {
    original = ReadWholeFile(line.rom);
  } catch (const FileWriteError& error) {
    return Fail(ctx, FileErrorText("read", error));
  }
  auto tried = TryPatch(ctx, line, std::get<Json>(parsed), original);
  if (const int* status = std::get_if<int>(&tried)) return *status;
  const std::vector<ByteRun> runs = ChangedRuns(original, std::get<std::vector<std::uint8_t>>(tried));
  if (!line.dry_run && !runs.empty()) {
    try {
      WriteRegionsSafely(line.rom, RunRegions(runs));
    } catch (const FileWriteError& error) {
      PrintError(ctx.err, FileErrorText("write", error));
      return Fail(ctx, line.rom + " was not changed");
    }
  }
  ctx.out << JsonText(RunsJson(runs));
  return 0;
}

const CommandRegistrar kApplyCommand(Command{
    "apply", kUsage, "Apply the map edits of a JSON patch to a ROM.",
    "Applies PATCH.json, an array of map edits (see docs/patches.md), to ROM through the editor's "
    "own edits and saves: for each entry, map MAP of map bank BANK (both from 1) is loaded, its "
    "blocks, primary and secondary header bytes, event records and a .map import are applied in "
    "that order, and the map is saved with the full scope. The whole patch is checked and tried "
    "out on a copy first: an invalid patch exits with 2, naming the JSON path of its first problem "
    "(such as [3].events.warp.7), and the ROM is not touched. Otherwise the changed bytes are "
    "written into ROM safely, all at once, and printed as a JSON array of runs {offset, old, new} "
    "in file order, adjacent bytes merged. --dry-run prints the same and writes nothing; a patch "
    "that changes nothing prints [] and leaves the file alone.",
    RunApply});

}  // namespace

}  // namespace kartova::cli
