#pragma once

#include <QObject>

namespace kartova {

class MainWindow;

// The event view's behaviour on Picture3: the events' markers blended over the map, the
// selection frame Shape5, selecting events by a click, dragging the selected event, panning on
// empty ground (with the direction line Line1), and the double click that follows a warp.
class EventViewController : public QObject {
  Q_OBJECT

 public:
  explicit EventViewController(MainWindow& window);

  // After the event view's blocks are drawn: the markers of every person, signpost, trigger and
  // warp in sight, blended at half strength, then the selection frame.
  void DrawEvents();
  // Places Shape5 on the selected event, or off the picture.
  void DrawSelectedEventMarker();
  // Moves the selected event to map tile (x, y) (people without their offset of 4): stored as
  // one step of the history (joined with the other moves of the same drag), the view refreshed
  // at the old place, the marker and the position fields updated.
  void MoveSelectedEvent(int x, int y);

 private:
  MainWindow& window_;
};

}  // namespace kartova
