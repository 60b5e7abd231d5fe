#include "frame/program_values.h"

#include <gtest/gtest.h>

namespace korvinel {
namespace {

TEST(ProgramValues, BeforeTheFirstExaminationThereIsNoIntervalAndNoRecording) {
  const ProgramValues values;
  EXPECT_EQ(values.analysisFirstBlock, 0);
  EXPECT_EQ(values.analysisLastBlock, 0);
  EXPECT_EQ(values.replayStartBlock, 0);
  EXPECT_EQ(values.fileBlockCount, 0);
  EXPECT_EQ(values.subjectName, "");
  EXPECT_EQ(values.dataFileName, "");
  EXPECT_EQ(values.coherenceHistory[1][0], 0.0F);  // the trend starts from it
}

TEST(ProgramValues, TheWindowsSpeakItalianToBeginWith) {
  ProgramValues values;
  EXPECT_TRUE(values.inItalian());
  EXPECT_EQ(values.channelCount, 4);
  values.languageFlag = "ita";  // capitals count
  EXPECT_FALSE(values.inItalian());
}

}  // namespace
}  // namespace korvinel
