#include "ui/MapPage.h"

#include <QHBoxLayout>

#include "ui/BlockChooserView.h"
#include "ui/FrameMarker.h"
#include "ui/IndexedPictureBox.h"
#include "ui/MapView.h"

namespace kartova {

MapPage::MapPage(QWidget* parent) : QFrame(parent) {
  setObjectName(QStringLiteral("Frame(0)"));
  map_view_ = new MapView(1, this);
  chooser_ = new BlockChooserView(this);
  block_cursor_ =
      new FrameMarker(QStringLiteral("BlockCursor"), QColor(255, 255, 255), 1, map_view_->picture());
  block_cursor_->SetSize(32);
  block_cursor_->MoveTo(0, -64);

  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(6);
  layout->addWidget(map_view_, 1);
  layout->addWidget(chooser_, 0);
}

}  // namespace kartova
