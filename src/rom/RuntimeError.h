#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>

namespace kartova {

// What the editor was doing when a runtime error was raised: the stages of opening a ROM,
// loading a map and saving it.
enum class ErrorActivity {
  kNone,
  kOpeningRom,            // the definition / title, the file checks
  kReadingMapBankTable,   // map bank table / group pointers / map counts
  kReadingLocationNames,  // the location names table
  kReadingMapList,        // FillMapList
  kReadingHeaders,        // primary/secondary header of a map
  kReadingTileset,        // tileset record, tile graphics, blocks
  kReadingPalettes,       // palettes (also a time-of-day change)
  kReadingEvents,         // the event lists
  kBuildingMap,           // block grid with the connection strips
  kSaving,                // the save plan / save
  kExportingMap,
  kImportingMap,
};

// Where a runtime error happened, for the detailed text of a message.
struct ErrorContext {
  ErrorActivity activity = ErrorActivity::kNone;
  std::string file;                    // the full path of the file being read or written
  std::optional<std::int64_t> offset;  // file offset of the table/record being read, when known
};

// The editor's runtime errors: an index out of range or an arithmetic overflow ends the
// operation that raised it. The ui catches it at the handler boundary, shows GermanMessage()
// and keeps running.
class RuntimeError : public std::runtime_error {
 public:
  static constexpr int kOverflow = 6;
  static constexpr int kSubscriptOutOfRange = 9;

  explicit RuntimeError(int number);

  static RuntimeError Overflow() { return RuntimeError(kOverflow); }
  static RuntimeError SubscriptOutOfRange() { return RuntimeError(kSubscriptOutOfRange); }

  int number() const { return number_; }
  // "Laufzeitfehler '9': Index außerhalb des gültigen Bereichs"
  std::string GermanMessage() const;

  const std::optional<ErrorContext>& context() const { return context_; }
  // Sets the context unless one is set already (the innermost stage knows best).
  void AddContext(ErrorContext context);

 private:
  int number_;
  std::optional<ErrorContext> context_;
};

// Runs one stage of an operation and returns what it returns; a runtime error raised in it
// leaves with `context`, unless an inner stage gave it one already.
template <class Stage>
decltype(auto) WithErrorContext(const ErrorContext& context, Stage&& stage) {
  try {
    return stage();
  } catch (RuntimeError& error) {
    error.AddContext(context);
    throw;
  }
}

// English, for the command line: "while reading the location names from demo.gbc, table at
// 0x092384" (the file name without its folder; the offset only when it is known).
std::string DescribeContextEnglish(const ErrorContext& context);

// Throws the overflow error when v does not fit a signed 32-bit integer.
long long CheckedInt32(long long v);
// Throws the subscript error when index is outside 0..size-1.
void CheckIndex(long long index, long long size);

}  // namespace kartova
