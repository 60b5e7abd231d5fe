#include <gtest/gtest.h>

#include <algorithm>

#include "headless_program.h"

namespace korvinel {
namespace {

using platform::Choice;

const std::string startCommand = "S\x01\x04\x78\x41\x08\x42\xA5";

std::string blockOf(char byte) { return std::string(1024, byte); }

/// A program whose stream runs, and whose instrument has sent nothing yet.
struct BlockReading : testing::Test {
  BlockReading() {
    program.state.startUp();
    program.state.openLink();
    program.state.sendStartCommand();
    host.instrument.goSilent();
    host.serialPort.discardInput();
  }

  void readBlock() {
    host.edge.run([this] { program.state.readBlock(); });
  }
  /// A whole block of which the system says that bytes were lost.
  void deliverADoubtfulBlock() {
    host.serialPort.deliver(blockOf(90));
    host.serialPort.overrun();
  }
  long countOf(const std::string& event) const {
    const auto& history = host.serialPort.history();
    return std::count(history.begin(), history.end(), event);
  }
  long starts() const { return countOf("write 83 1 4 120 65 8 66 165"); }

  HeadlessProgram program;
  platform::HeadlessPlatform& host = program.host;
};

TEST_F(BlockReading, ThreeRestartsAreMadeWithoutAskingAndNotAFourth) {
  host.serialPort.onWritten = [&](const std::string& command) {
    if (command == startCommand) deliverADoubtfulBlock();
  };
  deliverADoubtfulBlock();
  long startsBeforeTheBox = 0;
  host.dialogs.whileOpen = [&] { startsBeforeTheBox = starts(); };
  readBlock();  // the box is answered with Cancel
  EXPECT_EQ(startsBeforeTheBox, 1 + 3);
}

TEST_F(BlockReading, ARestartBeginsTheFourSecondsAnew) {
  host.serialPort.onWritten = nullptr;  // the next block comes when the test sends it
  host.time.after(3, [&] { deliverADoubtfulBlock(); });
  host.time.after(6, [&] { host.serialPort.deliver(blockOf(70)); });
  readBlock();
  EXPECT_TRUE(host.dialogs.shown.empty());
  EXPECT_EQ(program.state.sampleBlock[1][50], 70.0F);
}

TEST_F(BlockReading, OnceTheEndIsAskedForSilenceIsNoErrorAndNoBlock) {
  for (Int16 MainState::*flag : {&MainState::stopRequested, &MainState::endRequested}) {
    program.state.stopRequested = program.state.endRequested = 0;
    program.state.*flag = 1;
    program.state.artefactFlag = 0;
    readBlock();
    EXPECT_TRUE(host.dialogs.shown.empty());
    EXPECT_EQ(program.state.artefactFlag, 1);  // nothing that could be recorded or analysed
  }
}

TEST_F(BlockReading, OnceTheEndIsAskedForADoubtStartsNoStreamAnew) {
  program.state.stopRequested = 1;
  deliverADoubtfulBlock();
  readBlock();
  EXPECT_EQ(starts(), 1);
}

TEST_F(BlockReading, OkAfterTheTimeOutLeavesAnOpenLineOpen) {
  host.dialogs.choices = {Choice::ok};
  host.instrument.blocks = {blockOf(90)};
  readBlock();
  EXPECT_EQ(host.dialogs.shown.size(), 1U);
  EXPECT_EQ(countOf("open 2 19200,N,8,1"), 1);
}

TEST_F(BlockReading, ALineThatIsOpenedAgainHasItsSignalsRaised) {
  host.serialPort.unplug();
  host.dialogs.choices = {Choice::ok};
  host.dialogs.whileOpen = [&] { host.serialPort.plugIn(); };
  host.instrument.blocks = {blockOf(70)};
  readBlock();
  EXPECT_EQ(countOf("rts"), 2);
  EXPECT_EQ(countOf("dtr"), 2);
}

TEST_F(BlockReading, ALineThatCannotBeOpenedAgainHasNoSignalsToRaiseAndIsAskedAboutAgain) {
  host.serialPort.unplug();
  host.dialogs.choices = {Choice::ok, Choice::cancel};
  readBlock();
  EXPECT_EQ(host.dialogs.shown.size(), 2U);
  EXPECT_EQ(countOf("rts"), 1);
  EXPECT_EQ(countOf("dtr"), 1);
}

TEST_F(BlockReading, WhileItAsksTheRecordSaysWhyNoBlockHasCome) {
  std::vector<LinkTrouble> troubles;
  host.dialogs.choices = {Choice::ok, Choice::ok};
  host.dialogs.whileOpen = [&] {
    troubles.push_back(program.state.linkTrouble);
    if (troubles.size() == 1) return host.serialPort.unplug();
    host.serialPort.plugIn();
    host.instrument.blocks = {blockOf(70)};
  };
  readBlock();
  EXPECT_EQ(troubles, (std::vector{LinkTrouble::silence, LinkTrouble::port}));
  EXPECT_EQ(program.state.linkTrouble, LinkTrouble::none);
}

TEST_F(BlockReading, ALineThatLosesBytesAgainAndAgainIsNoSilentOne) {
  LinkTrouble trouble{};
  host.instrument.blocks = {};
  host.instrument.idleBlock = blockOf(90);
  host.dialogs.choices = {Choice::cancel};
  host.dialogs.whileOpen = [&] { trouble = program.state.linkTrouble; };
  host.serialPort.onWritten = [&, instrument = host.serialPort.onWritten](const std::string& bytes) {
    instrument(bytes);
    host.serialPort.overrun();
  };
  deliverADoubtfulBlock();
  readBlock();
  EXPECT_EQ(trouble, LinkTrouble::lostFrames);
}

TEST_F(BlockReading, TheBlockAsDecodedIsKeptBeforeItIsSmoothed) {
  host.serialPort.deliver("\x40\x80\x80\x80" + std::string(1020, static_cast<char>(128)));
  readBlock();
  EXPECT_EQ(program.state.decodedBlocks, 1);
  EXPECT_EQ(program.state.decodedBlock[1][1], 64.0F);
  EXPECT_EQ(program.state.decodedBlock[1][2], 128.0F);
  EXPECT_LT(program.state.sampleBlock[1][2], 128.0F);
}

}  // namespace
}  // namespace korvinel
