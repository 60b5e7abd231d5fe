#pragma once

#include <string>
#include <string_view>

#include "platform/line_watch.h"
#include "platform/receive_buffer.h"
#include "platform/serial_port.h"

namespace korvinel::platform {

/// What the serial lines of all systems share. The line has its own receive buffer, into which every call moves all
/// that the system holds; what does not fit is lost, as on the wire. While it carries frames, every byte is counted,
/// dropped ones included, and anything that may have lost a byte raises a doubt.
class BufferedLine : public SerialPort {
 public:
  void setReceiveBuffer(int bytes) override { received_.setCapacity(bytes); }
  void setReadLength(int bytes) override { received_.setReadLength(bytes); }
  [[nodiscard]] int waiting() override;
  void discardInput() override;
  [[nodiscard]] std::string read() override;
  void expectFrames(int bytesPerFrame, bool lineIsSilent) override;
  [[nodiscard]] std::string alignmentDoubt() const override { return framed_ ? watch_.doubt() : std::string(); }
  [[nodiscard]] bool leftFrameUnfinished() const override { return leftUnfinished_; }
  [[nodiscard]] double silentFor() const override { return watch_.silentFor(); }

 protected:
  [[nodiscard]] const ReceiveBuffer& received() const { return received_; }
  [[nodiscard]] bool framed() const { return framed_; }
  void keep(std::string_view bytes);  ///< for takeFromSystem()
  void suspect(const std::string& reason) { watch_.suspect(reason); }
  void beginAnew();  ///< after opening or closing: single bytes, nothing received

 private:
  /// Passes everything that the system holds to keep(), and any sign of lost bytes to suspect().
  virtual void takeFromSystem() = 0;
  virtual void dropFromSystem() {}                   ///< discards what the system holds, uncounted
  [[nodiscard]] virtual double seconds() const = 0;  ///< of a clock that keeps running while the machine sleeps
  void look();

  ReceiveBuffer received_;
  LineWatch watch_;
  bool framed_ = false;
  bool leftUnfinished_ = false;
  std::size_t arrivedInLook_ = 0;
};

}  // namespace korvinel::platform
