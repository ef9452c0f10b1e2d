#include "cli/RenderAll.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <filesystem>
#include <mutex>
#include <system_error>
#include <thread>

#include "cli/MapLoading.h"
#include "cli/MapPicture.h"
#include "cli/Messages.h"
#include "cli/SharedSettings.h"
#include "maps/RomDocument.h"
#include "rom/SafeFileWriter.h"

namespace kartova::cli {

namespace {

std::string PictureName(const MapRendering& m) {
  return std::to_string(m.bank) + "-" + std::to_string(m.map) + ".png";
}

// The load and the picture of one map, each in a document of its own: a document keeps what a
// load could not read from the map before, and that must not leak into the next picture.
void RenderMap(MapRendering& m, const RenderAllOptions& options, const SettingsReader& settings) {
  auto loaded = std::make_unique<LoadedMap>();
  try {
    if (std::optional<std::string> missing =
            LoadListedMap(options.rom, settings, m.bank, m.map, options.time, *loaded)) {
      m.error = *missing;
      return;
    }
  } catch (const RuntimeError& e) {
    m.error = RuntimeErrorText(e);
    return;
  } catch (const RomOpenError& e) {
    m.error = e.GermanMessage();
    return;
  }
  const RomDocument& doc = loaded->document;
  m.read_past_end = loaded->read_past_end;
  m.width = doc.Secondary().Width();
  m.height = doc.Secondary().Height();
  // A strip outside the grid leaves the grid unfinished: that is no picture of the map.
  if (loaded->grid_error) {
    m.error = RuntimeErrorText(*loaded->grid_error);
    return;
  }
  const std::string name = PictureName(m);
  try {
    WritePng(PathIn(options.out_dir, name), RenderGrid(doc, options.zoom),
             PngPalette(doc.Colours()));
    m.file = name;
  } catch (const FileWriteError& e) {
    m.error = FileErrorText("write", e);
  }
}

// Hands out the maps one at a time to the threads that render them.
class MapQueue {
 public:
  MapQueue(std::vector<MapRendering>& maps, const RenderProgress& progress)
      : maps_(maps), progress_(progress) {}

  MapRendering* Next() {
    const std::size_t i = next_.fetch_add(1);
    return i < maps_.size() ? &maps_[i] : nullptr;
  }
  // Counted under the lock, so that the counts reach the progress line in order.
  void Done() {
    if (!progress_) return;
    const std::lock_guard<std::mutex> lock(progress_mutex_);
    progress_(++done_, maps_.size());
  }

 private:
  std::vector<MapRendering>& maps_;
  const RenderProgress& progress_;
  std::atomic<std::size_t> next_{0};
  std::mutex progress_mutex_;
  std::size_t done_ = 0;
};

void Work(MapQueue& queue, const RenderAllOptions& options, const SettingsReader& settings) {
  while (MapRendering* m = queue.Next()) {
    try {
      RenderMap(*m, options, settings);
    } catch (const std::exception& e) {
      // Out of memory for a huge map, say: that map fails, the others go on.
      m->file.clear();
      m->error = e.what();
    }
    queue.Done();
  }
}

}  // namespace

std::string PathIn(const std::string& dir, const std::string& name) {
  const std::filesystem::path path =
      std::filesystem::path(std::u8string(dir.begin(), dir.end())) / name;
  const std::u8string text = path.u8string();
  return std::string(text.begin(), text.end());
}

std::vector<MapRendering> ListAllMaps(const std::string& rom, const SettingsReader& settings) {
  RomDocument doc;
  doc.OpenRom(rom, settings);
  std::vector<MapRendering> maps;
  for (int bank = 1; bank <= kMapBankCount; ++bank) {
    const MapList list = doc.FillMapList(bank - 1);
    const std::string suffix = " - " + std::to_string(bank) + ".";
    const int count = doc.MapCountPerBank()[static_cast<std::size_t>(bank - 1)];
    for (int map = 1; map <= count; ++map) {
      MapRendering m;
      m.bank = bank;
      m.map = map;
      if (static_cast<std::size_t>(map) <= list.entries.size()) {
        // The entry is "NAME - BANK.MAP"; the number is in the index already.
        const std::string& entry = list.entries[static_cast<std::size_t>(map - 1)];
        m.name = entry.substr(0, entry.size() - (suffix + std::to_string(map)).size());
      }
      maps.push_back(std::move(m));
    }
  }
  return maps;
}

void RenderMaps(std::vector<MapRendering>& maps, const RenderAllOptions& options,
                const SettingsReader& settings, const RenderProgress& progress) {
  const SharedSettings shared(settings);
  MapQueue queue(maps, progress);
  const std::size_t threads = std::clamp<std::size_t>(static_cast<std::size_t>(std::max(options.jobs, 1)), 1,
                                                      std::max<std::size_t>(maps.size(), 1));
  std::vector<std::jthread> helpers;
  for (std::size_t i = 1; i < threads; ++i) {
    try {
      helpers.emplace_back([&] { Work(queue, options, shared); });
    } catch (const std::system_error&) {
      break;  // the threads that did start share the maps
    }
  }
  Work(queue, options, shared);
}

Json IndexJson(const std::vector<MapRendering>& maps) {
  Json index = Json::array();
  for (const MapRendering& m : maps) {
    Json item = Json::object();
    item["bank"] = m.bank;
    item["map"] = m.map;
    item["name"] = m.name ? Json(*m.name) : Json(nullptr);
    if (m.width) item["width"] = *m.width;
    if (m.height) item["height"] = *m.height;
    if (m.error.empty())
      item["file"] = m.file;
    else
      item["error"] = m.error;
    index.push_back(std::move(item));
  }
  return index;
}

}  // namespace kartova::cli
