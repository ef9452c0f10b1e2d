#include "ui/MapPage.h"

#include <QHBoxLayout>
#include <QLabel>

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

  // The hint lies on the empty picture, light on its dark ground, and lets the mouse through.
  IndexedPictureBox* picture = map_view_->picture();
  empty_hint_ = new QLabel(
      tr("Keine ROM geöffnet.\nÜber File → Load Rom ... (Strg+O) öffnen oder per Drag & Drop eine "
         "ROM-Datei (*.gb, *.gbc) auf das Fenster ziehen."),
      picture);
  empty_hint_->setObjectName(QStringLiteral("EmptyHint"));
  empty_hint_->setAlignment(Qt::AlignCenter);
  empty_hint_->setWordWrap(true);
  empty_hint_->setMargin(16);
  empty_hint_->setAttribute(Qt::WA_TransparentForMouseEvents);
  empty_hint_->setStyleSheet(QStringLiteral("color: #e8e8e8;"));
  empty_hint_->setGeometry(picture->rect());
  connect(picture, &IndexedPictureBox::Resized, empty_hint_,
          [this](QSize size) { empty_hint_->setGeometry(QRect(QPoint(0, 0), size)); });
}

void MapPage::SetEmptyHintVisible(bool visible) { empty_hint_->setVisible(visible); }

}  // namespace kartova
