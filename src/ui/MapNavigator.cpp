#include "ui/MapNavigator.h"

#include <QComboBox>
#include <QWidget>
#include <utility>

#include "rom/RuntimeError.h"
#include "ui/HeaderPage.h"
#include "ui/MapSelector.h"
#include "ui/PageContext.h"
#include "ui/Prompter.h"
#include "ui/ScopeExit.h"

namespace kartova {

namespace {

// The scroll bars of the map view, the block chooser and the event view, in the order in which
// the first map load releases them.
constexpr const char* kMapScrollBars[] = {"HScroll1", "VScroll1", "VScroll2", "VScroll3",
                                          "HScroll3"};

QString MissingMap(int bank, int map) {
  return MapNavigator::tr("Fehler: Ziel-Map (%1.%2) existiert nicht.").arg(bank).arg(map);
}

}  // namespace

MapNavigator::MapNavigator(RomDocument& document, PageContext& context, MapSelector& selector,
                           HeaderPage& header_page, std::function<bool()> confirm_discard, QWidget& views,
                           QObject* parent)
    : QObject(parent),
      document_(document),
      context_(context),
      selector_(selector),
      header_page_(header_page),
      confirm_discard_(std::move(confirm_discard)),
      views_(views) {
  setObjectName(QStringLiteral("MapNavigator"));
  connect(&selector_, &MapSelector::BankClicked, this, [this] { context_.Guarded([this] { FillMapList(); }); });
  connect(&selector_, &MapSelector::MapClicked, this,
          [this] { context_.Guarded([this] { ClickMapListByUser(); }); });
}

// ---- After a ROM is opened ------------------------------------------------------------------

void MapNavigator::SelectBankAfterOpen() {
  PageState& state = context_.state();
  {
    const ScopeExit done([&state] { state.rom_loading = 0; });
    state.rom_loading = 1;
    if (selector_.bank_index() == -1) selector_.SelectBank(0);
  }
  FillMapList();
}

bool MapNavigator::ReselectMap(int remembered) {
  const int map = remembered == -1 ? 0 : remembered;
  if (map >= selector_.map_count()) {
    context_.prompter().Message(MissingMap(selector_.bank_index() + 1, map + 1));
    return false;
  }
  PageState& state = context_.state();
  {
    const ScopeExit done([&state] { state.rom_loading = 0; });
    state.rom_loading = 1;
    selector_.SelectMap(map);
  }
  ClickMapList();
  return true;
}

// ---- The selectors --------------------------------------------------------------------------

void MapNavigator::FillMapList() {
  const int bank = selector_.bank_index();
  if (context_.state().rom_loading != 0 || bank == -1) return;
  const MapList list = document_.FillMapList(bank);
  selector_.SetMaps(ToQStringList(list.entries));
  if (list.error) throw *list.error;
}

// A map chosen by the user replaces the map loaded now: its unsaved edits are asked about first,
// and staying puts both lists back on the loaded map.
void MapNavigator::ClickMapListByUser() {
  if (context_.state().rom_loading != 0) return;
  if (!confirm_discard_()) {
    RestoreLoadedMapSelection();
    return;
  }
  ClickMapList();
}

// A bank just chosen lists its maps with none selected: the next map is then its first.
void MapNavigator::ChooseNeighbour(int step) {
  if (!document_.MapLoaded()) return;
  const int map = selector_.map_index() + step;
  if (step == 0 || map < 0 || map >= selector_.map_count()) return;
  selector_.SelectMap(map);
  ClickMapListByUser();
}

void MapNavigator::RestoreLoadedMapSelection() {
  PageState& state = context_.state();
  const ScopeExit done([&state] { state.rom_loading = 0; });
  state.rom_loading = 1;
  if (selector_.bank_index() != document_.SelectedBank()) {
    selector_.SelectBank(document_.SelectedBank());
    const MapList list = document_.FillMapList(document_.SelectedBank());
    selector_.SetMaps(ToQStringList(list.entries));
  }
  selector_.SelectMap(document_.SelectedMap());
}

void MapNavigator::ClickMapList() {
  if (context_.state().rom_loading != 0) return;
  context_.state().view_lock = 0;
  LoadSelectedMap();
  EnableMapScrollBars();
}

void MapNavigator::LoadSelectedMap() {
  PageState& state = context_.state();
  if (state.view_lock != 0) return;
  document_.SetReloadScope(state.reload_scope);
  document_.SetApplyMode(state.apply_mode);
  // The map number is kept as a signed 16-bit list index.
  const auto map = static_cast<std::int16_t>(selector_.map_index());
  const ScopeExit edited([this] { context_.DocumentEdited(); });
  // Said even when the load ends with a runtime error: a truncated file is the likely reason.
  // The warning stays until a load that read only what is there.
  const ScopeExit truncated([this] {
    if (document_.LastLoadReadPastEnd()) {
      context_.ShowStatus(1, tr("Achtung: Die ROM-Datei endet vor den Daten dieser Map (gekürzte Datei?); "
                                "was dahinter liegt, konnte nicht gelesen werden."));
      truncation_shown_ = true;
    } else if (truncation_shown_) {
      context_.ShowStatus(1, QString());
      truncation_shown_ = false;
    }
  });
  document_.LoadSelectedMap(selector_.bank_index(), map, [this](MapLoadStep step) { AfterMapLoadStep(step); });
  state.changes_pending = false;
}

void MapNavigator::AfterMapLoadStep(MapLoadStep step) {
  if (step == MapLoadStep::kHeaderPage) {
    header_page_.ShowHeaderFields(-1);
    header_page_.ShowHeaderCombos(-1);
    header_page_.MatchConnectionSelectors();
    header_page_.update();
  }
  emit context_.events().MapLoadStepDone(step);
}

// The views own their scroll bars; a view that has none yet is passed over.
void MapNavigator::EnableMapScrollBars() {
  for (const char* name : kMapScrollBars)
    if (QWidget* bar = views_.findChild<QWidget*>(QString::fromLatin1(name))) bar->setEnabled(true);
}

// ---- Other pages' switches ------------------------------------------------------------------

bool MapNavigator::SwitchToMap(int bank_index, int map_index) {
  CheckIndex(bank_index, kMapBankCount);
  // A record naming a map its bank does not have leaves everything as it is.
  if (map_index < 0 || map_index >= document_.MapCountPerBank()[static_cast<std::size_t>(bank_index)]) {
    context_.prompter().Message(MissingMap(bank_index + 1, map_index + 1));
    return false;
  }
  if (!confirm_discard_()) return false;
  selector_.SelectBank(bank_index);
  FillMapList();
  if (map_index >= selector_.map_count()) return false;
  selector_.SelectMap(map_index);
  ClickMapList();
  return true;
}

bool MapNavigator::FollowWarpTo(int bank, int map) {
  if (bank == 0 || bank > selector_.bank_list()->count()) {
    context_.prompter().Message(tr("Fehler: Ziel-Bank (%1) existiert nicht.").arg(bank));
    return false;
  }
  if (!confirm_discard_()) return false;
  selector_.SelectBank(bank - 1);
  FillMapList();
  if (map == 0 || map > selector_.map_count()) {
    context_.prompter().Message(MissingMap(bank, map));
    return false;
  }
  selector_.SelectMap(map - 1);
  ClickMapList();
  return true;
}

}  // namespace kartova
