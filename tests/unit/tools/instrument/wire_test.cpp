#include "instrument/wire.h"

#include <gtest/gtest.h>

#include <limits>

#include "instrument/instrument.h"

namespace korvinel::instrument {
namespace {

constexpr double byteSeconds = 10.0 / 19200;
constexpr double frameSeconds = 1.0 / 128;

Wire wireWith(Pace pace, int chunkBytes, double latencySeconds = 0.016) {
  return {{pace, chunkBytes, latencySeconds}, byteSeconds, frameSeconds};
}

std::string joined(const std::vector<std::string>& chunks) {
  std::string bytes;
  for (const std::string& chunk : chunks) bytes += chunk;
  return bytes;
}

TEST(Wire, SendsTheBytesOfAFrameBackToBackAt19200Baud) {
  Wire wire = wireWith(Pace::backToBack, 1);
  wire.put(1, "abcd");
  for (int bytes = 1; bytes <= 4; ++bytes) {
    EXPECT_EQ(joined(wire.takeDue(1 + bytes * byteSeconds - 1e-6)), "");
    EXPECT_EQ(joined(wire.takeDue(1 + bytes * byteSeconds + 1e-6)), std::string(1, "abcd"[bytes - 1]));
  }
  EXPECT_EQ(wire.nextDue(), std::numeric_limits<double>::infinity());
}

TEST(Wire, SpreadsTheBytesOverTheFramesTime) {
  Wire wire = wireWith(Pace::evenlySpread, 1);
  wire.put(1, "abcd");
  wire.put(1 + frameSeconds, "efgh");
  for (int bytes = 1; bytes <= 8; ++bytes)
    EXPECT_EQ(joined(wire.takeDue(1 + (bytes - 1) * frameSeconds / 4 + byteSeconds + 1e-6)),
              std::string(1, "abcdefgh"[bytes - 1]));
}

TEST(Wire, CarriesWholeFramesAtOnceOnRequest) {
  Wire wire = wireWith(Pace::wholeFrames, 1);
  wire.put(1, "abcd");
  wire.putAnswer(1, "OK");
  EXPECT_EQ(wire.takeDue(1), (std::vector<std::string>{"abcd", "OK"}));
}

TEST(Wire, HandsOnFullChunksAndCutsFramesByThem) {
  Wire wire = wireWith(Pace::backToBack, 3, 1);
  wire.put(1, "abcd");
  wire.put(1 + frameSeconds, "efgh");
  EXPECT_EQ(wire.takeDue(1.05), (std::vector<std::string>{"abc", "def"}));
}

TEST(Wire, HandsOnFewerBytesAfterHalfOfTheLatencyToTheWhole) {
  Wire wire = wireWith(Pace::backToBack, 62, 0.016);
  wire.put(1, "abcd");
  const double first = 1 + byteSeconds;
  EXPECT_EQ(joined(wire.takeDue(first + 0.0079)), "");
  EXPECT_GT(wire.nextDue(), first + 0.0079);
  EXPECT_EQ(wire.takeDue(first + 0.0161), (std::vector<std::string>{"abcd"}));
}

TEST(Wire, ALatencyShorterThanAFrameCutsIt) {
  Wire wire = wireWith(Pace::backToBack, 62, 0.001);
  wire.put(1, "abcd");
  EXPECT_GT(wire.takeDue(2).size(), 1U);
}

TEST(Wire, BytesWaitForThoseBeforeThem) {
  Wire wire = wireWith(Pace::backToBack, 1);
  wire.put(1, "abcd");
  wire.putAnswer(1, "OK");
  EXPECT_EQ(joined(wire.takeDue(1 + 4 * byteSeconds + 1e-6)), "abcd");
  EXPECT_EQ(joined(wire.takeDue(1 + 6 * byteSeconds + 1e-6)), "OK");
}

TEST(Wire, ACutSendsNothingThatHasNotGone) {
  Wire wire = wireWith(Pace::backToBack, 1);
  wire.put(1, "abcd");
  wire.cut(1 + 2 * byteSeconds + 1e-6);
  wire.put(1.5, "efgh");
  EXPECT_EQ(joined(wire.takeDue(2)), "abefgh");
}

Instrument instrumentWith(const Faults& faults) {
  return {recordingSource("abcd", false), 1, faults, {Pace::evenlySpread, 1, 0.001}};
}

const std::string start = "S\x01\x04\x78\x41\x08\x42\xA5";

/// The bytes of a stream from 0 s during whose third frame a command is received.
std::string streamInterruptedBy(const std::string& command, const Faults& faults) {
  Instrument instrument = instrumentWith(faults);
  instrument.receive(start, 0);
  std::string bytes = joined(instrument.takeDue(3.4 * frameSeconds));
  instrument.receive(command, 3.4 * frameSeconds);
  return bytes + joined(instrument.takeDue(3.4 * frameSeconds + 1.9 * frameSeconds));
}

TEST(Instrument, FinishesAFrameBeforeItObeys) {
  EXPECT_EQ(streamInterruptedBy("\xFF\x01", {}), "abcdabcdabcd");
  const std::string restarted = streamInterruptedBy(start, {});
  EXPECT_EQ(restarted, "abcdabcdabcdabcd");
}

TEST(InstrumentFault, CutsItsFrameAtAStopAndAtAStart) {
  Faults faults;
  faults.cutFrames = true;
  EXPECT_EQ(streamInterruptedBy("\xFF\x01", faults), "abcdabcdab");
  EXPECT_EQ(streamInterruptedBy(start, faults), "abcdabcdababcd");
}

TEST(Instrument, AFasterStreamHasAFasterLine) {
  Instrument instrument(recordingSource("abcd", false), 50, {}, Wiring{});
  instrument.receive(start, 0);
  std::size_t bytes = 0;
  for (int tenth = 1; tenth <= 10; ++tenth) bytes += joined(instrument.takeDue(tenth * 0.1)).size();
  EXPECT_GT(bytes, 25'600U - 500);
}

}  // namespace
}  // namespace korvinel::instrument
