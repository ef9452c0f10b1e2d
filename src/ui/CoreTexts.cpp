#include "ui/CoreTexts.h"

#include <QCoreApplication>

namespace kartova {
namespace {

// Every text of the core that reaches the screen, marked for the translation tools. A text
// that is not listed here is shown as the core wrote it.
[[maybe_unused]] constexpr const char* kCoreTexts[] = {
    // The labels of the event fields (events/EventFields.cpp).
    QT_TRANSLATE_NOOP("CoreText", "X-Position:"),
    QT_TRANSLATE_NOOP("CoreText", "Y-Position:"),
    QT_TRANSLATE_NOOP("CoreText", "Ziel-Warp:"),
    QT_TRANSLATE_NOOP("CoreText", "Map-Bank:"),
    QT_TRANSLATE_NOOP("CoreText", "Map-Nummer:"),
    QT_TRANSLATE_NOOP("CoreText", "Status:"),
    QT_TRANSLATE_NOOP("CoreText", "Res-1:"),
    QT_TRANSLATE_NOOP("CoreText", "Res-2:"),
    QT_TRANSLATE_NOOP("CoreText", "Res-3:"),
    QT_TRANSLATE_NOOP("CoreText", "Script-Pointer:"),
    QT_TRANSLATE_NOOP("CoreText", "Typ:"),
    QT_TRANSLATE_NOOP("CoreText", "Bild:"),
    QT_TRANSLATE_NOOP("CoreText", "Blickrichtung:"),
    QT_TRANSLATE_NOOP("CoreText", "Bewegung:"),
    QT_TRANSLATE_NOOP("CoreText", "Zeitabhängig:"),
    QT_TRANSLATE_NOOP("CoreText", "Zeitraum:"),
    QT_TRANSLATE_NOOP("CoreText", "Funktion:"),
    QT_TRANSLATE_NOOP("CoreText", "Sichtweite:"),
    QT_TRANSLATE_NOOP("CoreText", "Sichtbar falls:"),
    QT_TRANSLATE_NOOP("CoreText", "Bedingung:"),

    // The prefixes of the items of the six event lists, each followed by the record's index.
    QT_TRANSLATE_NOOP("CoreText", "Warp "),
    QT_TRANSLATE_NOOP("CoreText", "Trigger "),
    QT_TRANSLATE_NOOP("CoreText", "Sign "),
    QT_TRANSLATE_NOOP("CoreText", "People "),
    QT_TRANSLATE_NOOP("CoreText", "Enter "),
    QT_TRANSLATE_NOOP("CoreText", "Time "),

    // The label of the box of the extra header bytes (maps/HeaderFields.cpp) and the name an
    // extra byte has when the ROM definition gives it none (rom/RomDefinition.cpp).
    QT_TRANSLATE_NOOP("CoreText", "Angel:"),
    QT_TRANSLATE_NOOP("CoreText", "Res:"),

    // The label of the strip length of a connection (maps/ConnectionEditor.cpp) and the
    // directions of the list of present connections, after a running number (gfx/ExtendedMap.cpp).
    QT_TRANSLATE_NOOP("CoreText", "ST-Breite:"),
    QT_TRANSLATE_NOOP("CoreText", "ST-Höhe:"),
    QT_TRANSLATE_NOOP("CoreText", "ST-Größe:"),
    QT_TRANSLATE_NOOP("CoreText", " (Oben)"),
    QT_TRANSLATE_NOOP("CoreText", " (Unten)"),
    QT_TRANSLATE_NOOP("CoreText", " (Links)"),
    QT_TRANSLATE_NOOP("CoreText", " (Rechts)"),

    // The block pointer of a cell outside the map proper in the link data view (maps/LinkData.cpp).
    QT_TRANSLATE_NOOP("CoreText", "NA"),

    // The names of the steps of the edit history, shown in the Edit menu (maps/, events/ and the
    // pages that hand them to the document).
    QT_TRANSLATE_NOOP("CoreText", "Malen"),
    QT_TRANSLATE_NOOP("CoreText", "Map importieren"),
    QT_TRANSLATE_NOOP("CoreText", "Header ändern"),
    QT_TRANSLATE_NOOP("CoreText", "Header wiederherstellen"),
    QT_TRANSLATE_NOOP("CoreText", "Anbindung ändern"),
    QT_TRANSLATE_NOOP("CoreText", "Event ändern"),
    QT_TRANSLATE_NOOP("CoreText", "Event verschieben"),

    // The status bar texts of the cell under the mouse (gfx/MapEditing.*); "X: ", "Y: " and
    // "Offset: " are followed by a number.
    QT_TRANSLATE_NOOP("CoreText", "Anbindung"),
    QT_TRANSLATE_NOOP("CoreText", "Rand-Block"),
    QT_TRANSLATE_NOOP("CoreText", "X: "),
    QT_TRANSLATE_NOOP("CoreText", "Y: "),
    QT_TRANSLATE_NOOP("CoreText", "Offset: "),

    // The runtime errors the handlers report (rom/RuntimeError.cpp), as whole messages.
    QT_TRANSLATE_NOOP("CoreText", "Laufzeitfehler '6': Überlauf"),
    QT_TRANSLATE_NOOP("CoreText", "Laufzeitfehler '9': Index außerhalb des gültigen Bereichs"),

    // Why a file could not be opened or written (maps/RomFileChecks.cpp, maps/RomDocumentSave.cpp,
    // rom/SafeFileWriter.cpp); the first five come before ": " and the path.
    QT_TRANSLATE_NOOP("CoreText", "Datei nicht gefunden"),
    QT_TRANSLATE_NOOP("CoreText", "Ist ein Verzeichnis"),
    QT_TRANSLATE_NOOP("CoreText", "Keine gewöhnliche Datei"),
    QT_TRANSLATE_NOOP("CoreText", "Die Datei ist zu klein für ein Rom dieses Spiels"),
    QT_TRANSLATE_NOOP("CoreText", "Die Datei kann nicht gelesen werden"),
    QT_TRANSLATE_NOOP("CoreText", "Ist ein Verzeichnis."),
    QT_TRANSLATE_NOOP("CoreText", "Das ist keine gewöhnliche Datei."),
    QT_TRANSLATE_NOOP("CoreText", "Die Datei ist schreibgeschützt."),
};

}  // namespace

QString CoreText(const std::string& german) {
  return QCoreApplication::translate("CoreText", german.c_str());
}

QString CoreText(const char* german) { return QCoreApplication::translate("CoreText", german); }

}  // namespace kartova
