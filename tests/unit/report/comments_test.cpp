#include <gtest/gtest.h>

#include "headless_report.h"
#include "values/runtime_error.h"

namespace korvinel {
namespace {

using platform::Colour;
using platform::Mark;

/// A report whose noise curve, levels and alpha maxima are set directly, so that any ratio can be tested.
struct VerdictReport : HeadlessReport {
  VerdictReport() {
    for (int channel = 1; channel <= 4; ++channel) {
      setNoise(channel, Fixed::fromCount(9'000));  // ten times 0.9, divided by nine: 1
      report.maxAlpha[channel] = 1;
      setLevel(channel, 5);
    }
  }
  void setNoise(int channel, Fixed level) {
    for (int k = 17; k <= 26; ++k) report.noiseCurve[channel][k] = level;
  }
  void setLevel(int channel, float level) {
    for (int k = 1; k <= 64; ++k) report.meanSpectrum[channel][k] = level;
  }
  void alpha(int left, int right, double first, double second) {
    report.maxAlpha[left] = Fixed::nearest(first);
    report.maxAlpha[right] = Fixed::nearest(second);
  }
};

TEST(BuildVerdicts, TheTenNoiseIndexesOfAlphaAreDividedByNine) {
  VerdictReport program;
  program.setNoise(1, 1);
  program.setNoise(2, 1);  // each 10 / 9 = 1.1111; twice that is 2.2222
  program.alpha(1, 2, 2.2222, 2.2222);
  program.report.buildVerdicts();
  EXPECT_EQ(program.report.reportLines[6], "F1-F2 Discreto ritmo Alfa");
  program.alpha(1, 2, 2.2222, 2.2221);
  program.report.buildVerdicts();
  EXPECT_EQ(program.report.reportLines[6], "F1-F2 Poco ritmo Alfa    ");
}

TEST(BuildVerdicts, TheAlphaRatioIsTheSumOfBothSitesOverBothNoises) {
  struct Case {
    double first, second;
    float score;
  };
  const Case cases[] = {{1.3, 1.2999, 0}, {1.3, 1.3, 1}, {0, 2.6001, 1}, {2, 2, 2},
                        {3.9999, 0, 1},   {4, 2, 3},     {6, 0, 3}};
  for (const Case& c : cases) {
    VerdictReport program;
    program.alpha(1, 2, c.first, c.second);
    program.alpha(3, 4, c.second, c.first);
    program.report.buildVerdicts();
    EXPECT_EQ(program.report.commentScores[1], c.score) << c.first << " + " << c.second;
    EXPECT_EQ(program.report.commentScores[2], c.score) << c.first << " + " << c.second;
  }
}

TEST(BuildVerdicts, FrontalAndTemporalAlphaAreJudgedApart) {
  VerdictReport program;
  program.alpha(1, 2, 3, 3);
  program.report.buildVerdicts();
  EXPECT_EQ(program.report.reportLines[6], "F1-F2 Ottimo ritmo Alfa  ");
  EXPECT_EQ(program.report.reportLines[7], "T5-T6 niente Alfa     ");
  EXPECT_EQ(program.report.commentScores[1], 3);
  EXPECT_EQ(program.report.commentScores[2], 0);
}

TEST(BuildVerdicts, TheSymmetryFollowsTheMeanLevels) {
  struct Case {
    float left, right, score;
  };
  const Case cases[] = {{10, 10, 0}, {11, 10, -1}, {5, 10, 2}, {8, 10, 2}, {9, 10, 1}, {12, 10, -1}, {12.1F, 10, -2}};
  for (const Case& c : cases) {
    VerdictReport program;
    program.setLevel(1, c.left);
    program.setLevel(2, c.right);
    program.report.buildVerdicts();
    EXPECT_EQ(program.report.commentScores[3], c.score) << c.left << " / " << c.right;
  }
}

/// The limits are 32-bit floats: a ratio of 0.8 is below the first, 1.05 is above the third.
TEST(BuildVerdicts, RatiosOfExactlyEightTenthsAndTwentyOneTwentiethsLieBeyondTheirLimits) {
  struct Case {
    float left, right;
    const char* line;
  };
  const Case cases[] = {
      {8, 10, "F1-F2 molto sbilanciato a destra"},      {4, 5, "F1-F2 molto sbilanciato a destra"},
      {8.001F, 10, "F1-F2 legg. sbilanciato a destra"}, {9.5F, 10, "Buona simmetria frontale"},
      {10.499F, 10, "Buona simmetria frontale"},        {21, 20, "F1-F2 legg. sbilanciato a sinistra"},
      {12, 10, "F1-F2 legg. sbilanciato a sinistra"}};
  for (const Case& c : cases) {
    VerdictReport program;
    program.setLevel(1, c.left);
    program.setLevel(2, c.right);
    program.report.buildVerdicts();
    EXPECT_EQ(program.report.reportLines[9], c.line) << c.left << " / " << c.right;
  }
}

TEST(BuildVerdicts, TheTemporalSymmetryIsTakenFromTheFrontalLevels) {
  VerdictReport program;
  program.setLevel(1, 5);
  program.setLevel(2, 10);
  program.setLevel(3, 7);
  program.setLevel(4, 7);
  program.report.buildVerdicts();
  EXPECT_EQ(program.report.reportLines[9], "F1-F2 molto sbilanciato a destra");
  EXPECT_EQ(program.report.reportLines[10], "T5-T6 molto sbilanciato a destra");
  EXPECT_EQ(program.report.commentScores[4], 2);
}

TEST(BuildVerdicts, UnbalancedTemporalLevelsAloneAreGoodSymmetry) {
  VerdictReport program;
  program.setLevel(3, 50);
  program.report.buildVerdicts();
  EXPECT_EQ(program.report.reportLines[10], "Buona simmetria temporale");
}

TEST(BuildVerdicts, ALevelBelowHalfAMicrovoltCountsAsHalf) {
  struct Case {
    float left, right, score;
  };
  // 0.1 / 0.5 would be unbalanced to the right, but both count as 0.5.
  const Case cases[] = {{0.1F, 0.5F, 0}, {0, 0, 0}, {0.4F, 0.6F, 1}, {0, 1, 2}};
  for (const Case& c : cases) {
    VerdictReport program;
    program.setLevel(1, c.left);
    program.setLevel(2, c.right);
    program.report.buildVerdicts();
    EXPECT_EQ(program.report.commentScores[3], c.score) << c.left << " / " << c.right;
  }
}

TEST(BuildVerdicts, TheCoherenceOfTheTwoLateralPairsIsJudged) {
  VerdictReport program;
  program.report.pairCoherence[1] = 80;
  program.report.pairCoherence[2] = 0;
  program.report.pairCoherence[3] = program.report.pairCoherence[4] = 99;
  program.report.buildVerdicts();
  EXPECT_EQ(program.report.reportLines[12], "F1-F2 coerenza=elevata");
  EXPECT_EQ(program.report.reportLines[13], "T5-T6 coerenza=bassa");
  EXPECT_EQ(program.report.commentScores[5], 3);
  EXPECT_EQ(program.report.commentScores[6], 1);
}

TEST(BuildVerdicts, EmptyLinesSeparateTheGroups) {
  VerdictReport program;
  for (int line = 6; line <= 14; ++line) program.report.reportLines[line] = "vecchio";
  program.report.buildVerdicts();
  for (const int line : {0, 5, 8, 11, 14}) EXPECT_EQ(program.report.reportLines[line], "") << line;
}

TEST(BuildVerdicts, AZeroNoiseSumEndsItBeforeAnythingIsJudged) {
  for (const int left : {1, 3}) {
    VerdictReport program;
    program.report.reportLines[1] = "File: prova.QVD";
    program.report.reportLines[6] = program.report.reportLines[12] = "vecchio";
    program.setNoise(left, 0);
    program.setNoise(left + 1, 0);
    EXPECT_THROW(program.report.buildVerdicts(), RuntimeError) << left;
    EXPECT_EQ(program.report.reportLines[6], "");
    EXPECT_EQ(program.report.reportLines[12], "");
    EXPECT_TRUE(program.reportWindow.ground.texts().empty());
  }
}

TEST(BuildVerdicts, OneFlatSiteOfAPairIsNoFault) {
  VerdictReport program;
  program.setNoise(1, 0);
  EXPECT_NO_THROW(program.report.buildVerdicts());
}

const Mark* markOf(const platform::Surface& surface, const std::string& text) {
  for (const Mark& mark : surface.marks())
    if (mark.text == text) return &mark;
  return nullptr;
}

TEST(BuildVerdicts, LinesStandInTheTextColumnEachAtItsPlaceAndInItsColour) {
  VerdictReport program;
  for (int line = 1; line <= 4; ++line) program.report.reportLines[line] = "riga " + std::to_string(line);
  program.report.buildVerdicts();
  for (const int line : {1, 2, 3, 4, 6, 7, 9, 10, 12, 13}) {
    const Mark* mark = markOf(program.reportWindow.ground, program.report.reportLines[line]);
    ASSERT_NE(mark, nullptr) << line;
    EXPECT_EQ(mark->x1, 880) << line;
    EXPECT_EQ(mark->y1, 33 * (line - 1) + 47) << line;
    EXPECT_EQ(mark->colour, line <= 4 ? Colour::blue : Colour::lightBlue) << line;
  }
}

TEST(BuildVerdicts, EveryLineStandsOnItsOwnWhiteDot) {
  VerdictReport program;
  program.report.buildVerdicts();
  for (const int line : {6, 7, 9, 10, 12, 13}) {
    const Mark dot{Mark::Kind::point, Colour::white, 880, 33.0 * (line - 1) + 47, 880, 33.0 * (line - 1) + 47};
    const auto& marks = program.reportWindow.ground.marks();
    EXPECT_EQ(std::count(marks.begin(), marks.end(), dot), 1) << line;
  }
}

TEST(BuildVerdicts, InAnotherLanguageNothingIsWritten) {
  VerdictReport program;
  program.shared.languageFlag = "Eng";
  program.report.buildVerdicts();
  for (int line = 0; line <= 14; ++line) EXPECT_EQ(program.report.reportLines[line], "") << line;
  for (int score = 0; score <= 6; ++score) EXPECT_EQ(program.report.commentScores[score], 0) << score;
  EXPECT_TRUE(program.reportWindow.ground.texts().empty());
}

void setScores(ReportState& report, std::initializer_list<float> scores) {
  int index = 0;
  for (const float score : scores) report.commentScores[++index] = score;
}

TEST(ShowCommentReport, The18LinesToTheLetter) {
  HeadlessReport program;
  setScores(program.report, {1, 1, -1, 2, 2, 0});
  program.reportWindow.commentButton.press();
  const std::vector<std::string> expected = {
      " Commenti circa i segnali EEG registrati:",
      " ",
      " Qualita' del ritmo Alfa = Basso ",
      " (Un ritmo Alfa sufficente o alto indica buon rilassamento mentale",
      " un Alfa basso indica una mente sempre attiva o reattiva.)",
      " Livello Ansia = molto Basso",
      " (un tratto ansioso e' associato a basso Alfa e bassa coerenza frontale.)",
      " Simmetria fra gli emisferi, frontale = Leggermente sbilanciato sinistra",
      " Simmetria fra gli emisferi, temporale = Sbilanciato a destra",
      " (uno sbilanciamento a sinistra indica tendenza a far prevalere",
      " l'ambito razionale, a destra significa prevalenza ambito emozionale.)",
      " Coerenza fra gli emisferi = Normale",
      " (In sede frontale un valore piu' elevato della coerenza (sincronia)",
      " indica un buon livello di comunicazione fra i due emisferi.)",
      " ",
      " Questi commenti sono basati  su una analisi statistica di tipo ",
      " sperimentale e non costituiscono in alcun modo un responso medico.",
      " La qualita' dei segnali EEG registrati e' essenziale per il risultato."};
  EXPECT_EQ(program.comments.text.texts(), expected);
}

TEST(ShowCommentReport, ScoresAreTurnedIntoTheFiveTexts) {
  struct Case {
    std::initializer_list<float> scores;
    const char* alpha;
    const char* anxiety;
  };
  const Case cases[] = {{{1, 1, 0, 0, 2, 0}, "Basso ", "molto Basso"},
                        {{0, 0, 0, 0, 0, 0}, "Molto basso: puo' essere utile training Alfa.", "Elevato"},
                        {{3, 3, 0, 0, 3, 0}, "Molto alto", "molto Basso"},
                        {{1, 0, 0, 0, 1, 3}, "Basso ", "significativo"},
                        {{2, 1, 0, 0, 0, 3}, "Normale ", "Basso"}};
  for (const Case& c : cases) {
    HeadlessReport program;
    setScores(program.report, c.scores);
    program.report.showCommentReport();
    EXPECT_EQ(program.shared.commentTexts[1], c.alpha);
    EXPECT_EQ(program.shared.commentTexts[2], c.anxiety);
  }
}

TEST(ShowCommentReport, TheCoherenceCommentKnowsOnlyTheFrontalPair) {
  HeadlessReport program;
  setScores(program.report, {0, 0, 0, 0, 3, 0});
  program.report.showCommentReport();
  EXPECT_EQ(program.shared.commentTexts[5], "Ottimo");
}

TEST(ShowCommentReport, TheAlphaSumIsRoundedHalvesToEven) {
  HeadlessReport program;
  setScores(program.report, {1.5F, 1, 0, 0, 0, 0});
  program.report.showCommentReport();
  EXPECT_EQ(program.shared.commentTexts[1], "Basso ");  // 2.5 is 2
}

TEST(ShowCommentReport, ASymmetryScoreOutsideTheTableLeavesTheTextOfBefore) {
  HeadlessReport program;
  program.shared.commentTexts[3] = "dal rapporto di prima";
  setScores(program.report, {0, 0, 7, 0, 0, 0});
  program.report.showCommentReport();
  EXPECT_EQ(program.shared.commentTexts[3], "dal rapporto di prima");
}

TEST(ShowCommentReport, ASecondRunPrintsBelowTheFirst) {
  HeadlessReport program;
  program.reportWindow.commentButton.press();
  const double height = program.comments.text.height();
  program.reportWindow.commentButton.press();
  EXPECT_EQ(program.comments.text.texts().size(), 36U);
  EXPECT_EQ(program.comments.text.height(), 2 * height);
  double lowest = -1;
  for (const Mark& mark : program.comments.text.marks()) {
    EXPECT_GT(mark.y1, lowest);
    lowest = mark.y1;
  }
}

TEST(ShowCommentReport, InAnotherLanguageTheWindowOpensEmpty) {
  HeadlessReport program;
  program.shared.languageFlag = "Eng";
  program.shared.commentTexts[1] = "prima";
  program.reportWindow.commentButton.press();
  EXPECT_EQ(program.host.windows.asked, std::vector<std::string>{"comments"});
  EXPECT_TRUE(program.comments.text.texts().empty());
  EXPECT_EQ(program.shared.commentTexts[1], "prima");
}

TEST(ShowCommentReport, TheWindowIsThereBeforeAnythingIsPrinted) {
  HeadlessReport program;
  program.host.windows.onComments = [&] { EXPECT_TRUE(program.comments.text.texts().empty()); };
  program.reportWindow.commentButton.press();
  EXPECT_FALSE(program.comments.text.texts().empty());
}

}  // namespace
}  // namespace korvinel
