#pragma once

namespace korvinel {

struct MainState;

/// At the end of a recording: turns the text in the note box into a note and closes the box. Does nothing while
/// recording is off. What cannot be kept is added to `recordingNotice`.
void takeOpenNote(MainState& state);

}  // namespace korvinel
