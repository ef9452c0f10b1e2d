#pragma once

#include <QString>
#include <string>

namespace kartova {

// Texts the core hands to the ui in German (field labels, the names of the steps of the edit
// history, list prefixes), in the language of the ui: the translation context "CoreText"
// holds them, so that the translation tools find every one of them in CoreTexts.cpp.
QString CoreText(const std::string& german);
QString CoreText(const char* german);

}  // namespace kartova
