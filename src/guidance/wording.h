#pragma once

#include <string>

/// Pieces of the guidance's sentences.
namespace korvinel::guidance {

[[nodiscard]] std::string minutesOf(int blocks);      ///< their time: "2:06"
[[nodiscard]] std::string blocks(int count);          ///< "1 blocco", "41 blocchi"
[[nodiscard]] std::string notes(int count);           ///< "nessuna nota", "1 nota", "2 note"
[[nodiscard]] std::string oneLine(std::string text);  ///< with blanks for the ends of lines ("\r")

}  // namespace korvinel::guidance
