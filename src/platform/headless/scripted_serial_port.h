#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/receive_buffer.h"
#include "platform/serial_port.h"

namespace korvinel::platform {

/// A serial line whose other end is played by a test or by a simulated instrument. Remembers what happened to it.
class ScriptedSerialPort : public SerialPort {
 public:
  void select(int portNumber) override { selected_ = portNumber; }
  void setSettings(std::string_view settings) override { settings_ = settings; }
  void setReceiveBuffer(int bytes) override { received_.setCapacity(bytes); }
  void setReadLength(int bytes) override { received_.setReadLength(bytes); }
  void open() override;
  void close() override;
  [[nodiscard]] bool isOpen() const override { return open_; }
  void raiseRts() override { happened("rts"); }
  void raiseDtr() override { happened("dtr"); }
  [[nodiscard]] int waiting() override { return received_.waiting(); }
  void discardInput() override;
  [[nodiscard]] std::string read() override { return received_.read(); }
  void write(std::string_view bytes) override;

  /// The other end's part.
  void deliver(std::string_view bytes);  ///< what does not fit the receive buffer is lost, as on the wire
  std::function<void(const std::string& bytes)> onWritten;
  void unplug();  ///< the line fails at its next use; opening fails too
  void plugIn() { unplugged_ = false; }
  [[nodiscard]] bool connected() const { return open_ && !unplugged_; }

  /// In order: "open 2 19200,N,8,1", "rts", "dtr", "discard", "write <decimal bytes>", "close".
  const std::vector<std::string>& history() const { return history_; }
  const std::string& written() const { return written_; }  ///< all bytes since the beginning
  int readLength() const { return received_.readLength(); }
  int capacity() const { return received_.capacity(); }

 private:
  void happened(const std::string& event) { history_.push_back(event); }

  int selected_ = 0;
  std::string settings_;
  bool open_ = false;
  bool unplugged_ = false;
  ReceiveBuffer received_;
  std::string written_;
  std::vector<std::string> history_;
};

}  // namespace korvinel::platform
