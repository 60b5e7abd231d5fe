#include "platform/headless/scripted_serial_port.h"

#include <gmock/gmock.h>

#include "platform/headless/virtual_time.h"
#include "platform/port_fault.h"

/// What only the scripted line has; what it has in common with every serial port is in serial_port_test.cpp.
namespace korvinel::platform {
namespace {

using testing::ElementsAre;

struct ScriptedSerialPortTest : testing::Test {
  OperationEdge edge;
  VirtualTime time{edge};
  ScriptedSerialPort port{time};

  ScriptedSerialPortTest() {
    port.select(2);
    port.setSettings("19200,N,8,1");
  }
};

TEST_F(ScriptedSerialPortTest, RecordsWhatIsAskedOfItInOrder) {
  port.open();
  port.raiseRts();
  port.raiseDtr();
  port.discardInput();
  port.write("S\xFF");
  port.close();
  port.close();
  EXPECT_THAT(port.history(), ElementsAre("open 2 19200,N,8,1", "rts", "dtr", "discard", "write 83 255", "close"));
  EXPECT_EQ(port.written(), "S\xFF");
}

TEST_F(ScriptedSerialPortTest, WhatIsDeliveredToAClosedPortOrAFullSystemIsLost) {
  port.setReceiveBuffer(10'000);
  port.deliver("before");
  EXPECT_EQ(port.undelivered(), 0);
  port.open();
  port.deliver(std::string(4000, 'a'));
  port.deliver(std::string(200, 'b'));
  EXPECT_EQ(port.undelivered(), 4096);
  EXPECT_EQ(port.read(), std::string(4000, 'a') + std::string(96, 'b'));
}

TEST_F(ScriptedSerialPortTest, ACableCanBePulledBetweenTheLastLookAndTheReading) {
  port.open();
  port.deliver("1234");
  EXPECT_EQ(port.waiting(), 4);
  port.beforeRead = [this] { port.unplug(); };
  EXPECT_EQ(port.read(), "");
}

TEST_F(ScriptedSerialPortTest, TheFarEndHearsWhatIsWritten) {
  std::vector<std::string> heard;
  port.onWritten = [&](const std::string& bytes) { heard.push_back(bytes); };
  port.open();
  port.write("TEST");
  port.unplug();
  EXPECT_THROW(port.write("S"), PortFault);
  EXPECT_THAT(heard, ElementsAre("TEST"));
}

}  // namespace
}  // namespace korvinel::platform
