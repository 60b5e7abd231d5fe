#pragma once

#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "headless_program.h"
#include "instrument/instrument.h"

namespace korvinel {

/// The simulated instrument, frame by frame and with its faults, at the other end of a headless program's line.
class InstrumentOnTheLine {
 public:
  InstrumentOnTheLine(platform::HeadlessPlatform& host, const instrument::Faults& faults,
                      instrument::Model model = instrument::Model::eyesClosed)
      : host_(host), instrument_(instrument::modelSource({{model}}, 1), 1, faults) {
    host_.serialPort.onWritten = [this](const std::string& bytes) { instrument_.receive(bytes, now()); };
    host_.time.onStep = [this] { exchange(); };
    host_.time.setStep(0.02);
  }

  /// Pulls the cable out, and plugs it in again after some seconds.
  void pullOut(double seconds) {
    host_.serialPort.unplug();
    instrument_.plugIn();  // its stream has ended
    host_.time.after(seconds, [this] { host_.serialPort.plugIn(); });
  }

 private:
  [[nodiscard]] double now() const { return host_.time.seconds(); }

  void exchange() {
    for (const std::string& piece : instrument_.takeDue(now())) host_.serialPort.deliver(piece);
    if (instrument_.unplugged() && host_.serialPort.connected()) pullOut(2);
  }

  platform::HeadlessPlatform& host_;
  instrument::Instrument instrument_;
};

}  // namespace korvinel
