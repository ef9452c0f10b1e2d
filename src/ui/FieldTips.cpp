#include "ui/FieldTips.h"

#include <QCoreApplication>
#include <span>

namespace kartova {

namespace {

// A field's number (box, combo or Text index) and the German source of its tip.
struct Tip {
  int number;
  const char* text;
};

constexpr const char* kContext = "FieldTips";

// The primary header: Header(0), Header(1), Header(2) while it shows byte 8.
constexpr Tip kPrimaryBoxTips[] = {
    {0, QT_TRANSLATE_NOOP("FieldTips", "Primärer Header, Byte 0 (nur Anzeige)\n"
                                       "ROM-Bank, in der der sekundäre Header der Map liegt.")},
    {1, QT_TRANSLATE_NOOP("FieldTips", "Primärer Header, Bytes 3–4, Little Endian (nur Anzeige, in Dateireihenfolge)\n"
                                       "Pointer auf den sekundären Header, in der Bank aus Byte 0.")},
    {2, QT_TRANSLATE_NOOP("FieldTips", "Primärer Header, Byte 8\n"
                                       "Angel-Gruppe: welche Gruppe beim Angeln auf dieser Map gilt.")},
};

// HCombo(0)..HCombo(4); each tip ends with kComboHint.
constexpr Tip kPrimaryComboTips[] = {
    {0, QT_TRANSLATE_NOOP("FieldTips", "Primärer Header, Byte 1\n"
                                       "Nummer des Tilesets, aus dem die Map ihre Grafik und Blöcke nimmt.")},
    {1, QT_TRANSLATE_NOOP("FieldTips", "Primärer Header, Byte 2\n"
                                       "Wert der Liste AbilityNames; seine unteren 3 Bits wählen die Paletten, "
                                       "wenn das Tileset keinen eigenen Palettensatz angibt.")},
    {2, QT_TRANSLATE_NOOP("FieldTips", "Primärer Header, Byte 5\n"
                                       "Ortsname der Map: Nummer in der Ortsnamen-Tabelle (00–5E).")},
    {3, QT_TRANSLATE_NOOP("FieldTips", "Primärer Header, Byte 6\n"
                                       "Nummer der Musik der Map.")},
    {4, QT_TRANSLATE_NOOP("FieldTips", "Primärer Header, Byte 7\n"
                                       "Beleuchtung der Map; unter Palette / Lighting „Auto“ wählen ihre "
                                       "unteren 3 Bits die Paletten.")},
};

// A value chosen from a combo's list is not stored; a typed code is.
constexpr const char* kComboHint =
    QT_TRANSLATE_NOOP("FieldTips", "Zum Ändern den Code als zwei Hex-Ziffern eintippen.");

constexpr const char* kExtraByteTip = QT_TRANSLATE_NOOP(
    "FieldTips", "Primärer Header, Byte %1\n"
                 "Zusätzliches Header-Byte, benannt in der Rom-Definition; der Editor zeigt und speichert es nur.");

constexpr const char* kExtraByteSelectorTip = QT_TRANSLATE_NOOP(
    "FieldTips", "Wählt das Byte des primären Headers, das das Feld daneben zeigt: "
                 "0 = Byte 8 (Angel), k = Byte 8 + k.");

// The secondary header: Header(3)..Header(10).
constexpr Tip kSecondaryBoxTips[] = {
    {3, QT_TRANSLATE_NOOP("FieldTips", "Sekundärer Header, Byte 0\n"
                                       "Block, mit dem der Rand um die Map gefüllt wird, wo keine Anbindung liegt.")},
    {4, QT_TRANSLATE_NOOP("FieldTips", "Sekundärer Header, Bytes 3–5 (nur Anzeige, in Dateireihenfolge)\n"
                                       "ROM-Bank (Byte 3) und Pointer (Bytes 4–5, Little Endian) der Blockdaten der Map.")},
    {5, QT_TRANSLATE_NOOP("FieldTips", "Sekundärer Header, Byte 6\n"
                                       "ROM-Bank, in der Script-Header und Event-Header der Map liegen.")},
    {6, QT_TRANSLATE_NOOP("FieldTips", "Sekundärer Header, Bytes 7–8, Little Endian (in Dateireihenfolge)\n"
                                       "Pointer auf den Script-Header mit den Enter- und Time-Scripts.")},
    {7, QT_TRANSLATE_NOOP("FieldTips", "Sekundärer Header, Bytes 9–10, Little Endian (in Dateireihenfolge)\n"
                                       "Pointer auf den Event-Header mit Warps, Triggern, Schildern und Personen.")},
    {8, QT_TRANSLATE_NOOP("FieldTips", "Sekundärer Header, Byte 11\n"
                                       "Anbindungen: Bit 3 oben, Bit 2 unten, Bit 1 links, Bit 0 rechts.")},
    {9, QT_TRANSLATE_NOOP("FieldTips", "Sekundärer Header, Byte 2\n"
                                       "Breite der Map in Blöcken.")},
    {10, QT_TRANSLATE_NOOP("FieldTips", "Sekundärer Header, Byte 1 (Eingaben ändern Byte 2)\n"
                                        "Höhe der Map in Blöcken; was hier eingetippt wird, wird als Breite gespeichert.")},
};

// Con(0)..Con(3): the check follows the flag byte, a click does not write it.
constexpr Tip kConnectionCheckTips[] = {
    {0, QT_TRANSLATE_NOOP("FieldTips", "Sekundärer Header, Byte 11, Bit 3: Anbindung oben\n"
                                       "Ein Klick schaltet nur den Editor um; Byte 11 selbst ändert erst eine Eingabe in sein Feld.")},
    {1, QT_TRANSLATE_NOOP("FieldTips", "Sekundärer Header, Byte 11, Bit 2: Anbindung unten\n"
                                       "Ein Klick schaltet nur den Editor um; Byte 11 selbst ändert erst eine Eingabe in sein Feld.")},
    {2, QT_TRANSLATE_NOOP("FieldTips", "Sekundärer Header, Byte 11, Bit 1: Anbindung links\n"
                                       "Ein Klick schaltet nur den Editor um; Byte 11 selbst ändert erst eine Eingabe in sein Feld.")},
    {3, QT_TRANSLATE_NOOP("FieldTips", "Sekundärer Header, Byte 11, Bit 0: Anbindung rechts\n"
                                       "Ein Klick schaltet nur den Editor um; Byte 11 selbst ändert erst eine Eingabe in sein Feld.")},
};

constexpr Tip kConnectionSelectorTips[] = {
    {0, QT_TRANSLATE_NOOP("FieldTips", "Zeigt den Anbindungs-Eintrag nach oben in den Feldern darunter.")},
    {1, QT_TRANSLATE_NOOP("FieldTips", "Zeigt den Anbindungs-Eintrag nach unten in den Feldern darunter.")},
    {2, QT_TRANSLATE_NOOP("FieldTips", "Zeigt den Anbindungs-Eintrag nach links in den Feldern darunter.")},
    {3, QT_TRANSLATE_NOOP("FieldTips", "Zeigt den Anbindungs-Eintrag nach rechts in den Feldern darunter.")},
};

// The connection record of the chosen direction: Header(11)..Header(19).
constexpr Tip kConnectionBoxTips[] = {
    {11, QT_TRANSLATE_NOOP("FieldTips", "Anbindungs-Eintrag, Byte 0\n"
                                        "Map-Bank der Nachbar-Map (01–1A).")},
    {19, QT_TRANSLATE_NOOP("FieldTips", "Anbindungs-Eintrag, Byte 1\n"
                                        "Nummer der Nachbar-Map in ihrer Bank, ab 1.")},
    {12, QT_TRANSLATE_NOOP("FieldTips", "Anbindungs-Eintrag, Bytes 2–3, Little Endian (in Dateireihenfolge)\n"
                                        "Quelle des Streifens: Pointer in die Blockdaten der Nachbar-Map.")},
    {13, QT_TRANSLATE_NOOP("FieldTips", "Anbindungs-Eintrag, Bytes 4–5, Little Endian (in Dateireihenfolge)\n"
                                        "Ziel des Streifens: Adresse in der Arbeitskopie dieser Map "
                                        "(C700 = linke obere Ecke des Rands).")},
    {14, QT_TRANSLATE_NOOP("FieldTips", "Anbindungs-Eintrag, Byte 6\n"
                                        "Länge des Streifens in Blöcken: Breite oben und unten, Höhe links und rechts.")},
    {15, QT_TRANSLATE_NOOP("FieldTips", "Anbindungs-Eintrag, Byte 7\n"
                                        "Breite der Nachbar-Map in Blöcken.")},
    {16, QT_TRANSLATE_NOOP("FieldTips", "Anbindungs-Eintrag, Byte 8 (Eingaben ändern Byte 9)\n"
                                        "Erstes Byte des Positionswechsels; der Editor rechnet nicht damit.")},
    {17, QT_TRANSLATE_NOOP("FieldTips", "Anbindungs-Eintrag, Byte 9\n"
                                        "Zweites Byte des Positionswechsels; der Editor rechnet nicht damit.")},
    {18, QT_TRANSLATE_NOOP("FieldTips", "Anbindungs-Eintrag, Bytes 10–11, Little Endian (in Dateireihenfolge)\n"
                                        "Fenster: Adresse in der Arbeitskopie der Nachbar-Map.")},
};

constexpr Tip kPositionButtonTips[] = {
    {2, QT_TRANSLATE_NOOP("FieldTips", "Markiert unter Map Link Data den Block, auf den das Ziel (Bytes 4–5) zeigt.")},
    {3, QT_TRANSLATE_NOOP("FieldTips", "Öffnet die Nachbar-Map und markiert dort den Block, "
                                       "auf den das Fenster (Bytes 10–11) zeigt.")},
    {4, QT_TRANSLATE_NOOP("FieldTips", "Öffnet die Nachbar-Map und markiert dort den Block, "
                                       "auf den die Quelle (Bytes 2–3) zeigt.")},
};

// The "Map Link Data" frame: read-outs for writing connection records by hand.
constexpr Tip kLinkDataTips[] = {
    {6, QT_TRANSLATE_NOOP("FieldTips", "Blocknummern der Map aus ihren Blockdaten (Bytes 3–5 des sekundären Headers), "
                                       "mit dem Rand von 3 Blöcken\n"
                                       "Nur Anzeige; Pfeiltasten und Klicks wählen einen Block.")},
    {7, QT_TRANSLATE_NOOP("FieldTips", "X-Position des gewählten Blocks in Blöcken\n"
                                       "Der Rand liegt bei −3 bis −1 und ab der Breite (Byte 2 des sekundären Headers).")},
    {8, QT_TRANSLATE_NOOP("FieldTips", "Y-Position des gewählten Blocks in Blöcken\n"
                                       "Der Rand liegt bei −3 bis −1 und ab der Höhe (Byte 1 des sekundären Headers).")},
    {9, QT_TRANSLATE_NOOP("FieldTips", "Adresse des gewählten Blocks in den Blockdaten (NA im Rand)\n"
                                       "Der Wert für die Quelle (Bytes 2–3) einer Anbindung, die hierher zeigt.")},
    {10, QT_TRANSLATE_NOOP("FieldTips", "Adresse des gewählten Blocks in der Arbeitskopie des Spiels\n"
                                        "Der Wert für das Ziel (Bytes 4–5) einer Anbindung dieser Map "
                                        "oder das Fenster (Bytes 10–11) einer Anbindung hierher.")},
};

// The event records, by Text index.
constexpr Tip kEventTips[] = {
    {1, QT_TRANSLATE_NOOP("FieldTips", "Warp-Eintrag, Byte 1 (dezimal)\n"
                                       "X-Position des Warps in Tiles; ein Block ist 2 Tiles breit.")},
    {2, QT_TRANSLATE_NOOP("FieldTips", "Warp-Eintrag, Byte 0 (dezimal)\n"
                                       "Y-Position des Warps in Tiles; ein Block ist 2 Tiles hoch.")},
    {3, QT_TRANSLATE_NOOP("FieldTips", "Warp-Eintrag, Byte 2\n"
                                       "Nummer des Warps der Ziel-Map, bei dem man ankommt (ab 1).")},
    {4, QT_TRANSLATE_NOOP("FieldTips", "Warp-Eintrag, Byte 3\n"
                                       "Map-Bank der Ziel-Map.")},
    {5, QT_TRANSLATE_NOOP("FieldTips", "Warp-Eintrag, Byte 4\n"
                                       "Nummer der Ziel-Map in ihrer Bank (ab 1).")},

    {10, QT_TRANSLATE_NOOP("FieldTips", "Trigger-Eintrag, Byte 2 (dezimal)\n"
                                        "X-Position des Triggers in Tiles.")},
    {9, QT_TRANSLATE_NOOP("FieldTips", "Trigger-Eintrag, Byte 1 (dezimal)\n"
                                       "Y-Position des Triggers in Tiles.")},
    {8, QT_TRANSLATE_NOOP("FieldTips", "Trigger-Eintrag, Byte 0\n"
                                       "Status-Byte; der Editor zeigt und speichert es nur.")},
    {7, QT_TRANSLATE_NOOP("FieldTips", "Trigger-Eintrag, Byte 3\n"
                                       "Reserviertes Byte; der Editor zeigt und speichert es nur.")},
    {6, QT_TRANSLATE_NOOP("FieldTips", "Trigger-Eintrag, Bytes 4–5 (in Dateireihenfolge)\n"
                                       "Pointer auf das Script des Triggers, in der Bank links daneben.")},
    {11, QT_TRANSLATE_NOOP("FieldTips", "Trigger-Eintrag, Byte 6\n"
                                        "Reserviertes Byte; der Editor zeigt und speichert es nur.")},
    {12, QT_TRANSLATE_NOOP("FieldTips", "Trigger-Eintrag, Byte 7\n"
                                        "Reserviertes Byte; der Editor zeigt und speichert es nur.")},

    {17, QT_TRANSLATE_NOOP("FieldTips", "Sign-Eintrag, Byte 1 (dezimal)\n"
                                        "X-Position des Schilds in Tiles.")},
    {16, QT_TRANSLATE_NOOP("FieldTips", "Sign-Eintrag, Byte 0 (dezimal)\n"
                                        "Y-Position des Schilds in Tiles.")},
    {15, QT_TRANSLATE_NOOP("FieldTips", "Sign-Eintrag, Byte 2\n"
                                        "Typ-Byte des Schilds; der Editor zeigt und speichert es nur.")},
    {14, QT_TRANSLATE_NOOP("FieldTips", "Sign-Eintrag, Bytes 3–4 (in Dateireihenfolge)\n"
                                        "Pointer auf das Script des Schilds, in der Bank links daneben.")},

    {19, QT_TRANSLATE_NOOP("FieldTips", "People-Eintrag, Byte 2 (dezimal)\n"
                                        "X-Position der Person in Tiles plus 4: 4 ist die linke Spalte der Map.")},
    {20, QT_TRANSLATE_NOOP("FieldTips", "People-Eintrag, Byte 1 (dezimal)\n"
                                        "Y-Position der Person in Tiles plus 4: 4 ist die oberste Zeile der Map.")},
    {21, QT_TRANSLATE_NOOP("FieldTips", "People-Eintrag, Byte 0\n"
                                        "Nummer des Bildes der Person.")},
    {22, QT_TRANSLATE_NOOP("FieldTips", "People-Eintrag, Byte 3\n"
                                        "Blickrichtung der Person.")},
    {23, QT_TRANSLATE_NOOP("FieldTips", "People-Eintrag, Byte 4\n"
                                        "Bewegung der Person.")},
    {18, QT_TRANSLATE_NOOP("FieldTips", "People-Eintrag, Byte 5\n"
                                        "Zeitabhängigkeit der Person.")},
    {13, QT_TRANSLATE_NOOP("FieldTips", "People-Eintrag, Byte 6\n"
                                        "Zeitraum der Person.")},
    {24, QT_TRANSLATE_NOOP("FieldTips", "People-Eintrag, Byte 7\n"
                                        "Funktion der Person.")},
    {25, QT_TRANSLATE_NOOP("FieldTips", "People-Eintrag, Byte 8\n"
                                        "Sichtweite der Person.")},
    {26, QT_TRANSLATE_NOOP("FieldTips", "People-Eintrag, Bytes 9–10 (in Dateireihenfolge)\n"
                                        "Pointer auf das Script der Person, in der Bank links daneben.")},
    {27, QT_TRANSLATE_NOOP("FieldTips", "People-Eintrag, Bytes 11–12 (in Dateireihenfolge)\n"
                                        "Bedingung, unter der die Person sichtbar ist.")},

    {29, QT_TRANSLATE_NOOP("FieldTips", "Enter-Script-Eintrag, Bytes 0–1 (in Dateireihenfolge)\n"
                                        "Pointer auf das Script, das beim Betreten der Map läuft, in der Bank links daneben.")},
    {30, QT_TRANSLATE_NOOP("FieldTips", "Enter-Script-Eintrag, Byte 2\n"
                                        "Reserviertes Byte; der Editor zeigt und speichert es nur.")},
    {31, QT_TRANSLATE_NOOP("FieldTips", "Enter-Script-Eintrag, Byte 3\n"
                                        "Reserviertes Byte; der Editor zeigt und speichert es nur.")},

    {32, QT_TRANSLATE_NOOP("FieldTips", "Time-Script-Eintrag, Byte 0\n"
                                        "Bedingung des Time-Scripts.")},
    {33, QT_TRANSLATE_NOOP("FieldTips", "Time-Script-Eintrag, Bytes 1–2 (in Dateireihenfolge)\n"
                                        "Pointer auf das Time-Script, in der Bank links daneben.")},
};

QString Translated(const char* text) { return QCoreApplication::translate(kContext, text); }

QString Find(std::span<const Tip> table, int number) {
  for (const Tip& tip : table)
    if (tip.number == number) return Translated(tip.text);
  return {};
}

}  // namespace

QString HeaderBoxTip(int box, int extra_byte) {
  // Header(2) shows a byte behind the fishing group once the selector has moved on.
  if (box == 2 && extra_byte > 0) return Translated(kExtraByteTip).arg(8 + extra_byte);
  if (box < 3) return Find(kPrimaryBoxTips, box);
  if (box <= 10) return Find(kSecondaryBoxTips, box);
  return Find(kConnectionBoxTips, box);
}

QString HeaderComboTip(int combo) {
  const QString tip = Find(kPrimaryComboTips, combo);
  return tip.isEmpty() ? tip : tip + QLatin1Char('\n') + Translated(kComboHint);
}

QString ExtraByteSelectorTip() { return Translated(kExtraByteSelectorTip); }

QString ConnectionCheckTip(int direction) { return Find(kConnectionCheckTips, direction); }

QString ConnectionSelectorTip(int direction) { return Find(kConnectionSelectorTips, direction); }

QString PositionButtonTip(int command) { return Find(kPositionButtonTips, command); }

QString LinkDataTip(int text_number) { return Find(kLinkDataTips, text_number); }

QString EventFieldTip(int text_index) { return Find(kEventTips, text_index); }

}  // namespace kartova
