#include "ui/HandlerBoundary.h"

namespace kartova {

void ShowRuntimeError(Prompter& prompter, const RuntimeError& error) {
  prompter.Message(QString::fromStdString(error.GermanMessage()));
}

void ShowUnexpectedError(Prompter& prompter, const std::exception& error) {
  prompter.Message(QStringLiteral("Laufzeitfehler: %1").arg(QString::fromLocal8Bit(error.what())),
                   kMessageTitle, Prompter::Buttons::kOk, Prompter::Icon::kCritical);
}

}  // namespace kartova
