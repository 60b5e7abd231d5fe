#include "report/report_state.h"

#include <gtest/gtest.h>

#include "headless_report.h"

namespace korvinel {
namespace {

TEST(ReportState, BeforeTheReportIsLoadedNothingIsInIt) {
  const HeadlessReport program;
  const ReportState& report = program.report;
  EXPECT_EQ(report.reached, ReportStep::none);
  for (const Int16 number :
       {report.reportBinCount, report.microvoltScale, report.traceColour, report.numbersFlag, report.binIndex})
    EXPECT_EQ(number, 0);
  EXPECT_EQ(report.backgroundColour, platform::Colour::windowBackground);
  EXPECT_EQ(report.timerMark, 0.0);
  EXPECT_EQ(report.operationsUnderWay, 0);
}

}  // namespace
}  // namespace korvinel
