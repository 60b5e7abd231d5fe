#include <gtest/gtest.h>

#include "recorded_examination.h"

/// Midnight, New Year and a corrected clock in the middle of a recording.
namespace korvinel {
namespace {

struct Clock : testing::Test {
  Clock() { writeSettings(files); }
  std::string recordedUnder(const std::string& name) { return files.content[recordings::folder + name + ".QVD"]; }

  platform::MemoryFiles files;
};

constexpr double toMidnight = 14 * 3600 - 30;  // from ten in the morning

TEST_F(Clock, ARecordingOverMidnightOfNewYearsEveKeepsTheDateOfItsBeginning) {
  RecordedExamination examination(files);
  examination.host.time.setDate({2026, 12, 31, 0, 0, 0});
  examination.host.time.jump(toMidnight);
  examination.run("vecchio", 10);
  EXPECT_EQ(examination.state.blockCount, 11);
  EXPECT_TRUE(recordedUnder("vecchio").starts_with("\"Rossi\",\"31/12/2026 V3\""))
      << recordedUnder("vecchio").substr(0, 40);
  examination.run("nuovo", 2);
  EXPECT_TRUE(recordedUnder("nuovo").starts_with("\"Rossi\",\"01/01/2027 V3\""))
      << recordedUnder("nuovo").substr(0, 40);
}

TEST_F(Clock, OfTheCalendarMayBeSetBackOrForthWhileARecordingRuns) {
  RecordedExamination examination(files);
  examination.host.time.when([&] { return examination.state.blockCount == 3; },
                             [&] {
                               examination.host.time.setDate({2001, 1, 1, 0, 0, 0});
                             });
  examination.host.time.when([&] { return examination.state.blockCount == 5; },
                             [&] {
                               examination.host.time.setDate({2030, 2, 28, 0, 0, 0});
                             });
  examination.run("prova", 6);
  EXPECT_EQ(examination.state.blockCount, 7);
  EXPECT_TRUE(recordedUnder("prova").starts_with("\"Rossi\",\"21/11/2026 V3\""));
}

TEST_F(Clock, AReplayOverMidnightGoesOn) {
  RecordedExamination examination(files);
  examination.host.time.jump(toMidnight - 15);
  examination.run("prova", 8);
  examination.host.dialogs.files.push_back(recordings::folder + "prova.QVD");
  examination.window.Openx.press();
  examination.window.HScroll2.moveTo(1);
  examination.window.Displayx.press();
  EXPECT_EQ(examination.state.blockCount, 9);  // including the block of the turn in which "Registra" was pressed
  EXPECT_GT(examination.host.time.seconds(), 86'400);
}

}  // namespace
}  // namespace korvinel
