#include "instrument/instrument.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace korvinel::instrument {
namespace {

const std::string test = "TEST\xC0";
const std::string start = "S\x01\x04\x78\x41\x08\x42\xA5";
const std::string stop = "\xFF\x01";

// 64 frames whose bytes are all different, so that each shows its frame and channel.
std::string ramp() {
  std::string bytes;
  for (int code = 0; code < 256; ++code) bytes += static_cast<char>(code);
  return bytes;
}

Instrument instrumentWith(const std::vector<std::string>& faultTexts = {}, double speed = 1, bool once = false) {
  Faults faults;
  for (const std::string& text : faultTexts) addFault(faults, text);
  return {recordingSource(ramp(), once), speed, faults};
}

std::string sent(Instrument& instrument, double now) {
  std::string bytes;
  for (const std::string& piece : instrument.takeDue(now)) bytes += piece;
  return bytes;
}

std::string answerTo(Instrument& instrument, const std::string& command, double after = 0) {
  instrument.receive(command, 0);
  return sent(instrument, after);
}

constexpr double block = 2;  // seconds

TEST(Instrument, AnswersTheTestCommandAtOnce) {
  Instrument instrument = instrumentWith();
  EXPECT_EQ(answerTo(instrument, test), "OK");
  EXPECT_EQ(sent(instrument, 100), "");
}

TEST(Instrument, SaysNothingToAWrongChecksum) {
  Instrument instrument = instrumentWith();
  EXPECT_EQ(answerTo(instrument, "TEST\xC1", 10), "");
  EXPECT_EQ(answerTo(instrument, "S\x01\x04\x78\x41\x08\x42\xA4", 10), "");
}

TEST(Instrument, AnswersATestThatArrivesInPieces) {
  Instrument instrument = instrumentWith();
  instrument.receive("TE", 0);
  instrument.receive("ST", 1);
  EXPECT_EQ(sent(instrument, 1), "");
  instrument.receive("\xC0", 2);
  EXPECT_EQ(sent(instrument, 2), "OK");
}

TEST(Instrument, IsSilentBeforeTheStartCommand) {
  Instrument instrument = instrumentWith();
  EXPECT_EQ(sent(instrument, 1000), "");
  EXPECT_EQ(instrument.nextDue(), std::numeric_limits<double>::infinity());
}

TEST(Instrument, StreamsOneBlockInTwoSeconds) {
  Instrument instrument = instrumentWith();
  instrument.receive(start, 5);
  EXPECT_EQ(sent(instrument, 5), "");
  EXPECT_EQ(sent(instrument, 5 + 0.999 / 128), "");
  EXPECT_EQ(sent(instrument, 5 + 1.0 / 128), ramp().substr(0, 4));
  EXPECT_EQ(sent(instrument, 5 + block).size(), 1020U);
}

TEST(Instrument, DoesNotDriftHoweverOftenItIsAsked) {
  Instrument instrument = instrumentWith();
  instrument.receive(start, 0);
  std::size_t bytes = 0;
  for (int turn = 1; turn <= 600'000; ++turn) bytes += sent(instrument, turn * 0.001).size();
  EXPECT_EQ(bytes, 600U * 512);
}

TEST(Instrument, TellsWhenItsNextFrameIsDue) {
  Instrument instrument = instrumentWith();
  instrument.receive(start, 1);
  EXPECT_DOUBLE_EQ(instrument.nextDue(), 1 + 1.0 / 128);
  (void)sent(instrument, 2);
  EXPECT_DOUBLE_EQ(instrument.nextDue(), 1 + 129.0 / 128);
}

TEST(Instrument, HandsOutWholeFrames) {
  Instrument instrument = instrumentWith();
  instrument.receive(start, 0);
  const std::vector<std::string> pieces = instrument.takeDue(1);
  EXPECT_EQ(pieces.size(), 128U);
  EXPECT_TRUE(std::ranges::all_of(pieces, [](const std::string& piece) { return piece.size() == 4; }));
}

TEST(Instrument, StopsAtTheStopCommandAfterWhatWasDue) {
  Instrument instrument = instrumentWith();
  instrument.receive(start, 0);
  instrument.receive(stop, 1);
  EXPECT_EQ(sent(instrument, 100).size(), 512U);
}

TEST(Instrument, GoesOnWithTheSignalAfterAStop) {
  Instrument instrument = instrumentWith();
  instrument.receive(start, 0);
  instrument.receive(stop, 2.0 / 128);
  instrument.receive(start, 7);
  EXPECT_EQ(sent(instrument, 7 + 1.0 / 128), ramp().substr(0, 12));
}

TEST(Instrument, BeginsANewStreamAtChannelOneOnAStartDuringTheStream) {
  Instrument instrument = instrumentWith({"lose-byte=2"});
  instrument.receive(start, 0);
  EXPECT_EQ(sent(instrument, 1.5 / 128), ramp().substr(0, 1) + ramp().substr(2, 2));
  instrument.receive(start, 1.5 / 128);
  EXPECT_EQ(sent(instrument, 2.4 / 128), "");  // the first frame takes its full time after the new start
  EXPECT_EQ(sent(instrument, 2.5 / 128), ramp().substr(4, 4));
}

TEST(Instrument, EndsAStreamAtTheTestCommandSoThatTheAnswerStandsAlone) {
  Instrument instrument = instrumentWith();
  instrument.receive(start, 0);
  (void)sent(instrument, 1);
  instrument.receive(test, 1);
  EXPECT_EQ(sent(instrument, 10), "OK");
}

TEST(Instrument, IsFasterBySpeed) {
  Instrument instrument = instrumentWith({}, 50);
  instrument.receive(start, 0);
  EXPECT_EQ(sent(instrument, block / 50).size(), 1024U);
}

TEST(Instrument, DoesNotCatchUpWithMoreThan4096Frames) {
  Instrument instrument = instrumentWith();
  instrument.receive(start, 0);
  EXPECT_EQ(sent(instrument, 3600).size(), 4096U * 4);
  EXPECT_EQ(sent(instrument, 3600 + block).size(), 1024U);
}

TEST(Instrument, FallsSilentAtTheEndOfARecordingPlayedOnce) {
  Instrument instrument = instrumentWith({}, 1, true);
  instrument.receive(start, 0);
  EXPECT_EQ(sent(instrument, 10), ramp());
  instrument.receive(start, 10);
  EXPECT_EQ(sent(instrument, 20), "");
  EXPECT_EQ(instrument.nextDue(), std::numeric_limits<double>::infinity());
}

TEST(Instrument, KeepsALogOfWhatHappens) {
  Instrument instrument = instrumentWith({"silent-after=0"});
  instrument.receive("x" + test + "TE" + start + "\x02", 0);
  (void)sent(instrument, 1);
  EXPECT_EQ(instrument.takeEvents(),
            (std::vector<std::string>{"ignored bytes 78", "received test 54 45 53 54 c0", "ignored bytes 54 45",
                                      "received start 53 01 04 78 41 08 42 a5", "ignored bytes 02",
                                      "silent after 0 frames"}));
  EXPECT_TRUE(instrument.takeEvents().empty());
}

TEST(InstrumentFault, AnswersWrongly) {
  const std::pair<std::vector<std::string>, std::string> cases[] = {{{"no-answer"}, ""},
                                                                    {{"wrong-answer"}, "NO"},
                                                                    {{"wrong-answer=O"}, "O"},
                                                                    {{"repeat-answer"}, "OKOK"},
                                                                    {{"no-answer", "wrong-answer"}, ""},
                                                                    {{"repeat-answer", "wrong-answer"}, "NONO"}};
  for (const auto& [faults, answer] : cases) {
    Instrument instrument = instrumentWith(faults);
    EXPECT_EQ(answerTo(instrument, test, 10), answer);
  }
}

TEST(InstrumentFault, AnswersLate) {
  Instrument instrument = instrumentWith({"late-answer=1500"});
  EXPECT_EQ(answerTo(instrument, test, 1.49), "");
  EXPECT_EQ(instrument.nextDue(), 1.5);
  EXPECT_EQ(sent(instrument, 1.5), "OK");
}

TEST(InstrumentFault, PausesWithinTheAnswer) {
  Instrument instrument = instrumentWith({"split-answer"});
  EXPECT_EQ(answerTo(instrument, test, 0.29), "O");
  EXPECT_EQ(sent(instrument, 0.3), "K");
}

TEST(InstrumentFault, KeepsStreamingThroughATest) {
  Instrument instrument = instrumentWith({"test-keeps-streaming"});
  instrument.receive(start, 0);
  instrument.receive(test, 0.5 / 128);
  EXPECT_EQ(sent(instrument, 1.0 / 128), "OK" + ramp().substr(0, 4));
}

TEST(InstrumentFault, IgnoresTheFirstStarts) {
  Instrument instrument = instrumentWith({"ignore-start=2"});
  for (const double time : {0.0, 10.0, 20.0}) instrument.receive(start, time);
  EXPECT_EQ(sent(instrument, 20), "");
  EXPECT_EQ(sent(instrument, 20 + block).size(), 1024U);
}

TEST(InstrumentFault, IgnoresTheStop) {
  Instrument instrument = instrumentWith({"ignore-stop"});
  instrument.receive(start, 0);
  instrument.receive(stop, 1);
  EXPECT_EQ(sent(instrument, block).size(), 1024U);
}

TEST(InstrumentFault, FloodsAtAHundredTimesTheRate) {
  Instrument instrument = instrumentWith({"flood"});
  instrument.receive(start, 0);
  EXPECT_EQ(sent(instrument, block / 100).size(), 1024U);
}

TEST(InstrumentFault, FallsSilentAfterItsBlocksUntilTheNextStart) {
  Instrument instrument = instrumentWith({"silent-after=3"});
  instrument.receive(start, 0);
  EXPECT_EQ(sent(instrument, 30).size(), 3072U);
  instrument.receive(start, 30);
  EXPECT_EQ(sent(instrument, 40).size(), 5120U);
}

TEST(InstrumentFault, CountsBlocksOverAllStarts) {
  Instrument instrument = instrumentWith({"silent-after=2", "silent-after=3"});
  instrument.receive(start, 0);
  instrument.receive(stop, 3);
  EXPECT_EQ(sent(instrument, 3).size(), 1536U);
  instrument.receive(start, 10);
  EXPECT_EQ(sent(instrument, 30).size(), 512U);
  instrument.receive(start, 30);
  EXPECT_EQ(sent(instrument, 50).size(), 1024U);
}

TEST(InstrumentFault, LosesDoublesAndFlipsSingleBytesOfTheStream) {
  Instrument instrument = instrumentWith({"lose-byte=1", "double-byte=6", "flip-byte=8"});
  instrument.receive(test + start, 0);  // the bytes of the answer are not counted
  EXPECT_EQ(sent(instrument, 2.0 / 128), std::string("OK\x01\x02\x03\x04\x05\x05\x06\xF8"));
}

TEST(InstrumentFault, HangsUpAfterItsBlocks) {
  Instrument instrument = instrumentWith({"hang-up-after=1"});
  instrument.receive(start, 0);
  EXPECT_EQ(sent(instrument, block).size(), 1024U);
  EXPECT_FALSE(instrument.unplugged());
  EXPECT_EQ(sent(instrument, block + 1.0 / 128), "");
  EXPECT_TRUE(instrument.unplugged());
  instrument.receive(test + start, 5);
  EXPECT_EQ(sent(instrument, 10), "");
}

TEST(InstrumentFault, ComesBackAsAfterPowerUp) {
  Instrument instrument = instrumentWith({"hang-up-after=1"});
  instrument.receive(start, 0);
  instrument.receive("TES", 1);
  (void)sent(instrument, 10);
  instrument.plugIn();
  EXPECT_FALSE(instrument.unplugged());
  EXPECT_EQ(sent(instrument, 20), "");
  instrument.receive("T\xC0", 20);  // the incomplete command from before is forgotten
  EXPECT_EQ(sent(instrument, 20), "");
  instrument.receive(test + start, 20);
  EXPECT_EQ(sent(instrument, 20 + 2 * block).size(), 2U + 2048U);
}

}  // namespace
}  // namespace korvinel::instrument
