#include "cli/CliProcess.h"

#include <QByteArray>
#include <QJsonDocument>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>

namespace kartova::test {

CliResult RunCli(const std::vector<std::string>& args,
                 const std::map<std::string, std::string>& environment,
                 const std::string& program) {
  QStringList arguments;
  for (const std::string& a : args) arguments << QString::fromStdString(a);
  QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
  env.insert("ASAN_OPTIONS", "detect_leaks=0");
  for (const auto& [name, value] : environment)
    env.insert(QString::fromStdString(name), QString::fromStdString(value));

  QProcess process;
  process.setProcessEnvironment(env);
  process.start(QString::fromStdString(program), arguments);
  CliResult result;
  if (!process.waitForFinished(60000)) {
    process.kill();
    process.waitForFinished();
    return result;
  }
  result.out = process.readAllStandardOutput().toStdString();
  result.err = process.readAllStandardError().toStdString();
  if (process.exitStatus() == QProcess::NormalExit) result.status = process.exitCode();
  return result;
}

QJsonObject JsonOf(const CliResult& r) { return QJsonDocument::fromJson(QByteArray::fromStdString(r.out)).object(); }

}  // namespace kartova::test
