#pragma once

#include <QString>

namespace kartova {

class SettingsStore;

// The language of the ui. German is the editor's own; English is a translation of it. The
// choice is read once at start-up, before the first widget is built, and stays for the run.
enum class UiLanguage { kGerman, kEnglish };

// Where the choice is kept: section "Settings", key "Language", "de" or "en".
inline constexpr const char* kLanguageSection = "Settings";
inline constexpr const char* kLanguageKey = "Language";

// The language the settings ask for, read from the back end start-up would choose (the store's
// own choice of back end is left alone). Anything but "en" is German.
UiLanguage LanguageSetting(SettingsStore& settings);
QString LanguageCode(UiLanguage language);

// Installs the editor's translation and Qt's own (standard buttons, file dialogs) for the
// language, replacing what an earlier call installed. A translation that cannot be found leaves
// those texts as they are in the source: German for the editor, English for Qt.
void InstallLanguage(UiLanguage language);
// The language of the last InstallLanguage (German before the first).
UiLanguage CurrentLanguage();

}  // namespace kartova
