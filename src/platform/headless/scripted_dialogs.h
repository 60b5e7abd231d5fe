#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/dialogs.h"
#include "platform/operation_edge.h"

namespace korvinel::platform {

/// Dialogs that answer by themselves and record what they asked. Without a scripted answer, a question is answered with
/// Cancel, an input box and a file dialog with nothing.
class ScriptedDialogs : public Dialogs {
 public:
  std::deque<Choice> choices;       ///< answers to questions
  std::deque<std::string> inputs;   ///< answers to input boxes
  std::deque<std::string> files;    ///< answers to file dialogs
  std::deque<std::string> folders;  ///< answers to folder dialogs
  /// Answers a question instead of `choices`, if it returns an answer.
  std::function<std::optional<Choice>(const std::string& text)> onQuestion;
  const OperationEdge* edge = nullptr;  ///< once the program behind it has ended, boxes open for last words only
  std::function<void()> whileOpen;      ///< called while a box is open, as the user or a timer would act meanwhile

  struct Shown {
    std::string kind;   ///< "notice", "question", "input", "file", "folder"
    std::string text;   ///< for a file or folder dialog its directory
    std::string title;  ///< for a file dialog its filter
    ScreenPosition position{0, 0};
  };
  std::vector<Shown> shown;

  void notice(const std::string& text) override { show({"notice", text, ""}); }
  Choice ask(const std::string& text, const std::string& title) override {
    show({"question", text, title});
    if (const auto answer = onQuestion ? onQuestion(text) : std::nullopt) return *answer;
    return next(choices, Choice::cancel);
  }
  std::string input(const std::string& prompt, const std::string& title, ScreenPosition position) override {
    show({"input", prompt, title, position});
    return next(inputs, std::string());
  }
  /// From now on, the user gives up every recording that could not be saved.
  void giveRecordingsUp() {
    onQuestion = [](const std::string& text) -> std::optional<Choice> {
      if (text.starts_with("La registrazione non")) return Choice::cancel;
      if (text.starts_with("Rinunciare")) return Choice::ok;
      return std::nullopt;
    };
  }
  std::string chooseFile(const std::string& directory, const std::string& filter) override {
    show({"file", directory, filter});
    return next(files, std::string());
  }
  std::string chooseFolder(const std::string& title, const std::string& directory) override {
    show({"folder", directory, title});
    return next(folders, std::string());
  }

 private:
  void show(Shown box) {
    stopIfEnded();
    shown.push_back(std::move(box));
    if (whileOpen) whileOpen();
    stopIfEnded();
  }
  void stopIfEnded() const {
    if (edge != nullptr && lastWords == 0) edge->stopIfEnded();
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
