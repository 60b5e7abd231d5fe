#include "platform/posix/serial_line.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

#include "frame/fault_text.h"
#include "platform/port_fault.h"
#include "temporary_folder.h"
#include "unit/platform/posix/pseudo_terminal.h"

namespace korvinel::platform {
namespace {

using testing::HasSubstr;

std::string faultOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const PortFault& fault) {
    return faultText(fault);
  }
  return "";
}

TEST(SerialLineOnATerminal, RefusesALineThatIsInUse) {
  const PseudoTerminal farEnd;
  SerialLine first([&](int) { return farEnd.device(); }), second([&](int) { return farEnd.device(); });
  first.open();
  EXPECT_THAT(faultOf([&] { second.open(); }), HasSubstr("in uso"));
  EXPECT_FALSE(second.isOpen());
}

TEST(SerialLineOnATerminal, ADeviceThatCountsNoErrorsIsNoDoubt) {
  const PseudoTerminal farEnd;
  SerialLine line([&](int) { return farEnd.device(); });
  line.open();
  line.expectFrames(4, true);
  farEnd.send("1234");
  EXPECT_EQ(line.waiting() % 4, 0);
  EXPECT_EQ(line.alignmentDoubt(), "");
}

TEST(SerialLine, OpeningNamesWhatIsNoSerialPort) {
  const TemporaryFolder folder;
  writeFile(folder / "file", "text");
  const std::pair<std::string, std::string> cases[] = {
      {folder / "nothing", "non c'è"},
      {folder / "file", "non è una porta seriale"},
      {folder.path(), "non è una porta seriale"},
      {"/dev/null", "non è una porta seriale"},
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
