#include "platform/windows/serial_line.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <thread>

namespace korvinel::platform {
namespace {

using testing::HasSubstr;

/// Looks until the condition holds, for at most two seconds: the far end is another process.
template <typename Condition>
bool eventually(Condition condition) {
  for (int look = 0; look < 1000; ++look) {
    if (condition()) return true;
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
  return false;
}

/// A COM port whose far end (tests/windows/far_end.py) does what it is told in lines: "echo TEXT", "codes" for the
/// bytes 0..255, "count N" for N bytes 0..250 0..250 ..., "unplug"; KORVINEL_TEST_PORT is its number.
struct WindowsSerialLine : testing::Test {
  SerialLine line{[](int number) { return "\\\\.\\COM" + std::to_string(number); }};

  void SetUp() override {
    const char* port = std::getenv("KORVINEL_TEST_PORT");
    if (port == nullptr) GTEST_SKIP() << "no COM port to test with";
    line.select(std::atoi(port));
    line.setSettings("19200,N,8,1");
    line.setReceiveBuffer(1600);
    line.setReadLength(0);
    line.open();
    line.discardInput();
  }
  bool arrives(int count) {
    return eventually([&] { return line.waiting() >= count; });
  }
};

std::string bytesUpTo(std::size_t count) {
  std::string bytes(count, '\0');
  for (std::size_t i = 0; i < count; ++i) bytes[i] = static_cast<char>(static_cast<unsigned char>(i % 251));
  return bytes;
}

TEST_F(WindowsSerialLine, ReceivesAll256ByteCodesUnchanged) {
  line.write("codes\n");
  ASSERT_TRUE(arrives(256));
  std::string all(256, '\0');
  for (int code = 0; code < 256; ++code) all[static_cast<std::size_t>(code)] = static_cast<char>(code);
  EXPECT_EQ(line.read(), all);
}

TEST_F(WindowsSerialLine, SendsBytesUnchanged) {
  line.write("echo TEST\xC0\x01\x11\x13\x7F\xFF\n");
  ASSERT_TRUE(arrives(10));
  EXPECT_EQ(line.read(), "TEST\xC0\x01\x11\x13\x7F\xFF");
}

TEST_F(WindowsSerialLine, LosesWhatDoesNotFitTheReceiveBuffer) {
  line.write("count 3000\n");
  ASSERT_TRUE(arrives(1600));
  EXPECT_EQ(line.waiting(), 1600);
  EXPECT_EQ(line.read(), bytesUpTo(1600));
}

TEST_F(WindowsSerialLine, ReceivesAgainAfterAnOverflowAndADiscard) {
  line.write("count 3000\n");
  ASSERT_TRUE(arrives(1600));
  // What is still on its way is discarded too, once it is here.
  EXPECT_TRUE(eventually([&] {
    line.discardInput();
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    return line.waiting() == 0;
  }));
  line.write("echo OK\n");
  ASSERT_TRUE(arrives(2));
  EXPECT_EQ(line.read(), "OK");
}

TEST_F(WindowsSerialLine, ReadTakesAtMostTheReadLengthOldestFirst) {
  line.setReadLength(2);
  line.write("echo OKAY\n");
  ASSERT_TRUE(arrives(4));
  EXPECT_EQ(line.read(), "OK");
  EXPECT_EQ(line.read(), "AY");
  EXPECT_EQ(line.read(), "");
}

TEST_F(WindowsSerialLine, AStreamIsHandedOutInWholeFrames) {
  line.expectFrames(4, true);
  line.write("echo 123456\n");
  ASSERT_TRUE(arrives(4));
  EXPECT_EQ(line.read(), "1234");
  EXPECT_EQ(line.read(), "");
}

TEST_F(WindowsSerialLine, AReadNeverWaits) {
  const auto before = std::chrono::steady_clock::now();
  EXPECT_EQ(line.read(), "");
  EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::milliseconds(500));
}

TEST_F(WindowsSerialLine, RtsAndDtrThatTheDeviceLacksAreNoError) {
  EXPECT_NO_THROW(line.raiseRts());
  EXPECT_NO_THROW(line.raiseDtr());
  EXPECT_TRUE(line.isOpen());
}

TEST_F(WindowsSerialLine, ReopeningForgetsWhatHadArrived) {
  line.write("echo old\n");
  ASSERT_TRUE(arrives(3));
  line.close();
  EXPECT_EQ(line.waiting(), 0);
  line.close();
  line.open();
  EXPECT_EQ(line.read(), "");
}

TEST_F(WindowsSerialLine, IsClosedAndSilentOnceTheDeviceIsUnplugged) {
  line.write("unplug\n");
  EXPECT_TRUE(eventually([&] { return line.waiting() == 0 && !line.isOpen(); }));
  EXPECT_EQ(line.read(), "");
  EXPECT_NO_THROW(line.discardInput());
  EXPECT_THROW(line.write("S"), PortFault);
  EXPECT_TRUE(eventually([&] {
    try {
      line.open();
    } catch (const PortFault&) {
      return false;
    }
    return true;
  })) << "the new device cannot be opened";
  line.write("echo OK\n");
  ASSERT_TRUE(arrives(2));
  EXPECT_EQ(line.read(), "OK");
}

TEST(WindowsSerialLineWithoutADevice, OpeningNamesThePortThatIsNotThere) {
  SerialLine line([](int) { return std::string("\\\\.\\COM77"); });
  try {
    line.open();
    FAIL() << "no fault";
  } catch (const PortFault& fault) {
    EXPECT_THAT(fault.what(), HasSubstr("COM77"));
  }
  EXPECT_FALSE(line.isOpen());
  EXPECT_EQ(line.waiting(), 0);
  EXPECT_EQ(line.read(), "");
  EXPECT_NO_THROW(line.discardInput());
  EXPECT_THROW(line.write("S"), PortFault);
  EXPECT_THROW(line.raiseRts(), PortFault);
}

TEST(WindowsSerialLineWithoutADevice, SettingsThatNoLineHasAreRefused) {
  SerialLine line([](int) { return std::string(); });
  EXPECT_NO_THROW(line.setSettings("9600,e,7,2"));
  for (const char* settings : {"", "19200", "19200,N,8", "19200,X,8,1", "x,N,8,1"})
    EXPECT_THROW(line.setSettings(settings), PortFault) << settings;
}

}  // namespace
}  // namespace korvinel::platform
