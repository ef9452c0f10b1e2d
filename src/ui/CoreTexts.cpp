#include "ui/CoreTexts.h"

#include <QCoreApplication>

namespace kartova {
namespace {

// Every text of the core that reaches the screen, marked for the translation tools. A text
// that is not listed here is shown as the core wrote it.
[[maybe_unused]] constexpr const char* kCoreTexts[] = {
    QT_TRANSLATE_NOOP("CoreText", "X-Position:"),
};

}  // namespace

QString CoreText(const std::string& german) {
  return QCoreApplication::translate("CoreText", german.c_str());
}

QString CoreText(const char* german) { return QCoreApplication::translate("CoreText", german); }

}  // namespace kartova
