#include "device/line_steps.h"

#include <gtest/gtest.h>

#include <functional>

#include "headless_program.h"

namespace korvinel {
namespace {

const std::string startCommand = "S\x01\x04\x78\x41\x08\x42\xA5";
const std::string stopCommand = "\xFF\x01";

/// A program that has shaken hands with its instrument.
struct LineSteps : testing::Test {
  LineSteps() {
    state.startUp();
    state.openLink();
  }
  /// The stream runs, and the instrument has sent nothing yet.
  void startStream() {
    state.sendStartCommand();
    host.instrument.goSilent();
    host.serialPort.discardInput();
  }
  /// A byte every 50 ms from now on.
  void neverFallSilent() {
    host.serialPort.deliver("x");
    host.time.after(0.05, [this] { neverFallSilent(); });
  }
  /// What is written while `act` runs.
  std::string writtenBy(const std::function<void()>& act) {
    const std::size_t before = host.serialPort.written().size();
    act();
    return host.serialPort.written().substr(before);
  }

  HeadlessProgram program;
  MainState& state = program.state;
  platform::HeadlessPlatform& host = program.host;
};

TEST_F(LineSteps, SilenceIsWaitedForTwoSecondsAtMost) {
  neverFallSilent();
  const double start = host.time.seconds();
  EXPECT_FALSE(fallsSilent(state));
  EXPECT_GT(host.time.seconds() - start, 2.0);
  EXPECT_LT(host.time.seconds() - start, 2.05);
}

TEST_F(LineSteps, AStreamStartedOnALineThatTalksIsDoubted) {
  neverFallSilent();
  state.sendStartCommand();
  EXPECT_EQ(host.serialPort.alignmentDoubt(), "la linea non tace prima dell'inizio");
}

TEST_F(LineSteps, AFrameCutByTheStopIsToldAndKeptInMind) {
  startStream();
  state.decodedBlocks = 7;
  state.sendStopCommand();
  host.serialPort.deliver("abcdx");
  state.sendStartCommand();
  EXPECT_EQ(state.framesCut, 1);
  EXPECT_EQ(state.alignmentFault, "un gruppo di campioni è rimasto incompleto");
  EXPECT_EQ(state.alignmentFaultBlock, 7);
}

TEST_F(LineSteps, AFrameFoundCutBeforeTheStopIsNotToldAgain) {
  startStream();
  host.serialPort.deliver("abcdx");
  static_cast<void>(host.serialPort.waiting());
  host.time.runFor(0.5);
  static_cast<void>(host.serialPort.waiting());
  ASSERT_TRUE(host.serialPort.leftFrameUnfinished());
  state.sendStopCommand();
  state.sendStartCommand();
  EXPECT_EQ(state.framesCut, 0);
  EXPECT_EQ(state.alignmentFault, "");
}

TEST_F(LineSteps, AnInstrumentThatCutsFramesIsStoppedBeforeEveryStart) {
  startStream();
  state.framesCut = 1;
  EXPECT_EQ(writtenBy([&] { state.sendStartCommand(); }), stopCommand + startCommand);
  state.sendStopCommand();
  EXPECT_EQ(writtenBy([&] { state.sendStartCommand(); }), startCommand);
}

TEST_F(LineSteps, AStreamThatRunsIsStartedAgainWithoutAWait) {
  startStream();
  const double before = host.time.seconds();
  EXPECT_EQ(writtenBy([&] { state.sendStartCommand(); }), startCommand);
  EXPECT_EQ(host.time.seconds(), before);
}

TEST_F(LineSteps, AHandshakeForgetsTheStreamBeforeIt) {
  startStream();
  state.framesCut = 1;
  state.alignmentFault = "un gruppo di campioni è rimasto incompleto";
  state.openLink();
  EXPECT_EQ(state.streamStopped, 1);
  EXPECT_EQ(state.framesCut, 0);
  EXPECT_EQ(state.alignmentFault, "");
}

TEST_F(LineSteps, TheLineIsReadByteByByteUntilTheAnswerOfTwo) {
  host.instrument.answer = "";
  int first = 0, second = 0;
  host.time.after(0.5, [&] { first = host.serialPort.readLength(); });
  host.time.after(4.5, [&] { second = host.serialPort.readLength(); });
  host.edge.run([&] { state.openLink(); });
  EXPECT_EQ(first, 1);
  EXPECT_EQ(second, 2);
}

}  // namespace
}  // namespace korvinel
