#pragma once

#include <string>
#include <string_view>

namespace korvinel {

struct MainState;

/// The steps on the serial line that more than one operation takes. A step that fails leaves its reason in `lineFault`,
/// and on standard error when it is a new one; the line then stays silent until it is opened again.

void sendBytes(MainState& state, std::string_view bytes);
[[nodiscard]] bool openPort(MainState& state);  ///< closes it before; whether it is open
void raiseLines(MainState& state);              ///< RTS, then DTR

/// Looks at the line until nothing has come for some frames' time; false where it does not fall silent in two seconds.
[[nodiscard]] bool fallsSilent(MainState& state);

/// After a stop: lets the line fall silent, so that the next byte is the first of a frame. Where it does not, its bytes
/// are counted on.
void findFramesAnew(MainState& state);

/// Tells the operator that the channels may have been out of their places until now.
void tellOfDoubt(MainState& state, const std::string& reason);

/// A communication error; Cancel ends the program.
void askOrEnd(MainState& state, const std::string& text);

}  // namespace korvinel
