#include "ui/Prompter.h"

#include <QRegularExpression>

namespace kartova {

QStringList QtNameFilters(const QString& classic_filter) {
  static const QRegularExpression kTrailingPatterns(QStringLiteral("\\s*\\([^()]*\\)\\s*$"));
  const QStringList parts = classic_filter.split(QLatin1Char('|'));
  QStringList filters;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    QString description = parts[i];
    description.remove(kTrailingPatterns);
    QString patterns = parts[i + 1].trimmed();
    patterns.replace(QLatin1Char(';'), QLatin1Char(' '));
    if (patterns.isEmpty()) patterns = QStringLiteral("*");
    filters << QStringLiteral("%1 (%2)").arg(description.trimmed(), patterns);
  }
  return filters;
}

}  // namespace kartova
