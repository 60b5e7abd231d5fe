#include "platform/serial_port.h"

#include <gtest/gtest.h>

#include <memory>

#include "platform/port_fault.h"
#include "unit/platform/line_under_test.h"
#ifdef _WIN32
#include "unit/platform/windows/com_port_line.h"
#else
#include "unit/platform/posix/terminal_line.h"
#endif

namespace korvinel::platform {
namespace {

std::string bytesUpTo(std::size_t count) {
  std::string bytes(count, '\0');
  for (std::size_t i = 0; i < count; ++i) bytes[i] = static_cast<char>(static_cast<unsigned char>(i % 251));
  return bytes;
}

/// What all serial ports must have in common: this system's, and the scripted one that other tests use.
struct EverySerialPort : testing::TestWithParam<const char*> {
  std::unique_ptr<LineUnderTest> line;

  SerialPort& port() { return line->port(); }
  void SetUp() override {
    makeLine();
    if (line == nullptr) GTEST_SKIP() << "no COM port to test with";
    port().setSettings("19200,N,8,1");
    port().setReceiveBuffer(1600);
    port().setReadLength(0);
    port().open();
    port().discardInput();
  }
  void TearDown() override {
    if (line != nullptr) port().close();
  }
  void makeLine() {
    if (std::string(GetParam()) == "scripted") {
      line = std::make_unique<ScriptedLine>();
      return port().select(1);
    }
#ifdef _WIN32
    if (ComPortLine::isThere()) line = std::make_unique<ComPortLine>();
#else
    line = std::make_unique<TerminalLine>();
#endif
  }
  void expectSilence() {
    EXPECT_EQ(port().waiting(), 0);
    EXPECT_EQ(port().read(), "");
    EXPECT_NO_THROW(port().discardInput());
    EXPECT_EQ(port().alignmentDoubt(), "");
  }
};

#ifdef _WIN32
const auto kinds = testing::Values("scripted", "comPort");
#else
const auto kinds = testing::Values("scripted", "terminal");
#endif

INSTANTIATE_TEST_SUITE_P(Implementations, EverySerialPort, kinds,
                         [](const auto& kind) { return std::string(kind.param); });

TEST_P(EverySerialPort, CarriesAll256ByteCodesBothWaysUnchanged) {
  std::string all(256, '\0');
  for (int code = 0; code < 256; ++code) all[static_cast<std::size_t>(code)] = static_cast<char>(code);
  line->send(all);
  EXPECT_EQ(port().waiting(), 256);
  EXPECT_EQ(port().read(), all);
  const std::string backwards(all.rbegin(), all.rend());
  line->expectToReceive(256);
  port().write(backwards);
  EXPECT_EQ(line->received(), backwards) << "and not what was received, sent back";
  EXPECT_EQ(port().read(), "");
}

TEST_P(EverySerialPort, LosesWhatDoesNotFitTheReceiveBuffer) {
  line->send(bytesUpTo(3000));
  EXPECT_EQ(port().waiting(), 1600);
  EXPECT_EQ(port().read(), bytesUpTo(1600));
  EXPECT_EQ(port().waiting(), 0);
  line->send("OK");
  EXPECT_EQ(port().read(), "OK");
}

TEST_P(EverySerialPort, ReceivesAgainAfterAnOverflowAndADiscard) {
  line->send(bytesUpTo(3000));
  EXPECT_EQ(port().waiting(), 1600);
  port().discardInput();
  EXPECT_EQ(port().waiting(), 0);
  line->send("OK");
  EXPECT_EQ(port().read(), "OK");
}

TEST_P(EverySerialPort, DiscardsWhatNobodyHasLookedAt) {
  line->send("old");
  port().discardInput();
  EXPECT_EQ(port().read(), "");
}

TEST_P(EverySerialPort, ReadTakesAtMostTheReadLengthOldestFirst) {
  port().setReadLength(2);
  line->send("OKAY!");
  EXPECT_EQ(port().read(), "OK");
  EXPECT_EQ(port().waiting(), 3);
  EXPECT_EQ(port().read(), "AY");
  EXPECT_EQ(port().read(), "!");
  EXPECT_EQ(port().read(), "");
}

TEST_P(EverySerialPort, RtsAndDtrThatTheDeviceLacksAreNoError) {
  EXPECT_NO_THROW(port().raiseRts());
  EXPECT_NO_THROW(port().raiseDtr());
  EXPECT_TRUE(port().isOpen());
}

TEST_P(EverySerialPort, AClosedPortIsSilentAndCannotBeWritten) {
  line->send("old");
  EXPECT_EQ(port().waiting(), 3);
  port().close();
  EXPECT_NO_THROW(port().close());
  EXPECT_FALSE(port().isOpen());
  expectSilence();
  EXPECT_THROW(port().write("S"), PortFault);
  EXPECT_THROW(port().raiseRts(), PortFault);
  EXPECT_THROW(port().raiseDtr(), PortFault);
}

TEST_P(EverySerialPort, ReopeningForgetsWhatHadArrivedAndTheFrames) {
  port().expectFrames(4, false);
  line->send("1234ab");
  EXPECT_EQ(port().waiting(), 4);
  port().close();
  port().open();
  EXPECT_TRUE(port().isOpen());
  EXPECT_EQ(port().read(), "");
  EXPECT_EQ(port().alignmentDoubt(), "");
  line->send("OK!");
  EXPECT_EQ(port().read(), "OK!") << "single bytes";
}

TEST_P(EverySerialPort, IsClosedAndSilentOnceTheCableHasBeenPulled) {
  port().expectFrames(4, true);
  line->send("half a block");
  EXPECT_EQ(port().waiting(), 12);
  line->unplug();
  expectSilence();
  EXPECT_FALSE(port().isOpen());
  EXPECT_THROW(port().write("S"), PortFault);
  EXPECT_THROW(port().raiseRts(), PortFault);
}

TEST_P(EverySerialPort, TheFirstWriteToALostLineClosesIt) {
  line->unplug();
  EXPECT_THROW(port().write("S"), PortFault);
  EXPECT_FALSE(port().isOpen());
  expectSilence();
}

TEST_P(EverySerialPort, CannotBeOpenedWithoutADevice) {
  line->unplug();
  EXPECT_THROW(port().open(), PortFault);
  EXPECT_FALSE(port().isOpen());
  expectSilence();
}

TEST_P(EverySerialPort, ALineThatWasLostStaysSilentUntilItIsOpenedAgain) {
  line->unplug();
  line->plugIn();
  line->send("OK");
  expectSilence();
  EXPECT_FALSE(port().isOpen());
  port().open();
  port().discardInput();
  line->send("OK");
  EXPECT_EQ(port().read(), "OK");
}

TEST_P(EverySerialPort, AStreamIsHandedOutInWholeFrames) {
  port().expectFrames(4, true);
  // The line is not read before all bytes have arrived: a silence within a frame would start a new one.
  line->send("1234ab");
  EXPECT_EQ(port().read(), "1234");
  line->send("cd5");
  port().discardInput();
  line->send("678efgh");
  EXPECT_EQ(port().read(), "efgh");
  EXPECT_EQ(port().alignmentDoubt(), "");
  EXPECT_FALSE(port().leftFrameUnfinished());
}

TEST_P(EverySerialPort, ASilenceWithinAFrameBeginsAnewInDoubt) {
  port().expectFrames(4, true);
  line->send("1234ab");
  EXPECT_EQ(port().waiting(), 4);
  line->pass(0.2);
  EXPECT_EQ(port().waiting(), 4);
  EXPECT_GT(port().silentFor(), 0.19);
  EXPECT_TRUE(port().leftFrameUnfinished());
  EXPECT_NE(port().alignmentDoubt(), "");
  line->send("5678");
  EXPECT_EQ(port().read(), "12345678");
  port().expectFrames(4, true);
  EXPECT_FALSE(port().leftFrameUnfinished());
  EXPECT_EQ(port().alignmentDoubt(), "");
}

TEST_P(EverySerialPort, AStreamThatBeganBeforeItsFramesWereCountedIsInDoubt) {
  port().expectFrames(4, false);
  EXPECT_NE(port().alignmentDoubt(), "");
}

TEST_P(EverySerialPort, ASystemThatWasFullPutsTheFramesInDoubt) {
  port().expectFrames(4, true);
  line->send(bytesUpTo(3000));
  EXPECT_EQ(port().waiting(), 1600);
  EXPECT_EQ(port().alignmentDoubt(), "");
  line->send(bytesUpTo(4000));
  EXPECT_EQ(port().waiting(), 1600);
  EXPECT_NE(port().alignmentDoubt(), "");
  port().expectFrames(4, true);
  EXPECT_EQ(port().alignmentDoubt(), "");
}

TEST_P(EverySerialPort, BytesThatTheSystemCountsAsLostPutTheFramesInDoubt) {
  port().expectFrames(4, true);
  EXPECT_EQ(port().waiting(), 0);
  EXPECT_EQ(port().alignmentDoubt(), "");
  if (!line->systemCountsALostByte()) GTEST_SKIP() << "the system cannot be made to count one";
  EXPECT_EQ(port().waiting(), 0);
  EXPECT_NE(port().alignmentDoubt(), "");
  port().expectFrames(4, true);
  EXPECT_EQ(port().waiting(), 0);
  EXPECT_EQ(port().alignmentDoubt(), "");
}

TEST_P(EverySerialPort, SettingsThatNoLineHasAreRefused) {
  EXPECT_NO_THROW(port().setSettings("9600,e,7,2"));
  for (const char* settings : {"", "19200", "19200,N,8", "19200,X,8,1", "x,N,8,1"})
    EXPECT_THROW(port().setSettings(settings), PortFault) << settings;
}

}  // namespace
}  // namespace korvinel::platform
