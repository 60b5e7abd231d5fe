#pragma once

#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "headless_program.h"
#include "instrument/instrument.h"

namespace korvinel {

/// The simulated instrument, with its faults and the byte timing of a cable, at the other end of a headless program's
/// line.
class InstrumentOnTheLine {
 public:
  InstrumentOnTheLine(platform::HeadlessPlatform& host, const instrument::Faults& faults,
                      instrument::Model model = instrument::Model::eyesClosed, const instrument::Wiring& wiring = {})
      : InstrumentOnTheLine(host, instrument::modelSource({{model}}, 1), faults, wiring) {}
  InstrumentOnTheLine(platform::HeadlessPlatform& host, std::unique_ptr<instrument::FrameSource> source,
                      const instrument::Faults& faults, const instrument::Wiring& wiring)
      : host_(host), instrument_(std::move(source), 1, faults, wiring) {
    host_.serialPort.onWritten = [this](const std::string& bytes) { instrument_.receive(bytes, now()); };
    host_.time.onStep = [this] { exchange(); };
    host_.time.setStep(0.02);
  }

  /// Unplugs the cable, and plugs it in again after some seconds.
  void pullOut(double seconds) {
    host_.serialPort.unplug();
    instrument_.plugIn();  // its stream has ended
    host_.time.after(seconds, [this] { host_.serialPort.plugIn(); });
  }

  [[nodiscard]] std::int64_t bytesStreamed() const { return instrument_.bytesStreamed(); }

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
