#pragma once

#include <QDialog>
#include <QPoint>

class QLabel;

namespace kartova {

class Prompter;

// The borderless information window of the help menu: version, credits, supported ROMs and
// languages, a disclaimer, a mail link and web links. Any part of its surface drags it with the
// left button; a plain click on the surface closes it; the links open through the Prompter
// and leave it open.
class AboutWindow : public QDialog {
  Q_OBJECT

 public:
  explicit AboutWindow(Prompter& prompter, QWidget* parent = nullptr);

  // The mail address, put together when the window loads.
  const QString& mail_address() const { return mail_address_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  QLabel* AddLabel(const QString& name, const QString& text, QWidget* parent);
  QLabel* AddLink(const QString& name, const QString& text, QWidget* parent);
  void BuildContents();
  QWidget* BuildHeading(QWidget* parent);
  QWidget* BuildInformation(QWidget* parent);
  QWidget* BuildLinks(QWidget* parent);

  // The surface's mouse: press, move and release at global positions.
  void PressSurface(Qt::MouseButton button, QPoint global);
  void MoveSurface(QPoint global);
  void ReleaseSurface(Qt::MouseButton button);
  void ClickLink(const QLabel* link);

  Prompter& prompter_;
  QString mail_address_;
  QLabel* mail_ = nullptr;
  bool pressed_ = false;
  bool dragged_ = false;
  QPoint press_global_;
  QPoint press_window_pos_;
};

}  // namespace kartova
