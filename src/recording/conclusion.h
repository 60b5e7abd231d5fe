#pragma once

namespace korvinel {

struct MainState;

/// The steps after assembling a recording, which make sure that the user knows where it is.

/// If neither the data file nor the files set aside hold the whole recording, asks for another folder until the data
/// file is written there or the user gives up. Then reports what failed or was repaired and where everything is, and
/// shows and clears `recordingNotice`.
/// Does nothing if there is nothing to report or it has been reported. With `nobodyToAsk`, the folder is the user's
/// home and the report goes to standard error.
void concludeRecording(MainState& state);

/// When the program ends in mid-recording (Cancel in a communication error, End right after Stop): writes the data
/// file, or the rest of one that is being written, without dispatching events, and concludes the recording even if it
/// was already assembled.
void bringRecordingHome(MainState& state);

}  // namespace korvinel
