#include <gtest/gtest.h>

#include <algorithm>

#include "campaign.h"
#include "instrument_on_the_line.h"
#include "recordings.h"
#include "tones.h"

/// Channels are never interchanged: wherever a real line cuts the frames, recordings have each channel in its place.
namespace korvinel {
namespace {

using instrument::Faults;
using instrument::Pace;
using instrument::Wiring;
using platform::Choice;

struct TonesOnTheLine : HeadlessProgram {
  explicit TonesOnTheLine(const Wiring& wiring, const Faults& faults = {}, int artefactEvery = 900)
      : line(host, std::make_unique<tones::Source>(artefactEvery), faults, wiring) {
    host.dialogs.choices.assign(100, Choice::ok);
    host.dialogs.inputs = {"70"};
    startAcquisition();
    window.Artefact.press();
  }

  void run(int blocks) {
    const int target = state.blockCount + blocks;
    host.time.runUntil([&] { return state.blockCount >= target && host.pauseTimer.enabled(); }, 300);
  }

  void record() {
    run(1);
    window.Registra.press();
    host.time.runUntil([&] { return state.recordingArmed == 0; }, 30);
  }

  void stop() {
    window.Stopd1.press();
    host.time.runUntil([&] { return state.intervalSelectable == 1; }, 60);
  }

  /// The order of the channels in every recorded block.
  [[nodiscard]] std::vector<std::string> places(const std::string& name = "prova") const {
    const std::string& file = host.files.content.at(recordings::folder + name + ".QVD");
    std::vector<std::string> found;
    const std::size_t header =
        file.find("\"Nota: ") == std::string::npos ? file.find('\n') + 1 : file.rfind("\"\r\n") + 3;
    for (std::size_t at = header; at + 1036 <= file.size(); at += 1036)
      found.push_back(tones::channelsOf(std::string_view(file).substr(at, 1036)));
    return found;
  }

  /// `blocks`: counted since "Registra"; the file also has the block of the turn in which it was pressed.
  void expectEveryChannelInItsPlace(int blocks) const {
    const auto found = places();
    EXPECT_EQ(static_cast<int>(found.size()), blocks + 1);
    EXPECT_EQ(std::count(found.begin(), found.end(), "1234"), static_cast<int>(found.size()))
        << testing::PrintToString(found);
  }

  [[nodiscard]] int rejectedBlocks() const {
    const std::string start = "write 83 1 4 120 65 8 66 165";
    return static_cast<int>(std::count(host.serialPort.history().begin(), host.serialPort.history().end(), start)) - 2;
  }
  [[nodiscard]] bool doubted() const { return !state.alignmentFault.empty(); }

  InstrumentOnTheLine line;
};

struct Cable {
  const char* name;
  Wiring wiring;
};
void PrintTo(const Cable& cable, std::ostream* out) { *out << cable.name; }

class OnEveryCable : public testing::TestWithParam<Cable> {};

TEST_P(OnEveryCable, EveryRecordedBlockHoldsEachChannelInItsPlace) {
  TonesOnTheLine examination(GetParam().wiring);
  examination.record();
  examination.run(campaign::size(20, 190));
  EXPECT_GE(examination.rejectedBlocks(), 2);
  const int blocks = examination.state.blockCount;
  examination.stop();
  examination.expectEveryChannelInItsPlace(blocks);
  EXPECT_FALSE(examination.doubted()) << examination.state.alignmentFault;
}

TEST_P(OnEveryCable, AlsoAfterATimeOutAndOk) {
  Faults silences;
  silences.silentAfterBlocks = {6, 11};
  TonesOnTheLine examination(GetParam().wiring, silences, 0);
  examination.record();
  examination.run(10);
  EXPECT_EQ(std::count_if(examination.host.dialogs.shown.begin(), examination.host.dialogs.shown.end(),
                          [](const auto& box) { return box.text.starts_with("Errore di comunicazione!"); }),
            2);
  const int blocks = examination.state.blockCount;
  examination.stop();
  examination.expectEveryChannelInItsPlace(blocks);
}

TEST_P(OnEveryCable, AlsoAfterTheProgramHasStoodStill) {
  TonesOnTheLine examination(GetParam().wiring);
  examination.record();
  for (const double standstill : {20.0, 5.0, 60.0}) {
    examination.run(3);
    examination.host.time.jump(standstill);
  }
  examination.run(3);
  EXPECT_TRUE(examination.doubted());
  EXPECT_EQ(examination.window.statusLabel.text(), "Allineamento dei canali incerto: flusso riavviato");
  const int blocks = examination.state.blockCount;
  examination.stop();
  examination.expectEveryChannelInItsPlace(blocks);
}

TEST_P(OnEveryCable, AlsoWhenTheSystemCountsLostBytes) {
  // Two bytes in different blocks are lost, and the system counts them.
  Faults losses;
  losses.lostBytes = {9'001};
  TonesOnTheLine examination(GetParam().wiring, losses);
  examination.record();
  examination.host.time.when([&] { return examination.line.bytesStreamed() >= 9'000; },
                             [&] { examination.host.serialPort.overrun(); });
  examination.run(10);
  EXPECT_TRUE(examination.doubted());
  const int blocks = examination.state.blockCount;
  examination.stop();
  examination.expectEveryChannelInItsPlace(blocks);
}

INSTANTIATE_TEST_SUITE_P(
    Channels, OnEveryCable,
    testing::Values(Cable{"usb", {Pace::backToBack, 62, 0.016}}, Cable{"usbQuick", {Pace::backToBack, 62, 0.001}},
                    Cable{"usbSlow", {Pace::backToBack, 62, 0.1}}, Cable{"uart1", {Pace::backToBack, 1, 0.001}},
                    Cable{"uart8", {Pace::backToBack, 8, 0.002}}, Cable{"uart14", {Pace::backToBack, 14, 0.002}},
                    Cable{"odd7", {Pace::backToBack, 7, 0.016}}, Cable{"spread1", {Pace::evenlySpread, 1, 0.001}},
                    Cable{"spread62", {Pace::evenlySpread, 62, 0.016}}, Cable{"frames", {Pace::wholeFrames, 1, 0}}),
    [](const auto& each) { return std::string(each.param.name); });

TEST(Channels, AnInstrumentThatCutsItsFrameAtAStopIsFoundOutWhenTheRecordingBegins) {
  Faults cuts;
  cuts.cutFrames = true;
  int found = 0;
  for (int delay = 0; delay < 12; ++delay) {
    TonesOnTheLine examination({Pace::evenlySpread, 1, 0.001}, cuts, 0);
    examination.host.time.runFor(delay * 0.0013);
    examination.record();
    examination.run(3);
    if (examination.state.framesCut == 1) ++found;
    const int blocks = examination.state.blockCount;
    examination.stop();
    examination.expectEveryChannelInItsPlace(blocks);
  }
  EXPECT_GT(found, 0);
}

TEST(Channels, AnInstrumentKnownToCutFramesIsStoppedBeforeItIsStartedAnew) {
  Faults cuts;
  cuts.cutFrames = true;
  TonesOnTheLine examination({Pace::evenlySpread, 1, 0.001}, cuts);
  examination.record();
  examination.state.framesCut = 1;
  examination.run(20);
  EXPECT_GE(examination.rejectedBlocks(), 2);
  const int blocks = examination.state.blockCount;
  examination.stop();
  examination.expectEveryChannelInItsPlace(blocks);
}

TEST(Channels, AnswersThatComeTwiceOrLateNeverStandInThePlaceOfSamples) {
  for (const int chunk : {1, 2, 3, 62}) {
    Faults twice;
    twice.repeatAnswer = true;
    TonesOnTheLine examination({Pace::backToBack, chunk, 0.016}, twice);
    examination.record();
    examination.run(3);
    const int blocks = examination.state.blockCount;
    examination.stop();
    examination.expectEveryChannelInItsPlace(blocks);
  }
}

TEST(Channels, ALineThatIsAlwaysInDoubtAsksAndStopAndEndStillWork) {
  TonesOnTheLine examination({});
  examination.run(1);
  examination.host.dialogs.choices = {Choice::ok, Choice::cancel};
  bool always = true;
  std::function<void()> lose = [&] {
    examination.host.serialPort.overrun();
    if (always) examination.host.time.after(0.1, lose);
  };
  lose();
  examination.host.time.runUntil([&] { return examination.host.edge.ended(); }, 120);
  EXPECT_TRUE(examination.host.edge.ended());
  EXPECT_EQ(examination.host.dialogs.shown.back().kind, "question");
}

}  // namespace
}  // namespace korvinel
