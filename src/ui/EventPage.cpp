#include "ui/EventPage.h"

#include <QHBoxLayout>

#include "ui/MainWindow.h"
#include "ui/MapView.h"

namespace kartova {

EventPage::EventPage(MainWindow& window, QWidget* parent) : QFrame(parent), window_(window) {
  setObjectName(QStringLiteral("Frame(1)"));
  event_view_ = new MapView(3, this);
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(6);
  layout->addWidget(event_view_, 1);
}

QComboBox* EventPage::event_list(int) const { return nullptr; }
QLineEdit* EventPage::field(int) const { return nullptr; }
void EventPage::SelectEventFromList(int) {}
void EventPage::ShowPositionFields() {}
void EventPage::RefreshFields() {}

}  // namespace kartova
