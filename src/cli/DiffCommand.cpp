// kartova-cli diff A B [--text] [--patch]: two ROMs compared map by map.

#include <algorithm>
#include <ostream>
#include <string>
#include <vector>

#include "cli/Command.h"
#include "cli/DiffReport.h"
#include "cli/JsonText.h"
#include "cli/Messages.h"
#include "cli/RomDiff.h"
#include "maps/RomFileChecks.h"
#include "rom/RuntimeError.h"

namespace kartova::cli {

namespace {

constexpr const char* kUsage = "diff A B [--text] [--patch]";

// As diff(1): the same, different, trouble.
constexpr int kExitSame = 0;
constexpr int kExitDifferent = 1;
constexpr int kExitTrouble = 2;

enum class DiffForm { kJson, kText, kPatch };

struct DiffCommandLine {
  SplitArguments split;
  DiffForm form = DiffForm::kJson;
  bool valid = false;
};

// --text and --patch take no value, so they are taken out before the options are split; an
// argument after "--" is a file name whatever it looks like.
DiffCommandLine ParseDiffCommandLine(const std::vector<std::string>& args) {
  DiffCommandLine line;
  std::vector<std::string> rest;
  int forms = 0;
  const auto end_of_options = std::find(args.begin(), args.end(), "--");
  for (auto it = args.begin(); it != args.end(); ++it) {
    if (it < end_of_options && (*it == "--text" || *it == "--patch")) {
      line.form = *it == "--text" ? DiffForm::kText : DiffForm::kPatch;
      ++forms;
    } else {
      rest.push_back(*it);
    }
  }
  line.split = SplitOptions(rest, {});
  line.valid = line.split.error.empty() && line.split.positional.size() == 2 && forms <= 1;
  return line;
}

int PrintDiff(const CommandContext& ctx, const RomDiff& diff, DiffForm form) {
  if (form == DiffForm::kText) {
    ctx.out << DiffText(diff);
  } else if (form == DiffForm::kPatch) {
    std::vector<std::string> left_out;
    ctx.out << JsonText(DiffPatch(diff, left_out));
    for (const std::string& what : left_out) PrintWarning(ctx.err, what);
  } else {
    ctx.out << JsonText(DiffJson(diff));
  }
  return diff.Same() ? kExitSame : kExitDifferent;
}

int RunDiff(const CommandContext& ctx) {
  const DiffCommandLine line = ParseDiffCommandLine(ctx.args);
  if (!line.valid)
    return CommandUsageError(ctx, line.split, "diff needs two ROM files and at most one of --text and --patch",
                             kUsage);
  // Any trouble is exit status 2 here, so that 1 keeps meaning "the ROMs differ".
  try {
    const RomDiff diff = DiffRoms(line.split.positional[0], line.split.positional[1], ctx.settings);
    return PrintDiff(ctx, diff, line.form);
  } catch (const RuntimeError& e) {
    PrintError(ctx.err, RuntimeErrorText(e));
  } catch (const RomOpenError& e) {
    PrintError(ctx.err, e.GermanMessage());
  } catch (const std::exception& e) {
    PrintError(ctx.err, e.what());
  }
  return kExitTrouble;
}

const CommandRegistrar kDiffCommand(Command{
    "diff", kUsage, "Compare two ROMs map by map.",
    "Compares ROM A with ROM B map by map, both read with the definition A's title selects, and "
    "prints as JSON an object with maps (for each map that differs: bank, map, name and only "
    "what differs: only_in \"A\" or \"B\" for a map one ROM does not list, size [[w, h], [w, "
    "h]], primary and secondary {\"INDEX\": [\"OLD\", \"NEW\"]} for the bytes of the header "
    "record (HeaderLengthA) and of the secondary header with its connection records, blocks "
    "[[x, y, old, new], ...] for the cells both "
    "sizes have, events {\"warp\": {\"count\": [OLD, NEW], \"INDEX\": [\"OLD\", \"NEW\"]}, ...} "
    "with null for a record one side lacks), other (the runs {\"offset\", \"length\"} of bytes "
    "that differ outside the maps' structures) and length [A, B] when the file lengths differ. "
    "--text prints one line per changed map instead, --patch the patch for apply that turns "
    "A's maps into B's, with a warning for each part a patch cannot express. Exit status 0 "
    "when the ROMs are the same, 1 when they differ, 2 on an error.",
    RunDiff});

}  // namespace

}  // namespace kartova::cli
