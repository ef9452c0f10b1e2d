#include "ui/EventPage.h"

#include <QHBoxLayout>

#include "ui/MapView.h"

namespace kartova {

EventPage::EventPage(QWidget* parent) : QFrame(parent) {
  setObjectName(QStringLiteral("Frame(1)"));
  event_view_ = new MapView(3, this);
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(6);
  layout->addWidget(event_view_, 1);
}

}  // namespace kartova
