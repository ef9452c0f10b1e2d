#include "rom/RuntimeError.h"

#include <cinttypes>
#include <cstdint>
#include <cstdio>
#include <utility>

namespace kartova {

namespace {
std::string Description(int number) {
  switch (number) {
    case RuntimeError::kOverflow:
      return "Überlauf";
    case RuntimeError::kSubscriptOutOfRange:
      return "Index außerhalb des gültigen Bereichs";
    default:
      return "Anwendungs- oder objektdefinierter Fehler";
  }
}

// What was being done, how the file joins the sentence, and what the offset points at.
struct ActivityWords {
  const char* doing;
  const char* preposition;
  const char* offset_is;
};

ActivityWords WordsFor(ErrorActivity activity) {
  switch (activity) {
    case ErrorActivity::kNone: return {"while working", "on", "at"};
    case ErrorActivity::kOpeningRom: return {"while opening the ROM", "", "at"};
    case ErrorActivity::kReadingMapBankTable: return {"while reading the map bank table", "from", "table at"};
    case ErrorActivity::kReadingLocationNames: return {"while reading the location names", "from", "table at"};
    case ErrorActivity::kReadingMapList: return {"while reading the map list", "from", "map headers at"};
    case ErrorActivity::kReadingHeaders: return {"while reading the map headers", "from", "header at"};
    case ErrorActivity::kReadingTileset: return {"while reading the tileset", "from", "tileset table at"};
    case ErrorActivity::kReadingPalettes: return {"while reading the palettes", "from", "palettes at"};
    case ErrorActivity::kReadingEvents: return {"while reading the events", "from", "events at"};
    case ErrorActivity::kBuildingMap: return {"while building the map", "from", "block data at"};
    case ErrorActivity::kSaving: return {"while saving the map", "into", "at"};
    case ErrorActivity::kExportingMap: return {"while exporting the map", "to", "at"};
    case ErrorActivity::kImportingMap: return {"while importing the map", "from", "at"};
  }
  return {"while working", "on", "at"};
}

std::string FileName(const std::string& path) {
  const std::size_t slash = path.find_last_of('/');
  return slash == std::string::npos ? path : path.substr(slash + 1);
}

std::string HexOffset(std::int64_t offset) {
  char text[24];
  const std::uint64_t magnitude =
      offset < 0 ? std::uint64_t{0} - static_cast<std::uint64_t>(offset) : static_cast<std::uint64_t>(offset);
  std::snprintf(text, sizeof text, "%s0x%06" PRIX64, offset < 0 ? "-" : "", magnitude);
  return text;
}
}  // namespace

RuntimeError::RuntimeError(int number)
    : std::runtime_error("Laufzeitfehler '" + std::to_string(number) + "': " + Description(number)),
      number_(number) {}

std::string RuntimeError::GermanMessage() const { return what(); }

void RuntimeError::AddContext(ErrorContext context) {
  if (!context_) context_ = std::move(context);
}

std::string DescribeContextEnglish(const ErrorContext& context) {
  const ActivityWords words = WordsFor(context.activity);
  std::string text = words.doing;
  if (!context.file.empty()) {
    // Opening names the file as the object: "while opening the ROM demo.gbc".
    text += *words.preposition ? std::string(" ") + words.preposition + " " : " ";
    text += FileName(context.file);
  }
  if (context.offset) text += std::string(", ") + words.offset_is + " " + HexOffset(*context.offset);
  return text;
}

long long CheckedInt32(long long v) {
  if (v < INT32_MIN || v > INT32_MAX) throw RuntimeError::Overflow();
  return v;
}

void CheckIndex(long long index, long long size) {
  if (index < 0 || index >= size) throw RuntimeError::SubscriptOutOfRange();
}

}  // namespace kartova
