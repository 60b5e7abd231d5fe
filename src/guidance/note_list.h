#pragma once

#include <string>
#include <vector>

namespace korvinel {
struct MainState;
}

namespace korvinel::guidance {

/// A note of the examination at hand, as its list shows it.
struct NoteLine {
  int block = 0;     ///< in which it was begun; 0: its time is none of this examination
  std::string time;  ///< "1:03", on the scale of the time strip; "?" if it is none
  std::string text;  ///< or in parentheses why there is none
  friend bool operator==(const NoteLine&, const NoteLine&) = default;
};

/// In the order in which they were made; none of the examination before.
[[nodiscard]] std::vector<NoteLine> noteList(const MainState& state);

/// The notes whose mark is at this second of the time strip, or at most `reach` seconds away: "1:03 occhi chiusi", one
/// per line; "" = none.
[[nodiscard]] std::string notesAt(const std::vector<NoteLine>& notes, int second, int reach);

/// Where the list is shown, over the message panel.
enum class NotesPlace {
  none,
  upper,  ///< above what the panel has to say
  whole,
};

/// Shown while the message panel has nothing to say that the operator has not read.
[[nodiscard]] NotesPlace notesPlace(const MainState& state);

/// Whether the time strip has lost the marks of the notes, as in a replay.
[[nodiscard]] bool marksAreMissing(const MainState& state);

/// Whether choosing a note may move the slider: only with a whole examination in memory, and nothing under way.
[[nodiscard]] bool sliderMayMove(const MainState& state);

/// The text of the note box with a quick note added; a note holds no commas.
[[nodiscard]] std::string withQuickNote(const std::string& typed, const std::string& quick);

/// Whether the note box is open for a quick note.
[[nodiscard]] bool noteIsOpen(const MainState& state);

}  // namespace korvinel::guidance
