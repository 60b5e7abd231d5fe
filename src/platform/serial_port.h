#pragma once

#include <string>
#include <string_view>

namespace korvinel::platform {

/// A serial line without flow control. Its faults are in port_fault.h.
struct SerialPort {
  virtual ~SerialPort() = default;

  virtual void select(int portNumber) = 0;                  ///< 1 = first port; takes effect at the next opening
  virtual void setSettings(std::string_view settings) = 0;  ///< "19200,N,8,1": baud, parity, data bits, stop bits
  virtual void setReceiveBuffer(int bytes) = 0;             ///< what arrives beyond it is lost
  virtual void setReadLength(int bytes) = 0;                ///< the most that one read returns; 0 = everything waiting

  virtual void open() = 0;   ///< throws PortFault; the line then carries single bytes
  virtual void close() = 0;  ///< has no effect on a closed port
  [[nodiscard]] virtual bool isOpen() const = 0;
  virtual void raiseRts() = 0;  ///< no error on a line without it
  virtual void raiseDtr() = 0;

  [[nodiscard]] virtual int waiting() = 0;  ///< bytes that have arrived and not been read; 0 when closed or failed
  virtual void discardInput() = 0;          ///< drops what has arrived; no effect on a closed port
  /// Returns what has arrived, oldest first, at most the read length; never waits. Fewer bytes or none is not an error.
  [[nodiscard]] virtual std::string read() = 0;
  virtual void write(std::string_view bytes) = 0;  ///< throws PortFault

  /// From now until the port is closed, the line carries frames of this length, 1 or more. `waiting`, `read` and
  /// `discardInput` then handle whole frames only: an unfinished one is held back until it is complete, and what does
  /// not fit the receive buffer is lost in whole frames. If `lineIsSilent`, what has arrived is dropped, the next byte
  /// is the first of a frame, and any doubt is cleared. Otherwise the count of frames continues; if there was none yet,
  /// it begins in doubt.
  virtual void expectFrames(int bytesPerFrame, bool lineIsSilent) = 0;
  /// Why the frames' beginnings are uncertain (bytes may have been lost); "" = certain, or no frames.
  [[nodiscard]] virtual std::string alignmentDoubt() const = 0;
  /// Whether, since `expectFrames`, the line has fallen silent in the middle of a frame; the next byte then began a new
  /// one.
  [[nodiscard]] virtual bool leftFrameUnfinished() const = 0;
  /// Seconds without a byte, as of the last call of `waiting`, `read` or `discardInput`.
  [[nodiscard]] virtual double silentFor() const = 0;
};

}  // namespace korvinel::platform
