#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "device/command_bytes.h"
#include "headless_program.h"
#include "platform/line_watch.h"

namespace korvinel {
namespace {

using platform::Choice;
using testing::ElementsAre;

constexpr auto linkError =
    "Errore di comunicazione!\rVerificare se i cavi sono connessi\r"
    "oppure se lo strumento e' acceso!\rPremere OK per continuare.";
constexpr auto blockError =
    "Errore di comunicazione!\rVerificare se lo strumento e' acceso\r"
    "Premere OK per continuare\roppure Cancel per terminare.";

const std::string testCommand = "TEST\xC0";
const std::string startCommand = "S\x01\x04\x78\x41\x08\x42\xA5";
const std::string stopCommand = "\xFF\x01";

/// A started program whose operations run through the operation edge, as events do.
struct LinkTest : testing::Test {
  LinkTest() { program.state.startUp(); }

  void openLink() {
    program.host.edge.run([this] { program.state.openLink(); });
  }
  void readBlock() {
    program.host.edge.run([this] { program.state.readBlock(); });
  }
  /// Opens the line and starts the stream.
  void connect() {
    openLink();
    program.state.sendStartCommand();
  }

  HeadlessProgram program;
  platform::HeadlessPlatform& host = program.host;
};

void expectText(const std::vector<platform::Mark>& marks, double x, double y, platform::Colour ink,
                const std::string& text) {
  const auto mark = std::find_if(marks.begin(), marks.end(), [&](const auto& other) { return other.text == text; });
  ASSERT_NE(mark, marks.end()) << text;
  EXPECT_EQ(std::pair(mark->x1, mark->y1), std::pair(x, y)) << text;
  EXPECT_EQ(mark->colour, ink) << text;
}

std::string blockOf(char byte) { return std::string(1024, byte); }

TEST(CommandBytes, SumToZeroModulo256) {
  EXPECT_EQ(closingChecksum(byteSum("TEST")), 192);
  for (int sum = 0; sum <= 2000; ++sum) {
    const int closing = closingChecksum(sum);
    ASSERT_TRUE(closing >= 0 && closing <= 255) << sum;
    ASSERT_EQ((sum + closing) % 256, 0) << sum;
  }
}

TEST_F(LinkTest, HandshakeGoesInThisOrder) {
  openLink();
  EXPECT_THAT(host.serialPort.history(),
              ElementsAre("open 2 19200,N,8,1", "rts", "dtr", "discard", "write 84 69 83 84 192"));
  EXPECT_EQ(host.serialPort.capacity(), 1600);
  EXPECT_EQ(program.state.linkReady, 1);
}

TEST_F(LinkTest, HandshakeTakesTheAnnouncedFourSeconds) {
  const double start = host.time.seconds();
  openLink();
  EXPECT_GT(host.time.seconds() - start, 4.0);
  EXPECT_LT(host.time.seconds() - start, 4.2);
}

TEST_F(LinkTest, TheLinesAreRaisedAfterOneSecondAndTheTestCommandFollowsThreeSecondsLater) {
  const double start = host.time.seconds();
  double raised = 0, asked = 0;
  host.time.when([&] { return host.serialPort.history().back() == "dtr"; }, [&] { raised = host.time.seconds(); });
  host.time.when([&] { return host.serialPort.written() == testCommand; }, [&] { asked = host.time.seconds(); });
  openLink();
  EXPECT_GT(raised - start, 1.0);
  EXPECT_LT(raised - start, 1.05);
  EXPECT_GT(asked - raised, 2.98);  // seen one step late
  EXPECT_LT(asked - raised, 3.05);
}

TEST_F(LinkTest, TheSelectorHoldsTheLengthOfEachWait) {
  Int16 first = 0, second = 0;
  host.time.after(0.5, [&] { first = program.state.sharedSelector; });
  host.time.after(2.5, [&] { second = program.state.sharedSelector; });
  openLink();
  EXPECT_EQ(first, 1);
  EXPECT_EQ(second, 3);
}

TEST_F(LinkTest, AnnouncesTheWaitInWhiteAtTheUpperLeftOfTheFirstTrace) {
  std::vector<platform::Mark> announced;
  host.time.after(0.5, [&] { announced = program.window.firstTrace.marks(); });
  openLink();
  expectText(announced, 2, 2, platform::Colour::white, "Aspetta 4 secondi..");
}

TEST_F(LinkTest, AReadyLinkDrawsTheZeroLineAndThePrompt) {
  openLink();
  const auto& marks = program.window.firstTrace.marks();
  ASSERT_EQ(marks.size(), 1U);
  EXPECT_EQ(marks[0], (platform::Mark{platform::Mark::Kind::line, platform::Colour::green, 1, 128, 258, 128}));
  expectText(program.window.messagePanel.marks(), 2, 30, platform::Colour::white, "Premere Start per cominciare..");
}

TEST_F(LinkTest, TheLinkIsNotReadyWhileTheAnswerIsAwaitedAndAfterSilence) {
  openLink();
  ASSERT_EQ(program.state.linkReady, 1);
  host.instrument.answer = "";
  Int16 readyMeanwhile = 1;
  host.time.after(5, [&] { readyMeanwhile = program.state.linkReady; });
  openLink();
  EXPECT_EQ(readyMeanwhile, 0);
  EXPECT_EQ(program.state.linkReady, 0);
}

TEST_F(LinkTest, AnAnswerThatComesWithTheTimeOutIsTooLate) {
  host.instrument.answer = "";
  host.serialPort.onWritten = [&](const std::string& command) {
    if (command != testCommand) return;
    host.time.setStep(0.3);  // so that the answer and the end of the two seconds are found in the same look
    host.time.after(2.05, [&] { host.serialPort.deliver("OK"); });
  };
  openLink();
  EXPECT_EQ(program.state.linkReady, 0);
  EXPECT_EQ(host.dialogs.shown.size(), 1U);
}

TEST_F(LinkTest, AnAnswerJustBeforeTheTimeOutCounts) {
  host.instrument.answer = "";
  host.serialPort.onWritten = [&](const std::string& command) {
    if (command == testCommand) host.time.after(1.98, [&] { host.serialPort.deliver("OK"); });
  };
  openLink();
  EXPECT_EQ(program.state.linkReady, 1);
}

TEST_F(LinkTest, WhileItAsksTheRecordSaysWhatCameBack) {
  std::vector<std::pair<LinkTrouble, std::string>> seen;
  host.dialogs.choices = {Choice::ok, Choice::ok};
  host.instrument.answer = "";
  host.dialogs.whileOpen = [&] {
    seen.emplace_back(program.state.linkTrouble, program.state.linkAnswer);
    host.instrument.answer = seen.size() == 1 ? "XY" : "OK";
  };
  openLink();
  EXPECT_THAT(seen, ElementsAre(std::pair{LinkTrouble::silence, ""}, std::pair{LinkTrouble::otherAnswer, "XY"}));
  EXPECT_EQ(program.state.linkTrouble, LinkTrouble::none);
}

TEST_F(LinkTest, TheStartOfEachAttemptIsKept) {
  const double start = host.time.seconds();
  host.dialogs.choices = {Choice::ok};
  host.instrument.answer = "";
  host.dialogs.whileOpen = [&] {
    EXPECT_EQ(program.state.handshakeStart, start);
    host.instrument.answer = "OK";
  };
  openLink();
  EXPECT_GT(program.state.handshakeStart, start + 6);
}

TEST_F(LinkTest, SilenceForTwoSecondsIsAnError) {
  host.instrument.answer = "";
  const double start = host.time.seconds();
  openLink();  // answered with Cancel
  ASSERT_EQ(host.dialogs.shown.size(), 1U);
  EXPECT_EQ(host.dialogs.shown[0].text, linkError);
  EXPECT_EQ(host.dialogs.shown[0].title, "Error!");
  EXPECT_GT(host.time.seconds() - start, 6.0);
  EXPECT_LT(host.time.seconds() - start, 6.3);
  EXPECT_TRUE(host.edge.ended());
}

TEST_F(LinkTest, AnyOtherAnswerIsTheSameErrorAtOnce) {
  for (const char* answer : {"NO", "ok", "O ", "KO"}) {
    HeadlessProgram other;
    other.state.startUp();
    other.host.instrument.answer = answer;
    const double start = other.host.time.seconds();
    other.host.edge.run([&] { other.state.openLink(); });
    ASSERT_EQ(other.host.dialogs.shown.size(), 1U) << answer;
    EXPECT_EQ(other.host.dialogs.shown[0].text, linkError);
    EXPECT_LT(other.host.time.seconds() - start, 4.3) << answer;
  }
}

TEST_F(LinkTest, OneByteIsNoAnswer) {
  host.instrument.answer = "O";
  openLink();
  EXPECT_TRUE(host.edge.ended());
}

TEST_F(LinkTest, AnAdapterPulledOutDuringTheHandshakeIsATroubleOfThePort) {
  for (const double moment : {2.0, 4.5}) {  // before the test command is written, and after it
    HeadlessProgram other;
    LinkTrouble told = LinkTrouble::none;
    other.state.startUp();
    other.host.instrument.answer = "";
    other.host.time.after(moment, [&] { other.host.serialPort.unplug(); });
    other.host.dialogs.whileOpen = [&] { told = other.state.linkTrouble; };
    other.host.edge.run([&] { other.state.openLink(); });  // answered with Cancel
    EXPECT_EQ(told, LinkTrouble::port) << moment;
  }
}

TEST_F(LinkTest, OkRetriesFromTheClosedPort) {
  host.instrument.answer = "";
  host.dialogs.choices = {Choice::ok, Choice::ok};
  host.dialogs.whileOpen = [&] {
    if (host.dialogs.shown.size() == 2) host.instrument.answer = "OK";
  };
  openLink();
  EXPECT_EQ(program.state.linkReady, 1);
  EXPECT_EQ(program.state.messageAnswer, 1);
  EXPECT_EQ(std::count(host.serialPort.history().begin(), host.serialPort.history().end(), "close"), 2);
  EXPECT_EQ(host.serialPort.written(), testCommand + testCommand + testCommand);
}

TEST_F(LinkTest, APortThatCannotBeOpenedAsksAtOnceAndOkOpensItAgain) {
  host.serialPort.unplug();
  host.dialogs.choices = {Choice::ok};
  host.dialogs.whileOpen = [&] { host.serialPort.plugIn(); };
  openLink();
  ASSERT_EQ(host.dialogs.shown.size(), 1U);
  EXPECT_EQ(host.dialogs.shown[0].text, linkError);
  EXPECT_EQ(program.state.linkReady, 1);
}

TEST_F(LinkTest, EndDuringEachWaitOfTheHandshakeEndsTheProgram) {
  for (const double moment : {0.5, 2.0, 4.5}) {
    HeadlessProgram other;
    other.host.instrument.answer = "";
    other.host.time.after(moment, [&] { other.window.Endx1.press(); });
    other.startAcquisition();
    EXPECT_TRUE(other.host.edge.ended()) << moment;
    EXPECT_TRUE(other.host.dialogs.shown.empty()) << moment;
  }
}

TEST_F(LinkTest, StopAndASecondStartDuringTheHandshakeChangeNothing) {
  for (const double moment : {0.5, 2.0, 3.9}) {
    HeadlessProgram other;
    other.host.time.after(moment, [&] {
      other.window.Stopd1.press();
      other.window.Starts1.press();
    });
    other.startAcquisition();
    EXPECT_EQ(other.state.acquisitionRunning, 1) << moment;
    EXPECT_EQ(other.host.serialPort.written(), testCommand + startCommand) << moment;
  }
}

TEST_F(LinkTest, TheStartCommandDropsPendingInputFirst) {
  openLink();
  host.serialPort.deliver("rest of an old block");
  program.state.sendStartCommand();
  const auto& history = host.serialPort.history();
  EXPECT_EQ(history.back(), "write 83 1 4 120 65 8 66 165");
  EXPECT_EQ(history[history.size() - 2], "discard");
  EXPECT_EQ(host.serialPort.readLength(), 0);
}

TEST_F(LinkTest, TheStopCommandIsTwoBytes) {
  openLink();
  program.state.sendStopCommand();
  EXPECT_EQ(host.serialPort.history().back(), "write 255 1");
}

TEST_F(LinkTest, FramesOfFourBytesFillTheChannels) {
  connect();
  std::string block = blockOf('\x80');
  block[0] = static_cast<char>(200);
  block[4] = 60;
  host.instrument.blocks = {block};
  readBlock();
  // Smoothed: the left neighbour of the first sample is a copy of it, the right one is 60.
  EXPECT_EQ(program.state.sampleBlock[1][0], 200.0F);
  EXPECT_EQ(program.state.sampleBlock[1][1], static_cast<float>((200 + 0.3 * 200 + 0.3 * 60) / 1.6));
  EXPECT_EQ(program.state.sampleBlock[2][1], 128.0F);
  EXPECT_EQ(program.state.streamPosition, 1024);
}

TEST_F(LinkTest, EveryByteLandsInItsChannelAndSample) {
  connect();
  std::string block;
  for (int s = 0; s < 256; ++s)
    for (int c = 0; c < 4; ++c) block += static_cast<char>(c * 60 + 10);
  host.instrument.blocks = {block};
  readBlock();
  for (int c = 1; c <= 4; ++c)
    for (int s = 1; s <= 256; ++s) ASSERT_NEAR(program.state.sampleBlock[c][s], (c - 1) * 60 + 10, 1e-4);
}

TEST_F(LinkTest, OfLongerInputTheFirst1024BytesAreTheBlockAndTheRestIsDropped) {
  connect();
  host.instrument.blocks = {blockOf(60) + std::string(6, '\xFF')};
  readBlock();
  EXPECT_EQ(program.state.sampleBlock[4][256], 60.0F);
  EXPECT_EQ(host.serialPort.waiting(), 0);
}

TEST_F(LinkTest, FewerBytesThanABlockAreWaitedForUntilTheTimeOut) {
  connect();
  host.instrument.blocks = {std::string(1023, 'x')};
  const double start = host.time.seconds();
  readBlock();
  ASSERT_EQ(host.dialogs.shown.size(), 1U);
  EXPECT_EQ(host.dialogs.shown[0].text, blockError);
  EXPECT_EQ(host.dialogs.shown[0].title, "Error!");
  EXPECT_GT(host.time.seconds() - start, 4.0);
  EXPECT_LT(host.time.seconds() - start, 4.1);
  EXPECT_TRUE(host.serialPort.written().ends_with(stopCommand));
  EXPECT_TRUE(host.edge.ended());
}

TEST_F(LinkTest, OkAfterTheTimeOutStartsTheStreamAgain) {
  connect();
  host.instrument.goSilent();
  host.serialPort.discardInput();
  host.dialogs.choices = {Choice::ok};
  host.instrument.blocks = {blockOf(90)};
  readBlock();
  EXPECT_TRUE(host.serialPort.written().ends_with(stopCommand + startCommand));
  EXPECT_EQ(program.state.sampleBlock[3][100], 90.0F);
  EXPECT_FALSE(host.edge.ended());
}

TEST_F(LinkTest, AnUnpluggedInstrumentIsOneErrorAndOkOpensTheLineAgain) {
  connect();
  host.serialPort.unplug();
  host.dialogs.choices = {Choice::ok};
  host.dialogs.whileOpen = [&] { host.serialPort.plugIn(); };
  host.instrument.blocks = {blockOf(70)};
  readBlock();
  EXPECT_EQ(host.dialogs.shown.size(), 1U);
  EXPECT_EQ(program.state.sampleBlock[1][50], 70.0F);
  EXPECT_EQ(std::count(host.serialPort.history().begin(), host.serialPort.history().end(), "open 2 19200,N,8,1"), 2);
}

TEST_F(LinkTest, ACablePulledOutBetweenTheLookAndTheReadingIsNoBlock) {
  connect();
  host.instrument.blocks = {blockOf(90), blockOf(70)};
  readBlock();
  ASSERT_EQ(program.state.sampleBlock[1][50], 90.0F);
  host.serialPort.beforeRead = [&] {
    host.serialPort.beforeRead = nullptr;
    host.serialPort.unplug();
  };
  host.dialogs.choices = {Choice::ok};
  host.dialogs.whileOpen = [&] {
    EXPECT_EQ(program.state.sampleBlock[1][50], 90.0F);  // the failed read changed nothing
    host.serialPort.plugIn();
    host.instrument.blocks = {blockOf(60)};
  };
  readBlock();
  ASSERT_EQ(host.dialogs.shown.size(), 1U);
  EXPECT_EQ(host.dialogs.shown[0].text, blockError);
  EXPECT_EQ(program.state.sampleBlock[1][50], 60.0F);
}

TEST_F(LinkTest, WhyAPortCannotBeOpenedIsKeptAndWrittenToStandardErrorOnce) {
  host.serialPort.unplug();
  host.dialogs.choices = {Choice::ok, Choice::ok, Choice::ok};
  std::string kept;
  std::vector<LinkTrouble> troubles;
  host.dialogs.whileOpen = [&] {
    kept = faultText(*program.state.lineFault);
    troubles.push_back(program.state.linkTrouble);
    if (host.dialogs.shown.size() == 3) host.serialPort.plugIn();
  };
  openLink();
  EXPECT_EQ(kept, "La porta seriale COM2 non c'è");
  EXPECT_EQ(host.dialogs.shown[0].text, linkError);  // the box's text stays
  EXPECT_THAT(host.machine.told, ElementsAre("La porta seriale COM2 non c'è"));
  EXPECT_EQ(program.state.lineFault, nullptr);
  EXPECT_THAT(troubles, ElementsAre(LinkTrouble::port, LinkTrouble::port, LinkTrouble::port));
  EXPECT_EQ(program.state.linkTrouble, LinkTrouble::none);
}

TEST_F(LinkTest, WhyALineHasFailedIsKeptUntilItIsOpenedAgain) {
  connect();
  host.serialPort.unplug();
  program.state.sendStopCommand();
  ASSERT_NE(program.state.lineFault, nullptr);
  EXPECT_EQ(faultText(*program.state.lineFault), "La porta seriale non risponde");
  EXPECT_THAT(host.machine.told, ElementsAre("La porta seriale non risponde"));
  host.serialPort.plugIn();
  openLink();
  EXPECT_EQ(program.state.lineFault, nullptr);
}

TEST_F(LinkTest, FramesCutByTheLineAreNeverCutByTheReading) {
  connect();
  host.instrument.goSilent();
  host.serialPort.discardInput();
  std::string block;
  for (int frame = 0; frame < 256; ++frame) block += "\x10\x20\x30\x40";
  host.serialPort.deliver(block + "\x10");
  readBlock();
  host.serialPort.deliver("\x20\x30\x40" + block);
  readBlock();
  for (int channel = 1; channel <= 4; ++channel)
    EXPECT_NEAR(program.state.sampleBlock[channel][1], 16.0F * static_cast<float>(channel), 1e-4);
}

TEST_F(LinkTest, AnOverflowCountedByTheSystemRestartsTheStreamWithoutABox) {
  connect();
  host.instrument.blocks = {blockOf(90), blockOf(70)};
  host.serialPort.overrun();
  readBlock();
  EXPECT_TRUE(host.dialogs.shown.empty());
  EXPECT_TRUE(host.serialPort.written().ends_with(startCommand + stopCommand + startCommand));
  EXPECT_EQ(program.state.sampleBlock[1][50], 70.0F);  // not the block in doubt
  EXPECT_EQ(program.window.statusLabel.text(), "Allineamento dei canali incerto: flusso riavviato");
  EXPECT_EQ(program.window.statusLabel.ink(), platform::Colour::lightRed);
  EXPECT_NE(program.state.alignmentFault, "");
  ASSERT_EQ(host.machine.told.size(), 1U);
  EXPECT_EQ(host.machine.told[0], "allineamento dei canali incerto: " + program.state.alignmentFault);
}

TEST_F(LinkTest, ARestartReadsTheLineEmptyBeforeItStarts) {
  connect();
  host.instrument.goSilent();
  host.serialPort.discardInput();
  host.serialPort.deliver(blockOf(90));
  host.serialPort.overrun();
  // Bytes still arrive after the stop is sent, and end in the middle of a frame.
  for (const double delay : {0.03, 0.08, 0.15}) host.time.after(delay, [&] { host.serialPort.deliver("xyz"); });
  double started = 0;
  host.time.when([&] { return host.serialPort.written().ends_with(stopCommand + startCommand); },
                 [&] { started = host.time.seconds(); });
  const double begun = host.time.seconds();
  host.instrument.blocks = {blockOf(70)};
  readBlock();
  EXPECT_GT(started - begun, 0.15 + platform::LineWatch::silence - 0.03);
  EXPECT_EQ(program.state.sampleBlock[1][50], 70.0F);
}

TEST_F(LinkTest, AnInstrumentThatStreamedOnWhileItsAdapterWasOutIsStoppedFirst) {
  connect();
  host.serialPort.unplug();
  host.dialogs.choices = {Choice::ok};
  host.dialogs.whileOpen = [&] { host.serialPort.plugIn(); };
  readBlock();
  EXPECT_TRUE(host.serialPort.written().ends_with(startCommand + stopCommand + startCommand));
}

TEST_F(LinkTest, AnInstrumentThatTalksOnAfterItsAnswerIsAskedAgain) {
  host.dialogs.choices = {Choice::ok};
  std::function<void()> talk = [&] {
    if (!host.dialogs.shown.empty()) return;
    if (host.serialPort.written() == testCommand) host.serialPort.deliver("x");
    host.time.after(0.05, talk);
  };
  talk();
  openLink();
  ASSERT_EQ(host.dialogs.shown.size(), 1U);
  EXPECT_EQ(host.dialogs.shown[0].text, linkError);
  EXPECT_EQ(program.state.linkReady, 1);
}

}  // namespace
}  // namespace korvinel
