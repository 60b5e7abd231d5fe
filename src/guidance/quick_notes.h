#pragma once

#include <string>
#include <vector>

namespace korvinel::guidance {

/// The quick notes of a new installation.
[[nodiscard]] std::vector<std::string> usualQuickNotes();

/// The list as the user edits it: "occhi chiusi, tosse".
[[nodiscard]] std::string quickNotesText(const std::vector<std::string>& notes);

/// What the user has edited, separated by commas or semicolons: at most six texts without surrounding blanks and
/// without repetitions; empty ones are left out. Nothing left gives the usual ones.
[[nodiscard]] std::vector<std::string> quickNotesFrom(const std::string& text);

}  // namespace korvinel::guidance
