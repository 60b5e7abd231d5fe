#pragma once

#include "frame/main_state.h"

namespace korvinel {

/// At the end of a recording: what stands in the note box becomes a note, and a box that was opened with "Annota" is
/// closed. Nothing happens while recording is off. What cannot be kept is added to `recordingNotice`.
void takeOpenNote(MainState& state);

}  // namespace korvinel
