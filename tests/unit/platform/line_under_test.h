#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/headless/scripted_serial_port.h"
#include "platform/headless/virtual_time.h"
#include "platform/operation_edge.h"

namespace korvinel::platform {

/// A serial line of some kind, and its far end, which the test simulates.
class LineUnderTest {
 public:
  virtual ~LineUnderTest() = default;
  virtual SerialPort& port() = 0;
  virtual void send(std::string_view bytes) = 0;           ///< returns once the near end's system holds them
  virtual void expectToReceive(std::size_t count) = 0;     ///< must be called before the near end writes
  [[nodiscard]] virtual std::string received() = 0;        ///< that many bytes, or fewer if they do not come
  virtual void unplug() = 0;                               ///< unplugs the adapter
  virtual void plugIn() = 0;                               ///< a new one with the same number
  virtual void pass(double seconds) = 0;                   ///< at least
  [[nodiscard]] virtual bool systemCountsALostByte() = 0;  ///< false if that cannot be simulated
};

/// The line that the tests of the program use.
class ScriptedLine : public LineUnderTest {
 public:
  SerialPort& port() override { return port_; }
  void send(std::string_view bytes) override { port_.deliver(bytes); }
  void expectToReceive(std::size_t) override { before_ = port_.written().size(); }
  std::string received() override { return port_.written().substr(before_); }
  void unplug() override { port_.unplug(); }
  void plugIn() override { port_.plugIn(); }
  void pass(double seconds) override { time_.jump(seconds); }
  bool systemCountsALostByte() override {
    port_.overrun();
    return true;
  }

 private:
  OperationEdge edge_;
  VirtualTime time_{edge_};
  ScriptedSerialPort port_{time_};
  std::size_t before_ = 0;
};

}  // namespace korvinel::platform
