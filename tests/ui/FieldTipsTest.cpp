// The tooltips of the header and event fields, and the translation of the pages' texts.

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QCoreApplication>
#include <QGroupBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QSpinBox>
#include <QTranslator>

#include "EditorFixture.h"
#include "events/EventFields.h"
#include "ui/AboutWindow.h"
#include "ui/ConnectionFrame.h"
#include "ui/EventPage.h"
#include "ui/LinkDataFrame.h"
#include "ui/WuselixPage.h"

namespace kartova::test {
namespace {

class FieldTipsTest : public EditorTest {};

// What a user types into or reads a byte from: line edits (but the ones inside combos and spin
// boxes), editable combos, check boxes, spin boxes and the link data grid.
std::vector<QWidget*> FieldWidgets(const QWidget& page) {
  std::vector<QWidget*> fields;
  for (QWidget* widget : page.findChildren<QWidget*>()) {
    const QObject* parent = widget->parent();
    const bool inner = qobject_cast<const QComboBox*>(parent) || qobject_cast<const QAbstractSpinBox*>(parent);
    const auto* combo = qobject_cast<QComboBox*>(widget);
    if ((qobject_cast<QLineEdit*>(widget) && !inner) || (combo && combo->isEditable()) ||
        qobject_cast<QCheckBox*>(widget) || qobject_cast<QSpinBox*>(widget) || qobject_cast<QPlainTextEdit*>(widget))
      fields.push_back(widget);
  }
  return fields;
}

TEST_F(FieldTipsTest, EveryHeaderAndEventFieldSaysWhichBytesItEdits) {
  StartEditor();
  const QRegularExpression names_a_byte(QStringLiteral("\\bBytes? \\d"));
  const std::vector<QWidget*> header_fields = FieldWidgets(*window_->header_page());
  const std::vector<QWidget*> event_fields = FieldWidgets(*window_->event_page()->caption_frame());
  // Header(0)..Header(19), HCombo(0)..HCombo(4), Con(0)..Con(3), UpDown9, Text6..Text10;
  // Text(1)..Text(33) without 28.
  EXPECT_EQ(header_fields.size(), 35u);
  EXPECT_EQ(event_fields.size(), 32u);
  for (const auto* fields : {&header_fields, &event_fields})
    for (const QWidget* field : *fields)
      EXPECT_TRUE(field->toolTip().contains(names_a_byte)) << field->objectName().toStdString();

  // Each event tip starts with the record and the bytes its field edits.
  const char* records[] = {"Warp", "Trigger", "Sign", "People", "Enter-Script", "Time-Script"};
  for (const EventField& field : EventFieldTable()) {
    const QString bytes = field.format == EventFieldFormat::kWord
                              ? QStringLiteral("Bytes %1–%2").arg(field.first_byte).arg(field.first_byte + 1)
                              : QStringLiteral("Byte %1").arg(field.first_byte);
    EXPECT_TRUE(window_->event_page()->field(field.text_index)->toolTip().startsWith(
        QString::fromUtf8(records[field.kind]) + QStringLiteral("-Eintrag, ") + bytes))
        << "Text(" << field.text_index << ")";
  }

  EXPECT_EQ(HeaderCombo(0)->toolTip(),
            "Primärer Header, Byte 1\nNummer des Tilesets, aus dem die Map ihre Grafik und Blöcke nimmt.\n"
            "Zum Ändern den Code als zwei Hex-Ziffern eintippen.");
  EXPECT_EQ(Box(10)->toolTip(),
            "Sekundärer Header, Byte 1 (Eingaben ändern Byte 2)\n"
            "Höhe der Map in Blöcken; was hier eingetippt wird, wird als Breite gespeichert.");
  EXPECT_EQ(Box(13)->toolTip(),
            "Anbindungs-Eintrag, Bytes 4–5, Little Endian (in Dateireihenfolge)\n"
            "Ziel des Streifens: Adresse in der Arbeitskopie dieser Map (C700 = linke obere Ecke des Rands).");
  EXPECT_EQ(window_->event_page()->field(3)->toolTip(),
            "Warp-Eintrag, Byte 2\nNummer des Warps der Ziel-Map, bei dem man ankommt (ab 1).");
  // A label tells what its field tells.
  EXPECT_EQ(window_->header_page()->connection_frame()->length_label()->toolTip(), Box(14)->toolTip());
}

// Marks every text it is asked for: a text the pages show unmarked has passed by the translation.
class MarkingTranslator : public QTranslator {
 public:
  bool isEmpty() const override { return false; }
  QString translate(const char*, const char* source, const char*, int) const override {
    return QStringLiteral("«") + QString::fromUtf8(source) + QStringLiteral("»");
  }
};

// The texts a widget and its children show of their own: captions, titles, list items, tips.
QStringList ShownTexts(const QWidget& root) {
  QList<QWidget*> widgets = root.findChildren<QWidget*>();
  widgets.prepend(const_cast<QWidget*>(&root));
  QStringList texts;
  for (const QWidget* widget : widgets) {
    texts << widget->toolTip();
    if (widget->isWindow()) texts << widget->windowTitle();
    if (const auto* label = qobject_cast<const QLabel*>(widget)) texts << label->text();
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) texts << button->text();
    if (const auto* group = qobject_cast<const QGroupBox*>(widget)) texts << group->title();
    if (const auto* combo = qobject_cast<const QComboBox*>(widget))
      for (int i = 0; i < combo->count(); ++i) texts << combo->itemText(i);
  }
  texts.removeAll(QString());
  return texts;
}

TEST_F(FieldTipsTest, EveryTextOfThePagesGoesThroughTheTranslation) {
  MarkingTranslator marking;
  QCoreApplication::installTranslator(&marking);
  StartEditor();
  ScriptedPrompter prompter;
  AboutWindow about(prompter);
  // The program's name and its addresses stay as they are in every language.
  for (const char* name : {"Label(0)", "Label5", "Links(0)", "Links(1)"}) about.findChild<QLabel*>(name)->clear();

  QStringList unmarked;
  for (const QWidget* page : {static_cast<QWidget*>(window_->header_page()), static_cast<QWidget*>(window_->event_page()),
                              static_cast<QWidget*>(window_->findChild<WuselixPage*>()),
                              static_cast<QWidget*>(window_->map_selector()), static_cast<QWidget*>(&about)})
    for (const QString& text : ShownTexts(*page))
      if (!text.startsWith(QStringLiteral("«")) || !text.endsWith(QStringLiteral("»"))) unmarked << text;
  QCoreApplication::removeTranslator(&marking);
  EXPECT_EQ(unmarked.join(QStringLiteral(" | ")).toStdString(), "");
  // The core's texts are among them.
  EXPECT_EQ(window_->header_page()->extra_byte_label()->text(), "«Angel:»");
  EXPECT_EQ(window_->header_page()->connection_frame()->length_label()->text(), "«ST-Größe:»");
}

}  // namespace
}  // namespace kartova::test
