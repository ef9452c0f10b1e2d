// The widget part of placing a block with the mouse: the real editor window on the offscreen
// platform with the demo's largest map, mouse events sent to Picture1 as Qt delivers them,
// through the map editor's handler, the document's stroke, the view buffer's patch and the
// picture's conversion of that one square. One variant also lets Qt repaint the square.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QMouseEvent>
#include <QScrollBar>
#include <QStatusBar>
#include <algorithm>
#include <memory>
#include <vector>

#include "BenchSupport.h"
#include "ui/BenchEditor.h"
#include "demo/DemoWorld.h"
#include "ui/BlockChooserView.h"
#include "ui/GraphicsController.h"
#include "ui/IndexedPictureBox.h"
#include "ui/MainWindow.h"
#include "ui/MapPage.h"
#include "ui/MapView.h"

namespace kartova {
namespace {

// Nord Hafen-Stadt, 30 x 20 blocks.
constexpr int kBank = demo::kHafen.bank - 1;
constexpr int kMap = demo::kHafen.number - 1;

// The editor with the demo definition in its own program directory, the demo ROM given on the
// command line, the largest map loaded.
class Editor {
 public:
  Editor() : editor_(bench::DemoRomPath()) {
    window().resize(1280, 900);
    window().show();
    QCoreApplication::processEvents();
    ReloadMap();
  }

  // Loads the map again, which also empties the edit history.
  void ReloadMap() {
    window().SwitchToMap(kBank, kMap);
    QCoreApplication::processEvents();
  }
  MainWindow& window() { return editor_.window(); }
  IndexedPictureBox* picture() { return window().map_page()->map_view()->picture(); }

  // Centres of the map cells wholly on the picture, row after row and every other row
  // backwards, then the same way back, so that each step goes to a neighbouring cell.
  std::vector<QPoint> DragPath() {
    const int s = window().graphics()->map_block_size();
    const MapView& view = *window().map_page()->map_view();
    const int h = view.h_scroll()->value(), v = view.v_scroll()->value();
    const ExtendedMap& grid = window().document().Grid();
    std::vector<QPoint> path;
    int rows = 0;
    for (int y = 3; y < 3 + grid.MapHeight(); ++y) {
      std::vector<QPoint> row;
      for (int x = 3; x < 3 + grid.MapWidth(); ++x) {
        const QPoint at(x * s - h, y * s - v);
        if (at.x() >= 0 && at.y() >= 0 && at.x() + s <= picture()->width() && at.y() + s <= picture()->height())
          row.push_back(at + QPoint(s / 2, s / 2));
      }
      if (row.empty()) continue;
      if (rows++ % 2 == 1) std::reverse(row.begin(), row.end());
      path.insert(path.end(), row.begin(), row.end());
    }
    for (std::size_t i = path.size() >= 2 ? path.size() - 2 : 0; i > 0; --i) path.push_back(path[i]);
    return path;
  }

 private:
  bench::BenchEditor editor_;
};

std::unique_ptr<Editor> g_editor;

Editor& TheEditor() {
  if (!g_editor) g_editor = std::make_unique<Editor>();
  return *g_editor;
}

void Send(QWidget* picture, QEvent::Type type, QPoint at, Qt::MouseButton button, Qt::MouseButtons held) {
  QMouseEvent event(type, QPointF(at), QPointF(picture->mapToGlobal(at)), button, held, Qt::NoModifier);
  QCoreApplication::sendEvent(picture, &event);
}

// A drag with the left button: every mouse move places the chosen block into the next cell.
// The chosen block changes at both ends of the path, so that the moves paint over the blocks
// painted before. state.range(0): 0 up to the converted square, whose repaint Qt has only been
// asked for; 1 Qt also repaints everything that changed (the square and the status panels
// with their new texts) before the next move; 2 the same with the status bar hidden, which
// leaves the square alone.
void BM_DragPlacesBlock(benchmark::State& state) {
  Editor& editor = TheEditor();
  editor.ReloadMap();
  const bool repaint = state.range(0) >= 1;
  QStatusBar* status = editor.window().statusBar();
  status->setVisible(state.range(0) != 2);
  QCoreApplication::processEvents();
  BlockChooserView& chooser = *editor.window().map_page()->chooser();
  IndexedPictureBox* picture = editor.picture();
  const std::vector<QPoint> path = editor.DragPath();
  if (path.size() < 2) {
    status->setVisible(true);
    state.SkipWithError("no map cells on the picture");
    return;
  }
  const int rebuilds = editor.window().graphics()->rebuilds();
  Send(picture, QEvent::MouseMove, path[0], Qt::NoButton, Qt::NoButton);
  Send(picture, QEvent::MouseButtonPress, path[0], Qt::LeftButton, Qt::LeftButton);
  std::size_t next = 1;
  int block = 1;
  for (auto _ : state) {
    Send(picture, QEvent::MouseMove, path[next], Qt::NoButton, Qt::LeftButton);
    if (repaint) QCoreApplication::processEvents();
    if (++next == path.size()) next = 0;
    if (next == 0 || next == path.size() / 2) {
      block = block == 1 ? 2 : 1;
      chooser.SelectBlock(block);
    }
  }
  Send(picture, QEvent::MouseButtonRelease, path[next], Qt::LeftButton, Qt::NoButton);
  QCoreApplication::processEvents();
  state.counters["cells"] = static_cast<double>(path.size() / 2 + 1);
  state.counters["rebuilds"] = editor.window().graphics()->rebuilds() - rebuilds;
  state.counters["picture_w"] = picture->width();
  state.counters["picture_h"] = picture->height();
  status->setVisible(true);
  QCoreApplication::processEvents();
}
BENCHMARK(BM_DragPlacesBlock)->Arg(0)->Arg(1)->Arg(2)->Unit(benchmark::kMicrosecond);

// A click: press (stroke, placement, patch) and release (the step into the history, the title
// marker and the Edit menu). The map is reloaded now and then, untimed, to empty the history.
void BM_ClickPlacesBlock(benchmark::State& state) {
  Editor& editor = TheEditor();
  editor.ReloadMap();
  BlockChooserView& chooser = *editor.window().map_page()->chooser();
  IndexedPictureBox* picture = editor.picture();
  const std::vector<QPoint> path = editor.DragPath();
  if (path.empty()) {
    state.SkipWithError("no map cells on the picture");
    return;
  }
  std::size_t next = 0;
  int block = 1;
  int clicks = 0;
  for (auto _ : state) {
    Send(picture, QEvent::MouseButtonPress, path[next], Qt::LeftButton, Qt::LeftButton);
    Send(picture, QEvent::MouseButtonRelease, path[next], Qt::LeftButton, Qt::NoButton);
    if (++next == path.size()) next = 0;
    if (next == 0 || next == path.size() / 2) chooser.SelectBlock(block = block == 1 ? 2 : 1);
    if (++clicks == 2048) {
      state.PauseTiming();
      editor.ReloadMap();
      clicks = 0;
      state.ResumeTiming();
    }
  }
}
BENCHMARK(BM_ClickPlacesBlock)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace kartova

int main(int argc, char** argv) {
  // A benchmark never needs a display.
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  // The window goes before the application object.
  kartova::g_editor.reset();
  return 0;
}
