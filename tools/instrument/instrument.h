#pragma once

#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "instrument/command_recogniser.h"
#include "instrument/faults.h"
#include "instrument/frame_source.h"
#include "instrument/wire.h"

namespace korvinel::instrument {

/// The four-channel instrument and its cable: bytes and the time go in, bytes come out. Times are seconds of any
/// monotonic clock.
///
/// It answers the test command with "OK", streams frames after the start command, 128 per second, the first one 1/128 s
/// after it, and stops after the stop command. A start command during the stream begins a new one, at channel 1. It
/// finishes a frame before it obeys a command. The test command ends a running stream, so that the answer can be
/// distinguished from samples.
class Instrument {
 public:
  /// `speed`: multiplies the 128 frames per second; above 0. The line's speed is raised if it is too slow for that.
  Instrument(std::unique_ptr<FrameSource> source, double speed, Faults faults,
             const Wiring& wiring = {.pace = Pace::wholeFrames});

  void receive(std::string_view bytes, double now);

  /// What has come out of the cable up to `now`, in order: the adapter's chunks, or answers and frames. If it is more
  /// than 4096 frames behind, the instrument continues from `now` instead of catching up.
  [[nodiscard]] std::vector<std::string> takeDue(double now);

  [[nodiscard]] double nextDue() const;  ///< when the next piece may be due; infinity while there is nothing to send

  /// The cable has been pulled out by a fault: nothing is received or sent until plugIn().
  [[nodiscard]] bool unplugged() const { return unplugged_; }
  void plugIn();  ///< as after power-up: not streaming, no partial command, no answer due

  [[nodiscard]] std::int64_t bytesStreamed() const { return bytesStreamed_; }  ///< since the program's start

  [[nodiscard]] std::vector<std::string> takeEvents();  ///< what has happened since the last call, for a log

 private:
  struct Answer {
    double due;
    std::string text;
  };

  void reportIgnored(const std::string& bytes);
  void obey(Command command, double now);
  void scheduleAnswer(double now);
  void startStream(double now);
  void produceUpTo(double now);
  void produceFrame();
  bool interruptedByFault();
  [[nodiscard]] double frameDue() const;

  static constexpr std::int64_t framesPerBlock = 256;

  std::unique_ptr<FrameSource> source_;
  Faults faults_;
  double framesPerSecond_;
  CommandRecogniser recogniser_;
  std::deque<Answer> answers_;  // in the order of their times
  Wire wire_;
  std::vector<std::string> events_;
  bool streaming_ = false, unplugged_ = false;
  double streamStart_ = 0;
  std::int64_t framesOfStream_ = 0;                                           // since streamStart_
  std::int64_t framesStreamed_ = 0, bytesStreamed_ = 0, startsReceived_ = 0;  // since the program's start
};

}  // namespace korvinel::instrument
