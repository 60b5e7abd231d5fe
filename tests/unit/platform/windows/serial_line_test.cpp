#include "platform/windows/serial_line.h"

#include <gtest/gtest.h>

#include <chrono>

#include "platform/port_fault.h"
#include "unit/platform/windows/com_port_line.h"

/// What only a COM port has; what it has in common with every serial port is in serial_port_test.cpp.
namespace korvinel::platform {
namespace {

TEST(WindowsSerialLine, AReadNeverWaits) {
  if (!ComPortLine::isThere()) GTEST_SKIP() << "no COM port to test with";
  ComPortLine line;
  line.port().open();
  line.port().discardInput();
  const auto before = std::chrono::steady_clock::now();
  EXPECT_EQ(line.port().read(), "");
  EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::milliseconds(500));
}

TEST(WindowsSerialLineWithoutADevice, OpeningNamesThePortThatIsNotThere) {
  SerialLine line([](int) { return std::string("\\\\.\\COM77"); });
  try {
    line.open();
    FAIL() << "no fault";
  } catch (const PortFault& fault) {
    EXPECT_EQ(fault.facts().path, "\\\\.\\COM77");
  }
  EXPECT_FALSE(line.isOpen());
  EXPECT_EQ(line.waiting(), 0);
  EXPECT_EQ(line.read(), "");
  EXPECT_NO_THROW(line.discardInput());
  EXPECT_THROW(line.write("S"), PortFault);
  EXPECT_THROW(line.raiseRts(), PortFault);
}

}  // namespace
}  // namespace korvinel::platform
