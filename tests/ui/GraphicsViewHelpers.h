#pragma once

#include <QImage>
#include <QScrollBar>
#include <QTest>
#include <QWidget>

#include "gfx/BlockSet.h"
#include "maps/RomDocument.h"
#include "ui/IndexedPictureBox.h"
#include "ui/MapView.h"

namespace kartova::test {

// A click on widget at p; a double click comes from Qt as press, release, double click, release.
inline void ClickOn(QWidget* widget, QPoint p, Qt::MouseButton button = Qt::LeftButton, bool twice = false) {
  QTest::mousePress(widget, button, {}, p);
  QTest::mouseRelease(widget, button, {}, p);
  if (!twice) return;
  QTest::mouseDClick(widget, button, {}, p);
  QTest::mouseRelease(widget, button, {}, p);
}

// What a picture box shows now, painted as the screen would.
inline QImage Shot(QWidget* widget) { return widget->grab().toImage(); }

// The screen colour of picture pixel (x, y) of a map view at block zoom `zoom`, worked out
// from the document: the grid cell under it, the block's pixel in the strip, the colour table.
inline QRgb ExpectedMapColour(const RomDocument& doc, const MapView& view, int zoom, int x, int y) {
  const int s = 32 * zoom;
  const int gx = x + view.h_scroll()->value();
  const int gy = y + view.v_scroll()->value();
  const int block = doc.Grid().At(gx / s, gy / s);
  const int index = doc.Blocks().StripRow(gy % s / zoom)[block * 32 + gx % s / zoom];
  return doc.Colours().Argb(index) | 0xFF000000u;
}

// The same for the block chooser: two blocks a row at zoom 1, one at zoom 2.
inline QRgb ExpectedChooserColour(const RomDocument& doc, int zoom, int scroll, int x, int y) {
  const int s = 32 * zoom;
  const int row = (y + scroll) / s;
  const int block = zoom == 2 ? row : row * 2 + x / 32;
  const int index = doc.Blocks().StripRow((y + scroll) % s / zoom)[block * 32 + x % s / zoom];
  return doc.Colours().Argb(index) | 0xFF000000u;
}

}  // namespace kartova::test
