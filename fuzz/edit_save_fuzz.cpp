// Loads one map of a patched demo ROM (or an arbitrary file), applies edits and saves of any
// scope that the input describes, and checks every save against the regions it says it writes:
// - the file after a save is the file before with exactly SaveRegions(scope) put in;
// - a save that fails (an injected write fault) leaves the file as it was;
// - a full save that succeeds leaves nothing modified;
// - undoing every edit gives back the buffers as loaded, so a full save then writes the very
//   regions it would have written right after the load, and where those regions reproduce the
//   file as it was (a map read consistently), the file holds its original bytes there again.
//
// The tail of the input: the map (a word, modulo the maps counted), then operations:
//   0 stroke     n, then n times x, y, block (cells of the bordered grid, margin included)
//   1 headers    n, then n times index (0..29 primary, 30..89 secondary), value; gesture byte
//   2 event      kind, index, record bytes; gesture byte
//   3 save       scope
//   4 undo/redo  odd: redo
//   5 fault      scope, failing step
//   6 save as    (to a second file and back: the document follows the copy)

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <span>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "FuzzSupport.h"
#include "maps/RomDocument.h"

using namespace kartova;
using namespace kartova::fuzz;

namespace {

constexpr int kMaxOperations = 24;
// A save writes the whole image (megabytes): the script gets a few, the check at the end one.
constexpr int kMaxSavesInScript = 3;
constexpr int kMaxCellsPerStroke = 8;

// Puts the regions into the file's bytes, as a save is meant to: in order, a later region
// winning, a region past the end lengthening the file with zero bytes. A region of no bytes
// writes nothing, wherever it points (the rows of a map 0 blocks wide).
void PutRegions(Bytes& image, const std::vector<FileRegion>& regions) {
  for (const FileRegion& region : regions) {
    if (region.offset < 0 || region.bytes.empty()) continue;
    const auto end = static_cast<std::size_t>(region.End());
    if (image.size() < end) image.resize(end, 0);
    std::copy(region.bytes.begin(), region.bytes.end(), image.begin() + region.offset);
  }
}

// Whether putting the regions into the image would leave it as it is: the map was read
// consistently, every buffer holding what lies where it is saved to.
bool RegionsMirror(const Bytes& image, const std::vector<FileRegion>& regions) {
  std::unordered_map<std::int64_t, std::uint8_t> put;
  for (const FileRegion& region : regions) {
    if (region.offset < 0) continue;
    for (std::size_t i = 0; i < region.bytes.size(); ++i)
      put[region.offset + static_cast<std::int64_t>(i)] = region.bytes[i];
  }
  for (const auto& [at, value] : put) {
    if (at >= static_cast<std::int64_t>(image.size()) || image[static_cast<std::size_t>(at)] != value)
      return false;
  }
  return true;
}

// Follows the file through the saves: what it must hold after each.
class EditSession {
 public:
  EditSession(RomDocument& doc, std::string path, const Bytes& file) : doc_(doc), path_(std::move(path)) {
    file_ = file;
  }

  const Bytes& File() const { return file_; }

  void Save(int scope) {
    doc_.EndStroke();
    const SavePlan plan = doc_.SaveRegions(scope);
    bool raised = false;
    try {
      doc_.SaveRom(scope);
    } catch (const RuntimeError&) {
      raised = true;
    }
    Check(raised == plan.error.has_value(), "a save raised other than its plan says");
    PutRegions(file_, plan.regions);
    ReadFile(path_, read_);
    Check(read_ == file_, "a save changed bytes outside its regions, or not its regions");
    if (scope == kReloadFull && !raised) Check(!doc_.IsModified(), "modified after a full save");
  }

  // A full save into a copy; the copy is the document's ROM from then on, and the file it was
  // made from keeps its bytes.
  void SaveAs() {
    doc_.EndStroke();
    const SavePlan plan = doc_.SaveRegions(kReloadFull);
    const std::string target = path_ == first_path_ ? first_path_ + "-copy" : first_path_;
    bool raised = false;
    try {
      doc_.SaveRomAs(target);
    } catch (const RuntimeError&) {
      raised = true;
    }
    Check(raised == plan.error.has_value(), "a save as raised other than its plan says");
    Check(doc_.RomPath() == target, "the copy did not become the document's ROM");
    ReadFile(path_, read_);
    Check(read_ == file_, "a save as changed the file it copied");
    path_ = target;
    PutRegions(file_, plan.regions);
    ReadFile(path_, read_);
    Check(read_ == file_, "a save as wrote other than the file with its regions");
  }

  void FailingSave(int scope, WriteStep step) {
    doc_.EndStroke();
    const bool modified = doc_.IsModified();
    const bool writes = !doc_.SaveRegions(scope).regions.empty();
    doc_.SetWriteFaultHook([step](WriteStep at) { return at == step ? EIO : 0; });
    bool failed = false;
    try {
      doc_.SaveRom(scope);
    } catch (const FileWriteError&) {
      failed = true;
    } catch (const RuntimeError&) {
    }
    doc_.SetWriteFaultHook({});
    Check(failed == writes, "a write fault not reported");
    ReadFile(path_, read_);
    Check(read_ == file_, "a failed save changed the file");
    if (failed) Check(doc_.IsModified() == modified, "a failed save changed the modified state");
  }

 private:
  RomDocument& doc_;
  std::string path_;
  const std::string first_path_ = path_;
  Bytes& file_ = FileBuffer();
  Bytes& read_ = ReadBuffer();

  // Kept from input to input, so that megabytes are not allocated for every save.
  static Bytes& FileBuffer() {
    static Bytes buffer;
    return buffer;
  }
  static Bytes& ReadBuffer() {
    static Bytes buffer;
    return buffer;
  }
};

void Stroke(RomDocument& doc, InputReader& in) {
  const int width = doc.Grid().Width(), height = doc.Grid().Height();
  const int n = in.Byte() % kMaxCellsPerStroke + 1;
  doc.BeginStroke();
  for (int i = 0; i < n; ++i) {
    const int x = in.Byte() % width, y = in.Byte() % height;
    const std::uint8_t before = doc.Grid().At(x, y);
    const std::uint8_t block = in.Byte();
    const bool changed = doc.PaintCell(x, y, block);
    const bool map_cell = doc.Grid().IsMapCell(x, y);
    Check(doc.Grid().At(x, y) == (map_cell ? block : before), "a paint reached the margin or missed the map");
    Check(changed == (map_cell && before != block), "a paint reported the wrong change");
  }
  doc.EndStroke();
}

void EditHeaders(RomDocument& doc, InputReader& in) {
  PrimaryHeaderBuffer primary = doc.Primary();
  SecondaryHeaderBuffer secondary = doc.Secondary();
  const int n = in.Byte() % 4 + 1;
  for (int i = 0; i < n; ++i) {
    const int index = in.Byte() % (PrimaryHeaderBuffer::kSize + SecondaryHeaderBuffer::kSize);
    const std::uint8_t value = in.Byte();
    if (index < PrimaryHeaderBuffer::kSize)
      primary.bytes[static_cast<std::size_t>(index)] = value;
    else
      secondary.bytes[static_cast<std::size_t>(index - PrimaryHeaderBuffer::kSize)] = value;
  }
  doc.EditHeaders(primary, secondary, "Header", in.Byte() & 1 ? "typed" : "");
  Check(doc.Primary().bytes == primary.bytes && doc.Secondary().bytes == secondary.bytes,
        "header edit not applied");
}

void EditEvent(RomDocument& doc, InputReader& in) {
  const int kind = in.Byte() % kEventKindCount;
  const int count = doc.Events().Count(kind);
  const std::uint8_t index_byte = in.Byte();
  const auto bytes = in.Take(static_cast<std::size_t>(kEventRecordSize[static_cast<std::size_t>(kind)]));
  const std::string gesture = in.Byte() & 1 ? "field" : "";
  if (count == 0) return;
  const int index = index_byte % count;
  doc.EditEventRecord(kind, index, {bytes.begin(), bytes.end()}, "Event", gesture);
  const auto record = doc.Events().Record(kind, index);
  for (std::size_t i = 0; i < record.size(); ++i) {
    Check(record[i] == (i < bytes.size() ? bytes[i] : 0), "event edit not applied");
  }
}

void RunScript(RomDocument& doc, EditSession& session, InputReader& in) {
  int saves = 0;
  for (int op = 0; op < kMaxOperations && !in.Empty(); ++op) {
    switch (in.Byte() % 7) {
      case 0:
        Stroke(doc, in);
        break;
      case 1:
        EditHeaders(doc, in);
        break;
      case 2:
        EditEvent(doc, in);
        break;
      case 3: {
        const int scope = in.Byte() % 3;
        if (saves++ < kMaxSavesInScript) session.Save(scope);
        break;
      }
      case 4:
        (in.Byte() & 1) ? doc.Redo() : doc.Undo();
        break;
      case 5: {
        const int scope = in.Byte() % 3;
        const auto step = static_cast<WriteStep>(in.Byte() % 5);
        if (saves++ < kMaxSavesInScript) session.FailingSave(scope, step);
        break;
      }
      case 6:
        if (saves++ < kMaxSavesInScript) session.SaveAs();
        break;
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static RomCaseFiles files(RomCaseFiles::Mode::kFresh);
  const RomCase c = DecodeRomCase(std::span(data, size));
  const std::string path = files.Prepare(c);
  const Bytes& original = files.Image();

  RomDocument doc;
  try {
    doc.OpenRom(path, files.Settings());
  } catch (const RuntimeError&) {
    return 0;
  } catch (const RomOpenError&) {
    return 0;
  }
  int total = 0;
  for (int count : doc.MapCountPerBank()) total += count;
  if (total == 0) return 0;
  InputReader in(c.tail);
  int pick = in.Word() % total, bank = 0;
  while (pick >= doc.MapCountPerBank()[static_cast<std::size_t>(bank)])
    pick -= doc.MapCountPerBank()[static_cast<std::size_t>(bank++)];
  try {
    doc.LoadSelectedMap(bank, pick);
  } catch (const RuntimeError&) {
  }
  if (!doc.MapLoaded()) return 0;

  const SavePlan loaded = doc.SaveRegions(kReloadFull);
  const bool mirrors = !loaded.error && RegionsMirror(original, loaded.regions);
  EditSession session(doc, path, original);
  RunScript(doc, session, in);

  while (doc.History().CanUndo()) doc.Undo();
  const SavePlan undone = doc.SaveRegions(kReloadFull);
  Check(undone.regions == loaded.regions, "undo did not give back the buffers as loaded");
  session.Save(kReloadFull);
  if (mirrors) {
    const Bytes& file = session.File();
    for (const FileRegion& region : undone.regions) {
      for (std::int64_t at = std::max<std::int64_t>(region.offset, 0); at < region.End(); ++at) {
        Check(file[static_cast<std::size_t>(at)] == original[static_cast<std::size_t>(at)],
              "undo and a full save did not give back the original bytes");
      }
    }
  }
  return 0;
}
