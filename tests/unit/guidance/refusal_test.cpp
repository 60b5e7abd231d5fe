#include "guidance/refusal.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "headless_program.h"
#include "recordings.h"

namespace korvinel::guidance {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

struct Refusal : testing::Test {
  std::string why(Command command) { return whyRefused(command, program.state); }
  HeadlessProgram program;
};

TEST_F(Refusal, AtRestOnlyWhatNeedsDataOrAnExaminationIsRefused) {
  program.state.startUp();
  program.window.fileNameBox.type("prova");
  EXPECT_THAT(why(Command::start), HasSubstr("nome del soggetto"));
  program.window.subjectBox.type("Rossi");
  EXPECT_THAT(why(Command::start), IsEmpty());
  EXPECT_THAT(why(Command::stop), HasSubstr("nulla da fermare"));
  EXPECT_THAT(why(Command::record), HasSubstr("prima premere Start"));
  EXPECT_THAT(why(Command::open), IsEmpty());
  EXPECT_THAT(why(Command::replay), HasSubstr("prima aprire un file"));
  EXPECT_THAT(why(Command::report), HasSubstr("non ci sono dati"));
  for (const Command always : {Command::pair, Command::print, Command::end, Command::threshold})
    EXPECT_THAT(why(always), IsEmpty());
}

TEST_F(Refusal, WithoutAFileNameThereIsNoStart) {
  program.state.startUp();
  EXPECT_THAT(why(Command::start), HasSubstr("nome del file"));
}

TEST_F(Refusal, DuringAnExaminationNothingOfAFileIsPossible) {
  program.startAcquisition();
  program.acquireBlocks(2);
  EXPECT_THAT(why(Command::start), HasSubstr("già in corso"));
  EXPECT_THAT(why(Command::stop), IsEmpty());
  EXPECT_THAT(why(Command::record), IsEmpty());
  EXPECT_THAT(why(Command::note), IsEmpty());
  EXPECT_THAT(why(Command::open), HasSubstr("premere Stop"));
  EXPECT_THAT(why(Command::report), HasSubstr("premere Stop"));
  program.window.Registra.press();
  EXPECT_THAT(why(Command::record), HasSubstr("già in corso"));
}

TEST_F(Refusal, OnceStopIsPressedTheExaminationOnlyEnds) {
  program.startAcquisition();
  program.acquireBlocks(2);
  program.window.Stopd1.press();
  EXPECT_THAT(why(Command::start), HasSubstr("sta finendo"));
  EXPECT_THAT(why(Command::stop), HasSubstr("già stato premuto"));
  EXPECT_THAT(why(Command::record), HasSubstr("sta finendo"));
}

TEST_F(Refusal, SixtyNotesAreAll) {
  program.startAcquisition();
  program.state.noteCount = 60;
  EXPECT_THAT(why(Command::note), HasSubstr("60 note"));
}

TEST_F(Refusal, AnOpenedFileMustBeStoppedBeforeAStart) {
  program.state.startUp();
  const std::string path = recordings::folder + "esame.QVD";
  program.host.files.content[path] = recordings::file(5);
  program.host.dialogs.files.push_back(path);
  program.window.Openx.press();
  EXPECT_THAT(why(Command::start), HasSubstr("prima premere Stop"));
  EXPECT_THAT(why(Command::note), HasSubstr("file aperto"));
  EXPECT_THAT(why(Command::stop), IsEmpty());
  EXPECT_THAT(why(Command::replay), IsEmpty());
  EXPECT_THAT(why(Command::report), IsEmpty());
  program.window.Stopd1.press();
  EXPECT_THAT(why(Command::start), IsEmpty());
}

TEST_F(Refusal, TheThresholdWaitsForTheOcularCheck) {
  program.state.startUp();
  program.window.ocularCheck.click();
  EXPECT_THAT(why(Command::threshold), HasSubstr("artefatti oculari"));
}

}  // namespace
}  // namespace korvinel::guidance
