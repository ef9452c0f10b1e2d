#include "ui/QtPrompter.h"

#include <QDesktopServices>
#include <QFileDialog>
#include <QAbstractButton>
#include <QMessageBox>
#include <QUrl>

#include "ui/Language.h"

namespace kartova {
namespace {

QMessageBox::StandardButtons ToQt(Prompter::Buttons buttons) {
  switch (buttons) {
    case Prompter::Buttons::kOk:
      return QMessageBox::Ok;
    case Prompter::Buttons::kOkCancel:
      return QMessageBox::Ok | QMessageBox::Cancel;
    case Prompter::Buttons::kYesNo:
      return QMessageBox::Yes | QMessageBox::No;
    case Prompter::Buttons::kYesNoCancel:
      return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case Prompter::Buttons::kRetryCancel:
      return QMessageBox::Retry | QMessageBox::Cancel;
  }
  return QMessageBox::Ok;
}

QMessageBox::Icon ToQt(Prompter::Icon icon) {
  switch (icon) {
    case Prompter::Icon::kNone:
      return QMessageBox::NoIcon;
    case Prompter::Icon::kCritical:
      return QMessageBox::Critical;
    case Prompter::Icon::kQuestion:
      return QMessageBox::Question;
    case Prompter::Icon::kExclamation:
      return QMessageBox::Warning;
    case Prompter::Icon::kInformation:
      return QMessageBox::Information;
  }
  return QMessageBox::NoIcon;
}

// Closing a box with Escape or its close button gives the answer that cancels it.
Prompter::Answer FromQt(int button, Prompter::Buttons buttons) {
  switch (button) {
    case QMessageBox::Ok:
      return Prompter::Answer::kOk;
    case QMessageBox::Yes:
      return Prompter::Answer::kYes;
    case QMessageBox::No:
      return Prompter::Answer::kNo;
    case QMessageBox::Retry:
      return Prompter::Answer::kRetry;
    case QMessageBox::Cancel:
      return Prompter::Answer::kCancel;
    default:
      break;
  }
  if (buttons == Prompter::Buttons::kOk) return Prompter::Answer::kOk;
  if (buttons == Prompter::Buttons::kYesNo) return Prompter::Answer::kNo;
  return Prompter::Answer::kCancel;
}

std::optional<QString> Chosen(const QString& path) {
  if (path.isEmpty()) return std::nullopt;
  return path;
}

}  // namespace

Prompter::Answer QtPrompter::Message(const QString& text, const QString& title, Buttons buttons,
                                     Icon icon, const QString& detail) {
  QMessageBox box(ToQt(icon), title, text, ToQt(buttons), parent_);
  if (!detail.isEmpty()) box.setDetailedText(detail);
  // A German question gets German buttons even where Qt's own German translation is not
  // installed; in English, Qt's captions are the right ones.
  if (CurrentLanguage() == UiLanguage::kGerman) {
    const std::pair<QMessageBox::StandardButton, const char*> kGermanButtons[] = {
        {QMessageBox::Yes, "&Ja"}, {QMessageBox::No, "&Nein"}, {QMessageBox::Cancel, "Abbrechen"},
        {QMessageBox::Retry, "&Wiederholen"}};
    for (const auto& [button, caption] : kGermanButtons)
      if (QAbstractButton* shown = box.button(button)) shown->setText(QString::fromUtf8(caption));
  }
  return FromQt(box.exec(), buttons);
}

std::optional<QString> QtPrompter::OpenFile(const QString& title, const QString& start_dir,
                                            const QStringList& name_filters) {
  return Chosen(QFileDialog::getOpenFileName(parent_, title, start_dir,
                                             name_filters.join(QStringLiteral(";;"))));
}

std::optional<QString> QtPrompter::SaveFile(const QString& title, const QString& start_dir,
                                            const QStringList& name_filters) {
  // The editor copies onto the chosen path itself, so the dialog's own overwrite question
  // would only ask twice.
  return Chosen(QFileDialog::getSaveFileName(parent_, title, start_dir,
                                             name_filters.join(QStringLiteral(";;")), nullptr,
                                             QFileDialog::DontConfirmOverwrite));
}

void QtPrompter::OpenDocument(const QString& url) { QDesktopServices::openUrl(QUrl(url)); }

}  // namespace kartova
