#include "ui/MainMenu.h"

#include <QAction>
#include <QCoreApplication>
#include <QKeySequence>
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
  const char* status_tip;
};

// The menus in form order. The enabled flags are the design-time states: the ROM commands wait
// for an open ROM, the standard-file commands for a standard file. The status tip says in a
// sentence what the item does; the status bar shows it while the item is under the mouse.
// "Zuletzt geöffnet", "&Ansicht" and "Sprache / Language" came after the form's menus; the
// recent files' entries are filled in by RecentFiles.
constexpr Entry kEntries[] = {
    {nullptr, Kind::kMenu, "mnuFile", QT_TRANSLATE_NOOP("MainMenu", "&File"), true,
     QT_TRANSLATE_NOOP("MainMenu", "ROM öffnen, neu laden, speichern; Maps exportieren und importieren")},
    {"mnuFile", Kind::kItem, "mnuLoad", QT_TRANSLATE_NOOP("MainMenu", "&Load Rom ..."), true,
     QT_TRANSLATE_NOOP("MainMenu", "Öffnet eine ROM-Datei")},
    {"mnuFile", Kind::kMenu, "mnuRecent", QT_TRANSLATE_NOOP("MainMenu", "Zuletzt geöffnet"), true,
     QT_TRANSLATE_NOOP("MainMenu", "Öffnet eine der zuletzt geöffneten ROM-Dateien")},
    {"mnuFile", Kind::kMenu, "mnuReload", QT_TRANSLATE_NOOP("MainMenu", "&Reload Rom"), false,
     QT_TRANSLATE_NOOP("MainMenu", "Liest die geöffnete ROM neu aus der Datei")},
    {"mnuReload", Kind::kItem, "mnuReloadFull", QT_TRANSLATE_NOOP("MainMenu", "&Full"), true,
     QT_TRANSLATE_NOOP("MainMenu", "Liest Definition, Tabellen, Map und Events neu aus der Datei")},
    {"mnuReload", Kind::kItem, "mnuReloadMap", QT_TRANSLATE_NOOP("MainMenu", "&Map only"), true,
     QT_TRANSLATE_NOOP("MainMenu", "Liest die Map neu aus der Datei, die Events bleiben")},
    {"mnuReload", Kind::kItem, "mnuReloadEvents", QT_TRANSLATE_NOOP("MainMenu", "&Events only"), true,
     QT_TRANSLATE_NOOP("MainMenu", "Liest die Events neu aus der Datei, die Map bleibt")},
    {"mnuFile", Kind::kMenu, "mnuSave", QT_TRANSLATE_NOOP("MainMenu", "&Save Rom"), false,
     QT_TRANSLATE_NOOP("MainMenu", "Schreibt die Änderungen in die ROM-Datei")},
    {"mnuSave", Kind::kItem, "mnuSaveFull", QT_TRANSLATE_NOOP("MainMenu", "&Save Full"), true,
     QT_TRANSLATE_NOOP("MainMenu", "Schreibt Header, Map und Events in die ROM-Datei")},
    {"mnuSave", Kind::kSeparator, nullptr, nullptr, true, nullptr},
    {"mnuSave", Kind::kItem, "mnuSaveMap", QT_TRANSLATE_NOOP("MainMenu", "Save Map"), true,
     QT_TRANSLATE_NOOP("MainMenu", "Schreibt nur Header und Blöcke der Map in die ROM-Datei")},
    {"mnuSave", Kind::kItem, "mnuSaveEvents", QT_TRANSLATE_NOOP("MainMenu", "Save Events"), true,
     QT_TRANSLATE_NOOP("MainMenu", "Schreibt nur die Events der Map in die ROM-Datei")},
    {"mnuFile", Kind::kItem, "mnuSaveAs", QT_TRANSLATE_NOOP("MainMenu", "&Save as ..."), false,
     QT_TRANSLATE_NOOP("MainMenu", "Speichert die ROM mit den Änderungen unter einem neuen Namen")},
    {"mnuFile", Kind::kSeparator, nullptr, nullptr, true, nullptr},
    {"mnuFile", Kind::kItem, "mnuMapExp", QT_TRANSLATE_NOOP("MainMenu", "&Export Map"), false,
     QT_TRANSLATE_NOOP("MainMenu", "Schreibt die Blöcke der Map in eine .map-Datei")},
    {"mnuFile", Kind::kItem, "mnuMapImp", QT_TRANSLATE_NOOP("MainMenu", "&Import Map"), false,
     QT_TRANSLATE_NOOP("MainMenu", "Übernimmt die Blöcke einer .map-Datei in die Map")},
    {"mnuFile", Kind::kSeparator, nullptr, nullptr, true, nullptr},
    {"mnuFile", Kind::kItem, "mnuStdLoad", QT_TRANSLATE_NOOP("MainMenu", "Standard &File"), false,
     QT_TRANSLATE_NOOP("MainMenu", "Öffnet die Standard-Datei")},
    {"mnuFile", Kind::kItem, "mnuStdSet", QT_TRANSLATE_NOOP("MainMenu", "&Load File as Standard"), false,
     QT_TRANSLATE_NOOP("MainMenu", "Macht die geöffnete ROM zur Standard-Datei")},
    {"mnuFile", Kind::kItem, "mnuStdClear", QT_TRANSLATE_NOOP("MainMenu", "&Clear File"), false,
     QT_TRANSLATE_NOOP("MainMenu", "Vergisst die Standard-Datei")},
    {"mnuFile", Kind::kCheckItem, "mnuStdAutoLoad", QT_TRANSLATE_NOOP("MainMenu", "Automatically load rom"), true,
     QT_TRANSLATE_NOOP("MainMenu", "Öffnet die Standard-Datei beim Start des Programms")},
    {"mnuFile", Kind::kSeparator, nullptr, nullptr, true, nullptr},
    {"mnuFile", Kind::kItem, "mnuExit", QT_TRANSLATE_NOOP("MainMenu", "E&xit"), true,
     QT_TRANSLATE_NOOP("MainMenu", "Beendet Kartova")},

    // Undo and redo wait for a step to take back.
    {nullptr, Kind::kMenu, "mnuEdit", QT_TRANSLATE_NOOP("MainMenu", "&Bearbeiten"), true,
     QT_TRANSLATE_NOOP("MainMenu", "Schritte rückgängig machen und wiederholen")},
    {"mnuEdit", Kind::kItem, "mnuUndo", QT_TRANSLATE_NOOP("MainMenu", "&Rückgängig"), false,
     QT_TRANSLATE_NOOP("MainMenu", "Nimmt den letzten Schritt zurück")},
    {"mnuEdit", Kind::kItem, "mnuRedo", QT_TRANSLATE_NOOP("MainMenu", "&Wiederholen"), false,
     QT_TRANSLATE_NOOP("MainMenu", "Führt den zurückgenommenen Schritt wieder aus")},

    // Zoom, tabs and the neighbouring maps, for the keyboard. The map steps wait for a ROM.
    {nullptr, Kind::kMenu, "mnuView", QT_TRANSLATE_NOOP("MainMenu", "&Ansicht"), true,
     QT_TRANSLATE_NOOP("MainMenu", "Zoom, Seiten und Maps wechseln")},
    {"mnuView", Kind::kItem, "mnuZoomIn", QT_TRANSLATE_NOOP("MainMenu", "Ver&größern"), true,
     QT_TRANSLATE_NOOP("MainMenu", "Zeigt die Ansicht unter der Maus doppelt so groß")},
    {"mnuView", Kind::kItem, "mnuZoomOut", QT_TRANSLATE_NOOP("MainMenu", "Ver&kleinern"), true,
     QT_TRANSLATE_NOOP("MainMenu", "Zeigt die Ansicht unter der Maus in normaler Größe")},
    {"mnuView", Kind::kSeparator, nullptr, nullptr, true, nullptr},
    {"mnuView", Kind::kItem, "mnuTab0", QT_TRANSLATE_NOOP("MainMenu", "&Map"), true,
     QT_TRANSLATE_NOOP("MainMenu", "Zeigt die Seite \"Map\"")},
    {"mnuView", Kind::kItem, "mnuTab1", QT_TRANSLATE_NOOP("MainMenu", "&Events"), true,
     QT_TRANSLATE_NOOP("MainMenu", "Zeigt die Seite \"Events\"")},
    {"mnuView", Kind::kItem, "mnuTab2", QT_TRANSLATE_NOOP("MainMenu", "&Wuselix data"), true,
     QT_TRANSLATE_NOOP("MainMenu", "Zeigt die Seite \"Wuselix data\"")},
    {"mnuView", Kind::kItem, "mnuTab3", QT_TRANSLATE_NOOP("MainMenu", "Map&header"), true,
     QT_TRANSLATE_NOOP("MainMenu", "Zeigt die Seite \"Mapheader\"")},
    {"mnuView", Kind::kSeparator, nullptr, nullptr, true, nullptr},
    {"mnuView", Kind::kItem, "mnuNextMap", QT_TRANSLATE_NOOP("MainMenu", "&Nächste Map"), false,
     QT_TRANSLATE_NOOP("MainMenu", "Lädt die nächste Map der Mapbank")},
    {"mnuView", Kind::kItem, "mnuPrevMap", QT_TRANSLATE_NOOP("MainMenu", "&Vorherige Map"), false,
     QT_TRANSLATE_NOOP("MainMenu", "Lädt die vorherige Map der Mapbank")},

    {nullptr, Kind::kMenu, "mnuOptions", QT_TRANSLATE_NOOP("MainMenu", "&Options"), true,
     QT_TRANSLATE_NOOP("MainMenu", "Zoom, Scrollen und Einstellungen")},
    {"mnuOptions", Kind::kCheckItem, "mnuMapZoom", QT_TRANSLATE_NOOP("MainMenu", "&Map zoom"), true,
     QT_TRANSLATE_NOOP("MainMenu", "Zeigt die Map doppelt so groß")},
    {"mnuOptions", Kind::kCheckItem, "mnuEventZoom", QT_TRANSLATE_NOOP("MainMenu", "&Event Mode Zoom"), true,
     QT_TRANSLATE_NOOP("MainMenu", "Zeigt die Map auf der Seite \"Events\" doppelt so groß")},
    {"mnuOptions", Kind::kCheckItem, "mnuTilesetZoom", QT_TRANSLATE_NOOP("MainMenu", "&Tileset zoom"), true,
     QT_TRANSLATE_NOOP("MainMenu", "Zeigt die Blockauswahl doppelt so groß")},
    {"mnuOptions", Kind::kSeparator, nullptr, nullptr, true, nullptr},
    {"mnuOptions", Kind::kMenu, "mnuScrMode", QT_TRANSLATE_NOOP("MainMenu", "&Scroll mode"), true,
     QT_TRANSLATE_NOOP("MainMenu", "Wie das Ziehen mit der Maus die Event-Ansicht verschiebt")},
    {"mnuScrMode", Kind::kCheckItem, "mnuScrModeDyn", QT_TRANSLATE_NOOP("MainMenu", "&Dynamic"), true,
     QT_TRANSLATE_NOOP("MainMenu", "Die Ansicht läuft weiter, je weiter die Maus gezogen ist, desto schneller")},
    {"mnuScrMode", Kind::kCheckItem, "mnuScrModeStatic", QT_TRANSLATE_NOOP("MainMenu", "&Static"), true,
     QT_TRANSLATE_NOOP("MainMenu", "Die Map folgt der Maus")},
    {"mnuOptions", Kind::kMenu, "mnuScrSpeed", QT_TRANSLATE_NOOP("MainMenu", "Scroll Speed"), true,
     QT_TRANSLATE_NOOP("MainMenu", "Wie schnell das Ziehen mit der Maus die Event-Ansicht verschiebt")},
    {"mnuScrSpeed", Kind::kCheckItem, "mnuScrSpeedFast", QT_TRANSLATE_NOOP("MainMenu", "&Fast"), true,
     QT_TRANSLATE_NOOP("MainMenu", "Verschiebt doppelt so schnell")},
    {"mnuScrSpeed", Kind::kCheckItem, "mnuScrSpeedNormal", QT_TRANSLATE_NOOP("MainMenu", "&Normal"), true,
     QT_TRANSLATE_NOOP("MainMenu", "Verschiebt in normaler Geschwindigkeit")},
    {"mnuScrSpeed", Kind::kCheckItem, "mnuScrSpeedSlow", QT_TRANSLATE_NOOP("MainMenu", "&Slow"), true,
     QT_TRANSLATE_NOOP("MainMenu", "Verschiebt halb so schnell")},
    {"mnuScrSpeed", Kind::kSeparator, nullptr, nullptr, true, nullptr},
    {"mnuScrSpeed", Kind::kCheckItem, "mnuScrSpeedSign", QT_TRANSLATE_NOOP("MainMenu", "&Show Scroll Speed"), true,
     QT_TRANSLATE_NOOP("MainMenu", "Kehrt die Richtung des Verschiebens um")},
    {"mnuOptions", Kind::kCheckItem, "mnuShowDirLine", QT_TRANSLATE_NOOP("MainMenu", "&Show Dir Line"), true,
     QT_TRANSLATE_NOOP("MainMenu", "Zeigt beim Verschieben eine Linie vom Startpunkt zur Maus")},
    {"mnuOptions", Kind::kSeparator, nullptr, nullptr, true, nullptr},
    {"mnuOptions", Kind::kMenu, "mnuSavePropertyMode", QT_TRANSLATE_NOOP("MainMenu", "Save Settings to"), true,
     QT_TRANSLATE_NOOP("MainMenu", "Wo die Einstellungen gespeichert werden (ab dem nächsten Start)")},
    {"mnuSavePropertyMode", Kind::kCheckItem, "mnuSavePropertyReg", QT_TRANSLATE_NOOP("MainMenu", "&Registry"), true,
     QT_TRANSLATE_NOOP("MainMenu", "Speichert die Einstellungen in der Registry des Benutzers")},
    {"mnuSavePropertyMode", Kind::kCheckItem, "mnuSavePropertyINI", QT_TRANSLATE_NOOP("MainMenu", "&Kartova.ini"),
     true, QT_TRANSLATE_NOOP("MainMenu", "Speichert die Einstellungen in der Datei Kartova.ini")},
    {"mnuOptions", Kind::kMenu, "mnuLanguage", QT_TRANSLATE_NOOP("MainMenu", "Sprache / Language"), true,
     QT_TRANSLATE_NOOP("MainMenu", "Die Sprache der Oberfläche (ab dem nächsten Start)")},
    {"mnuLanguage", Kind::kCheckItem, "mnuLangDe", QT_TRANSLATE_NOOP("MainMenu", "Deutsch"), true,
     QT_TRANSLATE_NOOP("MainMenu", "Deutsche Oberfläche")},
    {"mnuLanguage", Kind::kCheckItem, "mnuLangEn", QT_TRANSLATE_NOOP("MainMenu", "English"), true,
     QT_TRANSLATE_NOOP("MainMenu", "Englische Oberfläche")},

    {nullptr, Kind::kMenu, "mnuLighting", QT_TRANSLATE_NOOP("MainMenu", "Palette / Lighting"), true,
     QT_TRANSLATE_NOOP("MainMenu", "Die Tageszeit, in deren Farben Map und Blöcke gezeigt werden")},
    {"mnuLighting", Kind::kCheckItem, "mnuDayAuto", QT_TRANSLATE_NOOP("MainMenu", "Auto"), true,
     QT_TRANSLATE_NOOP("MainMenu", "Die Farben, die der Header der Map vorgibt")},
    {"mnuLighting", Kind::kSeparator, nullptr, nullptr, true, nullptr},
    {"mnuLighting", Kind::kCheckItem, "mnuDay0", QT_TRANSLATE_NOOP("MainMenu", "Morning"), true,
     QT_TRANSLATE_NOOP("MainMenu", "Die Farben des Morgens (Tageszeit 0)")},
    {"mnuLighting", Kind::kCheckItem, "mnuDay1", QT_TRANSLATE_NOOP("MainMenu", "Mid-day"), true,
     QT_TRANSLATE_NOOP("MainMenu", "Die Farben des Tages (Tageszeit 1)")},
    {"mnuLighting", Kind::kCheckItem, "mnuDay2", QT_TRANSLATE_NOOP("MainMenu", "Night / Cave"), true,
     QT_TRANSLATE_NOOP("MainMenu", "Die Farben der Nacht oder einer Höhle (Tageszeit 2)")},
    {"mnuLighting", Kind::kCheckItem, "mnuDay3", QT_TRANSLATE_NOOP("MainMenu", "Darkness"), true,
     QT_TRANSLATE_NOOP("MainMenu", "Die Farben der Dunkelheit (Tageszeit 3)")},
    {"mnuLighting", Kind::kCheckItem, "mnuDay4", QT_TRANSLATE_NOOP("MainMenu", "???"), true,
     QT_TRANSLATE_NOOP("MainMenu", "Die Farben der Tageszeit 4")},
    {"mnuLighting", Kind::kCheckItem, "mnuDay5", QT_TRANSLATE_NOOP("MainMenu", "???"), true,
     QT_TRANSLATE_NOOP("MainMenu", "Die Farben der Tageszeit 5")},
    {"mnuLighting", Kind::kCheckItem, "mnuDay6", QT_TRANSLATE_NOOP("MainMenu", "Night / Cave"), true,
     QT_TRANSLATE_NOOP("MainMenu", "Die Farben der Nacht oder einer Höhle (Tageszeit 6)")},
    {"mnuLighting", Kind::kCheckItem, "mnuDay7", QT_TRANSLATE_NOOP("MainMenu", "Darkness"), true,
     QT_TRANSLATE_NOOP("MainMenu", "Die Farben der Dunkelheit (Tageszeit 7)")},

    {nullptr, Kind::kMenu, "mnuHelp", QT_TRANSLATE_NOOP("MainMenu", "&Help"), true,
     QT_TRANSLATE_NOOP("MainMenu", "Über Kartova")},
    {"mnuHelp", Kind::kItem, "mnuAbout", QT_TRANSLATE_NOOP("MainMenu", "&About"), true,
     QT_TRANSLATE_NOOP("MainMenu", "Zeigt Version und Autoren von Kartova")},
};

// The keys of the items, shown beside their captions. Zoom takes both the plus key and "=" (the
// plus without Shift on many keyboards) and the keypad's keys.
QList<QKeySequence> KeysOf(const QString& name) {
  const auto keys = [](std::initializer_list<QKeyCombination> combinations) {
    QList<QKeySequence> sequences;
    for (const QKeyCombination combination : combinations) sequences << QKeySequence(combination);
    return sequences;
  };
  constexpr Qt::KeyboardModifier ctrl = Qt::ControlModifier;
  if (name == QLatin1String("mnuLoad")) return keys({ctrl | Qt::Key_O});
  if (name == QLatin1String("mnuSaveFull")) return keys({ctrl | Qt::Key_S});
  if (name == QLatin1String("mnuSaveAs")) return keys({ctrl | Qt::ShiftModifier | Qt::Key_S});
  if (name == QLatin1String("mnuReloadFull")) return keys({QKeyCombination(Qt::Key_F5)});
  if (name == QLatin1String("mnuExit")) return keys({ctrl | Qt::Key_Q});
  if (name == QLatin1String("mnuUndo")) return keys({ctrl | Qt::Key_Z});
  if (name == QLatin1String("mnuRedo")) return keys({ctrl | Qt::Key_Y, ctrl | Qt::ShiftModifier | Qt::Key_Z});
  if (name == QLatin1String("mnuZoomIn"))
    return keys({ctrl | Qt::Key_Plus, ctrl | Qt::Key_Equal, ctrl | Qt::KeypadModifier | Qt::Key_Plus});
  if (name == QLatin1String("mnuZoomOut"))
    return keys({ctrl | Qt::Key_Minus, ctrl | Qt::KeypadModifier | Qt::Key_Minus});
  if (name == QLatin1String("mnuNextMap")) return keys({Qt::AltModifier | Qt::Key_Down});
  if (name == QLatin1String("mnuPrevMap")) return keys({Qt::AltModifier | Qt::Key_Up});
  for (int tab = 0; tab < 4; ++tab)
    if (name == QStringLiteral("mnuTab%1").arg(tab)) return keys({ctrl | Qt::Key(Qt::Key_1 + tab)});
  return {};
}

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
    const QString caption = QCoreApplication::translate("MainMenu", entry.caption);
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
    action->setStatusTip(QCoreApplication::translate("MainMenu", entry.status_tip));
    action->setShortcuts(KeysOf(name));
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
