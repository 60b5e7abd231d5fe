#pragma once

#include <string>

namespace korvinel::platform {

/// The button that closed a message box.
enum class Choice { ok = 1, cancel = 2 };

/// A position on the screen in twentieths of a point (1440 to the inch).
struct ScreenPosition {
  int x, y;
};

/// Modal boxes. Lines of a text are separated by "\r". While one is open, timers keep running. A box closed because the
/// program ends throws ProgramEnd, and so does every later box, unless there are last words.
struct Dialogs {
  virtual ~Dialogs() = default;
  virtual void notice(const std::string& text) = 0;  ///< one OK button, the program's name as title
  virtual Choice ask(const std::string& text, const std::string& title) = 0;  ///< OK and Cancel
  /// One line of text, empty at first; Cancel gives the empty text.
  virtual std::string input(const std::string& prompt, const std::string& title, ScreenPosition position) = 0;
  /// The full path of an existing file, or "" when none was chosen. `filter`: pairs of a label and a pattern,
  /// "(*.QVD)|*.QVD|". `directory`: in the program's notation.
  virtual std::string chooseFile(const std::string& directory, const std::string& filter) = 0;
  /// The full path of an existing folder with a trailing separator, or "" when none was chosen. `directory`: where the
  /// dialog starts, in the program's notation.
  virtual std::string chooseFolder(const std::string& title, const std::string& directory) = 0;

  int lastWords = 0;  ///< above 0: boxes open even after the program's end, and closing one throws nothing
};

/// During its lifetime, boxes are shown even though the program is ending.
class LastWords {
 public:
  explicit LastWords(Dialogs& dialogs) : dialogs_(dialogs) { ++dialogs_.lastWords; }
  ~LastWords() { --dialogs_.lastWords; }
  LastWords(const LastWords&) = delete;
  LastWords& operator=(const LastWords&) = delete;

 private:
  Dialogs& dialogs_;
};

}  // namespace korvinel::platform
