#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "headless_program.h"
#include "values/runtime_error.h"

namespace korvinel {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

TEST(StartUp, TakesThePortFromTheSettingsAndKeepsTheLanguage) {
  HeadlessProgram program;
  program.shared.languageFlag = "Eng";
  program.state.startUp();
  EXPECT_EQ(program.state.serialPort, 2);
  EXPECT_EQ(program.shared.languageFlag, "Ita");
}

TEST(StartUp, SetsTheDefaults) {
  HeadlessProgram program;
  program.state.startUp();
  EXPECT_EQ(program.state.lastOpenDir, "C:\\QUARVEL5\\DATAFILE\\");
  EXPECT_EQ(program.state.recordingDate, "21/11/2026");
  EXPECT_EQ(program.state.pairLabel1, "Cha.1");
  EXPECT_EQ(program.state.pairLabel2, "Cha.2");
  EXPECT_EQ(program.state.channelPair, 1);
  EXPECT_EQ(program.state.displaySpeed, 6);
  EXPECT_EQ(program.state.artefactThreshold, 130);
  EXPECT_EQ(program.shared.channelCount, 4);
}

TEST(StartUp, DrawsTheEmptyWindowAndKeepsTheColourOfItsButtons) {
  HeadlessProgram program;
  program.window.Starts1.setBackColour(platform::Colour::lightCyan);
  program.state.startUp();
  EXPECT_EQ(program.state.startButtonColour, platform::Colour::lightCyan);
  EXPECT_GT(program.window.firstTrace.marks().size(), 4U);
  EXPECT_EQ(program.window.fileNameCaption.text(), "Nome File");
}

TEST(StartUp, SetsTheDefaultsWhateverStoodBefore) {
  HeadlessProgram program;
  MainState& state = program.state;
  state.samplesPerBlock = state.fftHalf = state.displayedBins = state.displaySpeed = 1;
  state.pairToggleCount = state.channelPair = state.artefactThreshold = program.shared.channelCount = 2;
  state.linkReady = state.recordingActive = state.endRequested = state.printRequested = 1;
  state.recordingArmed = state.acquisitionRunning = 1;
  state.headerText1 = "resto";
  state.startUp();
  const std::pair<Int16, int> values[] = {{state.samplesPerBlock, 256},   {state.fftHalf, 128},
                                          {state.displayedBins, 64},      {state.displaySpeed, 6},
                                          {state.pairToggleCount, 0},     {state.channelPair, 1},
                                          {state.artefactThreshold, 130}, {program.shared.channelCount, 4},
                                          {state.linkReady, 0},           {state.recordingActive, 0},
                                          {state.endRequested, 0},        {state.printRequested, 0},
                                          {state.recordingArmed, 0},      {state.acquisitionRunning, 0}};
  for (const auto& [value, expected] : values) EXPECT_EQ(value, expected);
  EXPECT_EQ(state.headerText1, "");
}

TEST(StartUp, LeavesBothTimersDisabledAndTheInstrumentAlone) {
  HeadlessProgram program;
  program.host.tickTimer.setEnabled(true);
  program.host.pauseTimer.setEnabled(true);
  program.state.startUp();
  EXPECT_FALSE(program.host.tickTimer.enabled());
  EXPECT_FALSE(program.host.pauseTimer.enabled());
  EXPECT_EQ(program.host.tickTimer.intervalMs(), 2130);
  EXPECT_EQ(program.host.pauseTimer.intervalMs(), 870);
  EXPECT_TRUE(program.host.serialPort.history().empty());
}

TEST(StartUp, AsksForHigherPriorities) {
  HeadlessProgram program;
  program.state.startUp();
  EXPECT_THAT(program.host.machine.asked, ElementsAre("thread 1", "process 128"));
}

TEST(StartUp, TheCalibrationHas64FactorsOfTheFileAndThenOnesUpToIndex128) {
  HeadlessProgram program;
  std::string factors;
  for (int i = 1; i <= 64; ++i) factors += std::to_string(i + 1) + ".5\r\n";
  program.host.files.content["C:\\QUARVEL5\\Factors.val"] = factors;
  program.state.startUp();
  for (int i = 1; i <= 64; ++i) EXPECT_EQ(program.state.binCalibration[i], static_cast<float>(i) + 1.5F) << i;
  for (int i = 65; i <= 128; ++i) EXPECT_EQ(program.state.binCalibration[i], 1.0F) << i;
  for (const int i : {0, 129, 130}) EXPECT_EQ(program.state.binCalibration[i], 0.0F) << i;
}

TEST(StartUp, PutsTheCaptionsAndTheFocus) {
  HeadlessProgram program;
  program.state.startUp();
  const MainWindow& w = program.window;
  const std::pair<const platform::Button*, const char*> captions[] = {
      {&w.Starts1, "Start"},    {&w.Registra, "Registra"}, {&w.Artefact, "Artefatti"}, {&w.Canali, "Canali"},
      {&w.Annotax, "Annota"},   {&w.Analisi, "Analisi"},   {&w.Stopd1, "Stop"},        {&w.Openx, "Apri File"},
      {&w.Displayx, "Display"}, {&w.Stampa, "Stampa"},     {&w.Endx1, "End"}};
  for (const auto& [button, caption] : captions) EXPECT_EQ(button->caption(), caption);
  EXPECT_EQ(w.ocularCheck.caption(), "Rimoz. artefatti oculari");
  EXPECT_EQ(w.fileNameBox.focusRequests(), 1);
}

TEST(StartUp, AMissingFileIsAFaultThatNamesIt) {
  for (const char* path : {"C:\\QUARVEL5\\Instal8s.val", "C:\\QUARVEL5\\Factors.val"}) {
    HeadlessProgram program;
    program.host.files.content.erase(path);
    try {
      program.state.startUp();
      FAIL() << path;
    } catch (const RuntimeError& error) {
      EXPECT_THAT(faultText(error), HasSubstr(path));
    }
  }
}

}  // namespace
}  // namespace korvinel
