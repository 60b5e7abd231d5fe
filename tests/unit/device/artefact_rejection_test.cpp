#include <gtest/gtest.h>

#include "headless_program.h"
#include "signals.h"

namespace korvinel {
namespace {

using platform::Colour;

/// A program with an open line that reads one block at a time.
class ArtefactRejection : public testing::Test {
 protected:
  void SetUp() override {
    state_.startUp();
    state_.sharedSelector = 1;  // its value after the start of an acquisition
    program_.host.serialPort.setReceiveBuffer(1600);
    program_.host.serialPort.open();
  }

  int flagFor(float sample, int channel = 3) {
    fillAllChannels(state_, [](int) { return 128; });
    state_.sampleBlock[channel][77] = sample;
    state_.checkArtefacts();
    return state_.artefactFlag;
  }

  int thresholdAfter(const std::string& answer) {
    state_.artefactThreshold = 100;
    program_.host.dialogs.inputs = {answer};
    program_.window.Artefact.press();
    return state_.artefactThreshold;
  }

  void readBlockBeyondTheThreshold() {
    state_.artefactThreshold = 70;
    program_.host.serialPort.deliver(instrumentBlock([](int channel, int) { return 200 + channel; }));
    state_.readBlock();
  }

  bool asked(const std::string& bytes) const {
    return program_.host.serialPort.written().find(bytes) != std::string::npos;
  }

  HeadlessProgram program_;
  MainState& state_ = program_.state;
};

TEST_F(ArtefactRejection, TheWidestThresholdAcceptsEveryBlock) {
  state_.artefactThreshold = 130;
  for (const double level : {0.0, 255.0}) {
    program_.host.serialPort.deliver(instrumentBlock([&](int, int) { return level; }));
    state_.readBlock();
    EXPECT_EQ(state_.artefactFlag, 0) << level;
  }
}

TEST_F(ArtefactRejection, TheLimitsThemselvesAreAccepted) {
  state_.artefactThreshold = 70;
  const std::pair<float, int> cases[] = {{198.0F, 0}, {198.5F, 1}, {58.0F, 0}, {57.9F, 1}};
  for (const auto& [sample, flag] : cases) EXPECT_EQ(flagFor(sample), flag) << sample;
}

TEST_F(ArtefactRejection, EveryChannelAndBothEndsOfTheBlockAreTested) {
  state_.artefactThreshold = 70;
  for (int channel = 1; channel <= 4; ++channel) EXPECT_EQ(flagFor(240, channel), 1) << channel;
  for (const int sample : {1, 256}) {
    fillAllChannels(state_, [](int) { return 128; });
    state_.sampleBlock[2][sample] = 10;
    state_.checkArtefacts();
    EXPECT_EQ(state_.artefactFlag, 1) << sample;
  }
}

TEST_F(ArtefactRejection, AGoodBlockClearsTheFlag) {
  state_.artefactFlag = 1;
  EXPECT_EQ(flagFor(130), 0);
}

TEST_F(ArtefactRejection, ARejectedBlockIsShownInBlueAndAskedForAgain) {
  readBlockBeyondTheThreshold();
  EXPECT_EQ(state_.artefactFlag, 1);
  EXPECT_EQ(linesIn(program_.window.firstTrace, Colour::blue), 255U);
  EXPECT_TRUE(hasLine(program_.window.firstTrace, 1, 54, 2, 54, Colour::blue));   // channel 1 at 201
  EXPECT_TRUE(hasLine(program_.window.secondTrace, 1, 53, 2, 53, Colour::blue));  // channel 2 at 202
  EXPECT_TRUE(program_.window.firstTrace.shows("Artefatto!"));
  EXPECT_FALSE(program_.window.secondTrace.shows("Artefatto!"));
  EXPECT_TRUE(asked("S\x01\x04\x78\x41\x08\x42\xA5"));
  EXPECT_TRUE(program_.host.tickTimer.enabled());
  EXPECT_FALSE(program_.host.pauseTimer.enabled());
}

TEST_F(ArtefactRejection, RejectedBlocksAreDecodedAndCounted) {
  readBlockBeyondTheThreshold();
  readBlockBeyondTheThreshold();
  EXPECT_EQ(state_.blocksRejected, 2);
  EXPECT_EQ(state_.decodedBlocks, 2);
  EXPECT_EQ(state_.decodedBlock[4][1], 204.0F);
}

TEST_F(ArtefactRejection, BothTracesAreClearedBeforeARejectedBlockIsShown) {
  fillAllChannels(state_, [](int) { return 128; });
  state_.drawRawTraces();
  state_.drawCorrectedTraces();
  readBlockBeyondTheThreshold();
  EXPECT_EQ(program_.window.firstTrace.marks().size(), 256U);  // 255 lines and the word
  EXPECT_EQ(program_.window.secondTrace.marks().size(), 255U);
}

TEST_F(ArtefactRejection, TheWordIsWhiteAtTheUpperLeft) {
  readBlockBeyondTheThreshold();
  const auto& word = program_.window.firstTrace.marks().back();
  EXPECT_EQ(word.text, "Artefatto!");
  EXPECT_EQ(word.colour, Colour::white);
  EXPECT_EQ(std::pair(word.x1, word.y1), std::pair(1.0, 1.0));
}

TEST_F(ArtefactRejection, TheStreamIsAskedForAfterFiveHundredthsOfASecond) {
  state_.streamStopped = 0;  // a start after a stop would wait for silence as well
  const double before = program_.host.time.seconds();
  state_.rejectBlock();
  EXPECT_GE(program_.host.time.seconds() - before, 0.05 - 1e-9);
  EXPECT_LT(program_.host.time.seconds() - before, 0.07);
}

TEST_F(ArtefactRejection, TheSelectorDecidesWhichPairIsShown) {
  state_.channelPair = 2;  // has no effect
  for (int channel = 1; channel <= 4; ++channel) fillChannel(state_, channel, [&](int) { return 200 + channel; });
  struct Case {
    int selector;
    double firstY, secondY;
  };
  for (const Case& expected : {Case{1, 54, 53}, Case{2, 52, 51}, Case{3, 255, 255}}) {  // 3: row 0, not a channel
    state_.sharedSelector = expected.selector;
    state_.rejectBlock();
    EXPECT_TRUE(hasLine(program_.window.firstTrace, 1, expected.firstY, 2, expected.firstY, Colour::blue))
        << expected.selector;
    EXPECT_TRUE(hasLine(program_.window.secondTrace, 1, expected.secondY, 2, expected.secondY, Colour::blue))
        << expected.selector;
  }
}

TEST_F(ArtefactRejection, AfterStopARejectedBlockIsNeitherShownNorAskedForAgain) {
  for (Int16 MainState::*flag : {&MainState::stopRequested, &MainState::endRequested}) {
    state_.stopRequested = state_.endRequested = 0;
    state_.*flag = 1;
    readBlockBeyondTheThreshold();
    EXPECT_EQ(state_.artefactFlag, 1);
    EXPECT_FALSE(program_.window.firstTrace.shows("Artefatto!"));
    EXPECT_FALSE(asked("S\x01"));
    EXPECT_FALSE(program_.host.tickTimer.enabled());
  }
}

TEST_F(ArtefactRejection, TheThresholdIsClampedUnevenly) {
  const std::pair<const char*, int> cases[] = {{"69", 70},     {"70", 70},    {"128", 128},     {"129", 130},
                                               {"500", 130},   {"", 90},      {"abc", 90},      {"-5", 70},
                                               {"  100", 100}, {"99.5", 100}, {"80 circa", 80}, {"0.4", 90}};
  for (const auto& [answer, threshold] : cases) EXPECT_EQ(thresholdAfter(answer), threshold) << answer;
}

TEST_F(ArtefactRejection, AnAnswerBeyondSixteenBitsKeepsTheThreshold) {
  EXPECT_EQ(thresholdAfter("99999"), 100);
  EXPECT_EQ(program_.host.faults.size(), 1U);
}

TEST_F(ArtefactRejection, TheDialogNamesTheCurrentThresholdAndItsPlace) {
  program_.window.Artefact.press();
  ASSERT_EQ(program_.host.dialogs.shown.size(), 1U);
  const auto& box = program_.host.dialogs.shown.front();
  EXPECT_EQ(box.kind, "input");
  EXPECT_EQ(box.text,
            "Modifica soglia degli artefatti: valore attuale= 130\r"
            "Introdurre il nuovo valore (minimo=70 massimo=130)\r"
            "Valore minimo= sono accettati solo dati buoni\r"
            "ma molti dati possono essere scartati.\r"
            "Valore max= sono accettati dati buoni e cattivi. Rischio!");
  EXPECT_EQ(box.title, "Artefacts");
  EXPECT_EQ(std::pair(box.position.x, box.position.y), std::pair(200, 400));
}

TEST_F(ArtefactRejection, WithTheBoxTickedOnlyTheNoticeIsShown) {
  program_.window.ocularCheck.setChecked(true);
  EXPECT_EQ(thresholdAfter("80"), 100);
  ASSERT_EQ(program_.host.dialogs.shown.size(), 1U);
  EXPECT_EQ(program_.host.dialogs.shown.front().kind, "notice");
  EXPECT_EQ(program_.host.dialogs.shown.front().text,
            "Funzione attiva solo se si esclude\rla rimozione automatica artefatti");
}

TEST_F(ArtefactRejection, WithTheBoxTickedTheTestStillRuns) {
  program_.window.ocularCheck.setChecked(true);
  readBlockBeyondTheThreshold();
  EXPECT_EQ(state_.artefactFlag, 1);
}

}  // namespace
}  // namespace korvinel
