#pragma once

#include <QFrame>

class QLabel;

namespace kartova {

class BlockChooserView;
class FrameMarker;
class MapView;

// The " Map " page: the map view (Picture1 with HScroll1, VScroll1) takes the free room, the
// block chooser (Picture2 with VScroll2) stands at the right. Until a ROM is open, a hint in the
// middle of the map view says how to open one.
class MapPage : public QFrame {
  Q_OBJECT

 public:
  explicit MapPage(QWidget* parent = nullptr);

  MapView* map_view() const { return map_view_; }
  BlockChooserView* chooser() const { return chooser_; }
  // The frame around the map cell under the mouse.
  FrameMarker* block_cursor() const { return block_cursor_; }
  // "Keine ROM geöffnet." and how to open one.
  QLabel* empty_hint() const { return empty_hint_; }
  void SetEmptyHintVisible(bool visible);

 private:
  MapView* map_view_;
  BlockChooserView* chooser_;
  FrameMarker* block_cursor_;
  QLabel* empty_hint_;
};

}  // namespace kartova
