// The view menu and the keys and wheel behind it: zoom of the view the user means, the tabs,
// and the next and previous map of the bank.

#include <QApplication>
#include <QCursor>
#include <QTabBar>

#include "ui/BlockChooserView.h"
#include "ui/EventPage.h"
#include "ui/MainWindow.h"
#include "ui/MapNavigator.h"
#include "ui/MapPage.h"
#include "ui/MapView.h"

namespace kartova {

// The view menu: the zoom keys act on the view the user means, the tab items click the tab, and
// the map items choose in the map list.
void MainWindow::ConnectViewItems() {
  const auto zoom_target = [this](bool in) {
    if (const std::optional<ViewOptions::View> view = ZoomTarget()) ZoomView(*view, in);
  };
  menu_->OnClick("mnuZoomIn", this, [this, zoom_target] { Guarded([&] { zoom_target(true); }); });
  menu_->OnClick("mnuZoomOut", this, [this, zoom_target] { Guarded([&] { zoom_target(false); }); });
  for (int tab = kMapTab; tab <= kHeaderTab; ++tab)
    menu_->OnClick(QStringLiteral("mnuTab%1").arg(tab), this, [this, tab] { tab_strip_->setCurrentIndex(tab); });
  menu_->OnClick("mnuNextMap", this, [this] { Guarded([this] { navigator_->ChooseNeighbour(1); }); });
  menu_->OnClick("mnuPrevMap", this, [this] { Guarded([this] { navigator_->ChooseNeighbour(-1); }); });

  // Ctrl with the wheel zooms the view it turns over.
  using View = ViewOptions::View;
  connect(map_page_->map_view(), &MapView::ZoomRequested, this,
          [this](bool in) { Guarded([&] { ZoomView(View::kMap, in); }); });
  connect(event_page_->event_view(), &MapView::ZoomRequested, this,
          [this](bool in) { Guarded([&] { ZoomView(View::kEvent, in); }); });
  connect(map_page_->chooser(), &BlockChooserView::ZoomRequested, this,
          [this](bool in) { Guarded([&] { ZoomView(View::kTileset, in); }); });
}

void MainWindow::ZoomView(ViewOptions::View view, bool in) {
  if ((view_options_->zoom(view) == 2) != in) view_options_->ClickZoom(view);
}

std::optional<ViewOptions::View> MainWindow::ZoomTarget() const {
  using View = ViewOptions::View;
  const std::pair<const QWidget*, View> views[] = {{map_page_->map_view(), View::kMap},
                                                   {event_page_->event_view(), View::kEvent},
                                                   {map_page_->chooser(), View::kTileset}};
  const auto view_of = [&views](const QWidget* widget) -> std::optional<View> {
    for (const auto& [shown, view] : views)
      if (widget && shown->isVisible() && (widget == shown || shown->isAncestorOf(widget))) return view;
    return std::nullopt;
  };
  if (const std::optional<View> view = view_of(QApplication::widgetAt(QCursor::pos()))) return view;
  if (const std::optional<View> view = view_of(QApplication::focusWidget())) return view;
  if (state_.current_tab == kMapTab) return View::kMap;
  if (state_.current_tab == kEventTab) return View::kEvent;
  return std::nullopt;
}

}  // namespace kartova
