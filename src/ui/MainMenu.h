#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <functional>

class QAction;
class QMenu;
class QMenuBar;
class QObject;

namespace kartova {

// The main window's menu bar. Every item carries its form name as objectName (`mnuSave`,
// `mnuDay0`, ...); a submenu's QMenu and its entry in the parent menu both carry the name.
// Items are created with their design-time captions, check marks and enabled states, their
// status tips and their keys; their behaviour is connected by the main window. Captions and
// tips are translated in the context "MainMenu".
class MainMenu {
 public:
  explicit MainMenu(QMenuBar* bar);

  // The item of that form name; nullptr for an unknown name.
  QAction* Item(const QString& name) const;
  // The submenu of that form name (mnuFile, mnuSave, mnuScrSpeed, ...); nullptr if none.
  QMenu* Submenu(const QString& name) const;
  QStringList ItemNames() const;

  // Shorthands for the form's Checked and Enabled properties.
  bool Checked(const QString& name) const;
  void SetChecked(const QString& name, bool checked);
  bool Enabled(const QString& name) const;
  void SetEnabled(const QString& name, bool enabled);

  // Connects the item's click. Qt has already flipped a checkable item's mark when it reports
  // the trigger; the mark is put back first, so that handlers see and set the check mark the
  // way the form's click handlers always have. context ends the connection with its life.
  void OnClick(const QString& name, const QObject* context, std::function<void()> handler);

 private:
  void Build(QMenuBar* bar);

  QHash<QString, QAction*> items_;
  QHash<QString, QMenu*> menus_;
};

}  // namespace kartova
