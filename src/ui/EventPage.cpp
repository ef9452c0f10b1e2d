#include "ui/EventPage.h"

namespace kartova {

EventPage::EventPage(QWidget* parent) : QFrame(parent) {
  setObjectName(QStringLiteral("Frame(1)"));
}

}  // namespace kartova
