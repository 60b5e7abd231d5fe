#include <gtest/gtest.h>

#include "golden_reference.h"
#include "opened_file.h"
#include "signals.h"

namespace korvinel {
namespace {

using platform::Colour;

TEST(OpenDataFile, OfTenBlocksCountsNine) {
  FileProgram program;
  program.open();
  EXPECT_EQ(program.window.blockLabel.text(), "Totale=27s");
  EXPECT_EQ(program.window.zLabel.text(), "Z1=1  Z2=9");
  EXPECT_EQ(program.shared.fileBlockCount, 9);
  EXPECT_EQ(program.shared.replayStartBlock, 1);
  EXPECT_EQ(program.shared.analysisFirstBlock, 1);
  EXPECT_EQ(program.shared.analysisLastBlock, 9);
  EXPECT_EQ(program.state.blockCount, 9);
  EXPECT_EQ(program.state.intervalSelectable, 1);
  EXPECT_EQ(program.state.acquisitionRunning, 0);
  EXPECT_EQ(program.state.readHandle, nullptr);
  EXPECT_TRUE(program.window.messagePanel.shows(" Lunghezza file= 9 bloks"));
  EXPECT_TRUE(program.host.faults.empty());
}

TEST(OpenDataFile, AFileThatCannotBeReadAfterStopOrEndWasPressedIsNoFault) {
  for (const bool end : {false, true}) {
    for (int pressed = 1; pressed <= 6; ++pressed) {
      FileProgram program;
      program.host.files.failingAt[program.path] =
          recordings::header().size() + std::size_t{6 * 1036 + 500};  // in block 7
      program.host.time.when([&] { return program.state.blockCount == pressed; },
                             [&] { (end ? program.window.Endx1 : program.window.Stopd1).press(); });
      program.open();
      EXPECT_EQ(program.state.openingFault, nullptr) << pressed;
      EXPECT_TRUE(program.host.faults.empty()) << pressed;
      EXPECT_EQ(program.host.edge.ended(), end) << pressed;
    }
  }
}

TEST(OpenDataFile, TheScanKnowsHowManyBlocksAreToCome) {
  FileProgram program;
  program.open();
  EXPECT_EQ(program.state.scanTotal, 10);
}

/// Messages used to overwrite the text that the label showed.
TEST(OpenDataFile, TheDateStaysInThe50HertzLabelWhateverWasAsked) {
  FileProgram program;
  program.open();
  const auto redrawn = [&] {
    program.window.Slider1.moveTo(program.window.Slider1.value() + 1);
    return program.window.zLabel.text();
  };
  EXPECT_EQ(redrawn(), "21/11/2026 V3\r");
  program.window.Analisi.press();
  EXPECT_EQ(redrawn(), "21/11/2026 V3\r");
  program.host.dialogs.inputs = {"90"};
  program.window.Artefact.press();
  EXPECT_EQ(redrawn(), "21/11/2026 V3\r");
}

TEST(OpenDataFile, ShowsTheHeaderInLabelsAndBoxes) {
  FileProgram program;
  program.open();
  EXPECT_EQ(program.window.dateLabel.text(), "Data=21/11/2026 ");
  EXPECT_EQ(program.window.fileNameBox.text(), "esame.QVD");
  EXPECT_EQ(program.window.subjectBox.text(), "Rossi");
  EXPECT_EQ(program.shared.subjectName, "Rossi");
  EXPECT_EQ(program.shared.dataFileName, "esame.QVD");
  EXPECT_EQ(program.state.openFilePath, program.path);
  EXPECT_EQ(program.state.openFileTitle, "esame.QVD");
  EXPECT_TRUE(program.window.noteBox.enabled());
  EXPECT_FALSE(program.window.startPicture.visible());
}

TEST(OpenDataFile, PrintsTheSummaryLineByLineInItsColours) {
  FileProgram program;
  program.open();
  const std::vector<std::pair<Colour, std::string>> expected = {
      {Colour::black, " "},
      {Colour::black, " Nome file=esame.QVD"},
      {Colour::black, " Nome soggetto=Rossi"},
      {Colour::black, " Data registrazione=21/11/2026 "},
      {Colour::black, " Lunghezza file= 9 bloks"},
      {Colour::black, " "},
      {Colour::lightRed, " E' possibile anche iniziare a leggere da un punto"},
      {Colour::lightRed, " qualsiasi del file spostando lo slider in basso,"},
      {Colour::lightRed, " Premere Display per cominciare lettura file..."},
      {Colour::lightRed, " oppure Analisi Finale..."},
      {Colour::lightRed, " "},
      {Colour::blue, " E' possibile inoltre selezionare col mouse"},
      {Colour::blue, " un intervallo di dati qualsiasi, basta premere"},
      {Colour::blue, " col mouse sul punto iniziale del grafico sotto,"},
      {Colour::blue, " e rilasciare sul punto finale, poi premere "},
      {Colour::blue, " il tasto Analisi."},
      {Colour::blue, " Si puo' cosi' avere una analisi quantitativa."}};
  std::vector<std::pair<Colour, std::string>> printed;
  double lastY = 0;
  for (const auto& mark : program.window.messagePanel.marks())
    if (mark.kind == platform::Mark::Kind::text) {
      printed.emplace_back(mark.colour, mark.text);
      EXPECT_GT(mark.y1, lastY);
      lastY = mark.y1;
    }
  EXPECT_EQ(printed, expected);
  EXPECT_LE(lastY + program.window.messagePanel.lineHeight(), program.window.messagePanel.height());
  EXPECT_EQ(program.window.messagePanel.ink(), Colour::black);
}

TEST(OpenDataFile, SaysThatItReadsAndCountsWhileItScans) {
  FileProgram program;
  std::vector<std::string> labels;
  bool announced = true;
  program.window.blockLabel.onChanged = [&] {
    labels.push_back(program.window.blockLabel.text());
    if (program.state.fileLoopRunning == 1)
      announced = announced && program.window.messagePanel.shows(" Attendere lettura file...");
  };
  program.open();
  const std::vector<std::string> expected = {"V3", "1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "Totale=27s"};
  EXPECT_EQ(labels, expected);
  EXPECT_TRUE(announced);
}

TEST(OpenDataFile, LetsEventsInOncePerBlockAndNeverSleeps) {
  FileProgram program(recordings::file(50));
  int steps = 0;
  program.host.time.onStep = [&] { ++steps; };
  const double start = program.host.time.seconds();
  program.open();
  EXPECT_EQ(steps, 50);
  EXPECT_LT(program.host.time.seconds() - start, 0.1);
}

TEST(OpenDataFile, Of250BlocksScans199) {
  FileProgram program(recordings::file(250));
  program.open();
  EXPECT_EQ(program.window.blockLabel.text(), "Totale=597s");
  EXPECT_EQ(program.shared.fileBlockCount, 199);
  EXPECT_TRUE(program.host.faults.empty());
}

TEST(OpenDataFile, AtTheBlockLimitTheCountIs) {
  const std::pair<int, int> cases[] = {{1, 0}, {2, 1}, {199, 198}, {200, 199}};
  for (const auto& [blocks, counted] : cases) {
    FileProgram program(recordings::file(blocks));
    program.open();
    EXPECT_EQ(program.shared.fileBlockCount, counted) << blocks;
  }
}

TEST(OpenDataFile, ACutOffLastBlockIsReadButNotCounted) {
  FileProgram program(recordings::file(10) + std::string(300, 'x'));
  program.open();
  EXPECT_EQ(program.shared.fileBlockCount, 10);
}

TEST(OpenDataFile, WithoutBlocksCountsNone) {
  FileProgram program(recordings::file(0));
  program.open();
  EXPECT_EQ(program.window.blockLabel.text(), "Totale=0s");
  EXPECT_EQ(program.shared.fileBlockCount, 0);
  EXPECT_TRUE(program.host.faults.empty());
}

TEST(OpenDataFile, AnUnknownTagEndsAtTheBlockLimit) {
  FileProgram program(recordings::header({{1, "Nota: "}}, "V9") + recordings::block(100));
  program.open();
  EXPECT_EQ(program.shared.fileBlockCount, 199);
  EXPECT_EQ(program.window.blockLabel.text(), "Totale=597s");
}

TEST(OpenDataFile, ReadsVersionV4) {
  std::string bytes = recordings::header({{1, "Nota: "}}, "V4");
  for (int i = 0; i < 1024 * 3; ++i) bytes += std::to_string(100 + i / 1024) + (i % 8 == 7 ? ".5\r\n" : ".5,");
  FileProgram program(bytes);
  program.open();
  EXPECT_EQ(program.shared.fileBlockCount, 2);
  EXPECT_EQ(program.state.fileVersionTag, "V4");
}

TEST(OpenDataFile, MarksTheNotesOfTheFileOnTheStrip) {
  FileProgram program(recordings::file(20, {{3, "inizio"}, {11, "occhi aperti"}}));
  program.open();
  EXPECT_EQ(program.state.noteCount, 2);
  EXPECT_EQ(program.state.noteTimes[2], 11.0F);
  EXPECT_EQ(program.state.noteTexts[2], "occhi aperti");
  for (const double x : {9.0, 33.0}) {
    const platform::Mark expected{platform::Mark::Kind::line, Colour::lightRed, x, 1, x, 13};
    const auto& marks = program.window.Picture6.marks();
    EXPECT_NE(std::find(marks.begin(), marks.end(), expected), marks.end()) << x;
  }
}

TEST(OpenDataFile, AsksInTheLastFolderAndRemembersTheNewOne) {
  FileProgram program;
  program.open();
  EXPECT_EQ(program.host.dialogs.shown.back().text, recordings::folder);
  EXPECT_EQ(program.host.dialogs.shown.back().title, "(*.QVD)|*.QVD|");
  const std::string elsewhere = "/home/anna/i miei\\esami/uno.QVD";
  program.host.files.content[elsewhere] = recordings::file(3);
  program.host.dialogs.files.push_back(elsewhere);
  program.window.Openx.press();
  EXPECT_EQ(program.state.openFileTitle, "uno.QVD");
  EXPECT_EQ(program.state.lastOpenDir, "/home/anna/i miei\\esami/");
}

TEST(OpenDataFile, CancelledClosesTheOldFileAndClearsThePanel) {
  FileProgram program;
  program.open();
  program.window.Openx.press();
  EXPECT_EQ(program.state.openFilePath, "");
  EXPECT_EQ(program.state.openFileTitle, "");
  EXPECT_EQ(program.state.intervalSelectable, 0);
  EXPECT_TRUE(program.window.messagePanel.marks().empty());
  EXPECT_EQ(program.window.Slider1.value(), 0);
}

TEST(OpenDataFile, RestoresTheArtefactThreshold) {
  FileProgram program;
  program.state.artefactThreshold = 70;
  program.open();
  EXPECT_EQ(program.state.artefactThreshold, 130);
}

TEST(OpenDataFile, StopDuringTheScanLeavesAtOnceWithoutTotals) {
  FileProgram program(recordings::file(150));
  program.host.time.when([&] { return program.state.blockCount == 40; }, [&] { program.window.Stopd1.press(); });
  program.open();
  EXPECT_EQ(program.window.blockLabel.text(), "41");
  EXPECT_EQ(program.state.intervalSelectable, 0);
  EXPECT_EQ(program.state.acquisitionRunning, 0);
  EXPECT_EQ(program.shared.fileBlockCount, 0);
  EXPECT_EQ(program.state.readHandle, nullptr);
  EXPECT_TRUE(program.window.messagePanel.shows(" Lettura interrotta."));
}

TEST(OpenDataFile, EndDuringTheScanEndsTheProgram) {
  FileProgram program(recordings::file(150));
  program.host.time.when([&] { return program.state.blockCount == 40; }, [&] { program.window.Endx1.press(); });
  program.open();
  EXPECT_TRUE(program.host.edge.ended());
  EXPECT_EQ(program.window.blockLabel.text(), "41");
}

TEST(OpenDataFile, IsRefusedFromTheStartUntilTheEndOfAnAcquisition) {
  FileProgram program;
  const auto refused = [&](const char* reason = "Prima premere Stop!") {
    const std::size_t before = program.host.dialogs.shown.size();
    program.window.Openx.press();
    return program.host.dialogs.shown.size() == before + 1 && program.host.dialogs.shown.back().text == reason;
  };
  program.window.fileNameBox.type("nuovo");
  program.window.subjectBox.type("Bianchi");
  program.host.time.after(2, [&] { EXPECT_TRUE(refused("Attendere il collegamento con lo strumento!")); });
  program.window.Starts1.press();
  program.acquireBlocks(2);
  EXPECT_TRUE(refused()) << "acquiring";
  program.window.Stopd1.press();
  EXPECT_TRUE(refused("Attendere la fine dell'acquisizione!"));
  program.host.time.runUntil([&] { return program.state.intervalSelectable == 1; });
  program.host.time.runFor(0.1);
  EXPECT_FALSE(refused()) << "finished";
}

class BadFile : public testing::TestWithParam<std::pair<const char*, std::string>> {};

TEST_P(BadFile, IsToldInItalianAndLeavesNoFileOpen) {
  FileProgram program(GetParam().second);
  program.shared.subjectName = "Bianchi";
  program.open();
  ASSERT_EQ(program.host.dialogs.shown.size(), 2U);
  EXPECT_TRUE(program.host.dialogs.shown[1].text.starts_with("Impossibile leggere il file esame.QVD!\r"));
  EXPECT_EQ(program.state.openFilePath, "");
  EXPECT_EQ(program.state.intervalSelectable, 0);
  EXPECT_EQ(program.state.acquisitionRunning, 0);
  EXPECT_EQ(program.state.readHandle, nullptr);
  EXPECT_EQ(program.shared.subjectName, "Bianchi");
  EXPECT_TRUE(program.window.messagePanel.marks().empty());
  EXPECT_TRUE(program.host.faults.empty());
}

INSTANTIATE_TEST_SUITE_P(
    Headers, BadFile,
    testing::Values(std::pair{"Empty", std::string()}, std::pair{"CutInTheHeader", recordings::header().substr(0, 30)},
                    std::pair{"CutInANote", recordings::header().substr(0, recordings::header().size() - 4)},
                    std::pair{"CountIsNoNumber", std::string("\"R\",\"21/11/2026 V3\",\"4canali\",due\r\n")},
                    std::pair{"Count40000", "\"R\",\"21/11/2026 V3\",\"4canali\",40000\r\n" + recordings::block(100)},
                    std::pair{"CountBeyondTheFile",
                              "\"R\",\"21/11/2026 V3\",\"4canali\",900\r\n" + recordings::block(100)}),
    [](const auto& test) { return test.param.first; });

TEST(OpenDataFile, AFileThatCannotBeReadIsTold) {
  FileProgram program;
  program.host.files.unreadable.push_back(program.path);
  program.open();
  EXPECT_EQ(program.host.dialogs.shown.back().text,
            "Impossibile leggere il file esame.QVD!\rImpossibile leggere il file " + program.path);
  EXPECT_EQ(program.state.openFilePath, "");
}

TEST(OpenDataFile, AFolderIsTold) {
  FileProgram program;
  program.path = "C:\\QUARVEL5\\DATAFILE";
  program.open();
  EXPECT_TRUE(program.host.dialogs.shown.back().text.starts_with("Impossibile leggere il file DATAFILE!\r"));
}

TEST(OpenDataFile, NoneAndNegativeNoteCountsOpenWithoutNotes) {
  for (const char* count : {"0", "-1"}) {
    FileProgram program("\"R\",\"21/11/2026 V3\",\"4canali\"," + std::string(count) + "\r\n" + recordings::block(100) +
                        recordings::block(101));
    program.open();
    EXPECT_EQ(program.state.noteCount, 0) << count;
    EXPECT_EQ(program.shared.fileBlockCount, 1) << count;
  }
}

TEST(OpenDataFile, A61stNoteIsLeftOutAndSaidInTheStatusLabel) {
  recordings::Notes notes;
  for (int i = 1; i <= 61; ++i) notes.emplace_back(i + 1, "n");
  FileProgram program(recordings::file(3, notes));
  program.open();
  EXPECT_EQ(program.state.noteCount, 60);
  EXPECT_EQ(program.shared.fileBlockCount, 2);
  EXPECT_EQ(program.window.statusLabel.text(), "Lette solo le prime 60 note!");
}

TEST(OpenDataFile, RawSamplesThatLookLikeDelimitersAreReadByCount) {
  for (const int level : {13, 44, 34}) {
    FileProgram program(recordings::header() + recordings::block(level) + recordings::block(level));
    program.open();
    EXPECT_EQ(program.shared.fileBlockCount, 1) << level;
  }
}

std::string noise(std::size_t size) {
  std::string bytes(size, 0);
  unsigned seed = 7;
  for (char& byte : bytes) {
    seed = seed * 1'664'525U + 1'013'904'223U;
    byte = static_cast<char>(seed >> 24);
  }
  return bytes;
}

TEST(OpenDataFile, NoiseIsToldOrScannedToTheLimit) {
  FileProgram bare(noise(2'000'000));
  bare.open();
  EXPECT_EQ(bare.state.readHandle, nullptr);
  for (const char* tag : {"V3", "V4", "XX"}) {
    FileProgram program(recordings::header({{1, "n"}}, tag) + noise(2'000'000));
    program.open();
    EXPECT_LE(program.shared.fileBlockCount, 199) << tag;
    EXPECT_EQ(program.state.intervalSelectable, 1) << tag;
  }
}

TEST(OpenDataFile, AgreesWithTheReferenceRecordings) {
  for (const char* name : {"eeg", "examination"}) {
    const auto expected = golden::reference(std::string(name) + ".opened.json");
    FileProgram program(golden::fileBytes(std::string(name) + ".QVD"));
    program.host.files.content["C:\\QUARVEL5\\Factors.val"] = golden::fileBytes(std::string(name) + ".factors.val");
    program.state.startUp();
    program.open();
    golden::expectRows(program.shared.coherenceHistory, expected["coherenceHistory"], "coherenceHistory");
    golden::expectRow(program.state.syncAverage, expected["syncAverage"], "syncAverage");
    if (expected.contains("meanCoherence"))
      golden::expectRows(program.state.meanCoherence, expected["meanCoherence"], "meanCoherence");
    if (expected.contains("spectrumHistory"))
      for (int block = 1; block <= program.shared.fileBlockCount + 1; ++block)
        golden::expectRows(program.shared.spectrumHistory[block],
                           expected["spectrumHistory"][static_cast<std::size_t>(block) - 1], "spectrumHistory");
    EXPECT_EQ(program.shared.subjectName, expected["subject"].get<std::string>());
    EXPECT_EQ(program.state.recordingDate, expected["recordingDate"].get<std::string>());
    EXPECT_EQ(program.state.fileVersionTag, expected["fileVersionTag"].get<std::string>());
    EXPECT_EQ(program.shared.fileBlockCount, expected["fileBlockCount"].get<int>());
    ASSERT_EQ(program.state.noteCount, static_cast<int>(expected["notes"].size()));
    for (int note = 1; note <= program.state.noteCount; ++note) {
      const auto& reference = expected["notes"][static_cast<std::size_t>(note) - 1];
      EXPECT_EQ(program.state.noteTimes[note], reference[0].get<float>());
      EXPECT_EQ(program.state.noteTexts[note], reference[1].get<std::string>());
    }
  }
}

TEST(StartBlockChanged, ShowsThePositionAndPullsItBackToTheLastBlock) {
  FileProgram program;
  program.open();
  program.window.Slider1.moveTo(5);
  EXPECT_EQ(program.window.replayPositionLabel.text(), "5");
  EXPECT_EQ(program.shared.replayStartBlock, 5);
  EXPECT_EQ(program.state.blockCount, 5);
  program.window.Slider1.moveTo(120);
  EXPECT_EQ(program.window.Slider1.value(), 9);
  EXPECT_EQ(program.window.replayPositionLabel.text(), "9");
  EXPECT_EQ(program.state.blockCount, 9);
}

TEST(StartBlockChanged, WithoutDataInMemoryOnlyMovesTheLabel) {
  FileProgram program;
  program.shared.fileBlockCount = 50;
  program.state.blockCount = 3;
  program.window.Slider1.moveTo(20);
  EXPECT_EQ(program.window.replayPositionLabel.text(), "20");
  EXPECT_EQ(program.state.blockCount, 3);
}

TEST(OpenDataFile, LeavesNothingOfALongerFileInTheAnalysis) {
  const std::string tone = recordings::signalBlock([](int, int s) { return 128 + sineAt(s, 12, 40); });
  FileProgram program(recordings::file(4) + tone + tone);
  program.open();
  ASSERT_GT(program.shared.spectrumHistory[5][1][13], 1.0F);
  ASSERT_EQ(program.shared.coherenceHistory[1][5], 100.0F);
  ASSERT_EQ(program.shared.coherenceSpectrumHistory[5][1][13], 100.0F);
  program.host.files.content[program.path] = recordings::file(2);
  program.open();
  EXPECT_EQ(program.shared.spectrumHistory[5][1][13], 0.0F);
  EXPECT_EQ(program.shared.coherenceHistory[1][5], 0.0F);
  EXPECT_EQ(program.shared.coherenceSpectrumHistory[5][1][13], 0.0F);
}

TEST(OpenDataFile, LetsGoOfADragOnTheTimeStripAtItsBeginningAndAtItsEnd) {
  FileProgram program;
  program.open();
  program.window.stripPointer.onPressed(6);
  program.host.time.when([&] { return program.state.blockCount == 4; },
                         [&] {
                           EXPECT_EQ(program.state.selectionDragging, 0);
                           program.state.selectionDragging = 1;
                         });
  program.open();
  EXPECT_EQ(program.state.selectionDragging, 0);
  const auto marks = program.window.Picture6.marks();
  program.window.stripPointer.onMoved(20);
  EXPECT_EQ(program.window.Picture6.marks(), marks);
}

/// A block whose first channel leaves the accepted range now and then, with high frequencies that the low-pass removes.
std::string blockWithBlinks() {
  return recordings::signalBlock([](int channel, int s) {
    return channel == 1 && s % 64 < 6 ? 240 : 128 + sineAt(s, 12, 40) + sineAt(s, 100, 30);
  });
}

TEST(OpenDataFile, RemovesOcularArtefactsFromTheLowPassedSignalBeforeItsSpectra) {
  FileProgram program(recordings::header() + blockWithBlinks() + blockWithBlinks());
  program.window.ocularCheck.setChecked(true);
  program.open();
  const auto spectrumAfter = [&](std::initializer_list<void (MainState::*)()> steps) {
    HeadlessProgram byHand;
    byHand.state.startUp();
    byHand.window.ocularCheck.setChecked(true);
    byHand.state.blockCount = 1;
    const std::string block = blockWithBlinks();
    for (int channel = 1; channel <= 4; ++channel)
      for (int s = 1; s <= 256; ++s)
        byHand.state.sampleBlock[channel][s] =
            static_cast<unsigned char>(block[static_cast<std::size_t>(259 * (channel - 1) + s - 1)]);
    for (const auto step : steps) (byHand.state.*step)();
    return byHand.shared.spectrumHistory[1][1];
  };
  using S = MainState;
  const auto rightOrder = {&S::computeComplexSpectra, &S::lowPassBlock, &S::removeOcularArtefacts,
                           &S::analyseBlockSpectra};
  const auto screenedFirst = {&S::removeOcularArtefacts, &S::computeComplexSpectra, &S::lowPassBlock,
                              &S::analyseBlockSpectra};
  const auto screenedLast = {&S::computeComplexSpectra, &S::lowPassBlock, &S::analyseBlockSpectra,
                             &S::removeOcularArtefacts};
  EXPECT_EQ(program.shared.spectrumHistory[1][1], spectrumAfter(rightOrder));
  EXPECT_NE(program.shared.spectrumHistory[1][1], spectrumAfter(screenedFirst));
  EXPECT_NE(program.shared.spectrumHistory[1][1], spectrumAfter(screenedLast));
}

TEST(OpenDataFile, AStopPressedBeforehandDoesNotStopTheScan) {
  FileProgram program;
  program.window.Stopd1.press();
  program.open();
  EXPECT_EQ(program.window.blockLabel.text(), "Totale=27s");
}

TEST(OpenDataFile, HasNoIntervalWhileItScans) {
  FileProgram program;
  program.open();
  program.host.time.when([&] { return program.state.blockCount == 4; },
                         [&] {
                           EXPECT_EQ(program.shared.analysisFirstBlock, 0);
                           EXPECT_EQ(program.shared.analysisLastBlock, 0);
                           EXPECT_EQ(program.shared.replayStartBlock, 0);
                           EXPECT_EQ(program.shared.fileBlockCount, 0);
                           EXPECT_EQ(program.state.intervalSelectable, 0);
                         });
  program.open();
}

TEST(StartBlockChanged, ShowsTheSpectraAndTheBandPeaksOfTheBlock) {
  FileProgram program;
  program.open();
  program.shared.spectrumHistory[5][1][10] = 42.57F;
  program.window.Slider1.moveTo(5);
  EXPECT_EQ(program.window.timeLabel.text(), "Tempo=15 secondi");
  EXPECT_TRUE(program.window.firstNumbers.shows("Theta=42.5uV"));
}

}  // namespace
}  // namespace korvinel
