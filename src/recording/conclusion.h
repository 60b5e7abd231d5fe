#pragma once

#include "frame/main_state.h"

namespace korvinel {

/// What is still to be done when a recording has been assembled: nobody leaves without knowing where it is.

/// Where neither the data file nor the files set aside hold all of the recording, asks for another place until the data
/// file is there or the user gives the recording up. Then tells what failed or was mended, and where everything is,
/// and tells and empties `recordingNotice`.
/// Nothing happens where there is nothing to tell, or where it has been told. Where nobody can be asked, the user's
/// home folder is the place, and standard error is told.
void concludeRecording(MainState& state);

/// When the program ends in mid-recording (Cancel in a communication error, End right after Stop): writes the data file
/// without letting events in, and concludes the recording, be it assembled already. Of a file that is just being
/// written the rest is.
void bringRecordingHome(MainState& state);

}  // namespace korvinel
