#pragma once

#include <deque>
#include <optional>
#include <vector>

#include "ui/Prompter.h"

namespace kartova::test {

// Answers the editor's message boxes and file dialogs from a script and records every prompt.
// A prompt the script does not expect fails the test and is answered as cancelled; an expected
// one that never comes fails it at the end.
//
// With answer_anything set, a prompt the script does not expect is recorded and answered as the
// cautious user would (Cancel, else No, else OK) instead of failing the test.
class ScriptedPrompter : public Prompter {
 public:
  bool answer_anything = false;

  enum class Kind { kMessage, kOpenFile, kSaveFile };
  struct Asked {
    Kind kind;
    QString text;  // the message, or the dialog's title
    QString title;
    Buttons buttons;
    Icon icon;
    QString start_dir;
    QStringList filters;
    QString detail;  // a message's detailed text
  };

  ~ScriptedPrompter() override;

  // The next prompt is a message with this text (any text when empty).
  void ExpectMessage(const QString& text, Answer answer = Answer::kOk) {
    script_.push_back({Kind::kMessage, text, answer, {}, false});
  }
  // The next prompt is the open dialog; nullopt cancels it.
  void ExpectOpenFile(const std::optional<QString>& path) {
    script_.push_back({Kind::kOpenFile, {}, {}, path.value_or(QString()), path.has_value()});
  }

  // The next prompt is the save dialog; nullopt cancels it.
  void ExpectSaveFile(const std::optional<QString>& path) {
    script_.push_back({Kind::kSaveFile, {}, {}, path.value_or(QString()), path.has_value()});
  }

  Answer Message(const QString& text, const QString& title, Buttons buttons, Icon icon,
                 const QString& detail) override;
  std::optional<QString> OpenFile(const QString& title, const QString& start_dir,
                                  const QStringList& name_filters) override {
    return FileDialog({Kind::kOpenFile, title, title, Buttons::kOk, Icon::kNone, start_dir, name_filters, {}});
  }
  std::optional<QString> SaveFile(const QString& title, const QString& start_dir,
                                  const QStringList& name_filters) override {
    return FileDialog({Kind::kSaveFile, title, title, Buttons::kOk, Icon::kNone, start_dir, name_filters, {}});
  }
  void OpenDocument(const QString& url) override { documents.push_back(url); }

  std::vector<Asked> asked;
  std::vector<QString> documents;

 private:
  struct Step {
    Kind kind;
    QString text;
    Answer answer;
    QString path;  // the file chosen in a dialog, when chosen
    bool chosen;
  };
  std::optional<Step> Next(const Asked& asked);
  std::optional<QString> FileDialog(const Asked& prompt) {
    const std::optional<Step> step = Next(prompt);
    if (step && step->chosen) return step->path;
    return std::nullopt;
  }

  std::deque<Step> script_;
};

}  // namespace kartova::test
