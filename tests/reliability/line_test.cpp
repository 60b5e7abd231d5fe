#include <gtest/gtest.h>

#include <algorithm>

#include "campaign.h"
#include "instrument_on_the_line.h"
#include "recordings.h"

/// Faults of the instrument and its cable in the middle of an examination: the program's state stays consistent, each
/// box is open only once, OK resumes, and Stop and End always work.
namespace korvinel {
namespace {

using instrument::Faults;
using platform::Choice;

struct ExaminationOnTheLine : HeadlessProgram {
  explicit ExaminationOnTheLine(const Faults& faults) : line(host, faults) {
    host.dialogs.whileOpen = [this] { stayOpen(); };
    host.dialogs.choices.assign(1000, Choice::ok);
  }

  /// Simulates a person who takes a while to press OK.
  void stayOpen() {
    ++boxesOpen;
    mostBoxesOpen = std::max(mostBoxesOpen, boxesOpen);
    const double until = host.time.seconds() + 0.7;
    while (host.time.seconds() < until) host.time.process();
    --boxesOpen;
  }

  void start() { startAcquisition(); }

  [[nodiscard]] bool reaches(int blocks, double within = 200) {
    host.time.runUntil([&] { return state.blockCount >= blocks && state.acquisitionRunning == 1; }, within);
    return state.blockCount >= blocks;
  }

  void expectThatStopAndEndWork() {
    window.Stopd1.press();
    host.time.runUntil([&] { return state.intervalSelectable == 1; }, 30);
    EXPECT_EQ(state.intervalSelectable, 1);
    EXPECT_FALSE(state.acquisitionPending());
    EXPECT_EQ(boxesOpen, 0);
    window.Endx1.press();
    EXPECT_TRUE(host.edge.ended());
  }

  [[nodiscard]] int boxesThatBegin(const std::string& words) const {
    return static_cast<int>(std::count_if(host.dialogs.shown.begin(), host.dialogs.shown.end(),
                                          [&](const auto& box) { return box.text.starts_with(words); }));
  }

  InstrumentOnTheLine line;
  int boxesOpen = 0, mostBoxesOpen = 0;
};

struct LineFault {
  const char* name;
  Faults faults;
  int communicationErrors;  ///< the number of boxes that ask the user; -1: any number
};

void PrintTo(const LineFault& fault, std::ostream* out) { *out << fault.name; }

Faults with(void (*set)(Faults&)) {
  Faults faults;
  set(faults);
  return faults;
}

class EveryFault : public testing::TestWithParam<LineFault> {};

TEST_P(EveryFault, IsSurvivedWithItsBoxesAndTheExaminationGoesOn) {
  ExaminationOnTheLine examination(GetParam().faults);
  examination.start();
  EXPECT_TRUE(examination.reaches(6)) << "blocks: " << examination.state.blockCount;
  EXPECT_LE(examination.mostBoxesOpen, 1);
  if (GetParam().communicationErrors >= 0) {
    EXPECT_EQ(examination.boxesThatBegin("Errore di comunicazione!"), GetParam().communicationErrors);
  }
  EXPECT_TRUE(examination.host.faults.empty());
  examination.expectThatStopAndEndWork();
}

INSTANTIATE_TEST_SUITE_P(
    Line, EveryFault,
    testing::Values(LineFault{"none", {}, 0}, LineFault{"late", with([](Faults& f) { f.lateAnswerMs = 1500; }), 0},
                    LineFault{"repeated", with([](Faults& f) { f.repeatAnswer = true; }), -1},
                    LineFault{"split", with([](Faults& f) { f.splitAnswer = true; }), -1},
                    LineFault{"keepsStreaming", with([](Faults& f) { f.testKeepsStreaming = true; }), 0},
                    LineFault{"oneStartIgnored", with([](Faults& f) { f.ignoredStarts = 1; }), 1},
                    LineFault{"twoStartsIgnored", with([](Faults& f) { f.ignoredStarts = 2; }), 2},
                    LineFault{"ignoresStop", with([](Faults& f) { f.ignoreStop = true; }), 0},
                    LineFault{"flood", with([](Faults& f) { f.flood = true; }), 0},
                    LineFault{"silentTwice", with([](Faults& f) {
                                f.silentAfterBlocks = {2, 5};
                              }),
                              -1},
                    LineFault{"hangsUp", with([](Faults& f) {
                                f.hangUpAfterBlocks = {1, 3, 4};
                              }),
                              -1},
                    LineFault{"losesBytes", with([](Faults& f) {
                                f.lostBytes = {1, 500, 1025, 3333};
                              }),
                              -1},
                    LineFault{"doublesBytes", with([](Faults& f) {
                                f.doubledBytes = {1, 500, 1025, 3333};
                              }),
                              -1},
                    LineFault{"flipsBytes", with([](Faults& f) {
                                f.flippedBytes = {1, 2, 3, 500, 2000};
                              }),
                              0}),
    [](const auto& each) { return std::string(each.param.name); });

TEST(Line, AnInstrumentThatNeverAnswersAsksUntilTheUserGivesUp) {
  for (const bool wrong : {false, true}) {
    Faults faults;
    faults.noAnswer = !wrong;
    if (wrong) faults.wrongAnswer = "KO";
    ExaminationOnTheLine examination(faults);
    examination.host.dialogs.choices.assign(300, Choice::ok);
    examination.start();
    // Three hundred presses of OK, then Cancel: the stack must not grow.
    EXPECT_TRUE(examination.host.edge.ended());
    EXPECT_EQ(examination.boxesThatBegin("Errore di comunicazione!"), 301);
    EXPECT_EQ(examination.mostBoxesOpen, 1);
  }
}

/// From the handshake through the first turns and the recording to the assembling.
TEST(Line, TheCableMayBePulledOutAtAnyMoment) {
  const double step = campaign::isLong() ? 0.05 : 0.85;
  for (double moment = 0; moment < 26; moment += step) {
    ExaminationOnTheLine examination({});
    auto& host = examination.host;
    host.time.after(moment, [&] { examination.line.pullOut(2.5); });
    host.time.when([&] { return examination.state.blockCount == 2; }, [&] { examination.window.Registra.press(); });
    host.time.after(23, [&] { examination.window.Stopd1.press(); });
    examination.start();
    host.time.runUntil([&] { return examination.state.intervalSelectable == 1; }, 120);
    EXPECT_EQ(examination.state.intervalSelectable, 1) << "pulled out after " << moment << " s";
    EXPECT_LE(examination.mostBoxesOpen, 1) << moment;
    EXPECT_FALSE(examination.state.acquisitionPending()) << moment;
    EXPECT_EQ(host.files.content.contains(recordings::temporary), false) << moment;
    examination.startAcquisition("dopo", "Rossi");
    EXPECT_TRUE(examination.reaches(2)) << "a new examination after a cable pulled out after " << moment << " s";
    examination.expectThatStopAndEndWork();
    if (testing::Test::HasFailure()) return;
  }
}

}  // namespace
}  // namespace korvinel
