#pragma once

#include <QString>
#include <QStringList>
#include <optional>

namespace kartova {

// The title of the editor's message boxes when a message names none.
inline constexpr const char* kMessageTitle = "Kartova";

// Every message box, file dialog and shell call of the editor goes through this interface, so
// that a test can answer them without a dialog ever blocking.
class Prompter {
 public:
  enum class Buttons { kOk, kOkCancel, kYesNo, kYesNoCancel, kRetryCancel };
  enum class Icon { kNone, kCritical, kQuestion, kExclamation, kInformation };
  enum class Answer { kOk, kCancel, kYes, kNo, kRetry };

  virtual ~Prompter() = default;

  // detail, when given, is shown below the text on request (what was being done, on which
  // file); the text itself stays the box's message.
  virtual Answer Message(const QString& text, const QString& title = kMessageTitle,
                         Buttons buttons = Buttons::kOk, Icon icon = Icon::kNone,
                         const QString& detail = QString()) = 0;

  // name_filters in Qt's form ("Map-Dateien (*.map)"); nullopt when the user cancels.
  virtual std::optional<QString> OpenFile(const QString& title, const QString& start_dir,
                                          const QStringList& name_filters) = 0;
  virtual std::optional<QString> SaveFile(const QString& title, const QString& start_dir,
                                          const QStringList& name_filters) = 0;

  // Hands a mailto: or http:// address to the desktop's default handler; the result is not
  // checked.
  virtual void OpenDocument(const QString& url) = 0;
};

// Turns a classic dialog filter ("Text (*.a)|*.a;*.b|All (*.*)|*.*") into Qt name filters
// ("Text (*.a *.b)", "All (*.*)"): the pattern half wins over whatever the description shows.
QStringList QtNameFilters(const QString& classic_filter);

}  // namespace kartova
