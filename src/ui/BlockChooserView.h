#pragma once

#include <QPoint>
#include <QWidget>
#include <functional>

#include "gfx/BlockChooser.h"
#include "ui/WheelNotches.h"

class QScrollBar;

namespace kartova {

class BlockSet;
class FrameMarker;
class IndexedPictureBox;

// The block chooser: Picture2 with VScroll2, every block of the tileset in a column n blocks
// wide (two at normal size, one when zoomed; always 64 pixels), a frame around the selected
// block and one around the block under the mouse. Pressing picks the hovered block, dragging
// keeps picking. Nothing is drawn or picked while the view lock is 1. The wheel scrolls through
// VScroll2; Ctrl with the wheel asks for a zoom.
class BlockChooserView : public QWidget {
  Q_OBJECT

 public:
  explicit BlockChooserView(QWidget* parent = nullptr);

  IndexedPictureBox* picture() const { return picture_; }
  QScrollBar* scroll() const { return scroll_; }
  FrameMarker* selection_marker() const { return selection_marker_; }
  FrameMarker* hover_marker() const { return hover_marker_; }

  // The blocks drawn (they live in the document) and the lock the views obey.
  void SetBlocks(const BlockSet* blocks) { blocks_ = blocks; }
  void SetViewLock(std::function<int()> view_lock) { view_lock_ = std::move(view_lock); }

  // The tileset zoom: resizes the markers, sets the scroll range and places the markers for
  // the current selection. The caller redraws.
  void SetZoom(int zoom);
  int Zoom() const { return chooser_.Zoom(); }
  // VScroll2's maximum for the picture's height.
  void SetupScrollRange();
  // DrawBlockChooser: the visible rows into the picture, the selection marker by the chooser's
  // first-plus-last rule, then the mouse-move step again at the last mouse position.
  void Draw();

  int SelectedBlock() const { return selected_; }
  int HoveredBlock() const { return hovered_; }
  bool ButtonHeld() const { return button_held_; }
  // Makes block the selected one: "Auswahl: " text and the selection marker.
  void SelectBlock(int block);
  // Scrolls so that the selected block's row is centred.
  void CentreOnSelection();

 signals:
  // "Block: XX" for status bar panel 4.
  void HoverText(const QString& text);
  // "Auswahl: XX" for status bar panel 5.
  void SelectionText(const QString& text);
  // Ctrl with the wheel: in (turned away from the user) or out.
  void ZoomRequested(bool in);

 protected:
  void wheelEvent(QWheelEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool Locked() const { return view_lock_ && view_lock_() == 1; }
  void Wheel(QWheelEvent& event);
  void Press();
  void Move(QPoint position);
  void Release();

  IndexedPictureBox* picture_;
  QScrollBar* scroll_;
  FrameMarker* selection_marker_;
  FrameMarker* hover_marker_;
  const BlockSet* blocks_ = nullptr;
  std::function<int()> view_lock_;
  BlockChooser chooser_;
  int selected_ = 0;
  int hovered_ = 0;
  int last_hovered_ = -1;
  int last_scroll_ = -1;
  bool button_held_ = false;
  QPoint last_mouse_;
  WheelNotches wheel_;
};

// "Block: " or "Auswahl: " and the block as two upper-case hexadecimal digits. The label is
// translated in the context "BlockText".
QString BlockText(const char* label, int block);

}  // namespace kartova
