#include "settings/QtRegistry.h"

#include <QSettings>
#include <QStringList>
#include <QVariant>
#include <memory>
#include <utility>

namespace kartova {

namespace {

std::unique_ptr<QSettings> OpenRegistry(const std::string& file) {
  if (!file.empty())
    return std::make_unique<QSettings>(QString::fromStdString(file), QSettings::IniFormat);
#ifdef _WIN32
  // Where the settings of earlier versions are, so that they carry over.
  return std::make_unique<QSettings>(
      QStringLiteral("HKEY_CURRENT_USER\\Software\\VB and VBA Program Settings\\Kartova"),
      QSettings::NativeFormat);
#else
  return std::make_unique<QSettings>(QSettings::NativeFormat, QSettings::UserScope,
                                     QStringLiteral("Kartova"), QStringLiteral("Kartova"));
#endif
}

// QSettings takes both slashes as separators of nested groups; a section or key name is one
// level, so they are kept as escapes.
QString EscapedName(const std::string& name) {
  QString s = QString::fromStdString(name);
  s.replace(QLatin1Char('/'), QStringLiteral("%2F"));
  s.replace(QLatin1Char('\\'), QStringLiteral("%5C"));
  return s;
}

// The stored name equal to wanted without regard to case (the registry compares names so), or
// wanted itself when there is none.
QString StoredName(const QStringList& names, const QString& wanted) {
  if (names.contains(wanted)) return wanted;
  for (const QString& name : names)
    if (name.compare(wanted, Qt::CaseInsensitive) == 0) return name;
  return wanted;
}

// Enters the group of section. A section "General" written by hand into a settings file holds
// the file's top-level keys, so it is read from there when no escaped group of that name exists.
void EnterSection(QSettings& settings, const QString& section) {
  const QStringList groups = settings.childGroups();
  const QString group = StoredName(groups, section);
  if (group.compare(QStringLiteral("General"), Qt::CaseInsensitive) == 0 && !groups.contains(group))
    return;
  settings.beginGroup(group);
}

// A value written by hand with unquoted commas comes back from QSettings as a list.
std::string ValueText(const QVariant& value) {
  if (value.typeId() == QMetaType::QStringList)
    return value.toStringList().join(QStringLiteral(", ")).toStdString();
  return value.toString().toStdString();
}

}  // namespace

QtRegistry::QtRegistry(std::string file) : file_(std::move(file)) {}

std::string QtRegistry::Read(const std::string& section, const std::string& key,
                             const std::string& def) const {
  // QSettings has no unnamed groups or keys.
  if (section.empty() || key.empty()) return def;
  auto settings = OpenRegistry(file_);
  // Names are mostly asked for as they are stored; only a miss needs the search by case.
  const QString exact = EscapedName(section) + QLatin1Char('/') + EscapedName(key);
  if (settings->contains(exact)) return ValueText(settings->value(exact));
  EnterSection(*settings, EscapedName(section));
  QString stored = EscapedName(key);
  if (!settings->contains(stored)) stored = StoredName(settings->childKeys(), stored);
  if (!settings->contains(stored)) return def;
  return ValueText(settings->value(stored));
}

bool QtRegistry::Write(const std::string& section, const std::string& key, const std::string& value) {
  if (section.empty() || key.empty()) return false;
  auto settings = OpenRegistry(file_);
  settings->beginGroup(StoredName(settings->childGroups(), EscapedName(section)));
  const QString stored = StoredName(settings->childKeys(), EscapedName(key));
  settings->setValue(stored, QString::fromStdString(value));
  settings->endGroup();
  settings->sync();
  return settings->status() == QSettings::NoError;
}

}  // namespace kartova
