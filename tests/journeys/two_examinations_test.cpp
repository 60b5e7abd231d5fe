#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "recordings.h"
#include "whole_record.h"

/// Nothing of one examination is left for the next: the program's state and display during examination B are the same
/// with and without an examination A before it.
namespace korvinel {
namespace {

const std::string ofAnna = recordings::folder + "anna.QVD", ofBruno = recordings::folder + "bruno.QVD",
                  unknown = recordings::folder + "ignoto.QVD", cut = recordings::folder + "mozzo.QVD";

std::string noise(std::mt19937& dice, int bytes) {
  std::string text;
  for (int i = 0; i < bytes; ++i) text += static_cast<char>(27 + dice() % 228);  // no byte that files avoid
  return text;
}

std::string noisyFile(unsigned seed, int blocks, const std::string& tag = "V3") {
  std::mt19937 dice(seed);
  std::string file = recordings::header({{1, "nota"}, {3, "di " + std::to_string(seed)}}, tag);
  for (int channel = 1; channel <= 4 * blocks; ++channel) file += noise(dice, 256) + "-\r\n";
  return file;
}

struct TwoExaminations : HeadlessProgram {
  TwoExaminations() {
    state.startUp();
    host.files.content[ofAnna] = noisyFile(1, 10);
    host.files.content[ofBruno] = noisyFile(2, 6);
    host.files.content[unknown] = noisyFile(3, 2, "V9");
    host.files.content[cut] = noisyFile(4, 1).substr(0, recordings::header().size() + 300);
    window.HScroll2.moveTo(20);
  }

  void begin(unsigned seed, const std::string& name) {
    std::mt19937 dice(seed);
    host.instrument.blocks.clear();
    for (int block = 1; block <= 20; ++block) host.instrument.blocks.push_back(noise(dice, 1024));
    state.artefactThreshold = 130;
    window.Stopd1.press();
    window.fileNameBox.type(name);
    window.subjectBox.type(name);
    window.Starts1.press();
  }
  void stop() {
    window.Stopd1.press();
    host.time.runFor(6);
  }
  void open(const std::string& path) {
    host.dialogs.files.assign(1, path);
    window.Openx.press();
  }
};

using Act = void (*)(TwoExaminations&);
using NamedAct = std::pair<const char*, Act>;

void nothing(TwoExaminations&) {}

void acquireRecorded(TwoExaminations& p) {
  p.begin(11, "esame-di-anna");
  p.acquireBlocks(3);
  p.window.Registra.press();
  p.host.time.runUntil([&] { return p.state.recordingArmed == 0; });
  p.window.Annotax.press();
  p.window.noteBox.type("nota di Anna");
  p.window.noteBox.pressKey(13);
  p.acquireBlocks(3);
  p.stop();
  p.window.stripPointer.onPressed(4);  // and the mouse button stays down
}

void endWithARejectedBlock(TwoExaminations& p) {
  p.begin(12, "scarti");
  p.acquireBlocks(2);
  p.state.artefactThreshold = 70;
  p.host.time.runUntil([&] { return p.state.artefactFlag == 1; });
  p.stop();
}

void openAFile(TwoExaminations& p) {
  p.open(ofAnna);
  p.window.Slider1.moveTo(4);
  p.window.stripPointer.onPressed(7);
}

void replayAFile(TwoExaminations& p) {
  openAFile(p);
  p.window.Displayx.press();
}

void stopAScan(TwoExaminations& p) {
  p.host.time.when([&] { return p.state.blockCount == 3; }, [&] { p.window.Stopd1.press(); });
  p.open(ofAnna);
}

void readAFileInPart(TwoExaminations& p) {
  p.host.files.failingAt[ofAnna] = 5000;
  p.open(ofAnna);
  p.host.files.failingAt.clear();
}

void openUnreadable(TwoExaminations& p) {
  openAFile(p);
  p.open(recordings::folder + "nessuno.QVD");
}

const NamedAct examinationsBefore[] = {{"acquired and recorded", acquireRecorded},
                                       {"ended with a rejected block", endWithARejectedBlock},
                                       {"opened", openAFile},
                                       {"replayed", replayAFile},
                                       {"scan stopped", stopAScan},
                                       {"read in part", readAFileInPart},
                                       {"opened, then an unreadable one", openUnreadable}};

/// What `value` is where it first differs from `expected`, and what it should be; "" if it does not.
std::string fromTheFirstDifference(const std::string& value, const std::string& expected) {
  if (value == expected) return "";
  const auto [here, there] = std::mismatch(value.begin(), value.end(), expected.begin(), expected.end());
  const auto excerpt = [](auto from, auto end) {
    return std::string(from, from + std::min<std::ptrdiff_t>(end - from, 200));
  };
  return "'" + excerpt(here, value.end()) + "' instead of '" + excerpt(there, expected.end()) + "'";
}

/// Compares a program after A and B with one after B alone. `block`: a whole block of B has been analysed.
void expectNothingLeft(Act b, bool block) {
  const auto recordAfter = [&](Act a) {
    const auto program = std::make_unique<TwoExaminations>();
    a(*program);
    b(*program);
    WholeRecord record(*program);
    return block ? record.withTheBlock().fields() : record.fields();
  };
  const auto alone = recordAfter(nothing);
  for (const auto& [name, a] : examinationsBefore)
    for (const auto& [field, value] : recordAfter(a))
      EXPECT_EQ(fromTheFirstDifference(value, alone.at(field)), "") << field << " after: " << name;
}

void acquire(TwoExaminations& p) { p.begin(21, "bruno-dal-vivo"); }

TEST(TwoExaminations, ALinkedInstrumentBeforeItsFirstBlock) { expectNothingLeft(acquire, false); }

TEST(TwoExaminations, AnAcquisition) {
  expectNothingLeft(
      [](TwoExaminations& p) {
        acquire(p);
        p.acquireBlocks(2);
      },
      true);
}

TEST(TwoExaminations, AnAcquisitionRecordedAndStopped) {
  expectNothingLeft(
      [](TwoExaminations& p) {
        acquire(p);
        p.acquireBlocks(1);
        p.window.Registra.press();
        p.host.time.runUntil([&] { return p.state.recordingArmed == 0; });
        p.acquireBlocks(2);
        p.stop();
      },
      true);
}

TEST(TwoExaminations, AnOpenedFile) {
  expectNothingLeft([](TwoExaminations& p) { p.open(ofBruno); }, true);
}

TEST(TwoExaminations, AReplayedFile) {
  expectNothingLeft(
      [](TwoExaminations& p) {
        p.open(ofBruno);
        p.window.Displayx.press();
      },
      true);
}

TEST(TwoExaminations, AFileOfUnknownVersion) {
  expectNothingLeft([](TwoExaminations& p) { p.open(unknown); }, true);
}

TEST(TwoExaminations, AFileWithoutAWholeBlock) {
  expectNothingLeft([](TwoExaminations& p) { p.open(cut); }, true);
}

TEST(TwoExaminations, AScanThatIsStopped) {
  expectNothingLeft(
      [](TwoExaminations& p) {
        p.host.time.when([&] { return p.state.fileLoopRunning == 1 && p.state.blockCount == 2; },
                         [&] { p.window.Stopd1.press(); });
        p.open(ofBruno);
      },
      true);
}

}  // namespace
}  // namespace korvinel
