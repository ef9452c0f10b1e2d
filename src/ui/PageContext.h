#pragma once

#include <QObject>
#include <QString>
#include <cstdint>
#include <utility>

#include "maps/RomDocument.h"
#include "ui/HandlerBoundary.h"

namespace kartova {

class Prompter;

// The window's state that the pages share. Most of it are the re-entrancy flags: control events
// fire on the program's own writes too, and these tell a handler that the write was not the
// user's.
struct PageState {
  // 0 full, 1 map only, 2 events only; non-zero only while a reload or save runs.
  std::int16_t reload_scope = kReloadFull;
  // 1 while the program itself selects in the bank, map and event lists, else 0.
  std::uint8_t rom_loading = 0;
  // What the header and connection boxes are doing (UpdatingControls in maps/HeaderFields.h):
  // 0 idle, 1 an edit is stored, 2 the header page is refilled, 3 the connection checks are
  // written, 5 the connection fields are refilled.
  std::uint8_t updating_controls = 0;
  // Header edits not yet applied to the other pages.
  bool changes_pending = false;
  // 0 normal, 1 the program selects a tab, 2 headers restored, 3 edited headers applied.
  std::uint8_t apply_mode = kApplyNormal;
  // The tab shown, a PageContext::Tab.
  std::uint8_t current_tab = 0;
  // 0..7 a lighting, 8 "Auto" (the map header's own).
  int time_of_day = 8;
  // The view lock (SuppressMapLoad): 1 from start-up until the first map load and while the
  // program scrolls a view itself, 2 while scroll ranges are set, else 0. While it is set no
  // map is loaded or drawn.
  int view_lock = 1;
};

// What the window tells its pages about the document's progress; pages connect to these.
class PageEvents : public QObject {
  Q_OBJECT

 public:
  using QObject::QObject;

 signals:
  // A step of a map load is done (header page already refreshed for kHeaderPage).
  void MapLoadStepDone(kartova::MapLoadStep step);
  // The header tab was selected, or a change of the grid shows while it is: the map link data
  // view is rebuilt.
  void LinkDataViewRequested();
  // The map or event tab was selected coming from another tab: the whole view is redrawn.
  void MapViewRedrawRequested();
};

// What a page may ask of the window it sits in, besides the document it edits: the shared
// flags, the prompter and the handler boundary, and the few actions that reach beyond one page.
// The main window implements it; a test can implement it with a page and no window at all.
class PageContext {
 public:
  // Tabs of TabStrip1, in order.
  enum Tab : std::uint8_t { kMapTab = 0, kEventTab = 1, kWuselixTab = 2, kHeaderTab = 3 };

  virtual ~PageContext() = default;

  virtual PageState& state() = 0;
  virtual Prompter& prompter() = 0;
  virtual PageEvents& events() = 0;

  // After an edit of the document: the title's modified marker and the Edit menu follow it.
  virtual void DocumentEdited() = 0;
  // Opens map map_index of bank bank_index as a click in the selectors would, after the
  // unsaved-changes question; false when the user stayed, or the bank has no such map.
  virtual bool SwitchToMap(int bank_index, int map_index) = 0;
  // The map a warp leads to, bank and map counted from 1: a bank or map that does not exist is
  // reported, and the unsaved-changes question comes between the two checks. True when the map
  // was opened.
  virtual bool FollowWarpTo(int bank, int map) = 0;
  // Status bar panel 1 to 5.
  virtual void ShowStatus(int panel, const QString& text) = 0;

  // Runs a ui handler at the boundary where runtime errors are shown and end the handler.
  template <class Handler>
  bool Guarded(Handler&& handler) {
    return RunGuarded(prompter(), std::forward<Handler>(handler));
  }
};

}  // namespace kartova
