#include "app/first_steps.h"

#include <gtest/gtest.h>

#include <QTest>

#include "headless_program.h"
#include "platform/qt/plan_ground.h"

namespace korvinel {
namespace {

struct FirstStepsTest : testing::Test {
  FirstStepsTest() {
    ground.resize(1024, 730);
    ground.show();
  }
  bool isShown() { return ground.findChild<QCheckBox*>()->isVisible(); }
  void press() { steps.button()->click(); }
  void understand(bool never) {
    ground.findChild<QCheckBox*>()->setChecked(never);
    ground.findChild<QPushButton*>()->click();
  }

  HeadlessProgram program;
  MainState& state = program.state;
  platform::PlanGround ground{program.window.axisCaptions, 13};
  int dismissals = 0;
  FirstSteps steps{state, ground, [this] { ++dismissals; }};
};

TEST_F(FirstStepsTest, TheButtonShowsThePageAgain) {
  EXPECT_FALSE(isShown());
  steps.showAtStart();
  EXPECT_TRUE(isShown());
  understand(false);
  EXPECT_FALSE(isShown());
  press();
  EXPECT_TRUE(isShown());
  EXPECT_EQ(dismissals, 0);
}

TEST_F(FirstStepsTest, NotShownAgainAtTheStartOnlyIfTheOperatorSaysSo) {
  steps.showAtStart();
  understand(true);
  EXPECT_EQ(dismissals, 1);
}

TEST_F(FirstStepsTest, GoesAsSoonAsAnExaminationBeginsAndStaysAway) {
  steps.showAtStart();
  program.startAcquisition();
  steps.refresh();
  EXPECT_FALSE(isShown());
  EXPECT_FALSE(steps.button()->isEnabled());
  press();
  EXPECT_FALSE(isShown());
}

TEST_F(FirstStepsTest, GoesIfTheSurfacesBelowHaveChangedMeanwhile) {
  steps.showAtStart();
  steps.refresh();
  EXPECT_TRUE(isShown());
  state.window.startPicture.setVisible(false);  // a file has been opened
  state.openFilePath = "C:\\QUARVEL5\\DATAFILE\\uno.QVD";
  steps.refresh();
  EXPECT_FALSE(isShown());
  press();
  steps.refresh();
  EXPECT_TRUE(isShown());
  state.openFilePath = "C:\\QUARVEL5\\DATAFILE\\due.QVD";
  steps.refresh();
  EXPECT_FALSE(isShown());
}

}  // namespace
}  // namespace korvinel
