#include "ui/Language.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>
#include <memory>
#include <vector>

#include "settings/SettingsStore.h"

namespace kartova {
namespace {

UiLanguage g_language = UiLanguage::kGerman;

std::vector<std::unique_ptr<QTranslator>>& Installed() {
  static std::vector<std::unique_ptr<QTranslator>> translators;
  return translators;
}

void Install(const QString& name, const QString& directory) {
  auto translator = std::make_unique<QTranslator>();
  if (!translator->load(name, directory)) return;
  QCoreApplication::installTranslator(translator.get());
  Installed().push_back(std::move(translator));
}

}  // namespace

UiLanguage LanguageSetting(SettingsStore& settings) {
  const int kind = settings.kind();
  settings.set_kind(settings.PeekBackEnd());
  const std::string code = settings.ReadSetting(kLanguageSection, kLanguageKey, "de");
  settings.set_kind(kind);
  return code == "en" ? UiLanguage::kEnglish : UiLanguage::kGerman;
}

QString LanguageCode(UiLanguage language) {
  return language == UiLanguage::kEnglish ? QStringLiteral("en") : QStringLiteral("de");
}

void InstallLanguage(UiLanguage language) {
  for (const auto& translator : Installed()) QCoreApplication::removeTranslator(translator.get());
  Installed().clear();
  g_language = language;
  const QString code = LanguageCode(language);
  // Qt's own texts: its buttons and dialogs speak the language of the editor.
  Install(QStringLiteral("qtbase_") + code, QLibraryInfo::path(QLibraryInfo::TranslationsPath));
  // The editor's texts are German in the source; only English needs a translation. It is built
  // into the program.
  if (language == UiLanguage::kEnglish) Install(QStringLiteral("kartova_en"), QStringLiteral(":/i18n"));
}

UiLanguage CurrentLanguage() { return g_language; }

}  // namespace kartova
