#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "platform/dialogs.h"

namespace korvinel::platform {

/// Dialogs that answer by themselves and remember what they asked. Without a scripted answer a question is answered
/// with Cancel, an input box and a file dialog with nothing.
class ScriptedDialogs : public Dialogs {
 public:
  std::deque<Choice> choices;       ///< answers to questions
  std::deque<std::string> inputs;   ///< answers to input boxes
  std::deque<std::string> files;    ///< answers to file dialogs
  std::function<void()> whileOpen;  ///< called while a box is open, as the user or a timer would act meanwhile

  struct Shown {
    std::string kind;   ///< "notice", "question", "input", "file"
    std::string text;   ///< for a file dialog its directory
    std::string title;  ///< for a file dialog its filter
    ScreenPosition position{0, 0};
  };
  std::vector<Shown> shown;

  void notice(const std::string& text) override { show({"notice", text, ""}); }
  Choice ask(const std::string& text, const std::string& title) override {
    show({"question", text, title});
    return next(choices, Choice::cancel);
  }
  std::string input(const std::string& prompt, const std::string& title, ScreenPosition position) override {
    show({"input", prompt, title, position});
    return next(inputs, std::string());
  }
  std::string chooseFile(const std::string& directory, const std::string& filter) override {
    show({"file", directory, filter});
    return next(files, std::string());
  }

 private:
  void show(Shown box) {
    shown.push_back(std::move(box));
    if (whileOpen) whileOpen();
  }
  template <typename Answer>
  static Answer next(std::deque<Answer>& answers, Answer otherwise) {
    if (answers.empty()) return otherwise;
    Answer answer = answers.front();
    answers.pop_front();
    return answer;
  }
};

}  // namespace korvinel::platform
