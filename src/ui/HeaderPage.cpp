#include "ui/HeaderPage.h"

namespace kartova {

HeaderPage::HeaderPage(QWidget* parent) : QFrame(parent) {
  setObjectName(QStringLiteral("Frame(3)"));
}

}  // namespace kartova
