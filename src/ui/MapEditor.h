#pragma once

#include <QObject>
#include <QPoint>

#include "gfx/MapEditing.h"

namespace kartova {

class FrameMarker;
class GraphicsController;
class MapPage;
class PageContext;
class RomDocument;

// Editing the map with the mouse on Picture1: the left button paints the chosen block into the
// map (a stroke from press to release is one step of the history), the right button picks the
// block under the cursor, releasing the left button over a neighbour's strip opens that map.
// While the mouse moves, the status bar describes the cell under it.
class MapEditor : public QObject {
  Q_OBJECT

 public:
  // The button held on the picture, numbered as the mouse events of the classic form did.
  enum EditMode : int { kNoEdit = 0, kPlace = 1, kPick = 2, kOtherButton = 4 };

  MapEditor(RomDocument& document, PageContext& context, MapPage& page, GraphicsController& graphics,
            QObject* parent = nullptr);

  // The mouse-move step again at the last known position, so that the status bar and the
  // markers follow a scroll or a redraw.
  void RefreshHover();
  // The frame shown around a neighbour's strip while the mouse is over it.
  FrameMarker* strip_marker() const { return strip_marker_; }

  int edit_mode() const { return edit_mode_; }
  // Direction 0..3 of the strip under the mouse, or -1.
  int hovered_connection() const { return hovered_; }
  // True while a neighbour opened through its strip is being loaded.
  bool busy() const { return busy_; }

 private:
  bool Idle() const;
  MapViewport Viewport() const;
  MapCell CellAt(QPoint position) const;

  void Press(Qt::MouseButton button, QPoint position);
  void Move(QPoint position);
  void Release(Qt::MouseButton button);
  void DoubleClick();

  // Writes the column and row panels for a new cell; false when the cell is the one before.
  bool TrackCell(MapCell cell);
  void ApplyMouseAction(MapCell cell);
  void Place(MapCell cell);
  void Pick(MapCell cell);
  // The strip marker or the block cursor, and panel 1, for the cell under the mouse.
  void ShowHover(MapCell cell);
  void HideStripMarker();
  void OpenNeighbour(int direction);
  void ScrollChooserTo(int block);
  void SetPanel(int number, const QString& text);
  // Another map was loaded: every status text is written anew at the next move.
  void ForgetCell();

  RomDocument& document_;
  PageContext& context_;
  MapPage& page_;
  GraphicsController& graphics_;
  FrameMarker* strip_marker_ = nullptr;
  QPoint last_mouse_;
  bool mouse_seen_ = false;
  int edit_mode_ = kNoEdit;
  MapCell cell_{-1, -1};
  int hovered_ = -1;
  // The block the last placement replaced (the left double click selects it), -1 before one.
  int replaced_block_ = -1;
  Qt::MouseButton last_release_ = Qt::NoButton;
  bool busy_ = false;
};

}  // namespace kartova
