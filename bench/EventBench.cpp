// The event page's two paths a user feels: loading a map's events (every map change and every
// events-only reload) and one step of dragging an event across the event view. The load uses
// a map with full lists, 255 records of every kind, the most a count byte allows.

#include <benchmark/benchmark.h>

#include <optional>
#include <string>
#include <vector>

#include "BenchSupport.h"
#include "events/EventGeometry.h"
#include "maps/RomDocument.h"

namespace kartova {
namespace {

using bench::TempRom;

constexpr int kFull = 255;

// No definition for the title: the editor's defaults serve.
class NoSettings : public SettingsReader {
 public:
  std::string ReadSetting(const std::string&, const std::string&, const std::string& def) const override {
    return def;
  }
};

std::vector<std::uint8_t> FullEventsRom() {
  MapDecl map;
  map.width = 20;
  map.height = 16;
  for (int i = 0; i < kFull; ++i) {
    const auto b = static_cast<std::uint8_t>(i);
    map.enter_scripts.push_back({.script = static_cast<std::uint16_t>(0x4000 + i)});
    map.time_scripts.push_back({.condition = b});
    map.warps.push_back({.y = static_cast<std::uint8_t>(i % 32), .x = static_cast<std::uint8_t>(i % 40)});
    map.triggers.push_back({.y = static_cast<std::uint8_t>(i % 32), .x = static_cast<std::uint8_t>(i / 8)});
    map.signposts.push_back({.y = static_cast<std::uint8_t>(i / 8), .x = static_cast<std::uint8_t>(i % 40)});
    map.people.push_back({.picture = b, .y = static_cast<std::uint8_t>(i % 32), .x = static_cast<std::uint8_t>(i % 40)});
  }
  return RomBuilder().Map(1, map).Build();
}

int RecordCount(const MapEventSet& events) {
  int count = 0;
  for (int kind = 0; kind < kEventKindCount; ++kind) count += events.Count(kind);
  return count;
}

// As the editor does it: the document opens the file, reads the two event blocks, closes it.
void BM_LoadEvents(benchmark::State& state) {
  const NoSettings settings;
  const TempRom rom(FullEventsRom());
  RomDocument doc;
  doc.OpenRom(rom.path(), settings);
  doc.LoadSelectedMap(0, 0);
  doc.SetReloadScope(kReloadEventsOnly);
  for (auto _ : state) {
    doc.LoadSelectedMap(0, 0);
    benchmark::DoNotOptimize(doc.Events().Records(kEventPeople).data());
  }
  state.counters["records"] = RecordCount(doc.Events());
  state.counters["system_reads"] = doc.LastSystemReads();
}
BENCHMARK(BM_LoadEvents)->Unit(benchmark::kMicrosecond);

// One mouse move of a drag: the new place clamped and written into a copy of the record, the
// document's edit joining the drag's one step, and the selection frame placed again. The
// person runs to and fro along a row, so every step writes.
void BM_DragStepCore(benchmark::State& state) {
  const NoSettings settings;
  const TempRom rom(FullEventsRom());
  RomDocument doc;
  doc.OpenRom(rom.path(), settings);
  doc.LoadSelectedMap(0, 0);
  const EventViewport view{.h_scroll = 40, .v_scroll = 20, .width = 480, .height = 384, .cell = 16};
  constexpr int kIndex = 100;
  const EventTile origin = StoredPosition(doc.Events(), kEventPeople, kIndex);
  int step = 0;
  for (auto _ : state) {
    const int x = step < 40 ? step : 79 - step;
    step = step + 1 == 80 ? 0 : step + 1;
    const auto record = doc.Events().Record(kEventPeople, kIndex);
    std::vector<std::uint8_t> moved(record.begin(), record.end());
    const EventMove move = MoveEvent(kEventPeople, moved, x, 5, origin, doc.MapWidth(), doc.MapHeight());
    if (move.Changed()) doc.EditEventRecord(kEventPeople, kIndex, std::move(moved), "Event verschieben", "drag");
    std::optional<PixelPoint> marker = SelectionMarkerPosition(doc.Events(), kEventPeople, kIndex, view);
    benchmark::DoNotOptimize(marker);
  }
  doc.CloseGesture();
  state.counters["history_steps"] = static_cast<double>(doc.History().Count());
}
BENCHMARK(BM_DragStepCore)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace kartova
