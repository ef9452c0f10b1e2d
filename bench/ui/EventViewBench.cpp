// Drawing the event view as the editor does it: the real window on the offscreen platform,
// Picture3 at 1920 × 1080 and event zoom 2, a map of the demo's outdoor tileset with 100
// people in sight. One draw is what RenderMapView times: the view buffer's transfer (or its
// rebuild), the markers blended over it, and the picture's synchronous repaint.

#include <benchmark/benchmark.h>

#include <QAction>
#include <QApplication>
#include <QScrollBar>
#include <QTabBar>
#include <memory>

#include "BenchSupport.h"
#include "ui/BenchEditor.h"
#include "demo/DemoWorld.h"
#include "ui/EventPage.h"
#include "ui/EventViewController.h"
#include "ui/GraphicsController.h"
#include "ui/IndexedPictureBox.h"
#include "ui/MainWindow.h"
#include "ui/MapView.h"

namespace kartova {
namespace {

constexpr int kPictureWidth = 1920;
constexpr int kPictureHeight = 1080;
// The crowd's map comes after the two cave maps of map bank 3.
constexpr int kBank = 2;
constexpr int kMap = 2;

// 40 x 24 blocks of the outdoor tileset with ten rows of ten people, five tiles apart
// sideways and three downwards, all inside the first 1920 × 1080 pixels of the view.
std::vector<std::uint8_t> CrowdRom() {
  MapDecl map;
  map.tileset = demo::kOutdoorTileset;
  map.width = 40;
  map.height = 24;
  for (int y = 0; y < map.height; ++y)
    for (int x = 0; x < map.width; ++x) map.blocks.push_back(static_cast<std::uint8_t>((x * 7 + y * 3) % 48));
  for (int row = 0; row < 10; ++row)
    for (int column = 0; column < 10; ++column)
      map.people.push_back(
          {.picture = 5, .y = static_cast<std::uint8_t>(row * 3), .x = static_cast<std::uint8_t>(column * 5)});
  return DemoRomBuilder().Map(kBank + 1, map).Build();
}

// The editor with the crowd's map loaded on the event tab.
class Editor {
 public:
  Editor() : rom_(CrowdRom()), editor_(rom_.path()) {
    MainWindow& window = editor_.window();
    window.show();
    if (window.view_options().zoom(ViewOptions::View::kEvent) != 2)
      window.menu().Item(QStringLiteral("mnuEventZoom"))->trigger();
    window.tab_strip()->setCurrentIndex(MainWindow::kEventTab);
    FitPicture();
    window.SwitchToMap(kBank, kMap);
    QCoreApplication::processEvents();
  }

  MainWindow& window() { return editor_.window(); }
  MapView& view() { return *window().event_page()->event_view(); }
  IndexedPictureBox& picture() { return *view().picture(); }

 private:
  // The window grows by what the picture lacks; the layout may need a second round.
  void FitPicture() {
    for (int round = 0; round < 3; ++round) {
      QCoreApplication::processEvents();
      const QSize lack(kPictureWidth - picture().width(), kPictureHeight - picture().height());
      if (lack.isNull()) return;
      window().resize(window().size() + lack);
    }
    QCoreApplication::processEvents();
  }

  bench::TempRom rom_;
  bench::BenchEditor editor_;
};

void Report(benchmark::State& state, Editor& editor, int rebuilds) {
  state.counters["picture_w"] = editor.picture().width();
  state.counters["picture_h"] = editor.picture().height();
  state.counters["markers"] = static_cast<double>(editor.picture().Overlays().size());
  state.counters["rebuilds"] = editor.window().graphics()->rebuilds() - rebuilds;
  // The editor's own running mean, in milliseconds, which the dynamic scrolling reads.
  state.counters["draw_avg_ms"] = editor.window().graphics()->draw_time_average() * 1000.0;
}

// A scroll by one line inside the buffer's slack, back and forth: the common draw while
// panning. The buffer is only transferred from another place; the markers are blended anew.
// state.range(0): 1 with the markers, 0 without (the pictures cannot be read), for comparison.
void BM_EventViewScrollDraw(benchmark::State& state) {
  Editor editor;
  if (state.range(0) == 0) editor.window().event_view_controller()->SetMarkerSource(QStringLiteral("/nonexistent/"));
  QScrollBar& bar = *editor.view().v_scroll();
  if (editor.picture().width() != kPictureWidth || bar.maximum() < 2) {
    state.SkipWithError("the picture did not get its size or the map does not scroll");
    return;
  }
  bar.setValue(0);
  const int rebuilds = editor.window().graphics()->rebuilds();
  int step = 0;
  for (auto _ : state) bar.setValue(++step & 1);
  Report(state, editor, rebuilds);
}
BENCHMARK(BM_EventViewScrollDraw)->Arg(1)->Arg(0)->Unit(benchmark::kMillisecond);

// The whole view drawn again, the buffer rebuilt from the blocks (after a zoom, a tab change
// or a map load).
void BM_EventViewWholeRedraw(benchmark::State& state) {
  Editor editor;
  const int rebuilds = editor.window().graphics()->rebuilds();
  for (auto _ : state) editor.window().graphics()->RedrawWholeView();
  Report(state, editor, rebuilds);
}
BENCHMARK(BM_EventViewWholeRedraw)->Unit(benchmark::kMillisecond);

// The markers alone: 100 cells blended and handed to the picture, and the selection frame.
void BM_EventMarkersOnly(benchmark::State& state) {
  Editor editor;
  const int rebuilds = editor.window().graphics()->rebuilds();
  for (auto _ : state) editor.window().event_view_controller()->DrawEvents();
  Report(state, editor, rebuilds);
}
BENCHMARK(BM_EventMarkersOnly)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kartova
