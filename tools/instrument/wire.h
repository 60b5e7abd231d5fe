#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "instrument/random.h"

namespace korvinel::instrument {

/// The timing of the instrument's bytes on the cable.
enum class Pace : std::uint8_t {
  backToBack,    ///< as a UART sends them: a frame's bytes without gaps at 19200 baud, then a pause
  evenlySpread,  ///< a frame's bytes spread over the whole time of a frame
  wholeFrames,   ///< a frame at once, unlike any real cable
};

struct Wiring {
  Pace pace = Pace::backToBack;
  int chunkBytes = 62;  ///< the adapter passes bytes on once it has this many, 1 or more: 8, 14 a UART, 62 on USB
  double latencySeconds = 0.016;  ///< or after a random time from half of this to all of it
};

/// The cable from the instrument and the adapter at its end. Times are seconds, never going back.
class Wire {
 public:
  /// `byteSeconds`: of a byte on the line; `frameSeconds`: over which evenly spread bytes are spread.
  Wire(const Wiring& wiring, double byteSeconds, double frameSeconds)
      : wiring_(wiring), byteSeconds_(byteSeconds), frameSeconds_(frameSeconds) {}

  void put(double due, std::string_view frame);       ///< begins at `due`, or when the bytes before it have been sent
  void putAnswer(double due, std::string_view text);  ///< always back to back
  void cut(double now);                               ///< what has not been sent yet is discarded
  void clear();                                       ///< bytes in transit are lost

  [[nodiscard]] std::vector<std::string> takeDue(double now);  ///< chunks, oldest first
  [[nodiscard]] double nextDue() const;                        ///< infinity while nothing is in transit

 private:
  struct Byte {
    double arrival;
    char code;
  };

  void send(double due, std::string_view bytes, double spacing);
  void arrive(const Byte& byte);
  void handOn();

  Wiring wiring_;
  double byteSeconds_, frameSeconds_;
  double free_ = 0;            // when the last byte has been sent
  std::deque<Byte> onTheWay_;  // in order of arrival at the adapter
  std::string chunk_;          // in the adapter
  double chunkDue_ = 0;        // of a chunk that is not empty
  std::vector<std::string> handedOn_;
  Random random_{19200};
};

}  // namespace korvinel::instrument
