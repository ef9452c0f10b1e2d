#pragma once

#include <QString>

namespace kartova {

// The tooltips of the fields of the header page and the event page. Each tip has two lines:
// where the bytes a field edits stand ("Primärer Header, Byte 5", "Warp-Eintrag, Byte 2"), then
// what the game or the editor does with them. Where only the editor's use of a byte is known,
// the tip says no more than that. The German texts are the sources of the translation context
// "FieldTips"; every function returns them in the language of the ui, and an empty text for a
// number that names no field.

// Header(0)..Header(19): 0..10 the primary and secondary header boxes, 11..19 the boxes of the
// connection record. Header(2) shows byte 8 while the extra-byte selector is 0, else byte
// 8 + extra_byte; its tip follows.
QString HeaderBoxTip(int box, int extra_byte = 0);
// HCombo(0)..HCombo(4).
QString HeaderComboTip(int combo);
// UpDown9, the choice of the byte Header(2) shows.
QString ExtraByteSelectorTip();
// Con(0)..Con(3) and ConSel(0)..ConSel(3), direction 0 north .. 3 east.
QString ConnectionCheckTip(int direction);
QString ConnectionSelectorTip(int direction);
// Command2..Command4, the position buttons.
QString PositionButtonTip(int command);
// Text6..Text10 of the "Map Link Data" frame.
QString LinkDataTip(int text_number);
// Text(1)..Text(33) of the event page (no 28).
QString EventFieldTip(int text_index);

}  // namespace kartova
