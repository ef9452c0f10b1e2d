<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="de">
<context>
    <name>BlockText</name>
    <message>
        <source>Block: </source>
        <translation>Block: </translation>
    </message>
    <message>
        <source>Auswahl: </source>
        <translation>Selected: </translation>
    </message>
</context>
<context>
    <name>CoreText</name>
    <message>
        <source>X-Position:</source>
        <translation>X position:</translation>
    </message>
    <message>
        <source>Y-Position:</source>
        <translation>Y position:</translation>
    </message>
    <message>
        <source>Ziel-Warp:</source>
        <translation>Target warp:</translation>
    </message>
    <message>
        <source>Map-Bank:</source>
        <translation>Map bank:</translation>
    </message>
    <message>
        <source>Map-Nummer:</source>
        <translation>Map number:</translation>
    </message>
    <message>
        <source>Status:</source>
        <translation>Status:</translation>
    </message>
    <message>
        <source>Res-1:</source>
        <translation>Reserved 1:</translation>
    </message>
    <message>
        <source>Res-2:</source>
        <translation>Reserved 2:</translation>
    </message>
    <message>
        <source>Res-3:</source>
        <translation>Reserved 3:</translation>
    </message>
    <message>
        <source>Script-Pointer:</source>
        <translation>Script pointer:</translation>
    </message>
    <message>
        <source>Typ:</source>
        <translation>Type:</translation>
    </message>
    <message>
        <source>Bild:</source>
        <translation>Sprite:</translation>
    </message>
    <message>
        <source>Blickrichtung:</source>
        <translation>Facing:</translation>
    </message>
    <message>
        <source>Bewegung:</source>
        <translation>Movement:</translation>
    </message>
    <message>
        <source>Zeitabhängig:</source>
        <translation>Time-dependent:</translation>
    </message>
    <message>
        <source>Zeitraum:</source>
        <translation>Time period:</translation>
    </message>
    <message>
        <source>Funktion:</source>
        <translation>Function:</translation>
    </message>
    <message>
        <source>Sichtweite:</source>
        <translation>Sight range:</translation>
    </message>
    <message>
        <source>Sichtbar falls:</source>
        <translation>Visible if:</translation>
    </message>
    <message>
        <source>Bedingung:</source>
        <translation>Condition:</translation>
    </message>
    <message>
        <source>Warp </source>
        <translation>Warp </translation>
    </message>
    <message>
        <source>Trigger </source>
        <translation>Trigger </translation>
    </message>
    <message>
        <source>Sign </source>
        <translation>Sign </translation>
    </message>
    <message>
        <source>People </source>
        <translation>Person </translation>
    </message>
    <message>
        <source>Enter </source>
        <translation>Enter </translation>
    </message>
    <message>
        <source>Time </source>
        <translation>Time </translation>
    </message>
    <message>
        <source>Angel:</source>
        <translation>Fishing:</translation>
    </message>
    <message>
        <source>Res:</source>
        <translation>Reserved:</translation>
    </message>
    <message>
        <source>ST-Breite:</source>
        <translation>Strip width:</translation>
    </message>
    <message>
        <source>ST-Höhe:</source>
        <translation>Strip height:</translation>
    </message>
    <message>
        <source>ST-Größe:</source>
        <translation>Strip size:</translation>
    </message>
    <message>
        <source> (Oben)</source>
        <translation> (Top)</translation>
    </message>
    <message>
        <source> (Unten)</source>
        <translation> (Bottom)</translation>
    </message>
    <message>
        <source> (Links)</source>
        <translation> (Left)</translation>
    </message>
    <message>
        <source> (Rechts)</source>
        <translation> (Right)</translation>
    </message>
    <message>
        <source>NA</source>
        <translation>N/A</translation>
    </message>
    <message>
        <source>Malen</source>
        <translation>Paint</translation>
    </message>
    <message>
        <source>Map importieren</source>
        <translation>Import map</translation>
    </message>
    <message>
        <source>Header ändern</source>
        <translation>Change header</translation>
    </message>
    <message>
        <source>Header wiederherstellen</source>
        <translation>Restore header</translation>
    </message>
    <message>
        <source>Anbindung ändern</source>
        <translation>Change connection</translation>
    </message>
    <message>
        <source>Event ändern</source>
        <translation>Change event</translation>
    </message>
    <message>
        <source>Event verschieben</source>
        <translation>Move event</translation>
    </message>
    <message>
        <source>Anbindung</source>
        <translation>Connection</translation>
    </message>
    <message>
        <source>Rand-Block</source>
        <translation>Border block</translation>
    </message>
    <message>
        <source>X: </source>
        <translation>X: </translation>
    </message>
    <message>
        <source>Y: </source>
        <translation>Y: </translation>
    </message>
    <message>
        <source>Offset: </source>
        <translation>Offset: </translation>
    </message>
    <message>
        <source>Laufzeitfehler &apos;6&apos;: Überlauf</source>
        <translation>Run-time error &apos;6&apos;: Overflow</translation>
    </message>
    <message>
        <source>Laufzeitfehler &apos;9&apos;: Index außerhalb des gültigen Bereichs</source>
        <translation>Run-time error &apos;9&apos;: Subscript out of range</translation>
    </message>
    <message>
        <source>Datei nicht gefunden</source>
        <translation>File not found</translation>
    </message>
    <message>
        <source>Ist ein Verzeichnis</source>
        <translation>Is a directory</translation>
    </message>
    <message>
        <source>Keine gewöhnliche Datei</source>
        <translation>Not a regular file</translation>
    </message>
    <message>
        <source>Die Datei ist zu klein für ein Rom dieses Spiels</source>
        <translation>The file is too small for a ROM of this game</translation>
    </message>
    <message>
        <source>Die Datei kann nicht gelesen werden</source>
        <translation>The file cannot be read</translation>
    </message>
    <message>
        <source>Ist ein Verzeichnis.</source>
        <translation>This is a directory.</translation>
    </message>
    <message>
        <source>Das ist keine gewöhnliche Datei.</source>
        <translation>This is not a regular file.</translation>
    </message>
    <message>
        <source>Die Datei ist schreibgeschützt.</source>
        <translation>The file is read-only.</translation>
    </message>
</context>
<context>
    <name>FieldTips</name>
    <message>
        <source>Primärer Header, Byte 0 (nur Anzeige)
ROM-Bank, in der der sekundäre Header der Map liegt.</source>
        <translation>Primary header, byte 0 (display only)
ROM bank that holds the map&apos;s secondary header.</translation>
    </message>
    <message>
        <source>Primärer Header, Bytes 3–4, Little Endian (nur Anzeige, in Dateireihenfolge)
Pointer auf den sekundären Header, in der Bank aus Byte 0.</source>
        <translation>Primary header, bytes 3–4, little-endian (display only, in file order)
Pointer to the secondary header, in the bank from byte 0.</translation>
    </message>
    <message>
        <source>Primärer Header, Byte 8
Angel-Gruppe: welche Gruppe beim Angeln auf dieser Map gilt.</source>
        <translation>Primary header, byte 8
Fishing group: which group applies when fishing on this map.</translation>
    </message>
    <message>
        <source>Primärer Header, Byte 1
Nummer des Tilesets, aus dem die Map ihre Grafik und Blöcke nimmt.</source>
        <translation>Primary header, byte 1
Number of the tileset the map takes its graphics and blocks from.</translation>
    </message>
    <message>
        <source>Primärer Header, Byte 2
Wert der Liste AbilityNames; seine unteren 3 Bits wählen die Paletten, wenn das Tileset keinen eigenen Palettensatz angibt.</source>
        <translation>Primary header, byte 2
Value from the AbilityNames list; its lower 3 bits select the palettes when the tileset does not specify its own palette set.</translation>
    </message>
    <message>
        <source>Primärer Header, Byte 5
Ortsname der Map: Nummer in der Ortsnamen-Tabelle (00–5E).</source>
        <translation>Primary header, byte 5
Location name of the map: number in the location name table (00–5E).</translation>
    </message>
    <message>
        <source>Primärer Header, Byte 6
Nummer der Musik der Map.</source>
        <translation>Primary header, byte 6
Number of the map&apos;s music.</translation>
    </message>
    <message>
        <source>Primärer Header, Byte 7
Beleuchtung der Map; unter Palette / Lighting „Auto“ wählen ihre unteren 3 Bits die Paletten.</source>
        <translation>Primary header, byte 7
Lighting of the map; with “Auto” under Palette / Lighting, its lower 3 bits select the palettes.</translation>
    </message>
    <message>
        <source>Zum Ändern den Code als zwei Hex-Ziffern eintippen.</source>
        <translation>To change it, type the code as two hex digits.</translation>
    </message>
    <message>
        <source>Primärer Header, Byte %1
Zusätzliches Header-Byte, benannt in der Rom-Definition; der Editor zeigt und speichert es nur.</source>
        <translation>Primary header, byte %1
Extra header byte, named in the ROM definition; the editor only shows and saves it.</translation>
    </message>
    <message>
        <source>Wählt das Byte des primären Headers, das das Feld daneben zeigt: 0 = Byte 8 (Angel), k = Byte 8 + k.</source>
        <translation>Selects the primary header byte shown in the field next to it: 0 = byte 8 (fishing), k = byte 8 + k.</translation>
    </message>
    <message>
        <source>Sekundärer Header, Byte 0
Block, mit dem der Rand um die Map gefüllt wird, wo keine Anbindung liegt.</source>
        <translation>Secondary header, byte 0
Block that fills the margin around the map where there is no connection.</translation>
    </message>
    <message>
        <source>Sekundärer Header, Bytes 3–5 (nur Anzeige, in Dateireihenfolge)
ROM-Bank (Byte 3) und Pointer (Bytes 4–5, Little Endian) der Blockdaten der Map.</source>
        <translation>Secondary header, bytes 3–5 (display only, in file order)
ROM bank (byte 3) and pointer (bytes 4–5, little-endian) of the map&apos;s block data.</translation>
    </message>
    <message>
        <source>Sekundärer Header, Byte 6
ROM-Bank, in der Script-Header und Event-Header der Map liegen.</source>
        <translation>Secondary header, byte 6
ROM bank that holds the map&apos;s script header and event header.</translation>
    </message>
    <message>
        <source>Sekundärer Header, Bytes 7–8, Little Endian (in Dateireihenfolge)
Pointer auf den Script-Header mit den Enter- und Time-Scripts.</source>
        <translation>Secondary header, bytes 7–8, little-endian (in file order)
Pointer to the script header with the enter and time scripts.</translation>
    </message>
    <message>
        <source>Sekundärer Header, Bytes 9–10, Little Endian (in Dateireihenfolge)
Pointer auf den Event-Header mit Warps, Triggern, Schildern und Personen.</source>
        <translation>Secondary header, bytes 9–10, little-endian (in file order)
Pointer to the event header with warps, triggers, signs and people.</translation>
    </message>
    <message>
        <source>Sekundärer Header, Byte 11
Anbindungen: Bit 3 oben, Bit 2 unten, Bit 1 links, Bit 0 rechts.</source>
        <translation>Secondary header, byte 11
Connections: bit 3 top, bit 2 bottom, bit 1 left, bit 0 right.</translation>
    </message>
    <message>
        <source>Sekundärer Header, Byte 2
Breite der Map in Blöcken.</source>
        <translation>Secondary header, byte 2
Width of the map in blocks.</translation>
    </message>
    <message>
        <source>Sekundärer Header, Byte 1 (Eingaben ändern Byte 2)
Höhe der Map in Blöcken; was hier eingetippt wird, wird als Breite gespeichert.</source>
        <translation>Secondary header, byte 1 (input changes byte 2)
Height of the map in blocks; whatever is typed here is saved as the width.</translation>
    </message>
    <message>
        <source>Sekundärer Header, Byte 11, Bit 3: Anbindung oben
Ein Klick schaltet nur den Editor um; Byte 11 selbst ändert erst eine Eingabe in sein Feld.</source>
        <translation>Secondary header, byte 11, bit 3: connection at the top
A click only switches the editor; byte 11 itself changes only when you type into its field.</translation>
    </message>
    <message>
        <source>Sekundärer Header, Byte 11, Bit 2: Anbindung unten
Ein Klick schaltet nur den Editor um; Byte 11 selbst ändert erst eine Eingabe in sein Feld.</source>
        <translation>Secondary header, byte 11, bit 2: connection at the bottom
A click only switches the editor; byte 11 itself changes only when you type into its field.</translation>
    </message>
    <message>
        <source>Sekundärer Header, Byte 11, Bit 1: Anbindung links
Ein Klick schaltet nur den Editor um; Byte 11 selbst ändert erst eine Eingabe in sein Feld.</source>
        <translation>Secondary header, byte 11, bit 1: connection on the left
A click only switches the editor; byte 11 itself changes only when you type into its field.</translation>
    </message>
    <message>
        <source>Sekundärer Header, Byte 11, Bit 0: Anbindung rechts
Ein Klick schaltet nur den Editor um; Byte 11 selbst ändert erst eine Eingabe in sein Feld.</source>
        <translation>Secondary header, byte 11, bit 0: connection on the right
A click only switches the editor; byte 11 itself changes only when you type into its field.</translation>
    </message>
    <message>
        <source>Zeigt den Anbindungs-Eintrag nach oben in den Feldern darunter.</source>
        <translation>Shows the connection entry to the top in the fields below.</translation>
    </message>
    <message>
        <source>Zeigt den Anbindungs-Eintrag nach unten in den Feldern darunter.</source>
        <translation>Shows the connection entry to the bottom in the fields below.</translation>
    </message>
    <message>
        <source>Zeigt den Anbindungs-Eintrag nach links in den Feldern darunter.</source>
        <translation>Shows the connection entry to the left in the fields below.</translation>
    </message>
    <message>
        <source>Zeigt den Anbindungs-Eintrag nach rechts in den Feldern darunter.</source>
        <translation>Shows the connection entry to the right in the fields below.</translation>
    </message>
    <message>
        <source>Anbindungs-Eintrag, Byte 0
Map-Bank der Nachbar-Map (01–1A).</source>
        <translation>Connection entry, byte 0
Map bank of the neighbouring map (01–1A).</translation>
    </message>
    <message>
        <source>Anbindungs-Eintrag, Byte 1
Nummer der Nachbar-Map in ihrer Bank, ab 1.</source>
        <translation>Connection entry, byte 1
Number of the neighbouring map within its bank, starting at 1.</translation>
    </message>
    <message>
        <source>Anbindungs-Eintrag, Bytes 2–3, Little Endian (in Dateireihenfolge)
Quelle des Streifens: Pointer in die Blockdaten der Nachbar-Map.</source>
        <translation>Connection entry, bytes 2–3, little-endian (in file order)
Strip source: pointer into the neighbouring map&apos;s block data.</translation>
    </message>
    <message>
        <source>Anbindungs-Eintrag, Bytes 4–5, Little Endian (in Dateireihenfolge)
Ziel des Streifens: Adresse in der Arbeitskopie dieser Map (C700 = linke obere Ecke des Rands).</source>
        <translation>Connection entry, bytes 4–5, little-endian (in file order)
Strip target: address in the working copy of this map (C700 = top left corner of the margin).</translation>
    </message>
    <message>
        <source>Anbindungs-Eintrag, Byte 6
Länge des Streifens in Blöcken: Breite oben und unten, Höhe links und rechts.</source>
        <translation>Connection entry, byte 6
Length of the strip in blocks: the width at the top and bottom, the height on the left and right.</translation>
    </message>
    <message>
        <source>Anbindungs-Eintrag, Byte 7
Breite der Nachbar-Map in Blöcken.</source>
        <translation>Connection entry, byte 7
Width of the neighbouring map in blocks.</translation>
    </message>
    <message>
        <source>Anbindungs-Eintrag, Byte 8 (Eingaben ändern Byte 9)
Erstes Byte des Positionswechsels; der Editor rechnet nicht damit.</source>
        <translation>Connection entry, byte 8 (input changes byte 9)
First byte of the position shift; the editor does not use it in its calculations.</translation>
    </message>
    <message>
        <source>Anbindungs-Eintrag, Byte 9
Zweites Byte des Positionswechsels; der Editor rechnet nicht damit.</source>
        <translation>Connection entry, byte 9
Second byte of the position shift; the editor does not use it in its calculations.</translation>
    </message>
    <message>
        <source>Anbindungs-Eintrag, Bytes 10–11, Little Endian (in Dateireihenfolge)
Fenster: Adresse in der Arbeitskopie der Nachbar-Map.</source>
        <translation>Connection entry, bytes 10–11, little-endian (in file order)
Window: address in the working copy of the neighbouring map.</translation>
    </message>
    <message>
        <source>Markiert unter Map Link Data den Block, auf den das Ziel (Bytes 4–5) zeigt.</source>
        <translation>Marks, under Map link data, the block the target (bytes 4–5) points to.</translation>
    </message>
    <message>
        <source>Öffnet die Nachbar-Map und markiert dort den Block, auf den das Fenster (Bytes 10–11) zeigt.</source>
        <translation>Opens the neighbouring map and marks the block there that the window (bytes 10–11) points to.</translation>
    </message>
    <message>
        <source>Öffnet die Nachbar-Map und markiert dort den Block, auf den die Quelle (Bytes 2–3) zeigt.</source>
        <translation>Opens the neighbouring map and marks the block there that the source (bytes 2–3) points to.</translation>
    </message>
    <message>
        <source>Blocknummern der Map aus ihren Blockdaten (Bytes 3–5 des sekundären Headers), mit dem Rand von 3 Blöcken
Nur Anzeige; Pfeiltasten und Klicks wählen einen Block.</source>
        <translation>Block numbers of the map from its block data (bytes 3–5 of the secondary header), with the 3-block margin
Display only; arrow keys and clicks select a block.</translation>
    </message>
    <message>
        <source>X-Position des gewählten Blocks in Blöcken
Der Rand liegt bei −3 bis −1 und ab der Breite (Byte 2 des sekundären Headers).</source>
        <translation>X position of the selected block, in blocks
The margin lies at −3 to −1 and from the width (byte 2 of the secondary header) on.</translation>
    </message>
    <message>
        <source>Y-Position des gewählten Blocks in Blöcken
Der Rand liegt bei −3 bis −1 und ab der Höhe (Byte 1 des sekundären Headers).</source>
        <translation>Y position of the selected block, in blocks
The margin lies at −3 to −1 and from the height (byte 1 of the secondary header) on.</translation>
    </message>
    <message>
        <source>Adresse des gewählten Blocks in den Blockdaten (NA im Rand)
Der Wert für die Quelle (Bytes 2–3) einer Anbindung, die hierher zeigt.</source>
        <translation>Address of the selected block in the block data (N/A in the margin)
The value for the source (bytes 2–3) of a connection that points here.</translation>
    </message>
    <message>
        <source>Adresse des gewählten Blocks in der Arbeitskopie des Spiels
Der Wert für das Ziel (Bytes 4–5) einer Anbindung dieser Map oder das Fenster (Bytes 10–11) einer Anbindung hierher.</source>
        <translation>Address of the selected block in the game&apos;s working copy
The value for the target (bytes 4–5) of a connection of this map, or for the window (bytes 10–11) of a connection to here.</translation>
    </message>
    <message>
        <source>Warp-Eintrag, Byte 1 (dezimal)
X-Position des Warps in Tiles; ein Block ist 2 Tiles breit.</source>
        <translation>Warp entry, byte 1 (decimal)
X position of the warp in tiles; a block is 2 tiles wide.</translation>
    </message>
    <message>
        <source>Warp-Eintrag, Byte 0 (dezimal)
Y-Position des Warps in Tiles; ein Block ist 2 Tiles hoch.</source>
        <translation>Warp entry, byte 0 (decimal)
Y position of the warp in tiles; a block is 2 tiles high.</translation>
    </message>
    <message>
        <source>Warp-Eintrag, Byte 2
Nummer des Warps der Ziel-Map, bei dem man ankommt (ab 1).</source>
        <translation>Warp entry, byte 2
Number of the warp in the target map where you arrive (starting at 1).</translation>
    </message>
    <message>
        <source>Warp-Eintrag, Byte 3
Map-Bank der Ziel-Map.</source>
        <translation>Warp entry, byte 3
Map bank of the target map.</translation>
    </message>
    <message>
        <source>Warp-Eintrag, Byte 4
Nummer der Ziel-Map in ihrer Bank (ab 1).</source>
        <translation>Warp entry, byte 4
Number of the target map within its bank (starting at 1).</translation>
    </message>
    <message>
        <source>Trigger-Eintrag, Byte 2 (dezimal)
X-Position des Triggers in Tiles.</source>
        <translation>Trigger entry, byte 2 (decimal)
X position of the trigger in tiles.</translation>
    </message>
    <message>
        <source>Trigger-Eintrag, Byte 1 (dezimal)
Y-Position des Triggers in Tiles.</source>
        <translation>Trigger entry, byte 1 (decimal)
Y position of the trigger in tiles.</translation>
    </message>
    <message>
        <source>Trigger-Eintrag, Byte 0
Status-Byte; der Editor zeigt und speichert es nur.</source>
        <translation>Trigger entry, byte 0
Status byte; the editor only shows and saves it.</translation>
    </message>
    <message>
        <source>Trigger-Eintrag, Byte 3
Reserviertes Byte; der Editor zeigt und speichert es nur.</source>
        <translation>Trigger entry, byte 3
Reserved byte; the editor only shows and saves it.</translation>
    </message>
    <message>
        <source>Trigger-Eintrag, Bytes 4–5 (in Dateireihenfolge)
Pointer auf das Script des Triggers, in der Bank links daneben.</source>
        <translation>Trigger entry, bytes 4–5 (in file order)
Pointer to the trigger&apos;s script, in the bank to its left.</translation>
    </message>
    <message>
        <source>Trigger-Eintrag, Byte 6
Reserviertes Byte; der Editor zeigt und speichert es nur.</source>
        <translation>Trigger entry, byte 6
Reserved byte; the editor only shows and saves it.</translation>
    </message>
    <message>
        <source>Trigger-Eintrag, Byte 7
Reserviertes Byte; der Editor zeigt und speichert es nur.</source>
        <translation>Trigger entry, byte 7
Reserved byte; the editor only shows and saves it.</translation>
    </message>
    <message>
        <source>Sign-Eintrag, Byte 1 (dezimal)
X-Position des Schilds in Tiles.</source>
        <translation>Sign entry, byte 1 (decimal)
X position of the sign in tiles.</translation>
    </message>
    <message>
        <source>Sign-Eintrag, Byte 0 (dezimal)
Y-Position des Schilds in Tiles.</source>
        <translation>Sign entry, byte 0 (decimal)
Y position of the sign in tiles.</translation>
    </message>
    <message>
        <source>Sign-Eintrag, Byte 2
Typ-Byte des Schilds; der Editor zeigt und speichert es nur.</source>
        <translation>Sign entry, byte 2
Type byte of the sign; the editor only shows and saves it.</translation>
    </message>
    <message>
        <source>Sign-Eintrag, Bytes 3–4 (in Dateireihenfolge)
Pointer auf das Script des Schilds, in der Bank links daneben.</source>
        <translation>Sign entry, bytes 3–4 (in file order)
Pointer to the sign&apos;s script, in the bank to its left.</translation>
    </message>
    <message>
        <source>People-Eintrag, Byte 2 (dezimal)
X-Position der Person in Tiles plus 4: 4 ist die linke Spalte der Map.</source>
        <translation>People entry, byte 2 (decimal)
X position of the person in tiles plus 4: 4 is the leftmost column of the map.</translation>
    </message>
    <message>
        <source>People-Eintrag, Byte 1 (dezimal)
Y-Position der Person in Tiles plus 4: 4 ist die oberste Zeile der Map.</source>
        <translation>People entry, byte 1 (decimal)
Y position of the person in tiles plus 4: 4 is the top row of the map.</translation>
    </message>
    <message>
        <source>People-Eintrag, Byte 0
Nummer des Bildes der Person.</source>
        <translation>People entry, byte 0
Sprite number of the person.</translation>
    </message>
    <message>
        <source>People-Eintrag, Byte 3
Blickrichtung der Person.</source>
        <translation>People entry, byte 3
Direction the person is facing.</translation>
    </message>
    <message>
        <source>People-Eintrag, Byte 4
Bewegung der Person.</source>
        <translation>People entry, byte 4
Movement of the person.</translation>
    </message>
    <message>
        <source>People-Eintrag, Byte 5
Zeitabhängigkeit der Person.</source>
        <translation>People entry, byte 5
Time dependence of the person.</translation>
    </message>
    <message>
        <source>People-Eintrag, Byte 6
Zeitraum der Person.</source>
        <translation>People entry, byte 6
Time period of the person.</translation>
    </message>
    <message>
        <source>People-Eintrag, Byte 7
Funktion der Person.</source>
        <translation>People entry, byte 7
Function of the person.</translation>
    </message>
    <message>
        <source>People-Eintrag, Byte 8
Sichtweite der Person.</source>
        <translation>People entry, byte 8
Sight range of the person.</translation>
    </message>
    <message>
        <source>People-Eintrag, Bytes 9–10 (in Dateireihenfolge)
Pointer auf das Script der Person, in der Bank links daneben.</source>
        <translation>People entry, bytes 9–10 (in file order)
Pointer to the person&apos;s script, in the bank to its left.</translation>
    </message>
    <message>
        <source>People-Eintrag, Bytes 11–12 (in Dateireihenfolge)
Bedingung, unter der die Person sichtbar ist.</source>
        <translation>People entry, bytes 11–12 (in file order)
Condition under which the person is visible.</translation>
    </message>
    <message>
        <source>Enter-Script-Eintrag, Bytes 0–1 (in Dateireihenfolge)
Pointer auf das Script, das beim Betreten der Map läuft, in der Bank links daneben.</source>
        <translation>Enter script entry, bytes 0–1 (in file order)
Pointer to the script that runs when the map is entered, in the bank to its left.</translation>
    </message>
    <message>
        <source>Enter-Script-Eintrag, Byte 2
Reserviertes Byte; der Editor zeigt und speichert es nur.</source>
        <translation>Enter script entry, byte 2
Reserved byte; the editor only shows and saves it.</translation>
    </message>
    <message>
        <source>Enter-Script-Eintrag, Byte 3
Reserviertes Byte; der Editor zeigt und speichert es nur.</source>
        <translation>Enter script entry, byte 3
Reserved byte; the editor only shows and saves it.</translation>
    </message>
    <message>
        <source>Time-Script-Eintrag, Byte 0
Bedingung des Time-Scripts.</source>
        <translation>Time script entry, byte 0
Condition of the time script.</translation>
    </message>
    <message>
        <source>Time-Script-Eintrag, Bytes 1–2 (in Dateireihenfolge)
Pointer auf das Time-Script, in der Bank links daneben.</source>
        <translation>Time script entry, bytes 1–2 (in file order)
Pointer to the time script, in the bank to its left.</translation>
    </message>
</context>
<context>
    <name>MainMenu</name>
    <message>
        <source>Nimmt den letzten Schritt zurück</source>
        <translation>Undoes the last step.</translation>
    </message>
    <message>
        <source>Führt den zurückgenommenen Schritt wieder aus</source>
        <translation>Redoes the step that was undone.</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;File</translation>
    </message>
    <message>
        <source>ROM öffnen, neu laden, speichern; Maps exportieren und importieren</source>
        <translation>Opens, reloads and saves the ROM; exports and imports maps.</translation>
    </message>
    <message>
        <source>&amp;Load Rom ...</source>
        <translation>&amp;Open ROM…</translation>
    </message>
    <message>
        <source>Öffnet eine ROM-Datei</source>
        <translation>Opens a ROM file.</translation>
    </message>
    <message>
        <source>Zuletzt geöffnet</source>
        <translation>Open &amp;recent</translation>
    </message>
    <message>
        <source>Öffnet eine der zuletzt geöffneten ROM-Dateien</source>
        <translation>Opens one of the recently opened ROM files.</translation>
    </message>
    <message>
        <source>&amp;Reload Rom</source>
        <translation>Re&amp;load ROM</translation>
    </message>
    <message>
        <source>Liest die geöffnete ROM neu aus der Datei</source>
        <translation>Rereads the open ROM from its file.</translation>
    </message>
    <message>
        <source>&amp;Full</source>
        <translation>&amp;Everything</translation>
    </message>
    <message>
        <source>Liest Definition, Tabellen, Map und Events neu aus der Datei</source>
        <translation>Rereads the definition, tables, map and events from the file.</translation>
    </message>
    <message>
        <source>&amp;Map only</source>
        <translation>&amp;Map only</translation>
    </message>
    <message>
        <source>Liest die Map neu aus der Datei, die Events bleiben</source>
        <translation>Rereads the map from the file; the events are kept.</translation>
    </message>
    <message>
        <source>&amp;Events only</source>
        <translation>E&amp;vents only</translation>
    </message>
    <message>
        <source>Liest die Events neu aus der Datei, die Map bleibt</source>
        <translation>Rereads the events from the file; the map is kept.</translation>
    </message>
    <message>
        <source>&amp;Save Rom</source>
        <translation>&amp;Save ROM</translation>
    </message>
    <message>
        <source>Schreibt die Änderungen in die ROM-Datei</source>
        <translation>Writes the changes to the ROM file.</translation>
    </message>
    <message>
        <source>&amp;Save Full</source>
        <translation>&amp;Save everything</translation>
    </message>
    <message>
        <source>Schreibt Header, Map und Events in die ROM-Datei</source>
        <translation>Writes the headers, map and events to the ROM file.</translation>
    </message>
    <message>
        <source>Save Map</source>
        <translation>Save map</translation>
    </message>
    <message>
        <source>Schreibt nur Header und Blöcke der Map in die ROM-Datei</source>
        <translation>Writes only the headers and blocks of the map to the ROM file.</translation>
    </message>
    <message>
        <source>Save Events</source>
        <translation>Save events</translation>
    </message>
    <message>
        <source>Schreibt nur die Events der Map in die ROM-Datei</source>
        <translation>Writes only the events of the map to the ROM file.</translation>
    </message>
    <message>
        <source>&amp;Save as ...</source>
        <translation>Save &amp;as…</translation>
    </message>
    <message>
        <source>Speichert die ROM mit den Änderungen unter einem neuen Namen</source>
        <translation>Saves the ROM with the changes under a new name.</translation>
    </message>
    <message>
        <source>&amp;Export Map</source>
        <translation>&amp;Export map…</translation>
    </message>
    <message>
        <source>Schreibt die Blöcke der Map in eine .map-Datei</source>
        <translation>Writes the blocks of the map to a .map file.</translation>
    </message>
    <message>
        <source>&amp;Import Map</source>
        <translation>&amp;Import map…</translation>
    </message>
    <message>
        <source>Übernimmt die Blöcke einer .map-Datei in die Map</source>
        <translation>Copies the blocks of a .map file into the map.</translation>
    </message>
    <message>
        <source>Standard &amp;File</source>
        <translation>Open standard &amp;file</translation>
    </message>
    <message>
        <source>Öffnet die Standard-Datei</source>
        <translation>Opens the standard file.</translation>
    </message>
    <message>
        <source>&amp;Load File as Standard</source>
        <translation>&amp;Use this ROM as standard file</translation>
    </message>
    <message>
        <source>Macht die geöffnete ROM zur Standard-Datei</source>
        <translation>Makes the open ROM the standard file.</translation>
    </message>
    <message>
        <source>&amp;Clear File</source>
        <translation>&amp;Clear standard file</translation>
    </message>
    <message>
        <source>Vergisst die Standard-Datei</source>
        <translation>Forgets the standard file.</translation>
    </message>
    <message>
        <source>Automatically load rom</source>
        <translation>Open standard file at start-up</translation>
    </message>
    <message>
        <source>Öffnet die Standard-Datei beim Start des Programms</source>
        <translation>Opens the standard file when the program starts.</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>E&amp;xit</translation>
    </message>
    <message>
        <source>Beendet Kartova</source>
        <translation>Quits Kartova.</translation>
    </message>
    <message>
        <source>&amp;Bearbeiten</source>
        <translation>&amp;Edit</translation>
    </message>
    <message>
        <source>Schritte rückgängig machen und wiederholen</source>
        <translation>Undoes and redoes steps.</translation>
    </message>
    <message>
        <source>&amp;Rückgängig</source>
        <translation>&amp;Undo</translation>
    </message>
    <message>
        <source>&amp;Wiederholen</source>
        <translation>&amp;Redo</translation>
    </message>
    <message>
        <source>&amp;Ansicht</source>
        <translation>&amp;View</translation>
    </message>
    <message>
        <source>Zoom, Seiten und Maps wechseln</source>
        <translation>Zooms, switches pages and changes maps.</translation>
    </message>
    <message>
        <source>Ver&amp;größern</source>
        <translation>Zoom &amp;in</translation>
    </message>
    <message>
        <source>Zeigt die Ansicht unter der Maus doppelt so groß</source>
        <translation>Shows the view under the mouse pointer at double size.</translation>
    </message>
    <message>
        <source>Ver&amp;kleinern</source>
        <translation>Zoom &amp;out</translation>
    </message>
    <message>
        <source>Zeigt die Ansicht unter der Maus in normaler Größe</source>
        <translation>Shows the view under the mouse pointer at normal size.</translation>
    </message>
    <message>
        <source>&amp;Map</source>
        <translation>&amp;Map</translation>
    </message>
    <message>
        <source>Zeigt die Seite &quot;Map&quot;</source>
        <translation>Shows the &quot;Map&quot; page.</translation>
    </message>
    <message>
        <source>&amp;Events</source>
        <translation>&amp;Events</translation>
    </message>
    <message>
        <source>Zeigt die Seite &quot;Events&quot;</source>
        <translation>Shows the &quot;Events&quot; page.</translation>
    </message>
    <message>
        <source>&amp;Wuselix data</source>
        <translation>&amp;Wuselix data</translation>
    </message>
    <message>
        <source>Zeigt die Seite &quot;Wuselix data&quot;</source>
        <translation>Shows the &quot;Wuselix data&quot; page.</translation>
    </message>
    <message>
        <source>Map&amp;header</source>
        <translation>Map &amp;header</translation>
    </message>
    <message>
        <source>Zeigt die Seite &quot;Mapheader&quot;</source>
        <translation>Shows the &quot;Map header&quot; page.</translation>
    </message>
    <message>
        <source>&amp;Nächste Map</source>
        <translation>&amp;Next map</translation>
    </message>
    <message>
        <source>Lädt die nächste Map der Mapbank</source>
        <translation>Loads the next map of the map bank.</translation>
    </message>
    <message>
        <source>&amp;Vorherige Map</source>
        <translation>&amp;Previous map</translation>
    </message>
    <message>
        <source>Lädt die vorherige Map der Mapbank</source>
        <translation>Loads the previous map of the map bank.</translation>
    </message>
    <message>
        <source>&amp;Options</source>
        <translation>&amp;Options</translation>
    </message>
    <message>
        <source>Zoom, Scrollen und Einstellungen</source>
        <translation>Zoom, scrolling and settings.</translation>
    </message>
    <message>
        <source>&amp;Map zoom</source>
        <translation>&amp;Map zoom</translation>
    </message>
    <message>
        <source>Zeigt die Map doppelt so groß</source>
        <translation>Shows the map at double size.</translation>
    </message>
    <message>
        <source>&amp;Event Mode Zoom</source>
        <translation>&amp;Event view zoom</translation>
    </message>
    <message>
        <source>Zeigt die Map auf der Seite &quot;Events&quot; doppelt so groß</source>
        <translation>Shows the map on the &quot;Events&quot; page at double size.</translation>
    </message>
    <message>
        <source>&amp;Tileset zoom</source>
        <translation>&amp;Tileset zoom</translation>
    </message>
    <message>
        <source>Zeigt die Blockauswahl doppelt so groß</source>
        <translation>Shows the block chooser at double size.</translation>
    </message>
    <message>
        <source>&amp;Scroll mode</source>
        <translation>&amp;Scroll mode</translation>
    </message>
    <message>
        <source>Wie das Ziehen mit der Maus die Event-Ansicht verschiebt</source>
        <translation>How dragging with the mouse scrolls the event view.</translation>
    </message>
    <message>
        <source>&amp;Dynamic</source>
        <translation>&amp;Dynamic</translation>
    </message>
    <message>
        <source>Die Ansicht läuft weiter, je weiter die Maus gezogen ist, desto schneller</source>
        <translation>The view keeps scrolling; the further the mouse is dragged, the faster it goes.</translation>
    </message>
    <message>
        <source>&amp;Static</source>
        <translation>&amp;Static</translation>
    </message>
    <message>
        <source>Die Map folgt der Maus</source>
        <translation>The map follows the mouse.</translation>
    </message>
    <message>
        <source>Scroll Speed</source>
        <translation>Scroll speed</translation>
    </message>
    <message>
        <source>Wie schnell das Ziehen mit der Maus die Event-Ansicht verschiebt</source>
        <translation>How fast dragging with the mouse scrolls the event view.</translation>
    </message>
    <message>
        <source>&amp;Fast</source>
        <translation>&amp;Fast</translation>
    </message>
    <message>
        <source>Verschiebt doppelt so schnell</source>
        <translation>Scrolls twice as fast.</translation>
    </message>
    <message>
        <source>&amp;Normal</source>
        <translation>&amp;Normal</translation>
    </message>
    <message>
        <source>Verschiebt in normaler Geschwindigkeit</source>
        <translation>Scrolls at normal speed.</translation>
    </message>
    <message>
        <source>&amp;Slow</source>
        <translation>&amp;Slow</translation>
    </message>
    <message>
        <source>Verschiebt halb so schnell</source>
        <translation>Scrolls half as fast.</translation>
    </message>
    <message>
        <source>&amp;Show Scroll Speed</source>
        <translation>&amp;Reverse direction</translation>
    </message>
    <message>
        <source>Kehrt die Richtung des Verschiebens um</source>
        <translation>Reverses the scrolling direction.</translation>
    </message>
    <message>
        <source>&amp;Show Dir Line</source>
        <translation>Show &amp;direction line</translation>
    </message>
    <message>
        <source>Zeigt beim Verschieben eine Linie vom Startpunkt zur Maus</source>
        <translation>While scrolling, shows a line from the starting point to the mouse.</translation>
    </message>
    <message>
        <source>Save Settings to</source>
        <translation>Save settings to</translation>
    </message>
    <message>
        <source>Wo die Einstellungen gespeichert werden (ab dem nächsten Start)</source>
        <translation>Where the settings are saved (from the next start on).</translation>
    </message>
    <message>
        <source>&amp;Registry</source>
        <translation>&amp;Settings store (registry)</translation>
    </message>
    <message>
        <source>Speichert die Einstellungen in der Registry des Benutzers</source>
        <translation>Saves the settings in the user&apos;s registry.</translation>
    </message>
    <message>
        <source>&amp;Kartova.ini</source>
        <translation>&amp;Kartova.ini</translation>
    </message>
    <message>
        <source>Speichert die Einstellungen in der Datei Kartova.ini</source>
        <translation>Saves the settings in the file Kartova.ini.</translation>
    </message>
    <message>
        <source>Sprache / Language</source>
        <translation>Sprache / Language</translation>
    </message>
    <message>
        <source>Die Sprache der Oberfläche (ab dem nächsten Start)</source>
        <translation>The language of the user interface (from the next start on).</translation>
    </message>
    <message>
        <source>Deutsch</source>
        <translation>Deutsch</translation>
    </message>
    <message>
        <source>Deutsche Oberfläche</source>
        <translation>German user interface.</translation>
    </message>
    <message>
        <source>English</source>
        <translation>English</translation>
    </message>
    <message>
        <source>Englische Oberfläche</source>
        <translation>English user interface.</translation>
    </message>
    <message>
        <source>Palette / Lighting</source>
        <translation>&amp;Lighting</translation>
    </message>
    <message>
        <source>Die Tageszeit, in deren Farben Map und Blöcke gezeigt werden</source>
        <translation>The time of day in whose colours the map and blocks are shown.</translation>
    </message>
    <message>
        <source>Auto</source>
        <translation>Auto</translation>
    </message>
    <message>
        <source>Die Farben, die der Header der Map vorgibt</source>
        <translation>The colours given by the map&apos;s header.</translation>
    </message>
    <message>
        <source>Morning</source>
        <translation>Morning</translation>
    </message>
    <message>
        <source>Die Farben des Morgens (Tageszeit 0)</source>
        <translation>The colours of the morning (time of day 0).</translation>
    </message>
    <message>
        <source>Mid-day</source>
        <translation>Day</translation>
    </message>
    <message>
        <source>Die Farben des Tages (Tageszeit 1)</source>
        <translation>The colours of the day (time of day 1).</translation>
    </message>
    <message>
        <source>Night / Cave</source>
        <translation>Night / cave</translation>
    </message>
    <message>
        <source>Die Farben der Nacht oder einer Höhle (Tageszeit 2)</source>
        <translation>The colours of the night or of a cave (time of day 2).</translation>
    </message>
    <message>
        <source>Darkness</source>
        <translation>Darkness</translation>
    </message>
    <message>
        <source>Die Farben der Dunkelheit (Tageszeit 3)</source>
        <translation>The colours of darkness (time of day 3).</translation>
    </message>
    <message>
        <source>???</source>
        <translation>???</translation>
    </message>
    <message>
        <source>Die Farben der Tageszeit 4</source>
        <translation>The colours of time of day 4.</translation>
    </message>
    <message>
        <source>Die Farben der Tageszeit 5</source>
        <translation>The colours of time of day 5.</translation>
    </message>
    <message>
        <source>Die Farben der Nacht oder einer Höhle (Tageszeit 6)</source>
        <translation>The colours of the night or of a cave (time of day 6).</translation>
    </message>
    <message>
        <source>Die Farben der Dunkelheit (Tageszeit 7)</source>
        <translation>The colours of darkness (time of day 7).</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Help</translation>
    </message>
    <message>
        <source>Über Kartova</source>
        <translation>Information about Kartova.</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>&amp;About Kartova</translation>
    </message>
    <message>
        <source>Zeigt Version und Autoren von Kartova</source>
        <translation>Shows the version and authors of Kartova.</translation>
    </message>
</context>
<context>
    <name>RuntimeError</name>
    <message>
        <source>Beim Öffnen von %1</source>
        <translation>While opening %1</translation>
    </message>
    <message>
        <source>Beim Lesen der Map-Bank-Tabelle aus %1</source>
        <translation>While reading the map bank table from %1</translation>
    </message>
    <message>
        <source>Beim Lesen der Ortsnamen aus %1</source>
        <translation>While reading the location names from %1</translation>
    </message>
    <message>
        <source>Beim Lesen der Map-Liste aus %1</source>
        <translation>While reading the map list from %1</translation>
    </message>
    <message>
        <source>Beim Lesen der Map-Header aus %1</source>
        <translation>While reading the map headers from %1</translation>
    </message>
    <message>
        <source>Beim Lesen des Tilesets aus %1</source>
        <translation>While reading the tileset from %1</translation>
    </message>
    <message>
        <source>Beim Lesen der Paletten aus %1</source>
        <translation>While reading the palettes from %1</translation>
    </message>
    <message>
        <source>Beim Lesen der Events aus %1</source>
        <translation>While reading the events from %1</translation>
    </message>
    <message>
        <source>Beim Aufbau der Map und ihrer Verbindungen aus %1</source>
        <translation>While building the map and its connections from %1</translation>
    </message>
    <message>
        <source>Beim Speichern in %1</source>
        <translation>While saving into %1</translation>
    </message>
    <message>
        <source>Beim Exportieren der Map nach %1</source>
        <translation>While exporting the map to %1</translation>
    </message>
    <message>
        <source>Beim Importieren der Map aus %1</source>
        <translation>While importing the map from %1</translation>
    </message>
    <message>
        <source>Bei der Arbeit mit %1</source>
        <translation>While working on %1</translation>
    </message>
    <message>
        <source>Tabelle bei 0x%1</source>
        <translation>table at 0x%1</translation>
    </message>
    <message>
        <source>Header bei 0x%1</source>
        <translation>header at 0x%1</translation>
    </message>
    <message>
        <source>Daten bei 0x%1</source>
        <translation>data at 0x%1</translation>
    </message>
    <message>
        <source>Datei: %1</source>
        <translation>File: %1</translation>
    </message>
    <message>
        <source>Laufzeitfehler: %1</source>
        <translation>Run-time error: %1</translation>
    </message>
</context>
<context>
    <name>kartova::AboutWindow</name>
    <message>
        <source>Über Kartova</source>
        <translation>About Kartova</translation>
    </message>
    <message>
        <source>Es wird keine Haftung für eventuelle Schäden jeglicher Art übernommen.</source>
        <translation>No liability is accepted for any damage of any kind.</translation>
    </message>
    <message>
        <source>Version 1.38 Final</source>
        <translation>Version 1.38 Final</translation>
    </message>
    <message>
        <source>Gesamte Programmierung und Design
2026 Das Kartova-Team</source>
        <translation>All programming and design
2026 The Kartova team</translation>
    </message>
    <message>
        <source>Unterstützte Roms:</source>
        <translation>Supported ROMs:</translation>
    </message>
    <message>
        <source>Jede Edition mit einer Rom-Definition
(Kartova.ini oder Registry)</source>
        <translation>Any edition with a ROM definition
(Kartova.ini or registry)</translation>
    </message>
    <message>
        <source>Sprachversionen:</source>
        <translation>Language versions:</translation>
    </message>
    <message>
        <source>Deutsch</source>
        <translation>German, English</translation>
    </message>
</context>
<context>
    <name>kartova::ConnectionFrame</name>
    <message>
        <source>(Oben)</source>
        <translation>(Top)</translation>
    </message>
    <message>
        <source>(Unten)</source>
        <translation>(Bottom)</translation>
    </message>
    <message>
        <source>(Links)</source>
        <translation>(Left)</translation>
    </message>
    <message>
        <source>(Rechts)</source>
        <translation>(Right)</translation>
    </message>
    <message>
        <source>Ziel zeigen</source>
        <translation>Show target</translation>
    </message>
    <message>
        <source>Fenster zeigen</source>
        <translation>Show window</translation>
    </message>
    <message>
        <source>Quelle zeigen</source>
        <translation>Show source</translation>
    </message>
    <message>
        <source>Anbindungen</source>
        <translation>Connections</translation>
    </message>
    <message>
        <source>Vorhandene Anbindungen der geladenen Map</source>
        <translation>Existing connections of the loaded map</translation>
    </message>
    <message>
        <source>Map: B/N</source>
        <translation>Map: B/N</translation>
    </message>
    <message>
        <source>Sichtteil:</source>
        <translation>Strip:</translation>
    </message>
    <message>
        <source>Map-Breite:</source>
        <translation>Map width:</translation>
    </message>
    <message>
        <source>Wechsel:</source>
        <translation>Shift:</translation>
    </message>
    <message>
        <source>Fenster:</source>
        <translation>Window:</translation>
    </message>
    <message>
        <source>Vorhanden:</source>
        <translation>Existing:</translation>
    </message>
</context>
<context>
    <name>kartova::EventPage</name>
    <message>
        <source>Daten</source>
        <translation>Data</translation>
    </message>
    <message>
        <source>Warp</source>
        <translation>Warp</translation>
    </message>
    <message>
        <source>Trigger</source>
        <translation>Trigger</translation>
    </message>
    <message>
        <source>Sign</source>
        <translation>Sign</translation>
    </message>
    <message>
        <source>People</source>
        <translation>People</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Enter</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Time</translation>
    </message>
    <message>
        <source>Warp </source>
        <translation>Warp </translation>
    </message>
    <message>
        <source>Trigger </source>
        <translation>Trigger </translation>
    </message>
    <message>
        <source>Signpost </source>
        <translation>Sign </translation>
    </message>
    <message>
        <source>People </source>
        <translation>Person </translation>
    </message>
    <message>
        <source>Enter-Script </source>
        <translation>Enter script </translation>
    </message>
    <message>
        <source>Time-Script </source>
        <translation>Time script </translation>
    </message>
</context>
<context>
    <name>kartova::EventViewController</name>
    <message>
        <source>Das Alphablending ist fehlgeschlagen</source>
        <translation>Alpha blending failed</translation>
    </message>
</context>
<context>
    <name>kartova::HeaderPage</name>
    <message>
        <source>Oben</source>
        <translation>Top</translation>
    </message>
    <message>
        <source>Unten</source>
        <translation>Bottom</translation>
    </message>
    <message>
        <source>Links</source>
        <translation>Left</translation>
    </message>
    <message>
        <source>Rechts</source>
        <translation>Right</translation>
    </message>
    <message>
        <source>Primary Mapheader</source>
        <translation>Primary map header</translation>
    </message>
    <message>
        <source>Bank:</source>
        <translation>Bank:</translation>
    </message>
    <message>
        <source>Tileset:</source>
        <translation>Tileset:</translation>
    </message>
    <message>
        <source>Spite Set</source>
        <translation>Sprite set</translation>
    </message>
    <message>
        <source>Point:</source>
        <translation>Pointer:</translation>
    </message>
    <message>
        <source>Title:</source>
        <translation>Location name:</translation>
    </message>
    <message>
        <source>Music:</source>
        <translation>Music:</translation>
    </message>
    <message>
        <source>Lighting</source>
        <translation>Lighting</translation>
    </message>
    <message>
        <source>Byte-Nr.:</source>
        <translation>Byte no.:</translation>
    </message>
    <message>
        <source>Secondary Map Header</source>
        <translation>Secondary map header</translation>
    </message>
    <message>
        <source>Border:</source>
        <translation>Border block:</translation>
    </message>
    <message>
        <source>size:</source>
        <translation>Size:</translation>
    </message>
    <message>
        <source> X / Y</source>
        <translation> X / Y</translation>
    </message>
    <message>
        <source>Map-Pointer:</source>
        <translation>Map pointer:</translation>
    </message>
    <message>
        <source>Script: (2)</source>
        <translation>Script: (2)</translation>
    </message>
    <message>
        <source>Event: (2)</source>
        <translation>Event: (2)</translation>
    </message>
    <message>
        <source>Links:</source>
        <translation>Connections:</translation>
    </message>
</context>
<context>
    <name>kartova::LinkDataFrame</name>
    <message>
        <source>X:</source>
        <translation>X:</translation>
    </message>
    <message>
        <source>Y:</source>
        <translation>Y:</translation>
    </message>
    <message>
        <source>Block-Pointer:</source>
        <translation>Block pointer:</translation>
    </message>
    <message>
        <source>RAM-Adresse:</source>
        <translation>RAM address:</translation>
    </message>
    <message>
        <source>Map Link Data</source>
        <translation>Map link data</translation>
    </message>
</context>
<context>
    <name>kartova::MainWindow</name>
    <message>
        <source>Rom Speichern Unter</source>
        <translation>Save ROM as</translation>
    </message>
    <message>
        <source>Alle Gameboy-Roms (*.gb*)|*.gbc;*.gb*|Backup-Dateien (*.bak;*.old)|*.bak;*.old|Alle Dateien (*.*)|*.*</source>
        <translation>All Game Boy ROMs (*.gb*)|*.gbc;*.gb*|Backup files (*.bak;*.old)|*.bak;*.old|All files (*.*)|*.*</translation>
    </message>
    <message>
        <source>Map Exportieren</source>
        <translation>Export map</translation>
    </message>
    <message>
        <source>Map Importieren</source>
        <translation>Import map</translation>
    </message>
    <message>
        <source>Map-Dateien (*.map)|*.map|Alle Dateien (*.*)|*.*</source>
        <translation>Map files (*.map)|*.map|All files (*.*)|*.*</translation>
    </message>
    <message>
        <source>Änderungen speichern?</source>
        <translation>Save changes?</translation>
    </message>
    <message>
        <source>Die Datei &quot;%1&quot; wurde seit dem Laden der Map von einem anderen Programm verändert. Trotzdem speichern?

Geschrieben werden nur die Header, Blöcke und Events dieser Map; alles andere bleibt, wie es in der Datei steht.</source>
        <translation>The file &quot;%1&quot; has been changed by another program since the map was loaded. Save anyway?

Only the headers, blocks and events of this map are written; everything else stays as it is in the file.</translation>
    </message>
    <message>
        <source>Die Datei &quot;%1&quot; konnte nicht gespeichert werden.</source>
        <translation>The file &quot;%1&quot; could not be saved.</translation>
    </message>
    <message>
        <source>Die Map konnte nicht nach &quot;%1&quot; exportiert werden.</source>
        <translation>The map could not be exported to &quot;%1&quot;.</translation>
    </message>
    <message>
        <source>Die Map &quot;%1&quot; konnte nicht importiert werden.</source>
        <translation>The map &quot;%1&quot; could not be imported.</translation>
    </message>
    <message>
        <source>Grund: %1</source>
        <translation>Reason: %1</translation>
    </message>
    <message>
        <source>Datei: %1</source>
        <translation>File: %1</translation>
    </message>
    <message>
        <source> Map </source>
        <translation> Map </translation>
    </message>
    <message>
        <source> Events </source>
        <translation> Events </translation>
    </message>
    <message>
        <source> Wuselix data </source>
        <translation> Wuselix data </translation>
    </message>
    <message>
        <source> Mapheader </source>
        <translation> Map header </translation>
    </message>
    <message>
        <source>Änderungen übernehmen?</source>
        <translation>Apply changes?</translation>
    </message>
    <message>
        <source>Damit die Änderungen sichtbar werden, müssen sie jetzt übernommen werden. Dazu werden alle Daten außer den Headern neu aus dem Rom geladen. &apos;Nein&apos; stellt den Ursprungszustand der Daten wieder her.</source>
        <translation>For the changes to become visible, they have to be applied now. To do so, all data except the headers is reloaded from the ROM. &apos;No&apos; restores the data to its original state.</translation>
    </message>
    <message>
        <source>X: </source>
        <translation>X: </translation>
    </message>
    <message>
        <source>Y: </source>
        <translation>Y: </translation>
    </message>
    <message>
        <source>Nicht eindeutiger Eigenschaften-Pfad. Registry wurde als Standard-Source gesetzt.</source>
        <translation>Ambiguous settings location. The registry has been set as the default settings store.</translation>
    </message>
    <message>
        <source>Änderungen werden erst beim nächsten Neustart von Kartova sichtbar.</source>
        <translation>The changes will take effect the next time Kartova is started.</translation>
    </message>
    <message>
        <source>Die Sprache wird beim nächsten Start gewechselt.
The language will change at the next start.</source>
        <translation>Die Sprache wird beim nächsten Start gewechselt.
The language will change at the next start.</translation>
    </message>
    <message>
        <source> (Standard)</source>
        <translation> (standard file)</translation>
    </message>
    <message>
        <source>Rom Öffnen</source>
        <translation>Open ROM</translation>
    </message>
    <message>
        <source>Alle Gameboy-Roms (*.gb*)|*.gb*|Backup-Dateien (*.bak;*.old)|*.bak;*.old|Alle Dateien (*.*)|*.*</source>
        <translation>All Game Boy ROMs (*.gb*)|*.gb*|Backup files (*.bak;*.old)|*.bak;*.old|All files (*.*)|*.*</translation>
    </message>
    <message>
        <source>Keine Datei geladen.</source>
        <translation>No file loaded.</translation>
    </message>
    <message>
        <source>Beim Öffnen der ROM-Datei %1</source>
        <translation>While opening the ROM file %1</translation>
    </message>
</context>
<context>
    <name>kartova::MapNavigator</name>
    <message>
        <source>Fehler: Ziel-Map (%1.%2) existiert nicht.</source>
        <translation>Error: target map (%1.%2) does not exist.</translation>
    </message>
    <message>
        <source>Fehler: Ziel-Bank (%1) existiert nicht.</source>
        <translation>Error: target bank (%1) does not exist.</translation>
    </message>
    <message>
        <source>Achtung: Die ROM-Datei endet vor den Daten dieser Map (gekürzte Datei?); was dahinter liegt, konnte nicht gelesen werden.</source>
        <translation>Warning: the ROM file ends before the data of this map (a truncated file?); what lies beyond its end could not be read.</translation>
    </message>
</context>
<context>
    <name>kartova::MapPage</name>
    <message>
        <source>Keine ROM geöffnet.
Über File → Load Rom ... (Strg+O) öffnen oder per Drag &amp; Drop eine ROM-Datei (*.gb, *.gbc) auf das Fenster ziehen.</source>
        <translation>No ROM open.
Open one with File → Open ROM… (Ctrl+O), or drag &amp; drop a ROM file (*.gb, *.gbc) onto the window.</translation>
    </message>
</context>
<context>
    <name>kartova::MapSelector</name>
    <message>
        <source>Mapbank %1</source>
        <translation>Map bank %1</translation>
    </message>
</context>
<context>
    <name>kartova::RecentFiles</name>
    <message>
        <source>(leer)</source>
        <translation>(empty)</translation>
    </message>
    <message>
        <source>%1 (nicht gefunden)</source>
        <translation>%1 (not found)</translation>
    </message>
    <message>
        <source>Liste leeren</source>
        <translation>&amp;Clear list</translation>
    </message>
    <message>
        <source>Entfernt alle Einträge aus dieser Liste</source>
        <translation>Removes all entries from this list.</translation>
    </message>
</context>
<context>
    <name>kartova::WuselixPage</name>
    <message>
        <source>Morgens</source>
        <translation>Morning</translation>
    </message>
    <message>
        <source>Tags</source>
        <translation>Day</translation>
    </message>
    <message>
        <source>Abends</source>
        <translation>Night</translation>
    </message>
    <message>
        <source>Abschnitte</source>
        <translation>Sections</translation>
    </message>
    <message>
        <source>Tageszeit</source>
        <translation>Time of day</translation>
    </message>
    <message>
        <source>Wuselix</source>
        <translation>Wuselix</translation>
    </message>
</context>
</TS>
