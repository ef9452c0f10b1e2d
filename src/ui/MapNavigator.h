#pragma once

#include <QObject>
#include <functional>

#include "maps/RomDocument.h"

class QWidget;

namespace kartova {

class HeaderPage;
class MapSelector;
class PageContext;

// The bank and map selectors (Combo2, Combo3) and the map load behind them: the click handlers
// of both lists, the reselection after a ROM is opened, and the two ways other pages switch
// maps (a neighbour's record, a warp). Every map that would replace the loaded one asks the
// unsaved-changes question first.
class MapNavigator : public QObject {
  Q_OBJECT

 public:
  // confirm_discard: the unsaved-changes question; false keeps the loaded map. views: the widget
  // whose scroll bars the first map load releases.
  MapNavigator(RomDocument& document, PageContext& context, MapSelector& selector, HeaderPage& header_page,
               std::function<bool()> confirm_discard, QWidget& views, QObject* parent = nullptr);

  // After a ROM is opened: the first bank unless one is selected, with its maps listed; then
  // the map selected before (the first one if none was) selected again and loaded. False when
  // the bank has no such map (which is reported).
  void SelectBankAfterOpen();
  bool ReselectMap(int remembered);

  // The click handler of Combo2: lists the maps of the selected bank in Combo3, nothing
  // selected. A location byte above 94 ends the list there with the subscript error.
  void FillMapList();
  // The click handler of Combo3 for a map the program chose: releases the view lock, loads the
  // map and enables the scroll bars of the map and event views.
  void ClickMapList();
  // Loads the selected map by ReloadScope and ApplyMode, unless the view lock is set; the pages
  // refresh after each step (the header page first).
  void LoadSelectedMap();

  // The map step places further down (step > 0) or up in Combo3, chosen as the user chooses
  // it there (the unsaved-changes question included). Past either end of the list, or without
  // a ROM, nothing happens.
  void ChooseNeighbour(int step);

  // PageContext::SwitchToMap and PageContext::FollowWarpTo.
  bool SwitchToMap(int bank_index, int map_index);
  bool FollowWarpTo(int bank, int map);

 private:
  void ClickMapListByUser();
  void RestoreLoadedMapSelection();
  void AfterMapLoadStep(MapLoadStep step);
  void EnableMapScrollBars();

  RomDocument& document_;
  PageContext& context_;
  MapSelector& selector_;
  HeaderPage& header_page_;
  std::function<bool()> confirm_discard_;
  QWidget& views_;
  // Panel 1 shows the warning about a file that ends before the map's data.
  bool truncation_shown_ = false;
};

}  // namespace kartova
