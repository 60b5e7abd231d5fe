#include "platform/headless/scripted_instrument.h"

#include <gtest/gtest.h>

#include "platform/headless/virtual_time.h"

namespace korvinel::platform {
namespace {

const std::string startCommand("S\x01\x04\x78\x41\x08\x42\xA5");

struct ScriptedInstrumentTest : testing::Test {
  OperationEdge edge;
  VirtualTime time{edge};
  ScriptedSerialPort port{time};
  ScriptedInstrument instrument{port};

  void SetUp() override { port.open(); }
};

TEST_F(ScriptedInstrumentTest, AnswersTheTestCommandAlone) {
  port.write("TEST");
  EXPECT_EQ(port.read(), "");
  port.write("TEST\xC0");
  EXPECT_EQ(port.read(), "OK");
  instrument.answer = "";
  port.write("TEST\xC0");
  EXPECT_EQ(port.read(), "");
}

TEST_F(ScriptedInstrumentTest, StreamsFromStartToStopABlockWheneverTheLineIsEmpty) {
  instrument.deliverIfPolled();
  EXPECT_EQ(port.undelivered(), 0);
  instrument.blocks.push_back("first");
  port.write(startCommand);
  EXPECT_TRUE(instrument.streaming());
  instrument.deliverIfPolled();
  instrument.deliverIfPolled();
  EXPECT_EQ(port.read(), "first");
  instrument.deliverIfPolled();
  EXPECT_EQ(port.read(), instrument.idleBlock);
  EXPECT_EQ(instrument.blocksDelivered, 2);
  port.write("\xFF\x01");
  EXPECT_FALSE(instrument.streaming());
  instrument.deliverIfPolled();
  EXPECT_EQ(port.undelivered(), 0);
}

TEST_F(ScriptedInstrumentTest, DeliversNothingIntoALineThatIsNotThere) {
  port.write(startCommand);
  port.unplug();
  instrument.deliverIfPolled();
  EXPECT_EQ(instrument.blocksDelivered, 0);
}

}  // namespace
}  // namespace korvinel::platform
