#pragma once

class QComboBox;

namespace kartova {

// Widens the drop-down list of combo so that its longest entry fits, measured with the main
// window's font; the list is never narrower than the combo itself. Called after every refill of
// a header combo. Returns the width given to the list, in pixels.
int FitComboDropDown(QComboBox& combo);

}  // namespace kartova
