#pragma once

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <thread>

#include "platform/windows/serial_line.h"
#include "unit/platform/line_under_test.h"

namespace korvinel::platform {

/// A COM port. Another process plays its far end (tests/windows/far_end.py): it takes its orders from the file
/// KORVINEL_TEST_FAR_END + ".order" and answers in the file + ".done". KORVINEL_TEST_PORT is the port's number.
class ComPortLine : public LineUnderTest {
 public:
  [[nodiscard]] static bool isThere() { return std::getenv("KORVINEL_TEST_PORT") != nullptr; }

  ComPortLine() {
    plugIn();  // a test before this one may have left it unplugged
    line_.select(std::atoi(std::getenv("KORVINEL_TEST_PORT")));
  }
  SerialPort& port() override { return line_; }
  void send(std::string_view bytes) override {
    std::string hex;
    for (const char byte : bytes) {
      const auto code = static_cast<unsigned char>(byte);
      hex += {digits[code / 16], digits[code % 16]};
    }
    answerTo("send " + hex);
  }
  void expectToReceive(std::size_t count) override { count_ = count; }
  std::string received() override {
    const std::string hex = answerTo("take " + std::to_string(count_));
    std::string bytes;
    for (std::size_t i = 0; i + 1 < hex.size(); i += 2)
      bytes += static_cast<char>(std::stoi(hex.substr(i, 2), nullptr, 16));
    return bytes;
  }
  void unplug() override { answerTo("unplug"); }
  void plugIn() override { answerTo("plug"); }
  void pass(double seconds) override { std::this_thread::sleep_for(std::chrono::duration<double>(seconds)); }
  bool systemCountsALostByte() override { return false; }

 private:
  static constexpr std::string_view digits = "0123456789abcdef";

  std::string answerTo(const std::string& order) {
    const std::string base = std::getenv("KORVINEL_TEST_FAR_END");
    std::ofstream(base + ".new", std::ios::binary) << order;
    std::filesystem::rename(base + ".new", base + ".order");
    for (int look = 0; look < 2500 && !std::filesystem::exists(base + ".done"); ++look) pass(0.002);
    std::string answer;
    {
      std::ifstream file(base + ".done", std::ios::binary);
      answer.assign(std::istreambuf_iterator<char>(file), {});
    }
    std::error_code ignored;
    std::filesystem::remove(base + ".done", ignored);
    return answer;
  }

  SerialLine line_{[](int number) { return "\\\\.\\COM" + std::to_string(number); }};
  std::size_t count_ = 0;
};

}  // namespace korvinel::platform
