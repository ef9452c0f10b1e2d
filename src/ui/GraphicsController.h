#pragma once

#include <QObject>
#include <cstdint>

#include "gfx/IndexedImage.h"
#include "gfx/ViewBuffer.h"
#include "maps/RomDocument.h"
#include "ui/ViewOptions.h"

namespace kartova {

class BlockChooserView;
class MainWindow;
class MapView;

// Everything the editor draws from the document: the map view (Picture1) and the event view
// (Picture3), which share one view buffer and its reuse limits, the block chooser (Picture2),
// the zoom menus' effect on them and the Palette / Lighting menu. It obeys the window's view
// lock and draws only the view of the active tab.
class GraphicsController : public QObject {
  Q_OBJECT

 public:
  explicit GraphicsController(MainWindow& window);

  // Start-up: sizes from the zoom factors (before the window is placed), then the chooser and
  // the views with their scroll bars (after the view options are read).
  void PrepareViews();
  void SetUpViews();

  // Draws the view of the active tab through the view buffer; nothing while the lock is set.
  void RenderMapView();
  // Marks the whole view for redrawing (the buffer is rebuilt by the next draw) and draws.
  void RedrawWholeView();
  // A block was placed into cell (cx, cy) of the grid: the cell is drawn into the view buffer
  // in place and only its square is repainted on the view of the active tab; the rest of the
  // view stays as it is.
  void PatchCell(int cx, int cy);
  void DrawBlockChooser();
  // The scroll maxima of both views for the grid; the view lock is 2 meanwhile.
  void SetupHorizontalScroll();
  void SetupVerticalScroll();
  // Block sizes from the three zoom factors.
  void ApplyZoom();
  // The Palette / Lighting items: 0..7, or 8 for "Auto".
  void SetTimeOfDay(int value);

  int map_block_size() const { return map_block_size_; }
  int event_block_size() const { return event_block_size_; }
  int event_cell_size() const { return event_block_size_ / 2; }
  int tileset_block_size() const { return tileset_block_size_; }
  const ViewBuffer& view_buffer() const { return view_buffer_; }
  // Running mean of the event view's draw times in seconds, and the draws in it.
  float draw_time_average() const { return draw_time_average_; }
  std::int32_t draw_count() const { return draw_count_; }
  // How many times the view buffer was rebuilt.
  int rebuilds() const { return rebuilds_; }

 private:
  void ConnectViews();
  void ConnectLightingMenu();
  void AfterMapLoadStep(MapLoadStep step);
  void AfterMapBuilt();
  void ZoomChanged(ViewOptions::View view);
  void MapPictureResized(MapView& view);
  void ChooserPictureResized();
  // The view of the tab shown (map or events) with its block size; nullptr on other tabs.
  MapView* ActiveView(int* block_size, int* zoom) const;
  void RenderView(MapView& view, int zoom);
  void RecordDrawTime(double started);

  MainWindow& window_;
  RomDocument& document_;
  MapView* map_view_;
  MapView* event_view_;
  BlockChooserView* chooser_;
  ViewBuffer view_buffer_;
  // Scratch squares for drawing one block of the map view and one cell of the event view.
  IndexedImage block_square_;
  IndexedImage cell_square_;
  int map_block_size_ = 32;
  int event_block_size_ = 64;
  int tileset_block_size_ = 32;
  float draw_time_average_ = 0.0f;
  std::int32_t draw_count_ = 0;
  int rebuilds_ = 0;
};

}  // namespace kartova
