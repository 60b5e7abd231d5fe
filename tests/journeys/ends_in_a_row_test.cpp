#include <gtest/gtest.h>

#include "opened_file.h"

/// However two consecutive examinations end, their files are the same as those of two programs with one examination
/// each.
namespace korvinel {
namespace {

const std::string ofAnna = recordings::folder + "anna.QVD", ofBruno = recordings::folder + "bruno.QVD";
const std::string recordingOfCarla = recordings::folder + "carla.QVD";

using Program = HeadlessProgram;
using Act = void (*)(Program&);
using NamedAct = std::pair<const char*, Act>;

void begin(Program& p, const std::string& name, char level) {
  p.host.instrument.idleBlock = std::string(1024, level);
  p.state.artefactThreshold = 130;
  p.window.Stopd1.press();
  EXPECT_FALSE(p.window.fileNameBox.readOnly());
  EXPECT_FALSE(p.window.subjectBox.readOnly());
  p.window.fileNameBox.type(name);
  p.window.subjectBox.type(name);
  p.window.Starts1.press();
  p.acquireBlocks(1);
}

/// Records blocks and a confirmed note; another note is still being typed.
void record(Program& p, const std::string& name, char level) {
  begin(p, name, level);
  p.window.Registra.press();
  p.host.time.runUntil([&] { return p.state.recordingArmed == 0; });
  p.acquireBlocks(1);
  p.window.Annotax.press();
  p.window.noteBox.type("nota di " + name);
  p.window.noteBox.pressKey(13);
  p.acquireBlocks(1);
  p.window.Annotax.press();
  p.window.noteBox.type("altra di " + name);
}

void waitForEnd(Program& p) {
  p.host.time.runUntil([&] { return p.state.intervalSelectable == 1; }, 900);
  p.host.time.runFor(3);
}

void stop(Program& p) {
  p.window.Stopd1.press();
  waitForEnd(p);
}

void rejectOne(Program& p) {
  p.host.instrument.idleBlock = std::string(1024, '\xFF');
  p.state.artefactThreshold = 70;
  p.host.time.runUntil([&] { return p.state.artefactFlag == 1; });
}

void openCarla(Program& p) {
  p.host.files.content[recordingOfCarla] = recordings::file(6, {{1, "di Carla"}, {3, "ancora"}});
  p.host.dialogs.files.push_back(recordingOfCarla);
  p.window.Openx.press();
}

void annaIsStopped(Program& p) { record(p, "anna", '\x60'), stop(p); }
void annaReachesTheLimit(Program& p) { record(p, "anna", '\x60'), waitForEnd(p); }
void annaIsStoppedAfterARejectedBlock(Program& p) { record(p, "anna", '\x60'), rejectOne(p), stop(p); }
void annaIsStoppedOnASilentLine(Program& p) {
  record(p, "anna", '\x60');
  p.window.Stopd1.press();
  p.host.serialPort.unplug();
  p.host.time.runFor(10);
  p.host.serialPort.plugIn();
}
void annaIsStoppedOnAFullDisk(Program& p) {
  record(p, "anna", '\x60');
  p.host.dialogs.giveRecordingsUp();
  p.host.files.freeSpace = 10;
  stop(p);
  p.host.files.freeSpace = 10'000'000;
  p.host.dialogs.onQuestion = {};
}
void annaIsNotRecorded(Program& p) {
  begin(p, "anna", '\x60');
  p.window.Annotax.press();
  p.window.noteBox.type("nota di anna");
  stop(p);
}
void annaIsLinkedAndRegistraIsRefused(Program& p) {
  begin(p, "anna", '\x60');
  p.window.subjectBox.type(" ");
  p.window.Registra.press();
  stop(p);
}
void carlaIsOpened(Program& p) { openCarla(p); }
void carlaIsReplayedAndStopped(Program& p) {
  openCarla(p);
  p.host.time.after(2, [&p] { p.window.Stopd1.press(); });
  p.window.Displayx.press();
}
void carlaIsReadInPart(Program& p) {
  p.host.files.failingAt[recordingOfCarla] = 3000;
  openCarla(p);
}
void startIsRefused(Program& p) {
  annaIsStopped(p);
  p.window.Starts1.press();
}

const NamedAct firstOnes[] = {{"stopped", annaIsStopped},
                              {"limit", annaReachesTheLimit},
                              {"rejected, stopped", annaIsStoppedAfterARejectedBlock},
                              {"silent line", annaIsStoppedOnASilentLine},
                              {"full disk", annaIsStoppedOnAFullDisk},
                              {"not recorded", annaIsNotRecorded},
                              {"Registra refused", annaIsLinkedAndRegistraIsRefused},
                              {"opened", carlaIsOpened},
                              {"replayed", carlaIsReplayedAndStopped},
                              {"read in part", carlaIsReadInPart},
                              {"Start refused", startIsRefused}};

const NamedAct lastEnds[] = {
    {"Stop", stop},
    {"Stop after a rejected block", [](Program& p) { rejectOne(p), stop(p); }},
    {"End", [](Program& p) { p.window.Endx1.press(), p.host.time.runFor(5); }},
    {"End after a rejected block", [](Program& p) { rejectOne(p), p.window.Endx1.press(), p.host.time.runFor(5); }},
    {"Stop, End", [](Program& p) { p.window.Stopd1.press(), p.window.Endx1.press(); }},
    {"closing",
     [](Program& p) {
       p.host.edge.run([&] { static_cast<void>(p.state.closeWindow()); });
       p.host.time.runFor(5);
     }},
    {"Cancel", [](Program& p) { p.host.instrument.goSilent(), p.host.time.runFor(20); }},
    {"a signal", [](Program& p) { p.host.edge.run([&] { p.state.endWithoutAsking(); }); }}};

std::string brunosFile(Act first, Act end) {
  Program program;
  program.state.startUp();
  first(program);
  const std::string anna = program.host.files.content[ofAnna];
  record(program, "bruno", '\x90');
  end(program);
  EXPECT_EQ(program.host.files.content[ofAnna], anna);
  EXPECT_FALSE(program.host.files.content.contains(recordings::temporary));
  return program.host.files.content[ofBruno];
}

void expectTheFileOfBrunoAlone(const NamedAct& end, const std::vector<NamedAct>& firsts) {
  const std::string alone = brunosFile([](Program&) {}, end.second);
  EXPECT_NE(alone.find("altra di bruno"), std::string::npos) << end.first;
  for (const auto& [name, first] : firsts)
    EXPECT_TRUE(brunosFile(first, end.second) == alone) << name << ", then " << end.first;
}

TEST(EndsInARow, TheSecondFileIsTheSameWhateverTheFirstWas) {
  expectTheFileOfBrunoAlone({"Stop", stop}, {std::begin(firstOnes), std::end(firstOnes)});
}

TEST(EndsInARow, TheSecondFileIsTheSameHoweverItsExaminationEnds) {
  for (const NamedAct& end : lastEnds)
    expectTheFileOfBrunoAlone(end, {{"stopped", annaIsStopped}, {"not recorded", annaIsNotRecorded}});
}

}  // namespace
}  // namespace korvinel
