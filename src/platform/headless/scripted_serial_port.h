#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/buffered_line.h"
#include "platform/timing.h"

namespace korvinel::platform {

/// A serial line whose other end is a test or a simulated instrument. Records its calls. Bytes wait in the system until
/// the line is polled; a full system loses bytes anywhere in a frame.
class ScriptedSerialPort : public BufferedLine {
 public:
  explicit ScriptedSerialPort(const Clock& clock) : clock_(clock) {}
  void select(int portNumber) override { selected_ = portNumber; }
  void setSettings(std::string_view settings) override;
  void open() override;
  void close() override;
  [[nodiscard]] bool isOpen() const override { return open_; }
  void raiseRts() override { raise("rts"); }
  void raiseDtr() override { raise("dtr"); }
  void discardInput() override;
  [[nodiscard]] std::string read() override;
  void write(std::string_view bytes) override;

  /// The other end's part.
  void deliver(std::string_view bytes);  ///< bytes that the system has no room for are lost
  [[nodiscard]] int undelivered() const { return static_cast<int>(system_.size()) + received().waiting(); }
  void overrun() { overrun_ = true; }  ///< the system counts bytes that it had to lose
  std::function<void()> beforeRead;    ///< called between the last poll and a read
  std::function<void(const std::string& bytes)> onWritten;
  void unplug();                         ///< the line fails at its next use; opening fails too
  void plugIn() { unplugged_ = false; }  ///< a new device: the line has to be opened again
  [[nodiscard]] bool connected() const { return open_ && !lost_; }

  /// In order: "open 2 19200,N,8,1", "rts", "dtr", "discard", "write <decimal bytes>", "close".
  const std::vector<std::string>& history() const { return history_; }
  const std::string& written() const { return written_; }  ///< all bytes written so far
  int readLength() const { return received().readLength(); }
  int capacity() const { return received().capacity(); }

 private:
  static constexpr std::size_t systemBuffer = 4096;

  void takeFromSystem() override;
  void raise(const std::string& modemLine);
  void fail();
  void dropFromSystem() override { system_.clear(); }
  [[nodiscard]] double seconds() const override { return clock_.seconds(); }
  void happened(const std::string& event) { history_.push_back(event); }

  const Clock& clock_;
  int selected_ = 0;
  std::string settings_;
  bool open_ = false;
  bool unplugged_ = false;
  bool lost_ = false;  ///< open on a device that has been unplugged
  bool overrun_ = false;
  std::string system_;
  std::string written_;
  std::vector<std::string> history_;
};

}  // namespace korvinel::platform
