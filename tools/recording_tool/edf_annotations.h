#pragma once

#include <optional>
#include <string>
#include <vector>

#include "recording/file_header.h"

namespace korvinel::tool {

/// An annotation of an EDF+ file; text in UTF-8.
struct Annotation {
  double onset;  ///< seconds of signal from the file's beginning
  std::string text;
  friend bool operator==(const Annotation&, const Annotation&) = default;
};

constexpr std::size_t longestAnnotation = 40;  ///< bytes that the library writes at most

/// The annotations of a recording of so many blocks, in order of time: one for each block with its time in the
/// examination ("block 5 at 12 s"), and the notes, long ones in pieces.
[[nodiscard]] std::vector<Annotation> annotationsOf(const FileHeader& header, int blocks);

/// Notes for a recording from the annotations of any file: those with the time of a block are left out, pieces are
/// joined. Times are blocks, 2 or more.
struct Note {
  int block;
  std::string text;
};
[[nodiscard]] std::vector<Note> notesFrom(const std::vector<Annotation>& annotations);

}  // namespace korvinel::tool
