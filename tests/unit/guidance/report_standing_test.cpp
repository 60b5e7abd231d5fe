#include "guidance/report_standing.h"

#include <gtest/gtest.h>

#include "headless_report.h"
#include "recordings.h"

namespace korvinel::guidance {
namespace {

class ReportStandings : public testing::Test {
 protected:
  void SetUp() override {
    program_.state.startUp();
    program_.host.files.content[recordings::folder + "uno.QVD"] = recordings::file(50);
    program_.host.files.content[recordings::folder + "due.QVD"] = recordings::file(20);
  }
  void open(const std::string& name) {
    program_.host.dialogs.files.assign(1, recordings::folder + name);
    program_.window.Openx.press();
  }
  /// "Analisi" on histories with a signal in every channel.
  void analyse(int first, int last) {
    program_.fillHistories(1, 50);
    program_.openReport(first, last);
    origin_ = reportOrigin(program_.shared);
  }
  [[nodiscard]] ReportStanding standing() { return reportStanding(origin_, program_.report, program_.state); }
  [[nodiscard]] std::string line() { return standing().line; }

  HeadlessReport program_;
  ReportOrigin origin_;
};

TEST(IntervalText, FromTheBeginningOfTheFirstBlockToTheEndOfTheLast) {
  EXPECT_EQ(intervalText(1, 42), "0:00-2:06");
  EXPECT_EQ(intervalText(21, 21), "1:00-1:03");
  EXPECT_EQ(intervalText(10, 9), "intervallo vuoto");
}

TEST_F(ReportStandings, OfTheExaminationAndTheIntervalAtHand) {
  open("uno.QVD");
  analyse(1, 42);
  EXPECT_EQ(standing(), (ReportStanding{"Rapporto di uno.QVD, 0:00-2:06.", true, "", ""}));
}

TEST_F(ReportStandings, OfAnotherInterval) {
  open("uno.QVD");
  analyse(1, 42);
  program_.choose(11, 20);
  EXPECT_EQ(line(), "Questo rapporto riguarda uno.QVD, 0:00-2:06, non l'intervallo ora scelto (0:30-1:00).");
  EXPECT_FALSE(standing().current);
}

TEST_F(ReportStandings, OfAnotherExamination) {
  open("uno.QVD");
  analyse(1, 42);
  open("due.QVD");
  EXPECT_EQ(line(), "Questo rapporto riguarda uno.QVD, 0:00-2:06, non l'esame ora aperto.");
  open("uno.QVD");
  EXPECT_EQ(line(), "Questo rapporto riguarda uno.QVD, 0:00-2:06, com'era prima di riaprirlo.");
  program_.host.dialogs.files.clear();
  program_.window.Openx.press();
  EXPECT_EQ(line(), "Questo rapporto riguarda uno.QVD, 0:00-2:06. Ora non è aperto nessun esame.");
  EXPECT_FALSE(standing().current);
}

TEST_F(ReportStandings, OfAnExaminationBeforeTheOneUnderWay) {
  open("uno.QVD");
  analyse(1, 42);
  program_.window.Stopd1.press();
  program_.window.fileNameBox.type("tre");
  program_.window.subjectBox.type("Bianchi");
  program_.window.Starts1.press();
  EXPECT_EQ(line(), "Questo rapporto riguarda uno.QVD, 0:00-2:06, non l'esame ora in corso.");
}

TEST_F(ReportStandings, OfAnExaminationWithTheNamesOfTheNext) {
  for (int examination = 1; examination <= 2; ++examination) {
    program_.window.fileNameBox.type("prova");
    program_.window.subjectBox.type("Rossi");
    program_.window.Starts1.press();
    program_.acquireBlocks(1);
    program_.window.Stopd1.press();
    program_.host.time.runFor(6);
    if (examination == 1) analyse(1, 1);
  }
  EXPECT_EQ(line(), "Questo rapporto riguarda prova.QVD, 0:00-0:03, un esame precedente con lo stesso nome.");
}

TEST_F(ReportStandings, WithoutDataItWasNotCalculated) {
  open("uno.QVD");
  analyse(10, 4);
  EXPECT_EQ(standing().missing,
            "Rapporto non calcolato: l'intervallo è vuoto. Sceglierlo di nuovo da sinistra a destra.");
  EXPECT_EQ(line(), "Rapporto di uno.QVD, intervallo vuoto.");
}

TEST_F(ReportStandings, FlatChannelsAreNamed) {
  open("uno.QVD");
  program_.fillHistories(1, 50);
  const auto flatten = [&](int channel) {
    for (int block = 1; block <= 50; ++block)
      for (int k = 1; k <= 64; ++k) program_.shared.spectrumHistory[block][channel][k] = 0;
  };
  flatten(1);
  program_.openReport(1, 42);
  origin_ = reportOrigin(program_.shared);
  EXPECT_EQ(standing().missing, "");
  EXPECT_EQ(standing().doubtful, "Commenti non validi: segnale piatto in F1.");
  flatten(2), flatten(4);
  program_.openReport(1, 42);
  EXPECT_EQ(standing().missing, "Rapporto non calcolato: segnale piatto in F1, F2 e T6.");
  EXPECT_EQ(standing().doubtful, "");
}

TEST_F(ReportStandings, ABrokenCalculationIsNamedToo) {
  open("uno.QVD");
  analyse(1, 42);
  program_.report.reached = ReportStep::graphs;
  EXPECT_EQ(standing().missing, "Rapporto non calcolato: il calcolo si è interrotto.");
}

}  // namespace
}  // namespace korvinel::guidance
