#include "ui/MainMenu.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

namespace kartova {
namespace {

enum class Kind { kMenu, kItem, kCheckItem, kSeparator };

struct Entry {
  const char* parent;  // nullptr: a menu of the menu bar
  Kind kind;
  const char* name;
  const char* caption;
  bool enabled;
};

// The menus in form order. The enabled flags are the design-time states: the ROM commands wait
// for an open ROM, the standard-file commands for a standard file.
constexpr Entry kEntries[] = {
    {nullptr, Kind::kMenu, "mnuFile", "&File", true},
    {"mnuFile", Kind::kItem, "mnuLoad", "&Load Rom ...", true},
    {"mnuFile", Kind::kMenu, "mnuReload", "&Reload Rom", false},
    {"mnuReload", Kind::kItem, "mnuReloadFull", "&Full", true},
    {"mnuReload", Kind::kItem, "mnuReloadMap", "&Map only", true},
    {"mnuReload", Kind::kItem, "mnuReloadEvents", "&Events only", true},
    {"mnuFile", Kind::kMenu, "mnuSave", "&Save Rom", false},
    {"mnuSave", Kind::kItem, "mnuSaveFull", "&Save Full", true},
    {"mnuSave", Kind::kSeparator, nullptr, nullptr, true},
    {"mnuSave", Kind::kItem, "mnuSaveMap", "Save Map", true},
    {"mnuSave", Kind::kItem, "mnuSaveEvents", "Save Events", true},
    {"mnuFile", Kind::kItem, "mnuSaveAs", "&Save as ...", false},
    {"mnuFile", Kind::kSeparator, nullptr, nullptr, true},
    {"mnuFile", Kind::kItem, "mnuMapExp", "&Export Map", false},
    {"mnuFile", Kind::kItem, "mnuMapImp", "&Import Map", false},
    {"mnuFile", Kind::kSeparator, nullptr, nullptr, true},
    {"mnuFile", Kind::kItem, "mnuStdLoad", "Standard &File", false},
    {"mnuFile", Kind::kItem, "mnuStdSet", "&Load File as Standard", false},
    {"mnuFile", Kind::kItem, "mnuStdClear", "&Clear File", false},
    {"mnuFile", Kind::kCheckItem, "mnuStdAutoLoad", "Automatically load rom", true},
    {"mnuFile", Kind::kSeparator, nullptr, nullptr, true},
    {"mnuFile", Kind::kItem, "mnuExit", "E&xit", true},

    // Undo and redo wait for a step to take back.
    {nullptr, Kind::kMenu, "mnuEdit", "&Bearbeiten", true},
    {"mnuEdit", Kind::kItem, "mnuUndo", "&Rückgängig", false},
    {"mnuEdit", Kind::kItem, "mnuRedo", "&Wiederholen", false},

    {nullptr, Kind::kMenu, "mnuOptions", "&Options", true},
    {"mnuOptions", Kind::kCheckItem, "mnuMapZoom", "&Map zoom", true},
    {"mnuOptions", Kind::kCheckItem, "mnuEventZoom", "&Event Mode Zoom", true},
    {"mnuOptions", Kind::kCheckItem, "mnuTilesetZoom", "&Tileset zoom", true},
    {"mnuOptions", Kind::kSeparator, nullptr, nullptr, true},
    {"mnuOptions", Kind::kMenu, "mnuScrMode", "&Scroll mode", true},
    {"mnuScrMode", Kind::kCheckItem, "mnuScrModeDyn", "&Dynamic", true},
    {"mnuScrMode", Kind::kCheckItem, "mnuScrModeStatic", "&Static", true},
    {"mnuOptions", Kind::kMenu, "mnuScrSpeed", "Scroll Speed", true},
    {"mnuScrSpeed", Kind::kCheckItem, "mnuScrSpeedFast", "&Fast", true},
    {"mnuScrSpeed", Kind::kCheckItem, "mnuScrSpeedNormal", "&Normal", true},
    {"mnuScrSpeed", Kind::kCheckItem, "mnuScrSpeedSlow", "&Slow", true},
    {"mnuScrSpeed", Kind::kSeparator, nullptr, nullptr, true},
    {"mnuScrSpeed", Kind::kCheckItem, "mnuScrSpeedSign", "&Show Scroll Speed", true},
    {"mnuOptions", Kind::kCheckItem, "mnuShowDirLine", "&Show Dir Line", true},
    {"mnuOptions", Kind::kSeparator, nullptr, nullptr, true},
    {"mnuOptions", Kind::kMenu, "mnuSavePropertyMode", "Save Settings to", true},
    {"mnuSavePropertyMode", Kind::kCheckItem, "mnuSavePropertyReg", "&Registry", true},
    {"mnuSavePropertyMode", Kind::kCheckItem, "mnuSavePropertyINI", "&Kartova.ini", true},

    {nullptr, Kind::kMenu, "mnuLighting", "Palette / Lighting", true},
    {"mnuLighting", Kind::kCheckItem, "mnuDayAuto", "Auto", true},
    {"mnuLighting", Kind::kSeparator, nullptr, nullptr, true},
    {"mnuLighting", Kind::kCheckItem, "mnuDay0", "Morning", true},
    {"mnuLighting", Kind::kCheckItem, "mnuDay1", "Mid-day", true},
    {"mnuLighting", Kind::kCheckItem, "mnuDay2", "Night / Cave", true},
    {"mnuLighting", Kind::kCheckItem, "mnuDay3", "Darkness", true},
    {"mnuLighting", Kind::kCheckItem, "mnuDay4", "???", true},
    {"mnuLighting", Kind::kCheckItem, "mnuDay5", "???", true},
    {"mnuLighting", Kind::kCheckItem, "mnuDay6", "Night / Cave", true},
    {"mnuLighting", Kind::kCheckItem, "mnuDay7", "Darkness", true},

    {nullptr, Kind::kMenu, "mnuHelp", "&Help", true},
    {"mnuHelp", Kind::kItem, "mnuAbout", "&About", true},
};

}  // namespace

MainMenu::MainMenu(QMenuBar* bar) { Build(bar); }

void MainMenu::Build(QMenuBar* bar) {
  for (const Entry& entry : kEntries) {
    QMenu* parent = entry.parent ? menus_.value(QString::fromLatin1(entry.parent)) : nullptr;
    if (entry.kind == Kind::kSeparator) {
      parent->addSeparator();
      continue;
    }
    const QString name = QString::fromLatin1(entry.name);
    const QString caption = QString::fromUtf8(entry.caption);
    QAction* action = nullptr;
    if (entry.kind == Kind::kMenu) {
      QMenu* menu = parent ? parent->addMenu(caption) : bar->addMenu(caption);
      menu->setObjectName(name);
      menus_.insert(name, menu);
      action = menu->menuAction();
    } else {
      action = parent->addAction(caption);
      action->setCheckable(entry.kind == Kind::kCheckItem);
    }
    action->setObjectName(name);
    action->setEnabled(entry.enabled);
    items_.insert(name, action);
  }
}

QAction* MainMenu::Item(const QString& name) const { return items_.value(name); }

QMenu* MainMenu::Submenu(const QString& name) const { return menus_.value(name); }

QStringList MainMenu::ItemNames() const { return items_.keys(); }

bool MainMenu::Checked(const QString& name) const {
  const QAction* action = Item(name);
  return action && action->isChecked();
}

void MainMenu::SetChecked(const QString& name, bool checked) {
  if (QAction* action = Item(name)) action->setChecked(checked);
}

bool MainMenu::Enabled(const QString& name) const {
  const QAction* action = Item(name);
  return action && action->isEnabled();
}

void MainMenu::SetEnabled(const QString& name, bool enabled) {
  if (QAction* action = Item(name)) action->setEnabled(enabled);
}

void MainMenu::OnClick(const QString& name, const QObject* context, std::function<void()> handler) {
  QAction* action = Item(name);
  if (!action) return;
  QObject::connect(action, &QAction::triggered, context, [action, handler = std::move(handler)] {
    if (action->isCheckable()) action->setChecked(!action->isChecked());
    handler();
  });
}

}  // namespace kartova
