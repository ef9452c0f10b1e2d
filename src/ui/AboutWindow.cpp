#include "ui/AboutWindow.h"

#include <QApplication>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QVBoxLayout>
#include <QWindow>

#include "ui/Prompter.h"

namespace kartova {
namespace {

constexpr const char* kLinkProperty = "kartovaLink";

const char* const kLinkCaptions[] = {"kartova.example.org/", "kartova.example.org/hilfe"};

QFrame* NewFrame(const QString& name, QWidget* parent) {
  auto* frame = new QFrame(parent);
  frame->setObjectName(name);
  frame->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
  return frame;
}

// The decoration: one block of a small map in the handheld's four greens, a path crossing
// grass.
QPixmap DecorationPicture() {
  constexpr int kTile = 12;
  const QColor shades[] = {QColor(0xE0, 0xF8, 0xD0), QColor(0x88, 0xC0, 0x70),
                           QColor(0x34, 0x68, 0x56), QColor(0x08, 0x18, 0x20)};
  const char* const rows[] = {"1121", "1222", "0000", "2212", "1211", "2112"};
  QPixmap picture(4 * kTile * 2, 6 * kTile);
  QPainter painter(&picture);
  for (int y = 0; y < 6; ++y) {
    for (int x = 0; x < 8; ++x) {
      const int shade = rows[y][x % 4] - '0';
      painter.fillRect(x * kTile, y * kTile, kTile, kTile, shades[shade]);
      if (shade == 2) painter.fillRect(x * kTile + 4, y * kTile + 3, 4, 5, shades[3]);
    }
  }
  painter.setPen(shades[3]);
  painter.drawRect(picture.rect().adjusted(0, 0, -1, -1));
  return picture;
}

}  // namespace

AboutWindow::AboutWindow(Prompter& prompter, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint), prompter_(prompter) {
  setObjectName(QStringLiteral("AboutWindow"));
  setWindowTitle(tr("Über Kartova"));
  setModal(true);
  // Put together here rather than written out, so that the address is no plain text in the
  // program file.
  mail_address_ = QStringLiteral("kartova") + QLatin1Char('@') + QStringLiteral("example.org");
  BuildContents();
}

QLabel* AboutWindow::AddLabel(const QString& name, const QString& text, QWidget* parent) {
  auto* label = new QLabel(text, parent);
  label->setObjectName(name);
  label->installEventFilter(this);
  return label;
}

QLabel* AboutWindow::AddLink(const QString& name, const QString& text, QWidget* parent) {
  auto* label = new QLabel(text, parent);
  label->setObjectName(name);
  label->setProperty(kLinkProperty, true);
  label->setCursor(Qt::PointingHandCursor);
  QFont font = label->font();
  font.setUnderline(true);
  label->setFont(font);
  QPalette palette = label->palette();
  palette.setColor(QPalette::WindowText, QColor(0x10, 0x40, 0xC0));
  label->setPalette(palette);
  label->installEventFilter(this);
  return label;
}

void AboutWindow::BuildContents() {
  auto* outer = new QVBoxLayout(this);
  outer->setContentsMargins(0, 0, 0, 0);
  QFrame* border = NewFrame(QStringLiteral("Frame(0)"), this);
  border->setFrameStyle(QFrame::Box | QFrame::Plain);
  border->setLineWidth(2);
  border->installEventFilter(this);
  outer->addWidget(border);

  auto* layout = new QVBoxLayout(border);
  layout->setContentsMargins(14, 12, 14, 12);
  layout->setSpacing(10);
  layout->addWidget(BuildHeading(border));
  layout->addWidget(BuildInformation(border));
  QLabel* disclaimer = AddLabel(
      QStringLiteral("Label(7)"),
      tr("Es wird keine Haftung für eventuelle Schäden jeglicher Art übernommen."),
      border);
  disclaimer->setWordWrap(true);
  layout->addWidget(disclaimer);
  layout->addWidget(BuildLinks(border));
  setFixedSize(sizeHint().expandedTo(QSize(380, 0)));
}

QWidget* AboutWindow::BuildHeading(QWidget* parent) {
  auto* heading = new QWidget(parent);
  heading->installEventFilter(this);
  auto* layout = new QHBoxLayout(heading);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(14);
  QLabel* decoration = AddLabel(QStringLiteral("Deko"), QString(), heading);
  decoration->setPixmap(DecorationPicture());
  layout->addWidget(decoration);

  auto* titles = new QVBoxLayout;
  QLabel* title = AddLabel(QStringLiteral("Label(0)"), QStringLiteral("Kartova"), heading);
  QFont font = title->font();
  font.setPointSizeF(font.pointSizeF() * 2.0);
  font.setBold(true);
  title->setFont(font);
  titles->addWidget(title);
  titles->addWidget(
      AddLabel(QStringLiteral("Label(1)"), tr("Version 1.38 Final"), heading));
  titles->addStretch(1);
  layout->addLayout(titles, 1);
  return heading;
}

QWidget* AboutWindow::BuildInformation(QWidget* parent) {
  auto* box = new QWidget(parent);
  box->installEventFilter(this);
  auto* layout = new QVBoxLayout(box);
  layout->setContentsMargins(0, 0, 0, 0);

  QFrame* credits = NewFrame(QStringLiteral("Frame(1)"), box);
  credits->installEventFilter(this);
  auto* credits_layout = new QVBoxLayout(credits);
  credits_layout->addWidget(AddLabel(QStringLiteral("Label(2)"),
                                     tr("Gesamte Programmierung und Design\n"
                                        "2026 Das Kartova-Team"),
                                     credits));
  layout->addWidget(credits);

  QFrame* editions = NewFrame(QStringLiteral("Frame(2)"), box);
  editions->installEventFilter(this);
  auto* grid = new QGridLayout(editions);
  grid->addWidget(
      AddLabel(QStringLiteral("Label(3)"), tr("Unterstützte Roms:"), editions), 0, 0,
      Qt::AlignTop);
  grid->addWidget(AddLabel(QStringLiteral("Label(4)"),
                           tr("Jede Edition mit einer Rom-Definition\n"
                              "(Kartova.ini oder Registry)"),
                           editions),
                  0, 1);
  grid->addWidget(
      AddLabel(QStringLiteral("Label(5)"), tr("Sprachversionen:"), editions), 1, 0);
  grid->addWidget(AddLabel(QStringLiteral("Label(6)"), tr("Deutsch"), editions), 1, 1);
  grid->setColumnStretch(1, 1);
  layout->addWidget(editions);
  return box;
}

QWidget* AboutWindow::BuildLinks(QWidget* parent) {
  auto* row = new QWidget(parent);
  row->installEventFilter(this);
  auto* layout = new QVBoxLayout(row);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(2);
  mail_ = AddLink(QStringLiteral("Label5"), mail_address_, row);
  layout->addWidget(mail_);
  int index = 0;
  for (const char* caption : kLinkCaptions)
    layout->addWidget(
        AddLink(QStringLiteral("Links(%1)").arg(index++), QString::fromLatin1(caption), row));
  return row;
}

bool AboutWindow::eventFilter(QObject* watched, QEvent* event) {
  auto* widget = qobject_cast<QWidget*>(watched);
  if (!widget) return QDialog::eventFilter(watched, event);
  const bool link = widget->property(kLinkProperty).toBool();
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: {
      auto* mouse = static_cast<QMouseEvent*>(event);
      if (!link) PressSurface(mouse->button(), mouse->globalPosition().toPoint());
      return true;
    }
    case QEvent::MouseMove:
      if (!link) MoveSurface(static_cast<QMouseEvent*>(event)->globalPosition().toPoint());
      return true;
    case QEvent::MouseButtonRelease: {
      auto* mouse = static_cast<QMouseEvent*>(event);
      if (!link) {
        ReleaseSurface(mouse->button());
      } else if (mouse->button() == Qt::LeftButton &&
                 widget->rect().contains(mouse->position().toPoint())) {
        ClickLink(static_cast<QLabel*>(widget));
      }
      return true;
    }
    default:
      return QDialog::eventFilter(watched, event);
  }
}

void AboutWindow::mousePressEvent(QMouseEvent* event) {
  PressSurface(event->button(), event->globalPosition().toPoint());
}

void AboutWindow::mouseMoveEvent(QMouseEvent* event) {
  MoveSurface(event->globalPosition().toPoint());
}

void AboutWindow::mouseReleaseEvent(QMouseEvent* event) { ReleaseSurface(event->button()); }

void AboutWindow::PressSurface(Qt::MouseButton button, QPoint global) {
  if (button != Qt::LeftButton) return;
  pressed_ = true;
  dragged_ = false;
  press_global_ = global;
  press_window_pos_ = pos();
}

void AboutWindow::MoveSurface(QPoint global) {
  if (!pressed_) return;
  if (!dragged_) {
    if ((global - press_global_).manhattanLength() < QApplication::startDragDistance()) return;
    dragged_ = true;
    // The window manager moves the window as by a title bar where it can; it then also sees
    // the release, so the drag ends here.
    if (windowHandle() && windowHandle()->startSystemMove()) {
      pressed_ = false;
      return;
    }
  }
  move(press_window_pos_ + (global - press_global_));
}

void AboutWindow::ReleaseSurface(Qt::MouseButton button) {
  if (button != Qt::LeftButton) return;
  const bool click = pressed_ && !dragged_;
  pressed_ = false;
  dragged_ = false;
  if (click) accept();
}

void AboutWindow::ClickLink(const QLabel* link) {
  if (link == mail_) {
    prompter_.OpenDocument(QStringLiteral("mailto:") + mail_address_);
  } else {
    prompter_.OpenDocument(QStringLiteral("http://") + link->text());
  }
}

}  // namespace kartova
