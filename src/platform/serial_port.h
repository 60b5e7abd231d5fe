#pragma once

#include <string>
#include <string_view>

#include "values/runtime_error.h"

namespace korvinel::platform {

/// The port cannot be opened, is closed, or its line has failed (an unplugged adapter). A failed line is closed at its
/// first error and counts as silent until it is opened again.
struct PortFault : RuntimeError {
  explicit PortFault(const std::string& message) : RuntimeError(Fault::output, message) {}
};

/// A serial line without flow control.
struct SerialPort {
  virtual ~SerialPort() = default;

  virtual void select(int portNumber) = 0;                  ///< 1 = first port; takes effect at the next opening
  virtual void setSettings(std::string_view settings) = 0;  ///< "19200,N,8,1": baud, parity, data bits, stop bits
  virtual void setReceiveBuffer(int bytes) = 0;             ///< what arrives beyond it is lost
  virtual void setReadLength(int bytes) = 0;                ///< what one read takes; 0 = everything waiting

  virtual void open() = 0;   ///< throws PortFault; the line carries single bytes
  virtual void close() = 0;  ///< a closed port may be closed again
  [[nodiscard]] virtual bool isOpen() const = 0;
  virtual void raiseRts() = 0;  ///< a line without it is no error
  virtual void raiseDtr() = 0;

  [[nodiscard]] virtual int waiting() = 0;  ///< bytes that have arrived and not been read; 0 when closed or failed
  virtual void discardInput() = 0;          ///< drops what has arrived; nothing happens on a closed port
  /// Takes what has arrived, oldest first, at most the read length; never waits. Fewer bytes, even none, is no error.
  [[nodiscard]] virtual std::string read() = 0;
  virtual void write(std::string_view bytes) = 0;  ///< throws PortFault

  /// Until the port is closed the line carries frames of so many bytes, 1 or more. `waiting`, `read` and `discardInput`
  /// then know whole frames only: an unfinished one waits until it is whole, and what does not fit the receive buffer
  /// is lost in whole frames. `lineIsSilent`: what has arrived is dropped, the next byte is the first of a frame, and
  /// any doubt ends. Otherwise frames are counted on; where none have been counted yet they begin in doubt.
  virtual void expectFrames(int bytesPerFrame, bool lineIsSilent) = 0;
  /// Why it is no longer certain where the frames begin (bytes may have been lost); "" = certain, or no frames.
  [[nodiscard]] virtual std::string alignmentDoubt() const = 0;
  /// A silence of some frames' time has come in the middle of a frame since `expectFrames`; a new one began after it.
  [[nodiscard]] virtual bool leftFrameUnfinished() const = 0;
  /// Seconds without a byte up to the last look at the line (`waiting`, `read` or `discardInput`).
  [[nodiscard]] virtual double silentFor() const = 0;
};

}  // namespace korvinel::platform
