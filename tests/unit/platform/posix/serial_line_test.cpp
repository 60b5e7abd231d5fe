#include "platform/posix/serial_line.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "temporary_folder.h"
#include "unit/platform/posix/pseudo_terminal.h"

namespace korvinel::platform {
namespace {

using testing::HasSubstr;

/// Looks until the condition holds, for at most two seconds: a pseudo-terminal hands bytes on in its own time.
template <typename Condition>
bool eventually(Condition condition) {
  for (int look = 0; look < 1000; ++look) {
    if (condition()) return true;
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
  return false;
}

struct SerialLineOnATerminal : testing::Test {
  PseudoTerminal farEnd;
  SerialLine line{[this](int) { return farEnd.device(); }};

  void openLine() {
    line.select(1);
    line.setSettings("19200,N,8,1");
    line.setReceiveBuffer(1600);
    line.setReadLength(0);
    line.open();
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

std::string faultOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const PortFault& fault) {
    return fault.what();
  }
  return "";
}

TEST_F(SerialLineOnATerminal, CarriesAll256ByteCodesBothWaysUnchanged) {
  openLine();
  std::string all(256, '\0');
  for (int code = 0; code < 256; ++code) all[static_cast<std::size_t>(code)] = static_cast<char>(code);
  farEnd.send(all);
  ASSERT_TRUE(arrives(256));
  EXPECT_EQ(line.read(), all);
  line.write(all);
  EXPECT_EQ(farEnd.receive(256), all);
}

TEST_F(SerialLineOnATerminal, DoesNotSendBackWhatItReceives) {
  openLine();
  farEnd.send("TEST\r\n");
  ASSERT_TRUE(arrives(6));
  line.write("x");
  EXPECT_EQ(farEnd.receive(1), "x");
}

TEST_F(SerialLineOnATerminal, LosesWhatDoesNotFitTheReceiveBuffer) {
  openLine();
  const std::string sent = bytesUpTo(3000);
  farEnd.send(sent);
  ASSERT_TRUE(eventually([&] { return farEnd.pending() == 3000; }));
  EXPECT_EQ(line.waiting(), 1600);
  EXPECT_EQ(line.read(), sent.substr(0, 1600));
  EXPECT_EQ(line.waiting(), 0);
}

TEST_F(SerialLineOnATerminal, ReceivesAgainAfterAnOverflowAndADiscard) {
  openLine();
  farEnd.send(bytesUpTo(3000));
  ASSERT_TRUE(eventually([&] { return farEnd.pending() == 3000; }));
  EXPECT_EQ(line.waiting(), 1600);
  line.discardInput();
  EXPECT_EQ(line.waiting(), 0);
  farEnd.send("OK");
  ASSERT_TRUE(arrives(2));
  EXPECT_EQ(line.read(), "OK");
}

TEST_F(SerialLineOnATerminal, ReadTakesAtMostTheReadLengthOldestFirst) {
  openLine();
  line.setReadLength(2);
  farEnd.send("OKAY");
  ASSERT_TRUE(arrives(4));
  EXPECT_EQ(line.read(), "OK");
  EXPECT_EQ(line.read(), "AY");
  EXPECT_EQ(line.read(), "");
}

TEST_F(SerialLineOnATerminal, RtsAndDtrThatTheDeviceLacksAreNoError) {
  openLine();
  EXPECT_NO_THROW(line.raiseRts());
  EXPECT_NO_THROW(line.raiseDtr());
  EXPECT_TRUE(line.isOpen());
}

TEST_F(SerialLineOnATerminal, IsClosedAndSilentOnceTheFarEndHasGone) {
  openLine();
  farEnd.send("half a block");
  ASSERT_TRUE(arrives(12));
  farEnd.hangUp();
  EXPECT_EQ(line.waiting(), 0);
  EXPECT_FALSE(line.isOpen());
  EXPECT_EQ(line.read(), "");
  EXPECT_NO_THROW(line.discardInput());
  EXPECT_THROW(line.write("S"), PortFault);
  EXPECT_THROW(line.raiseRts(), PortFault);
}

TEST_F(SerialLineOnATerminal, FirstWriteToALostLineClosesIt) {
  openLine();
  farEnd.hangUp();
  EXPECT_THROW(line.write("S"), PortFault);
  EXPECT_FALSE(line.isOpen());
}

TEST_F(SerialLineOnATerminal, OpensAgainOnANewDeviceAfterTheOldOneHasGone) {
  openLine();
  farEnd.hangUp();
  ASSERT_EQ(line.waiting(), 0);
  farEnd = PseudoTerminal();
  line.open();
  farEnd.send("OK");
  ASSERT_TRUE(arrives(2));
  EXPECT_EQ(line.read(), "OK");
}

TEST_F(SerialLineOnATerminal, ReopeningForgetsWhatHadArrived) {
  openLine();
  farEnd.send("old");
  ASSERT_TRUE(arrives(3));
  line.close();
  EXPECT_EQ(line.waiting(), 0);
  line.close();
  line.open();
  EXPECT_EQ(line.read(), "");
}

TEST_F(SerialLineOnATerminal, RefusesALineThatIsInUse) {
  openLine();
  SerialLine second([this](int) { return farEnd.device(); });
  EXPECT_THAT(faultOf([&] { second.open(); }), HasSubstr("in uso"));
  EXPECT_FALSE(second.isOpen());
}

TEST_F(SerialLineOnATerminal, AStreamIsHandedOutInWholeFrames) {
  openLine();
  line.expectFrames(4, true);
  // Nobody looks until the bytes are there: a silence within a frame would begin a new one.
  const auto sends = [&](const std::string& bytes) {
    farEnd.send(bytes);
    return eventually([&] { return farEnd.pending() == static_cast<int>(bytes.size()); });
  };
  ASSERT_TRUE(sends("1234ab"));
  EXPECT_EQ(line.read(), "1234");
  ASSERT_TRUE(sends("cd5"));
  line.discardInput();
  ASSERT_TRUE(sends("678efgh"));
  EXPECT_EQ(line.read(), "efgh");
  EXPECT_EQ(line.alignmentDoubt(), "");
}

TEST_F(SerialLineOnATerminal, ASystemThatWasFullPutsTheFramesInDoubt) {
  openLine();
  line.expectFrames(4, true);
  farEnd.send(bytesUpTo(3000));
  ASSERT_TRUE(eventually([&] { return farEnd.pending() == 3000; }));
  EXPECT_EQ(line.waiting(), 1600);
  EXPECT_EQ(line.alignmentDoubt(), "");
  farEnd.send(bytesUpTo(4000));
  ASSERT_TRUE(eventually([&] { return farEnd.pending() == 4000; }));
  EXPECT_EQ(line.waiting(), 1600);
  EXPECT_NE(line.alignmentDoubt(), "");
  line.expectFrames(4, true);
  EXPECT_EQ(line.alignmentDoubt(), "");
}

TEST_F(SerialLineOnATerminal, BytesThatTheSystemCountsAsLostPutTheFramesInDoubt) {
  long errors = 7;
  SerialLine counting([this](int) { return farEnd.device(); }, [&errors](int) { return errors; });
  counting.open();
  counting.expectFrames(4, true);
  EXPECT_EQ(counting.waiting(), 0);
  EXPECT_EQ(counting.alignmentDoubt(), "");
  ++errors;
  EXPECT_EQ(counting.waiting(), 0);
  EXPECT_NE(counting.alignmentDoubt(), "");
  counting.expectFrames(4, true);
  EXPECT_EQ(counting.waiting(), 0);
  EXPECT_EQ(counting.alignmentDoubt(), "");
}

TEST_F(SerialLineOnATerminal, ADeviceThatCountsNoErrorsIsNoDoubt) {
  openLine();
  line.expectFrames(4, true);
  farEnd.send("1234");
  ASSERT_TRUE(arrives(4));
  EXPECT_EQ(line.alignmentDoubt(), "");
}

TEST(SerialLine, OpeningNamesWhatIsNoSerialPort) {
  const TemporaryFolder folder;
  writeFile(folder / "file", "text");
  const std::pair<std::string, std::string> cases[] = {
      {folder / "nothing", "non c'e'"},
      {folder / "file", "non e' una porta seriale"},
      {folder.path(), "non e' una porta seriale"},
      {"/dev/null", "non e' una porta seriale"},
  };
  for (const auto& [path, reason] : cases) {
    SerialLine line([device = path](int) { return device; });
    const std::string fault = faultOf([&] { line.open(); });
    EXPECT_THAT(fault, HasSubstr(path));
    EXPECT_THAT(fault, HasSubstr(reason));
    EXPECT_FALSE(line.isOpen());
  }
}

TEST(SerialLine, AsksForTheDeviceOfTheSelectedPort) {
  int asked = 0;
  SerialLine line([&asked](int portNumber) {
    asked = portNumber;
    return std::string("/nowhere");
  });
  line.select(3);
  EXPECT_THROW(line.open(), PortFault);
  EXPECT_EQ(asked, 3);
}

TEST(SerialLine, AClosedLineIsSilentAndCannotBeWritten) {
  SerialLine line([](int) { return std::string("/nowhere"); });
  EXPECT_EQ(line.waiting(), 0);
  EXPECT_EQ(line.read(), "");
  EXPECT_NO_THROW(line.discardInput());
  EXPECT_THROW(line.write("S"), PortFault);
}

TEST(LineSettings, AreSpeedParityDataBitsAndStopBits) {
  struct Case {
    const char* settings;
    speed_t speed;
    tcflag_t flags;
  };
  const Case cases[] = {{"19200,N,8,1", B19200, CS8},
                        {"9600,e,7,2", B9600, CS7 | PARENB | CSTOPB},
                        {"1200,O,5,1", B1200, CS5 | PARENB | PARODD}};
  for (const Case& expected : cases) {
    const LineSettings parsed = parseLineSettings(expected.settings);
    EXPECT_EQ(parsed.speed, expected.speed) << expected.settings;
    EXPECT_EQ(parsed.flags, expected.flags) << expected.settings;
  }
}

TEST(LineSettings, ThatNoLineHasAreRefused) {
  for (const char* settings : {"", "19200", "19200,N,8", "19200,N,8,3", "19200,X,8,1", "19200,N,9,1", "19201,N,8,1",
                               ",N,8,1", "19200x,N,8,1", "19200,N,8,1,"})
    EXPECT_THROW(static_cast<void>(parseLineSettings(settings)), PortFault) << settings;
}

}  // namespace
}  // namespace korvinel::platform
