#pragma once

#include <chrono>
#include <thread>

#include "platform/posix/serial_line.h"
#include "unit/platform/line_under_test.h"
#include "unit/platform/posix/pseudo_terminal.h"

namespace korvinel::platform {

/// A line on a pseudo-terminal.
class TerminalLine : public LineUnderTest {
 public:
  SerialPort& port() override { return line_; }
  void send(std::string_view bytes) override {
    const int before = farEnd_.pending();
    farEnd_.send(bytes);
    // A pseudo-terminal passes bytes on with a delay.
    for (int look = 0; look < 1000 && farEnd_.pending() < before + static_cast<int>(bytes.size()); ++look) pass(0.002);
  }
  void expectToReceive(std::size_t count) override { count_ = count; }
  std::string received() override { return farEnd_.receive(count_); }
  void unplug() override { farEnd_.hangUp(); }
  void plugIn() override { farEnd_ = PseudoTerminal(); }
  void pass(double seconds) override { std::this_thread::sleep_for(std::chrono::duration<double>(seconds)); }
  bool systemCountsALostByte() override {
    ++errors_;
    return true;
  }

 private:
  PseudoTerminal farEnd_;
  long errors_ = 7;
  SerialLine line_{[this](int) { return farEnd_.device(); }, [this](int) { return errors_; }};
  std::size_t count_ = 0;
};

}  // namespace korvinel::platform
