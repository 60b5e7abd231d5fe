#pragma once

#include <string>
#include <string_view>

namespace korvinel {

struct MainState;

/// Steps on the serial line shared by several operations. A failing step writes its reason to `lineFault`, and a new
/// reason also to standard error; the line then stays silent until it is opened again.

void sendBytes(MainState& state, std::string_view bytes);
[[nodiscard]] bool openPort(MainState& state);  ///< closes it first; returns whether it is open
void raiseLines(MainState& state);              ///< RTS, then DTR

/// Polls the line until nothing has arrived for the time of some frames; false if it is not silent within two seconds.
[[nodiscard]] bool fallsSilent(MainState& state);

/// After a stop: waits until the line is silent, so that the next byte is the first of a frame. If it is not, the count
/// of its bytes continues.
void findFramesAnew(MainState& state);

/// Warns the operator that the channels may have been interchanged until now.
void tellOfDoubt(MainState& state, const std::string& reason);

/// Asks after a communication error; Cancel throws ProgramEnd.
void askOrEnd(MainState& state, const std::string& text);

}  // namespace korvinel
