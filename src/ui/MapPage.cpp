#include "ui/MapPage.h"

namespace kartova {

MapPage::MapPage(QWidget* parent) : QFrame(parent) { setObjectName(QStringLiteral("Frame(0)")); }

}  // namespace kartova
