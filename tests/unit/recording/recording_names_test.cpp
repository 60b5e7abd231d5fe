#include "recording/recording_names.h"

#include <gtest/gtest.h>

#include "headless_program.h"
#include "recording/conclusion.h"
#include "recordings.h"

namespace korvinel {
namespace {

using recordings::folder;

constexpr auto taken = "Questo nome di file esiste gia'!Cambiare nome!";

std::string unusable(const std::string& reason) {
  return "Questo nome di file non si può usare!\r" + reason + "\rCambiare nome!";
}

struct Names : testing::Test {
  HeadlessProgram program;
  MainWindow& window = program.window;
  std::map<std::string, std::string>& disk = program.host.files.content;

  std::string lastBox() { return program.host.dialogs.shown.empty() ? "" : program.host.dialogs.shown.back().text; }
  void record() {
    window.Registra.press();
    program.host.time.runUntil([&] { return program.state.recordingArmed == 0; });
  }
  void stop() {
    window.Stopd1.press();
    program.host.time.runUntil([&] { return program.state.intervalSelectable == 1; });
  }
};

/// Start's message about a file name and a subject; "" if it accepts them.
std::string saidAtStart(const std::string& fileName, const std::string& subject = "Rossi") {
  HeadlessProgram program;
  program.host.files.devices = {"NUL", "COM1"};
  program.state.startUp();
  program.window.fileNameBox.setText(fileName);
  program.window.subjectBox.type(subject);
  program.window.Starts1.press();
  EXPECT_EQ(program.state.acquisitionRunning, program.host.dialogs.shown.empty() ? 1 : 0) << fileName;
  return program.host.dialogs.shown.empty() ? "" : program.host.dialogs.shown.back().text;
}

TEST(NamesAtStart, ANameThatCanBeNoFileIsRefusedWithItsReason) {
  const std::string tooLong = unusable("È troppo lungo per il disco.");
  const std::string device = unusable("Il sistema lo riserva a un dispositivo.");
  const std::string letters = unusable("Contiene caratteri che il nome di un file non può avere.");
  const std::string dots = unusable("È fatto solo di punti e spazi.");
  EXPECT_EQ(saidAtStart(std::string(251, 'a')), "");
  EXPECT_EQ(saidAtStart(std::string(252, 'a')), tooLong);
  EXPECT_EQ(saidAtStart(std::string(300, 'a')), tooLong);
  EXPECT_EQ(saidAtStart(std::string(125, 'a') + std::string(63, ' ') + "\u00E8" + std::string(62, 'a')), tooLong);
  EXPECT_EQ(saidAtStart("NUL"), device);
  EXPECT_EQ(saidAtStart("com1"), device);
  EXPECT_EQ(saidAtStart("a/b"), letters);
  EXPECT_EQ(saidAtStart("a\\b"), letters);
  EXPECT_EQ(saidAtStart("..."), dots);
  EXPECT_EQ(saidAtStart(" . "), dots);
  EXPECT_EQ(saidAtStart(".rossi"), unusable("Comincia con un punto, e il file resterebbe nascosto."));
  EXPECT_EQ(saidAtStart("   "), "Scrivere nome del file!");
  EXPECT_EQ(saidAtStart("rossi 1.2"), "");
}

TEST(NamesAtStart, ASubjectOfBlanksOrWithLettersThatTheFileLacksIsRefused) {
  EXPECT_EQ(saidAtStart("prova", " \u00A0 "), "Scrivere nome del soggetto!");
  EXPECT_EQ(saidAtStart("prova", "Nguyễn Thị Ngọc"),
            "Il file non può contenere queste lettere del nome del soggetto:\rễ, ị, ọ\r"
            "Scrivere il nome con altre lettere!");
  EXPECT_EQ(saidAtStart("prova", "Nicolò d’Arc – €"), "");
}

TEST_F(Names, TheNameThatWillBeWrittenIsCheckedAtStart) {
  disk[folder + "uno.qvd.QVD"] = "";
  program.startAcquisition("uno.QVD");
  EXPECT_EQ(lastBox(), taken);
  EXPECT_EQ(program.state.acquisitionRunning, 0);
}

TEST_F(Names, TheSameNameWithItsEndingTwiceMakesNoSecondRecordingInOneFile) {
  program.startAcquisition("uno.QVD");
  program.acquireBlocks(1);
  record();
  program.acquireBlocks(1);
  stop();
  const std::string first = disk[folder + "uno.QVD.QVD"];
  EXPECT_FALSE(first.empty());
  window.Starts1.press();
  EXPECT_EQ(lastBox(), taken);
  EXPECT_EQ(program.state.acquisitionRunning, 0);
  EXPECT_EQ(disk[folder + "uno.QVD.QVD"], first);
}

TEST_F(Names, CorrectedBeforeRegistraAreCheckedThere) {
  disk[folder + "bianchi.QVD"] = "another's examination";
  program.startAcquisition("verdi", "Verdi");
  program.acquireBlocks(1);
  window.fileNameBox.type("Bianchi");
  window.Registra.press();
  EXPECT_EQ(lastBox(), taken);
  EXPECT_EQ(program.state.recordingActive, 0);
  EXPECT_EQ(program.state.acquisitionRunning, 1);
  EXPECT_FALSE(disk.contains(recordings::temporary));

  window.fileNameBox.type("");
  window.Registra.press();
  EXPECT_EQ(lastBox(), "Scrivere nome del file!");
  window.fileNameBox.type("rossi");
  window.subjectBox.type(" ");
  window.Registra.press();
  EXPECT_EQ(lastBox(), "Scrivere nome del soggetto!");
  EXPECT_EQ(window.subjectBox.focusRequests(), 1);
  EXPECT_EQ(program.state.recordingActive, 0);

  const std::size_t boxes = program.host.dialogs.shown.size();
  window.subjectBox.type("Rossi");
  record();
  EXPECT_EQ(program.host.dialogs.shown.size(), boxes);
  EXPECT_EQ(program.state.recordingActive, 1);
  stop();
  EXPECT_TRUE(disk[folder + "rossi.QVD"].starts_with("\"Rossi\",\"21/11/2026 V3\""));
  EXPECT_EQ(disk[folder + "bianchi.QVD"], "another's examination");
  EXPECT_FALSE(disk.contains(folder + "verdi.QVD"));
}

TEST_F(Names, TheTemporaryFileHoldsTheSubjectAsCorrected) {
  program.startAcquisition("prova", "Verdi");
  program.acquireBlocks(1);
  window.subjectBox.type("Rossi");
  window.Registra.press();
  EXPECT_EQ(disk[recordings::temporary], "\"Rossi\",\"21/11/2026\",\"4canali\"\r\n");
}

TEST_F(Names, CannotBeEditedFromRegistraToTheEndOfTheRecording) {
  program.startAcquisition("prova", "Rossi");
  program.acquireBlocks(1);
  EXPECT_FALSE(window.fileNameBox.readOnly());
  window.Registra.press();
  EXPECT_TRUE(window.fileNameBox.readOnly());
  EXPECT_TRUE(window.subjectBox.readOnly());
  window.fileNameBox.type("altro");
  window.subjectBox.type("Altri");
  program.acquireBlocks(2);
  window.subjectBox.type("Altri");
  window.Stopd1.press();
  window.subjectBox.type("Altri");
  program.host.time.runUntil([&] { return program.state.intervalSelectable == 1; });
  EXPECT_EQ(window.fileNameBox.text(), "prova");
  EXPECT_TRUE(disk[folder + "prova.QVD"].starts_with("\"Rossi\","));
  EXPECT_FALSE(window.fileNameBox.readOnly());
  EXPECT_FALSE(window.subjectBox.readOnly());
}

TEST_F(Names, StayEditableWhereTheRecordingCannotBegin) {
  program.startAcquisition();
  program.acquireBlocks(1);
  program.host.files.readOnly = true;
  window.Registra.press();
  EXPECT_FALSE(window.fileNameBox.readOnly());
  EXPECT_FALSE(window.subjectBox.readOnly());
}

TEST_F(Names, ANextExaminationIsRecordedUnderItsOwn) {
  program.startAcquisition("uno", "Rossi");
  program.acquireBlocks(1);
  record();
  stop();
  window.fileNameBox.type("due");
  window.subjectBox.type("Verdi");
  window.Starts1.press();
  program.acquireBlocks(1);
  record();
  stop();
  EXPECT_TRUE(disk[folder + "uno.QVD"].starts_with("\"Rossi\","));
  EXPECT_TRUE(disk[folder + "due.QVD"].starts_with("\"Verdi\","));
}

TEST_F(Names, AFileThatAppearsInMidRecordingIsLeftAloneAndTheFreeNameTold) {
  program.startAcquisition("uno");
  program.acquireBlocks(1);
  record();
  program.acquireBlocks(1);
  disk[folder + "UNO.QVD"] = "another's";
  disk[folder + "uno (2).qvd"] = "a third's";
  stop();
  EXPECT_EQ(disk[folder + "UNO.QVD"], "another's");
  EXPECT_EQ(disk[folder + "uno (2).qvd"], "a third's");
  EXPECT_TRUE(disk[folder + "uno (3).QVD"].starts_with("\"Rossi\","));
  EXPECT_FALSE(disk.contains(folder + "uno.QVD"));
  EXPECT_EQ(program.shared.dataFileName, "uno (3).QVD");
  ASSERT_EQ(program.host.dialogs.shown.size(), 2U);
  EXPECT_EQ(
      program.host.dialogs.shown[0].text,
      "Durante la registrazione è comparso un altro file di nome\runo.QVD\rIl nome di questo esame è\runo (3).QVD");
}

TEST_F(Names, TheFreeNameIsTakenAlsoWhereTheProgramEndsInACommunicationError) {
  program.startAcquisition("uno");
  program.acquireBlocks(1);
  record();
  program.acquireBlocks(1);
  disk[folder + "uno.QVD"] = "another's";
  program.host.instrument.goSilent();
  program.host.time.runFor(15);
  EXPECT_TRUE(program.host.edge.ended());
  EXPECT_EQ(disk[folder + "uno.QVD"], "another's");
  EXPECT_TRUE(disk[folder + "uno (2).QVD"].starts_with("\"Rossi\","));
}

TEST_F(Names, WhereNobodyIsLeftTheFreeNameGoesToStandardError) {
  program.state.recordingNotice = "prima\rseconda";
  program.state.nobodyToAsk = 1;
  concludeRecording(program.state);
  EXPECT_EQ(program.host.machine.told, std::vector<std::string>{"prima seconda"});
  EXPECT_TRUE(program.host.dialogs.shown.empty());
  EXPECT_EQ(program.state.recordingNotice, "");
}

TEST(FreeFileName, IsNoLongerThanTheDiskTakes) {
  platform::MemoryFiles files;
  std::string name;
  while (name.size() < 251) name += "\u00E8";
  name.resize(250);
  files.content["F\\" + name + ".QVD"] = "";
  const std::string free = freeFileName(files, "F\\", name + ".QVD");
  EXPECT_EQ(free, name.substr(0, 246) + " (2).QVD");
}

TEST(TakeNames, TheDateIsThatOfTheDayOnWhichStartWasPressed) {
  HeadlessProgram program;
  program.state.startUp();
  EXPECT_EQ(program.state.recordingDate, "21/11/2026");
  program.host.time.setDate({2026, 12, 31, 0, 0, 0});
  program.window.fileNameBox.type("prova");
  program.window.subjectBox.type("Rossi");
  program.window.Starts1.press();
  EXPECT_EQ(program.state.recordingDate, "31/12/2026");
  EXPECT_EQ(program.window.dateLabel.text(), "Data =31/12/2026");
}

TEST(TakeNames, AfterAFileTheDateIsTodaysAgain) {
  HeadlessProgram program;
  program.host.files.content[recordings::folder + "a.QVD"] =
      "\"Verdi\",\"01/02/2003 V3\",\"4canali\",0\r\n" + recordings::block(100);
  program.state.startUp();
  program.host.dialogs.files = {recordings::folder + "a.QVD"};
  program.window.Openx.press();
  ASSERT_EQ(program.state.recordingDate, "01/02/2003 ");
  program.window.Stopd1.press();
  program.window.fileNameBox.type("prova");
  program.window.Starts1.press();
  EXPECT_EQ(program.state.recordingDate, "21/11/2026");
  EXPECT_EQ(program.window.dateLabel.text(), "Data =21/11/2026");
}

TEST(TakeNames, ARecordingAcrossMidnightHasTheDateOfItsBeginning) {
  HeadlessProgram program;
  program.host.time.jump(86'400 - 36'000 - 30);  // half a minute before midnight
  program.startAcquisition();
  program.acquireBlocks(1);
  program.window.Registra.press();
  program.host.time.runUntil([&] { return program.state.recordingArmed == 0; });
  program.acquireBlocks(10);
  ASSERT_EQ(platform::dateText(program.host.time.localTime()), "22/11/2026");
  program.window.Stopd1.press();
  program.host.time.runUntil([&] { return program.state.intervalSelectable == 1; });
  EXPECT_TRUE(program.host.files.content[recordings::folder + "prova.QVD"].starts_with("\"Rossi\",\"21/11/2026 V3\""));
}

}  // namespace
}  // namespace korvinel
