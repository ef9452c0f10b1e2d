<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="de">
<context>
    <name>CoreText</name>
    <message>
        <source>X-Position:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Y-Position:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ziel-Warp:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Map-Bank:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Map-Nummer:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Status:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Res-1:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Res-2:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Res-3:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Script-Pointer:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Typ:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bild:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Blickrichtung:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bewegung:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Zeitabhängig:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Zeitraum:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Funktion:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sichtweite:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sichtbar falls:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bedingung:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Warp </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Trigger </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sign </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>People </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enter </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Angel:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Res:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ST-Breite:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ST-Höhe:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ST-Größe:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> (Oben)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> (Unten)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> (Links)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> (Rechts)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>NA</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Malen</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Map importieren</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Header ändern</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Header wiederherstellen</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Anbindung ändern</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Event ändern</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Event verschieben</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Anbindung</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rand-Block</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>X: </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Y: </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Offset: </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Laufzeitfehler &apos;6&apos;: Überlauf</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Laufzeitfehler &apos;9&apos;: Index außerhalb des gültigen Bereichs</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Datei nicht gefunden</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ist ein Verzeichnis</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keine gewöhnliche Datei</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Die Datei ist zu klein für ein Rom dieses Spiels</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Die Datei kann nicht gelesen werden</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ist ein Verzeichnis.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Das ist keine gewöhnliche Datei.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Die Datei ist schreibgeschützt.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>FieldTips</name>
    <message>
        <source>Primärer Header, Byte 0 (nur Anzeige)
ROM-Bank, in der der sekundäre Header der Map liegt.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Primärer Header, Bytes 3–4, Little Endian (nur Anzeige, in Dateireihenfolge)
Pointer auf den sekundären Header, in der Bank aus Byte 0.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Primärer Header, Byte 8
Angel-Gruppe: welche Gruppe beim Angeln auf dieser Map gilt.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Primärer Header, Byte 1
Nummer des Tilesets, aus dem die Map ihre Grafik und Blöcke nimmt.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Primärer Header, Byte 2
Wert der Liste AbilityNames; seine unteren 3 Bits wählen die Paletten, wenn das Tileset keinen eigenen Palettensatz angibt.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Primärer Header, Byte 5
Ortsname der Map: Nummer in der Ortsnamen-Tabelle (00–5E).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Primärer Header, Byte 6
Nummer der Musik der Map.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Primärer Header, Byte 7
Beleuchtung der Map; unter Palette / Lighting „Auto“ wählen ihre unteren 3 Bits die Paletten.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Zum Ändern den Code als zwei Hex-Ziffern eintippen.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Primärer Header, Byte %1
Zusätzliches Header-Byte, benannt in der Rom-Definition; der Editor zeigt und speichert es nur.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Wählt das Byte des primären Headers, das das Feld daneben zeigt: 0 = Byte 8 (Angel), k = Byte 8 + k.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sekundärer Header, Byte 0
Block, mit dem der Rand um die Map gefüllt wird, wo keine Anbindung liegt.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sekundärer Header, Bytes 3–5 (nur Anzeige, in Dateireihenfolge)
ROM-Bank (Byte 3) und Pointer (Bytes 4–5, Little Endian) der Blockdaten der Map.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sekundärer Header, Byte 6
ROM-Bank, in der Script-Header und Event-Header der Map liegen.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sekundärer Header, Bytes 7–8, Little Endian (in Dateireihenfolge)
Pointer auf den Script-Header mit den Enter- und Time-Scripts.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sekundärer Header, Bytes 9–10, Little Endian (in Dateireihenfolge)
Pointer auf den Event-Header mit Warps, Triggern, Schildern und Personen.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sekundärer Header, Byte 11
Anbindungen: Bit 3 oben, Bit 2 unten, Bit 1 links, Bit 0 rechts.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sekundärer Header, Byte 2
Breite der Map in Blöcken.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sekundärer Header, Byte 1 (Eingaben ändern Byte 2)
Höhe der Map in Blöcken; was hier eingetippt wird, wird als Breite gespeichert.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sekundärer Header, Byte 11, Bit 3: Anbindung oben
Ein Klick schaltet nur den Editor um; Byte 11 selbst ändert erst eine Eingabe in sein Feld.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sekundärer Header, Byte 11, Bit 2: Anbindung unten
Ein Klick schaltet nur den Editor um; Byte 11 selbst ändert erst eine Eingabe in sein Feld.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sekundärer Header, Byte 11, Bit 1: Anbindung links
Ein Klick schaltet nur den Editor um; Byte 11 selbst ändert erst eine Eingabe in sein Feld.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sekundärer Header, Byte 11, Bit 0: Anbindung rechts
Ein Klick schaltet nur den Editor um; Byte 11 selbst ändert erst eine Eingabe in sein Feld.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Zeigt den Anbindungs-Eintrag nach oben in den Feldern darunter.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Zeigt den Anbindungs-Eintrag nach unten in den Feldern darunter.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Zeigt den Anbindungs-Eintrag nach links in den Feldern darunter.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Zeigt den Anbindungs-Eintrag nach rechts in den Feldern darunter.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Anbindungs-Eintrag, Byte 0
Map-Bank der Nachbar-Map (01–1A).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Anbindungs-Eintrag, Byte 1
Nummer der Nachbar-Map in ihrer Bank, ab 1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Anbindungs-Eintrag, Bytes 2–3, Little Endian (in Dateireihenfolge)
Quelle des Streifens: Pointer in die Blockdaten der Nachbar-Map.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Anbindungs-Eintrag, Bytes 4–5, Little Endian (in Dateireihenfolge)
Ziel des Streifens: Adresse in der Arbeitskopie dieser Map (C700 = linke obere Ecke des Rands).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Anbindungs-Eintrag, Byte 6
Länge des Streifens in Blöcken: Breite oben und unten, Höhe links und rechts.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Anbindungs-Eintrag, Byte 7
Breite der Nachbar-Map in Blöcken.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Anbindungs-Eintrag, Byte 8 (Eingaben ändern Byte 9)
Erstes Byte des Positionswechsels; der Editor rechnet nicht damit.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Anbindungs-Eintrag, Byte 9
Zweites Byte des Positionswechsels; der Editor rechnet nicht damit.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Anbindungs-Eintrag, Bytes 10–11, Little Endian (in Dateireihenfolge)
Fenster: Adresse in der Arbeitskopie der Nachbar-Map.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Markiert unter Map Link Data den Block, auf den das Ziel (Bytes 4–5) zeigt.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Öffnet die Nachbar-Map und markiert dort den Block, auf den das Fenster (Bytes 10–11) zeigt.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Öffnet die Nachbar-Map und markiert dort den Block, auf den die Quelle (Bytes 2–3) zeigt.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Blocknummern der Map aus ihren Blockdaten (Bytes 3–5 des sekundären Headers), mit dem Rand von 3 Blöcken
Nur Anzeige; Pfeiltasten und Klicks wählen einen Block.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>X-Position des gewählten Blocks in Blöcken
Der Rand liegt bei −3 bis −1 und ab der Breite (Byte 2 des sekundären Headers).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Y-Position des gewählten Blocks in Blöcken
Der Rand liegt bei −3 bis −1 und ab der Höhe (Byte 1 des sekundären Headers).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Adresse des gewählten Blocks in den Blockdaten (NA im Rand)
Der Wert für die Quelle (Bytes 2–3) einer Anbindung, die hierher zeigt.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Adresse des gewählten Blocks in der Arbeitskopie des Spiels
Der Wert für das Ziel (Bytes 4–5) einer Anbindung dieser Map oder das Fenster (Bytes 10–11) einer Anbindung hierher.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Warp-Eintrag, Byte 1 (dezimal)
X-Position des Warps in Tiles; ein Block ist 2 Tiles breit.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Warp-Eintrag, Byte 0 (dezimal)
Y-Position des Warps in Tiles; ein Block ist 2 Tiles hoch.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Warp-Eintrag, Byte 2
Nummer des Warps der Ziel-Map, bei dem man ankommt (ab 1).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Warp-Eintrag, Byte 3
Map-Bank der Ziel-Map.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Warp-Eintrag, Byte 4
Nummer der Ziel-Map in ihrer Bank (ab 1).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Trigger-Eintrag, Byte 2 (dezimal)
X-Position des Triggers in Tiles.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Trigger-Eintrag, Byte 1 (dezimal)
Y-Position des Triggers in Tiles.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Trigger-Eintrag, Byte 0
Status-Byte; der Editor zeigt und speichert es nur.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Trigger-Eintrag, Byte 3
Reserviertes Byte; der Editor zeigt und speichert es nur.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Trigger-Eintrag, Bytes 4–5 (in Dateireihenfolge)
Pointer auf das Script des Triggers, in der Bank links daneben.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Trigger-Eintrag, Byte 6
Reserviertes Byte; der Editor zeigt und speichert es nur.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Trigger-Eintrag, Byte 7
Reserviertes Byte; der Editor zeigt und speichert es nur.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sign-Eintrag, Byte 1 (dezimal)
X-Position des Schilds in Tiles.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sign-Eintrag, Byte 0 (dezimal)
Y-Position des Schilds in Tiles.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sign-Eintrag, Byte 2
Typ-Byte des Schilds; der Editor zeigt und speichert es nur.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sign-Eintrag, Bytes 3–4 (in Dateireihenfolge)
Pointer auf das Script des Schilds, in der Bank links daneben.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>People-Eintrag, Byte 2 (dezimal)
X-Position der Person in Tiles plus 4: 4 ist die linke Spalte der Map.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>People-Eintrag, Byte 1 (dezimal)
Y-Position der Person in Tiles plus 4: 4 ist die oberste Zeile der Map.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>People-Eintrag, Byte 0
Nummer des Bildes der Person.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>People-Eintrag, Byte 3
Blickrichtung der Person.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>People-Eintrag, Byte 4
Bewegung der Person.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>People-Eintrag, Byte 5
Zeitabhängigkeit der Person.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>People-Eintrag, Byte 6
Zeitraum der Person.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>People-Eintrag, Byte 7
Funktion der Person.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>People-Eintrag, Byte 8
Sichtweite der Person.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>People-Eintrag, Bytes 9–10 (in Dateireihenfolge)
Pointer auf das Script der Person, in der Bank links daneben.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>People-Eintrag, Bytes 11–12 (in Dateireihenfolge)
Bedingung, unter der die Person sichtbar ist.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enter-Script-Eintrag, Bytes 0–1 (in Dateireihenfolge)
Pointer auf das Script, das beim Betreten der Map läuft, in der Bank links daneben.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enter-Script-Eintrag, Byte 2
Reserviertes Byte; der Editor zeigt und speichert es nur.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enter-Script-Eintrag, Byte 3
Reserviertes Byte; der Editor zeigt und speichert es nur.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time-Script-Eintrag, Byte 0
Bedingung des Time-Scripts.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time-Script-Eintrag, Bytes 1–2 (in Dateireihenfolge)
Pointer auf das Time-Script, in der Bank links daneben.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>kartova::AboutWindow</name>
    <message>
        <source>Über Kartova</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Es wird keine Haftung für eventuelle Schäden jeglicher Art übernommen.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Version 1.38 Final</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Gesamte Programmierung und Design
2026 Das Kartova-Team</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unterstützte Roms:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Jede Edition mit einer Rom-Definition
(Kartova.ini oder Registry)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sprachversionen:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Deutsch</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>kartova::ConnectionFrame</name>
    <message>
        <source>(Oben)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>(Unten)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>(Links)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>(Rechts)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ziel zeigen</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fenster zeigen</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Quelle zeigen</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Anbindungen</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Vorhandene Anbindungen der geladenen Map</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Map: B/N</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sichtteil:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Map-Breite:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Wechsel:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fenster:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Vorhanden:</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>kartova::EventPage</name>
    <message>
        <source>Daten</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Warp</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Trigger</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sign</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>People</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Warp </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Trigger </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Signpost </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>People </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enter-Script </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time-Script </source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>kartova::HeaderPage</name>
    <message>
        <source>Oben</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unten</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Links</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rechts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Primary Mapheader</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bank:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tileset:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Spite Set</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Point:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Title:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Music:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lighting</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Byte-Nr.:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Secondary Map Header</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Border:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>size:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> X / Y</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Map-Pointer:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Script: (2)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Event: (2)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Links:</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>kartova::LinkDataFrame</name>
    <message>
        <source>X:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Y:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Block-Pointer:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>RAM-Adresse:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Map Link Data</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>kartova::MapSelector</name>
    <message>
        <source>Mapbank %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>kartova::WuselixPage</name>
    <message>
        <source>Morgens</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tags</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Abends</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Abschnitte</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tageszeit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Wuselix</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
