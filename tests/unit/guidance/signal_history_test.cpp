#include "guidance/signal_history.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "headless_program.h"
#include "signals.h"

namespace korvinel::guidance {
namespace {

using testing::ElementsAre;

constexpr auto waiting = SignalState::waiting, good = SignalState::good, flat = SignalState::flat,
               mains = SignalState::mains;

SiteSignals allSites(SignalState state) {
  SiteSignals signals;
  signals.fill({state, std::string(nameOf(state)) + ": prova"});
  return signals;
}

SiteSignals onlyOnT5(SignalState state) {
  SiteSignals signals = allSites(good);
  signals[2].state = state;
  return signals;
}

TEST(SignalHistory, WaitsBeforeTheFirstBlockHoweverLong) {
  SignalHistory history;
  history.pass(100);
  EXPECT_EQ(history.now(1).state, waiting);
  EXPECT_TRUE(history.lastMinute(1).empty());
  EXPECT_EQ(history.summary(1), "");
}

TEST(SignalHistory, KeepsTwentyBlocks) {
  SignalHistory history;
  history.add(allSites(flat), 0);
  for (int block = 1; block <= 20; ++block) history.add(allSites(good), 3 * block);
  EXPECT_EQ(history.lastMinute(4).size(), 20U);
  EXPECT_EQ(history.lastMinute(4).front(), good);
}

TEST(SignalHistory, HasAGapForEachTurnWithoutABlock) {
  SignalHistory history;
  history.add(allSites(good), 10);
  history.pass(15.9);
  EXPECT_EQ(history.now(1).state, good);
  history.pass(16);
  EXPECT_EQ(history.now(1).reason, "in attesa: non arriva alcun segnale");
  history.pass(19);
  EXPECT_THAT(history.lastMinute(1), ElementsAre(good, waiting, waiting));
  history.add(allSites(mains), 21);
  EXPECT_THAT(history.lastMinute(2), ElementsAre(good, waiting, waiting, mains));
  EXPECT_EQ(history.now(2).state, mains);
}

TEST(SignalHistory, HasTheGapThatABlockEnds) {
  SignalHistory history;
  history.add(allSites(good), 10);
  history.add(allSites(flat), 19);
  EXPECT_THAT(history.lastMinute(1), ElementsAre(good, waiting, waiting, flat));
}

TEST(SignalHistory, IsAllGapsAfterAnHour) {
  SignalHistory history;
  history.add(allSites(good), 0);
  history.pass(3600);
  EXPECT_EQ(history.summary(1), "nell'ultimo minuto: 20 volte in attesa");
}

TEST(SignalHistory, SumsUpTheMinute) {
  SignalHistory history;
  for (const SignalState state : {good, flat, good, good}) history.add(onlyOnT5(state), 0);
  EXPECT_EQ(history.summary(3), "nell'ultimo minuto: 3 volte buono, 1 volta piatto");
  EXPECT_EQ(history.summary(1), "nell'ultimo minuto: 4 volte buono");
}

TEST(SignalHistory, SpeaksOfAStateThatHasLastedForTwoBlocks) {
  SignalHistory history;
  for (const SignalState state : {good, good, flat, good, mains, flat}) history.add(onlyOnT5(state), 0);
  EXPECT_EQ(history.newsCount(), 0);
  history.add(onlyOnT5(flat), 0);
  EXPECT_EQ(history.news(), "Segnale: T5 piatto");
  history.add(onlyOnT5(flat), 0);
  EXPECT_EQ(history.newsCount(), 1);
  history.add(onlyOnT5(good), 0);
  history.add(onlyOnT5(good), 0);
  EXPECT_EQ(history.news(), "Segnale: T5 buono");
  EXPECT_EQ(history.newsCount(), 2);
}

TEST(SignalHistory, SpeaksOfSeveralSitesAtOnce) {
  SignalHistory history;
  history.add(allSites(mains), 0);
  history.add(allSites(mains), 3);
  EXPECT_EQ(history.news(), "Segnale: F1 50 Hz, F2 50 Hz, T5 50 Hz, T6 50 Hz");
}

/// F1 still, F2 at the end of the scale, T5 and T6 alive.
std::string spoiltBlock() {
  return instrumentBlock([](int channel, int sample) {
    if (channel <= 2) return channel == 1 ? 128.0 : 255.0;
    return 128 + sineAt(sample, 20, 25) + sineAt(sample, 45, 6);
  });
}

struct FollowedSignals : testing::Test {
  FollowedSignals() {
    program.host.instrument.idleBlock = spoiltBlock();
    program.host.edge.afterwards = [this] { history.follow(program.state); };
    program.startAcquisition();
  }
  SignalHistory history;  // outlives the program, which calls it
  HeadlessProgram program;
};

TEST_F(FollowedSignals, AreThoseBeforeTheSmoothing) {
  program.acquireBlocks(3);
  EXPECT_EQ(history.now(1).state, flat);
  EXPECT_EQ(history.now(2).state, SignalState::saturated);
  EXPECT_THAT(history.lastMinute(3), ElementsAre(good, good, good));
}

TEST_F(FollowedSignals, AreJudgedInRejectedBlocksToo) {
  program.state.artefactThreshold = 70;
  program.host.time.runFor(20);
  EXPECT_EQ(program.state.blockCount, 1);
  EXPECT_GE(program.state.blocksRejected, 5);
  EXPECT_THAT(history.lastMinute(2), testing::Each(SignalState::saturated));
  EXPECT_EQ(static_cast<int>(history.lastMinute(2).size()), program.state.blocksRejected);
}

TEST_F(FollowedSignals, KeepTheirHistoryWhenTheRecordingBegins) {
  program.acquireBlocks(3);
  program.window.Registra.press();
  program.host.time.runUntil([&] { return program.state.recordingArmed == 0; });
  program.acquireBlocks(1);
  EXPECT_GE(history.lastMinute(1).size(), 5U);
}

TEST_F(FollowedSignals, AreForgottenAtTheEndAndNoneIsLeftForTheNextExamination) {
  program.acquireBlocks(3);
  program.window.Stopd1.press();
  program.host.time.runUntil([&] { return program.state.intervalSelectable == 1; });
  program.host.time.runFor(0.1);
  EXPECT_EQ(history.now(2).state, waiting);
  EXPECT_TRUE(history.lastMinute(2).empty());
  program.window.Starts1.press();
  EXPECT_TRUE(history.lastMinute(2).empty());
  program.acquireBlocks(1);
  EXPECT_EQ(history.lastMinute(2).size(), 1U);
}

TEST_F(FollowedSignals, GiveWayToWaitingWhileTheLineIsSilent) {
  program.acquireBlocks(2);
  program.host.instrument.goSilent();
  program.host.time.runFor(6.5);  // before the box
  history.follow(program.state);
  EXPECT_EQ(history.now(1).reason, "in attesa: non arriva alcun segnale");
}

}  // namespace
}  // namespace korvinel::guidance
