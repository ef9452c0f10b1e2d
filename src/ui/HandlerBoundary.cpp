#include "ui/HandlerBoundary.h"

#include <QCoreApplication>
#include <QFileInfo>

#include "ui/CoreTexts.h"

namespace kartova {
namespace {

QString Tr(const char* text) { return QCoreApplication::translate("RuntimeError", text); }

// What was being done; %1 is the file's name.
QString ActivityText(ErrorActivity activity) {
  switch (activity) {
    case ErrorActivity::kOpeningRom:
      return Tr(QT_TRANSLATE_NOOP("RuntimeError", "Beim Öffnen von %1"));
    case ErrorActivity::kReadingMapBankTable:
      return Tr(QT_TRANSLATE_NOOP("RuntimeError", "Beim Lesen der Map-Bank-Tabelle aus %1"));
    case ErrorActivity::kReadingLocationNames:
      return Tr(QT_TRANSLATE_NOOP("RuntimeError", "Beim Lesen der Ortsnamen aus %1"));
    case ErrorActivity::kReadingMapList:
      return Tr(QT_TRANSLATE_NOOP("RuntimeError", "Beim Lesen der Map-Liste aus %1"));
    case ErrorActivity::kReadingHeaders:
      return Tr(QT_TRANSLATE_NOOP("RuntimeError", "Beim Lesen der Map-Header aus %1"));
    case ErrorActivity::kReadingTileset:
      return Tr(QT_TRANSLATE_NOOP("RuntimeError", "Beim Lesen des Tilesets aus %1"));
    case ErrorActivity::kReadingPalettes:
      return Tr(QT_TRANSLATE_NOOP("RuntimeError", "Beim Lesen der Paletten aus %1"));
    case ErrorActivity::kReadingEvents:
      return Tr(QT_TRANSLATE_NOOP("RuntimeError", "Beim Lesen der Events aus %1"));
    case ErrorActivity::kBuildingMap:
      return Tr(QT_TRANSLATE_NOOP("RuntimeError", "Beim Aufbau der Map und ihrer Verbindungen aus %1"));
    case ErrorActivity::kSaving:
      return Tr(QT_TRANSLATE_NOOP("RuntimeError", "Beim Speichern in %1"));
    case ErrorActivity::kExportingMap:
      return Tr(QT_TRANSLATE_NOOP("RuntimeError", "Beim Exportieren der Map nach %1"));
    case ErrorActivity::kImportingMap:
      return Tr(QT_TRANSLATE_NOOP("RuntimeError", "Beim Importieren der Map aus %1"));
    case ErrorActivity::kNone:
      break;
  }
  return Tr(QT_TRANSLATE_NOOP("RuntimeError", "Bei der Arbeit mit %1"));
}

// Where in the file; %1 is the offset in hex.
QString PlaceText(ErrorActivity activity) {
  switch (activity) {
    case ErrorActivity::kReadingMapBankTable:
    case ErrorActivity::kReadingLocationNames:
    case ErrorActivity::kReadingMapList:
      return Tr(QT_TRANSLATE_NOOP("RuntimeError", "Tabelle bei 0x%1"));
    case ErrorActivity::kReadingHeaders:
      return Tr(QT_TRANSLATE_NOOP("RuntimeError", "Header bei 0x%1"));
    default:
      return Tr(QT_TRANSLATE_NOOP("RuntimeError", "Daten bei 0x%1"));
  }
}

}  // namespace

// The German box shows the core's message exactly as the core writes it.
QString RuntimeErrorText(const RuntimeError& error) { return CoreText(error.GermanMessage()); }

QString RuntimeErrorDetail(const RuntimeError& error) {
  const std::optional<ErrorContext>& context = error.context();
  if (!context || context->file.empty()) return {};
  const QString path = QString::fromStdString(context->file);
  QString text = ActivityText(context->activity).arg(QFileInfo(path).fileName());
  if (context->offset) {
    const QString hex = QStringLiteral("%1").arg(*context->offset, 6, 16, QLatin1Char('0')).toUpper();
    text += QStringLiteral(", ") + PlaceText(context->activity).arg(hex);
  }
  return text + QStringLiteral("\n") + Tr(QT_TRANSLATE_NOOP("RuntimeError", "Datei: %1")).arg(path);
}

void ShowRuntimeError(Prompter& prompter, const RuntimeError& error) {
  prompter.Message(RuntimeErrorText(error), kMessageTitle, Prompter::Buttons::kOk, Prompter::Icon::kNone,
                   RuntimeErrorDetail(error));
}

void ShowUnexpectedError(Prompter& prompter, const std::exception& error) {
  prompter.Message(Tr(QT_TRANSLATE_NOOP("RuntimeError", "Laufzeitfehler: %1")).arg(QString::fromLocal8Bit(error.what())),
                   kMessageTitle, Prompter::Buttons::kOk, Prompter::Icon::kCritical);
}

}  // namespace kartova
