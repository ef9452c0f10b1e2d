#include "ui/ComboFit.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QFontMetrics>
#include <QStyle>
#include <algorithm>

namespace kartova {

namespace {

// Room the list keeps beside its entries: its own vertical scroll bar and a small margin.
int ListChrome(const QComboBox& combo) {
  return combo.style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, &combo) + 8;
}

}  // namespace

int FitComboDropDown(QComboBox& combo) {
  const int chrome = ListChrome(combo);
  const QWidget* window = combo.window();
  const QFontMetrics metrics(window ? window->font() : QApplication::font());
  int widest = combo.width() - chrome;
  for (int i = 0; i < combo.count(); ++i)
    widest = std::max(widest, metrics.horizontalAdvance(combo.itemText(i)));
  const int width = widest + chrome;
  combo.view()->setMinimumWidth(width);
  return width;
}

}  // namespace kartova
