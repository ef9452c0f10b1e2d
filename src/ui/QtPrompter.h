#pragma once

#include <QPointer>
#include <QWidget>

#include "ui/Prompter.h"

namespace kartova {

// The real dialogs: QMessageBox, QFileDialog and the desktop's URL handler.
class QtPrompter : public Prompter {
 public:
  // The window the dialogs are centred on and modal to; may be set after construction.
  void set_parent(QWidget* parent) { parent_ = parent; }

  Answer Message(const QString& text, const QString& title, Buttons buttons, Icon icon,
                 const QString& detail) override;
  std::optional<QString> OpenFile(const QString& title, const QString& start_dir,
                                  const QStringList& name_filters) override;
  std::optional<QString> SaveFile(const QString& title, const QString& start_dir,
                                  const QStringList& name_filters) override;
  void OpenDocument(const QString& url) override;

 private:
  QPointer<QWidget> parent_;
};

}  // namespace kartova
