#include "ScriptedPrompter.h"

#include <gtest/gtest.h>

namespace kartova::test {

ScriptedPrompter::~ScriptedPrompter() {
  if (!script_.empty())
    ADD_FAILURE() << script_.size() << " expected prompt(s) never came, the first: "
                  << script_.front().text.toStdString();
}

std::optional<ScriptedPrompter::Step> ScriptedPrompter::Next(const Asked& prompt) {
  asked.push_back(prompt);
  if (script_.empty() || script_.front().kind != prompt.kind) {
    if (answer_anything) return std::nullopt;
    ADD_FAILURE() << "unexpected prompt: " << prompt.text.toStdString();
    return std::nullopt;
  }
  Step step = script_.front();
  script_.pop_front();
  return step;
}

Prompter::Answer ScriptedPrompter::Message(const QString& text, const QString& title,
                                           Buttons buttons, Icon icon, const QString& detail) {
  const std::optional<Step> step = Next({Kind::kMessage, text, title, buttons, icon, {}, {}, detail});
  if (!step) {
    if (buttons == Buttons::kOk) return Answer::kOk;
    return answer_anything && buttons == Buttons::kYesNo ? Answer::kNo : Answer::kCancel;
  }
  if (!step->text.isEmpty()) {
    EXPECT_EQ(step->text.toStdString(), text.toStdString());
  }
  return step->answer;
}

}  // namespace kartova::test
