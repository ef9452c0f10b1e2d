// kartova-cli install-definition INI: copies ROM definitions into the settings store the editor
// reads, so that a ROM opens with its names right away.

#include <cctype>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <memory>
#include <ostream>
#include <set>
#include <sstream>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "cli/Command.h"
#include "cli/Messages.h"
#include "settings/IniFile.h"
#include "settings/QtRegistry.h"
#include "settings/SettingsStore.h"

namespace kartova::cli {

namespace {

// Stands for "no such key" in reads; no settings value starts with a control character.
const std::string kAbsent = "\x01";

struct Entry {
  std::string section;
  std::string key;
  std::string value;
};

std::string Trimmed(const std::string& s) {
  const std::size_t first = s.find_first_not_of(" \t");
  if (first == std::string::npos) return {};
  return s.substr(first, s.find_last_not_of(" \t") - first + 1);
}

std::string Folded(const std::string& s) {
  std::string folded = s;
  for (char& c : folded) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return folded;
}

// The names of every section and key in file order, each pair once. Values are read back
// through IniFile, so that they are exactly what the editor would read from this file (blanks
// and quotes removed, the first of repeated sections or keys winning).
std::vector<Entry> ReadEntries(const IniFile& source, const std::string& text) {
  std::vector<Entry> entries;
  std::set<std::pair<std::string, std::string>> seen;
  std::istringstream lines(text);
  std::string line, section;
  bool in_section = false;
  while (std::getline(lines, line)) {
    const std::string content = Trimmed(line.substr(0, line.find('\r')));
    if (content.empty() || content[0] == ';' || content[0] == '#') continue;
    if (content[0] == '[') {
      section = Trimmed(content.substr(1, content.find(']') - 1));
      in_section = true;
      continue;
    }
    const std::size_t eq = content.find('=');
    if (!in_section || eq == std::string::npos) continue;
    const std::string key = Trimmed(content.substr(0, eq));
    if (key.empty() || !seen.emplace(Folded(section), Folded(key)).second) continue;
    std::string value = source.Read(section, key, kAbsent);
    if (value != kAbsent) entries.push_back({section, key, std::move(value)});
  }
  return entries;
}

// The selector decides which store is active; it has to agree in both, so it is never copied
// into one of them alone.
bool IsSelector(const Entry& e) {
  return Folded(e.section) == Folded(SettingsStore::kSettingsSection) &&
         Folded(e.key) == Folded(SettingsStore::kSelectorKey);
}

// Where the entries go: the --ini file, or the store the editor chose at its start-up.
class Target {
 public:
  explicit Target(const SettingsReader& settings)
      : ini_(dynamic_cast<const IniFile*>(&settings)),
        store_(dynamic_cast<const SettingsStore*>(&settings)) {}

  bool Valid() const { return ini_ != nullptr || store_ != nullptr; }

  std::string Name() const {
    if (ini_) return ini_->path();
    if (store_->kind() == SettingsStore::kIni) return store_->IniPath();
    return "the per-user settings store";
  }

  // True when the value could be read back as written.
  bool Write(const Entry& e) const {
    if (ini_) return ini_->Write(e.section, e.key, e.value);
    if (store_->kind() == SettingsStore::kIni) return IniFile(store_->IniPath()).Write(e.section, e.key, e.value);
    SettingsStore registry(store_->IniDirectory(), std::make_unique<QtRegistry>());
    registry.WriteRegistry(e.section, e.key, e.value);
    return registry.ReadRegistry(e.section, e.key, kAbsent) == e.value;
  }

 private:
  const IniFile* ini_;
  const SettingsStore* store_;
};

// The text of the file at path; the system's reason when it cannot be read.
std::string ReadText(const std::string& path, std::string& text) {
  if (std::string why = ReadFailureReason(path); !why.empty()) return why;
  errno = 0;
  std::ifstream in(std::filesystem::path(std::u8string(path.begin(), path.end())), std::ios::binary);
  std::ostringstream bytes;
  bytes << in.rdbuf();
  if (!in || !bytes) return std::generic_category().message(errno != 0 ? errno : EIO);
  text = bytes.str();
  return {};
}

constexpr const char* kUsage = "install-definition INI";

int RunInstallDefinition(const CommandContext& ctx) {
  const SplitArguments split = SplitOptions(ctx.args, {});
  if (!split.error.empty() || split.positional.size() != 1)
    return CommandUsageError(ctx, split, "install-definition needs exactly one INI file", kUsage);
  const std::string& path = split.positional[0];
  std::string text;
  if (const std::string why = ReadText(path, text); !why.empty()) {
    PrintError(ctx.err, "cannot read the INI file " + path + ": " + why);
    return 1;
  }
  const Target target(ctx.settings);
  if (!target.Valid()) {
    PrintError(ctx.err, "no settings store to write to");
    return 1;
  }
  std::set<std::string> sections;
  int written = 0;
  for (const Entry& e : ReadEntries(IniFile(path), text)) {
    if (IsSelector(e)) continue;
    if (!target.Write(e)) {
      PrintError(ctx.err, "could not write [" + e.section + "] " + e.key + " to " + target.Name() + "; " +
                              std::to_string(written) + " keys were written before");
      return 1;
    }
    sections.insert(Folded(e.section));
    ++written;
  }
  ctx.out << "Installed " << written << " keys in " << sections.size() << " sections into "
          << target.Name() << "\n";
  return 0;
}

const CommandRegistrar kInstallDefinitionCommand(Command{
    "install-definition",
    kUsage,
    "Copy ROM definitions into the editor's settings store.",
    "Copies every section and key of the INI file INI (ROM definitions and their name lists, "
    "such as the demo.ini of make-demo) into the settings store the editor reads: the --ini "
    "file if given, else Kartova.ini (beside this program, or in ~/.config/Kartova/ when it is "
    "installed) or the per-user store, whichever the editor would use. Existing keys are overwritten, everything else is kept. The key "
    "DefaultPropertyPath of [Settings] is not copied, since it chooses the store.",
    RunInstallDefinition,
});

}  // namespace

}  // namespace kartova::cli
