#include "guidance/captions.h"

#include <gtest/gtest.h>

#include "opened_file.h"

namespace korvinel::guidance {
namespace {

TEST(Captions, NameThePairThatWillComeWhileAGraphIsEmpty) {
  HeadlessProgram program;
  program.state.startUp();
  Captions first;
  first.firstTrace = first.leftSpectrum = first.firstNumbers = "F1";
  first.secondTrace = first.rightSpectrum = first.secondNumbers = "F2";
  first.coherence = "F1-F2";
  first.strip = "Sincronia F1-F2";
  EXPECT_EQ(captionsOf(program.state), first);
  program.window.Canali.press();
  const Captions second = captionsOf(program.state);
  EXPECT_EQ(second.firstTrace + second.secondTrace + second.leftSpectrum + second.rightSpectrum, "T5T6T5T6");
  EXPECT_EQ(second.strip, "Sincronia T5-T6");
}

TEST(Captions, KeepThePairThatEachGraphShows) {
  HeadlessProgram program;
  program.startAcquisition();
  program.acquireBlocks(1);
  program.window.Canali.press();
  EXPECT_EQ(captionsOf(program.state).firstTrace, "F1");  // until the next block
  program.acquireBlocks(1);
  EXPECT_EQ(captionsOf(program.state).firstTrace, "T5");
  program.host.instrument.blocks.assign(1, std::string(1024, '\xFF'));
  program.state.artefactThreshold = 70;
  program.host.time.runUntil([&] { return program.state.artefactFlag == 1; });
  const Captions rejected = captionsOf(program.state);
  EXPECT_EQ(rejected.firstTrace + rejected.secondTrace, "F1F2");
  EXPECT_EQ(rejected.leftSpectrum + rejected.rightSpectrum, "T5T6");
  EXPECT_EQ(rejected.coherence, "T5-T6");
  EXPECT_EQ(rejected.firstNumbers + rejected.secondNumbers, "T5T6");
}

TEST(Captions, SayWhoseGraphsTheseAre) {
  FileProgram program;
  EXPECT_EQ(captionsOf(program.state).examination, "");
  program.open();
  EXPECT_EQ(captionsOf(program.state).examination, "Rossi, esame.QVD");
  EXPECT_FALSE(captionsOf(program.state).namesDiffer);
  program.window.subjectBox.type("Bianchi");
  EXPECT_TRUE(captionsOf(program.state).namesDiffer);
  program.window.subjectBox.type("Rossi");
  program.window.fileNameBox.type("altro");
  EXPECT_TRUE(captionsOf(program.state).namesDiffer);
}

TEST(Captions, TheNamesOfAFinishedExaminationAreThoseInItsBoxes) {
  HeadlessProgram program;
  program.startAcquisition("prova", "Rossi");
  program.acquireBlocks(1);
  program.window.subjectBox.type("Bianchi");
  EXPECT_FALSE(captionsOf(program.state).namesDiffer);  // names may be corrected until "Registra"
  program.window.Stopd1.press();
  program.host.time.runFor(6);
  EXPECT_TRUE(captionsOf(program.state).namesDiffer);
  program.window.subjectBox.type("Rossi");
  EXPECT_FALSE(captionsOf(program.state).namesDiffer);
}

/// As the traces are drawn: sample 128 + microvolts at 255 minus the sample.
TEST(Captions, TheScaleOfATraceIsThatOfItsSamples) {
  for (const auto& [place, text] : traceScale) EXPECT_EQ(255 - (128 + std::stoi(text)), place) << text;
  for (const auto& [place, text] : stripScale) EXPECT_EQ(100 - std::stoi(text), place) << text;
}

}  // namespace
}  // namespace korvinel::guidance
