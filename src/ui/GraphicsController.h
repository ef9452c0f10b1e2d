#pragma once

#include <QObject>
#include <cstdint>
#include <functional>

#include "gfx/IndexedImage.h"
#include "gfx/ViewBuffer.h"
#include "maps/RomDocument.h"
#include "ui/ViewOptions.h"

namespace kartova {

class BlockChooserView;
class MapPage;
class MapView;
class PageContext;

// Everything the editor draws from the document: the map view (Picture1) and the event view
// (Picture3), which share one view buffer and its reuse limits, the block chooser (Picture2),
// the zoom menus' effect on them and the time of day. It obeys the shared view lock and draws
// only the view of the active tab.
class GraphicsController : public QObject {
  Q_OBJECT

 public:
  GraphicsController(RomDocument& document, PageContext& context, ViewOptions& options, MapPage& map_page,
                     MapView& event_view, QObject* parent = nullptr);

  // What is laid over a view once its blocks are drawn: the event markers on the event view,
  // the status texts of the cell under the mouse on the map view.
  void OnEventViewDrawn(std::function<void()> draw) { event_view_drawn_ = std::move(draw); }
  void OnMapViewDrawn(std::function<void()> draw) { map_view_drawn_ = std::move(draw); }

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
  // The colours of another time of day (0..7, or 8 for "Auto") for the maps of a bank, and the
  // map view and the block chooser drawn in them.
  void ShowTimeOfDay(int value, int bank_index);

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
  void AfterMapLoadStep(MapLoadStep step);
  void AfterMapBuilt();
  void ZoomChanged(ViewOptions::View view);
  void MapPictureResized(MapView& view);
  void ChooserPictureResized();
  // The view of the tab shown (map or events) with its block size; nullptr on other tabs.
  MapView* ActiveView(int* block_size, int* zoom) const;
  void RenderView(MapView& view, int zoom);
  void RecordDrawTime(double started);

  RomDocument& document_;
  PageContext& context_;
  ViewOptions& options_;
  MapPage& map_page_;
  std::function<void()> event_view_drawn_;
  std::function<void()> map_view_drawn_;
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
