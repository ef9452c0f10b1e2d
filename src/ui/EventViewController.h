#pragma once

#include <QLine>
#include <QObject>
#include <QPoint>
#include <QString>
#include <QWidget>
#include <map>
#include <string>

#include "events/EventGeometry.h"
#include "gfx/MarkerBlend.h"

namespace kartova {

class EventPage;
class FrameMarker;
class GraphicsController;
class MapView;
class PageContext;
class RomDocument;
class ViewOptions;

// Line1: the direction line of a pan, from the press point to the mouse, laid over the picture
// like a line control; it lets the mouse through. Put out of sight at (-10, -10) when unused.
class DirectionLine : public QWidget {
  Q_OBJECT

 public:
  explicit DirectionLine(QWidget* picture);

  // Both ends in the picture's pixels.
  void SetLine(QPoint from, QPoint to);
  QLine line() const { return line_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QLine line_;
};

// The event view's behaviour on Picture3: the events' markers blended over the map, the
// selection frame Shape5, selecting events by a click, dragging the selected event, panning on
// empty ground (with the direction line Line1), and the double click that follows a warp.
class EventViewController : public QObject {
  Q_OBJECT

 public:
  EventViewController(RomDocument& document, PageContext& context, EventPage& page, GraphicsController& graphics,
                      const ViewOptions& options, QObject* parent = nullptr);

  // After the event view's blocks are drawn: the markers of every person, signpost, trigger and
  // warp in sight, blended at half strength, then the selection frame.
  void DrawEvents();
  // Places Shape5 on the selected event, or off the picture.
  void DrawSelectedEventMarker();
  // Moves the selected event to map tile (x, y) (people without their offset of 4): stored as
  // one step of the history (joined with the other moves of the same drag), the view refreshed
  // at the old place, the marker and the position fields updated.
  void MoveSelectedEvent(int x, int y);

  // Where the marker pictures are read from: a resource or file prefix to which
  // "people16.xpm" and the like are appended. The pictures are read again at the next draw.
  void SetMarkerSource(const QString& prefix);

  FrameMarker* selection_marker() const { return shape5_; }
  DirectionLine* direction_line() const { return line1_; }
  // Stored position the next move of a drag compares with; (255, 255) while panning.
  EventTile drag_origin() const { return drag_origin_; }
  bool mouse_pressed() const { return mouse_pressed_; }

 private:
  void Press(QPoint mouse);
  void Move(QPoint mouse);
  void Release();
  void DoubleClick();
  void SelectHits(const EventHits& hits);
  void Pan(QPoint mouse);
  void FollowWarp(int index);
  void CentreOnSelectedWarp();
  void HideLine();

  MapView& View() const;
  EventViewport Viewport() const;
  // The selected event when it is a warp, trigger, signpost or person that exists.
  bool SelectedOnMap(int* kind, int* index) const;
  // The pictures for a cell size, read at the first use; one that cannot be read stays empty
  // and its kind is drawn without a marker.
  const MarkerSet& Markers(int cell);

  RomDocument& document_;
  PageContext& context_;
  EventPage& page_;
  GraphicsController& graphics_;
  const ViewOptions& options_;
  FrameMarker* shape5_;
  DirectionLine* line1_;
  QString marker_source_;
  std::map<int, MarkerSet> markers_;
  bool marker_failure_shown_ = false;

  EventTile drag_origin_{kNoEventIndex, kNoEventIndex};
  QPoint press_position_;
  int press_h_scroll_ = 0;
  int press_v_scroll_ = 0;
  bool mouse_pressed_ = false;
  int drags_ = 0;
  std::string drag_key_;
};

}  // namespace kartova
