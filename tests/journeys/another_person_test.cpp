#include <gtest/gtest.h>

#include <map>
#include <random>

#include "guidance/leftovers.h"
#include "headless_program.h"
#include "recordings.h"

/// After an examination of Anna, whatever is done for Bruno, every graph and label either shows what it would show
/// without Anna, or is covered.
namespace korvinel {
namespace {

using guidance::Leftovers;
using guidance::leftoversOf;

const std::string ofAnna = recordings::folder + "anna.QVD", ofBruno = recordings::folder + "bruno.QVD",
                  cut = recordings::folder + "mozzo.QVD", empty = recordings::folder + "vuoto.QVD";

std::string noise(unsigned seed, int bytes) {
  std::mt19937 dice(seed);
  std::string text;
  for (int i = 0; i < bytes; ++i) text += static_cast<char>(27 + dice() % 228);  // no byte that files avoid
  return text;
}

std::string noisyFile(unsigned seed, int blocks) {
  std::string file = recordings::header({{2, "nota " + std::to_string(seed)}});
  for (int channel = 1; channel <= 4 * blocks; ++channel)
    file += noise(100 * seed + static_cast<unsigned>(channel), 256) + "-\r\n";
  return file;
}

struct Persons : HeadlessProgram {
  Persons() {
    state.startUp();
    host.files.content[ofAnna] = noisyFile(1, 10);
    host.files.content[ofBruno] = noisyFile(2, 6);
    host.files.content[cut] = "\"Bruno";
    host.files.content[empty] = recordings::header();
    window.HScroll2.moveTo(20);
  }
  void type(const std::string& fileName, const std::string& subject) {
    window.fileNameBox.type(fileName);
    window.subjectBox.type(subject);
  }
  void start(unsigned seed, const std::string& name) {
    host.instrument.blocks.clear();
    for (unsigned block = 1; block <= 9; ++block) host.instrument.blocks.push_back(noise(50 * seed + block, 1024));
    window.Stopd1.press();
    type(name, name);
    window.Starts1.press();
  }
  void open(const std::string& path) {
    host.dialogs.files.assign(1, path);
    window.Openx.press();
  }
};

/// What a part of the window shows, and whether it is covered.
struct Part {
  std::string shown;
  bool covered = false;
};
using Parts = std::map<std::string, Part>;

std::string marksOf(const platform::Surface& surface) {
  std::string text;
  for (const platform::Mark& mark : surface.marks())
    for (const double value :
         {static_cast<double>(mark.kind), static_cast<double>(mark.colour), mark.x1, mark.y1, mark.x2, mark.y2})
      text += std::to_string(value) + " " + mark.text;
  return text;
}

Parts partsOf(const HeadlessProgram& program) {
  const MainWindow& w = program.window;
  const Leftovers left = leftoversOf(program.state);
  Parts parts;
  const std::pair<const platform::Surface*, bool> surfaces[] = {
      {&w.firstTrace, left.firstTrace}, {&w.secondTrace, left.secondTrace}, {&w.leftSpectrum, left.spectra},
      {&w.rightSpectrum, left.spectra}, {&w.frequencyAxis, left.spectra},   {&w.leftRuler, left.spectra},
      {&w.rightRuler, left.spectra},    {&w.coherenceGraph, left.numbers},  {&w.firstNumbers, left.numbers},
      {&w.secondNumbers, left.numbers}, {&w.Picture6, left.strip},          {&w.messagePanel, left.messages},
      {&w.axisCaptions, false}};
  for (const auto& [surface, covered] : surfaces) parts[surface->name()] = {marksOf(*surface), covered};
  for (const platform::Label* label : {&w.dateLabel, &w.timeLabel, &w.blockLabel, &w.zLabel, &w.replayPositionLabel})
    parts[label->name()] = {label->text(), left.labels};
  return parts;
}

using Act = Parts (*)(Persons&);

Parts afterwards(Persons& p) { return partsOf(p); }

/// What is seen at the first moment of the next act at which the condition holds.
template <typename Condition, typename Doing>
Parts seenWhen(Persons& p, Condition condition, Doing doing) {
  Parts seen;
  p.host.time.when([&p, condition] { return condition(p); }, [&] { seen = partsOf(p); });
  doing();
  return seen;
}

Parts giveUpTheList(Persons& p) {
  p.host.dialogs.files.clear();
  p.window.Openx.press();
  return afterwards(p);
}
Parts lookWhileTheListIsOpen(Persons& p) {
  Parts seen;
  p.host.dialogs.whileOpen = [&] { seen = partsOf(p); };
  giveUpTheList(p);
  p.host.dialogs.whileOpen = nullptr;
  return seen;
}
Parts openWhatIsMissing(Persons& p) {
  p.open(recordings::folder + "nessuno.QVD");
  return afterwards(p);
}
Parts openWhatIsCut(Persons& p) {
  p.open(cut);
  return afterwards(p);
}
Parts openWithoutBlocks(Persons& p) {
  p.open(empty);
  return afterwards(p);
}
Parts openBruno(Persons& p) {
  p.open(ofBruno);
  return afterwards(p);
}
Parts lookDuringTheScan(Persons& p) {
  return seenWhen(
      p, [](const Persons& q) { return q.state.blockCount == 3; }, [&] { p.open(ofBruno); });
}
Parts stopTheScan(Persons& p) {
  p.host.time.when([&] { return p.state.blockCount == 3; }, [&] { p.window.Stopd1.press(); });
  p.open(ofBruno);
  return afterwards(p);
}
Parts replayAStoppedScan(Persons& p) {
  stopTheScan(p);
  p.window.Displayx.press();
  return afterwards(p);
}
Parts startUnderATakenName(Persons& p) {
  p.start(2, "bruno");
  return afterwards(p);
}
Parts startWithoutASubject(Persons& p) {
  p.window.Stopd1.press();
  p.type("bruno-2", "");
  p.window.Starts1.press();
  return afterwards(p);
}
Parts lookDuringTheHandshake(Persons& p) {
  return seenWhen(
      p, [](const Persons& q) { return q.state.linkPending == 1; }, [&] { p.start(2, "bruno-2"); });
}
Parts lookBeforeTheFirstBlock(Persons& p) {
  p.start(2, "bruno-2");
  return afterwards(p);
}
Parts acquire(Persons& p) {
  p.start(2, "bruno-2");
  p.acquireBlocks(2);
  return afterwards(p);
}
Parts openAfterARefusedStart(Persons& p) {
  startWithoutASubject(p);
  return giveUpTheList(p);
}

const std::pair<const char*, Act> actsForBruno[] = {{"gives up the list of files", giveUpTheList},
                                                    {"the list of files is open", lookWhileTheListIsOpen},
                                                    {"opens a missing file", openWhatIsMissing},
                                                    {"opens a cut file", openWhatIsCut},
                                                    {"opens a file without blocks", openWithoutBlocks},
                                                    {"opens Bruno's file", openBruno},
                                                    {"during the scan", lookDuringTheScan},
                                                    {"stops the scan", stopTheScan},
                                                    {"replays what was scanned in part", replayAStoppedScan},
                                                    {"starts under a taken name", startUnderATakenName},
                                                    {"starts without a subject", startWithoutASubject},
                                                    {"during the handshake", lookDuringTheHandshake},
                                                    {"before the first block", lookBeforeTheFirstBlock},
                                                    {"acquires", acquire},
                                                    {"refused, then gives up the list", openAfterARefusedStart}};

void acquireAnna(Persons& p) {
  p.start(1, "esame-di-anna");
  p.acquireBlocks(2);
  p.window.Registra.press();
  p.acquireBlocks(3);
  p.window.Annotax.press();
  p.window.noteBox.type("nota di Anna");
  p.window.noteBox.pressKey(13);
  p.window.Stopd1.press();
  p.host.time.runFor(6);
}
void watchAnna(Persons& p) {
  p.start(1, "anna-senza-registrare");
  p.acquireBlocks(2);
  p.window.Stopd1.press();
  p.host.time.runFor(6);
}
void openAnna(Persons& p) {
  p.open(ofAnna);
  p.window.Slider1.moveTo(4);
}
void replayAnna(Persons& p) {
  openAnna(p);
  p.window.Displayx.press();
}
void stopTheScanOfAnna(Persons& p) {
  p.host.time.when([&] { return p.state.blockCount == 4; }, [&] { p.window.Stopd1.press(); });
  p.open(ofAnna);
}
void openAnnaThenNothing(Persons& p) {
  replayAnna(p);
  giveUpTheList(p);
}

const std::pair<const char*, void (*)(Persons&)> examinationsOfAnna[] = {{"recorded", acquireAnna},
                                                                         {"watched", watchAnna},
                                                                         {"opened", openAnna},
                                                                         {"replayed", replayAnna},
                                                                         {"scan stopped", stopTheScanOfAnna},
                                                                         {"opened, then nothing", openAnnaThenNothing}};

TEST(AnotherPerson, SeesNothingOfTheOneBefore) {
  for (const auto& [what, act] : actsForBruno) {
    const auto alone = std::make_unique<Persons>();
    const Parts clean = act(*alone);
    ASSERT_FALSE(clean.empty()) << what;
    for (const auto& [how, examine] : examinationsOfAnna) {
      const auto program = std::make_unique<Persons>();
      examine(*program);
      for (const auto& [name, part] : act(*program))
        EXPECT_TRUE(part.covered || part.shown.empty() || part.shown == clean.at(name).shown)
            << name << " while Bruno's operator " << what << ", after Anna was " << how;
    }
  }
}

/// A cover over what belongs to the examination at hand would hide it.
TEST(AnotherPerson, IsNotCoveredAtHisOwnExamination) {
  for (const Act act :
       {openBruno, lookDuringTheScan, stopTheScan, replayAStoppedScan, lookBeforeTheFirstBlock, acquire})
    for (const auto& [how, examine] : examinationsOfAnna) {
      const auto program = std::make_unique<Persons>();
      examine(*program);
      act(*program);
      EXPECT_EQ(leftoversOf(program->state), Leftovers{}) << how;
    }
}

}  // namespace
}  // namespace korvinel
