#include <gtest/gtest.h>

#include "headless_report.h"
#include "signals.h"

namespace korvinel {
namespace {

using platform::Colour;
using platform::Mark;
using platform::Surface;

std::vector<Mark> marksOf(const Surface& surface, Mark::Kind kind) {
  std::vector<Mark> found;
  for (const Mark& mark : surface.marks())
    if (mark.kind == kind) found.push_back(mark);
  return found;
}

struct GraphReport : HeadlessReport {
  GraphReport() {
    report.reportBinCount = 64;
    report.microvoltScale = 100;
  }
  std::vector<Mark> bars(int channel) { return marksOf(reportWindow.spectrumOf(channel), Mark::Kind::box); }
  std::vector<Mark> lines(Surface& surface) { return marksOf(surface, Mark::Kind::line); }
};

TEST(BarColourForBin, ChangesAtTheBandsAndInsideBeta) {
  const std::pair<int, int> cases[] = {{1, 4},   {7, 4},  {8, 12}, {16, 12}, {17, 10},
                                       {26, 10}, {27, 9}, {53, 9}, {54, 13}, {64, 13}};
  GraphReport program;
  for (const auto& [bin, colour] : cases) {
    program.report.binIndex = bin;
    program.report.barColourForBin();
    EXPECT_EQ(program.report.traceColour, colour) << bin;
  }
}

TEST(SpectrumPanels, AtAScaleOf100AValueOf100ReachesTheTop) {
  GraphReport program;
  program.report.meanSpectrum[1][20] = 100;
  program.report.meanSpectrum[1][21] = 50;
  program.report.drawSpectraAndCoherence();
  const Mark expected20{Mark::Kind::box, Colour::lightGreen, 39, 200, 40, 0};
  const Mark expected21{Mark::Kind::box, Colour::lightGreen, 41, 200, 42, 100};
  EXPECT_EQ(program.bars(1)[19], expected20);
  EXPECT_EQ(program.bars(1)[20], expected21);
}

TEST(SpectrumPanels, AValueOfZeroIsABarOfNoHeight) {
  GraphReport program;
  program.report.drawSpectraAndCoherence();
  ASSERT_EQ(program.bars(4).size(), 64U);
  for (const Mark& bar : program.bars(4)) {
    EXPECT_EQ(bar.y1, 200);
    EXPECT_EQ(bar.y2, 200);
  }
}

TEST(SpectrumPanels, EachBarIsTwoUnitsFromTheNextAndTheLastEndsAtThePanel) {
  GraphReport program;
  program.report.drawSpectraAndCoherence();
  for (int k = 1; k <= 64; ++k) {
    const Mark bar = program.bars(2)[static_cast<std::size_t>(k) - 1];
    EXPECT_EQ(bar.x1, 2 * k - 1) << k;
    EXPECT_EQ(bar.x2, 2 * k) << k;
  }
}

TEST(SpectrumPanels, AValueAboveTheFullScaleGoesBeyondTheTop) {
  GraphReport program;
  program.report.microvoltScale = 1;
  program.report.meanSpectrum[3][1] = 5000;
  program.report.drawSpectraAndCoherence();
  EXPECT_EQ(program.bars(3)[0].y2, 200 - 200 * 5000);
}

TEST(SpectrumPanels, BarHeightsAreRoundedToWholeUnits) {
  GraphReport program;
  program.report.microvoltScale = 30;  // 6.6667 units per microvolt
  program.report.meanSpectrum[1][1] = 5.5F;
  program.report.drawSpectraAndCoherence();
  EXPECT_EQ(program.bars(1)[0].y2, 163);  // 200 - 36.67
}

TEST(SpectrumPanels, TicksStandEveryTenMicrovolts) {
  struct Case {
    int scale;
    std::vector<double> ticks;
  };
  const Case cases[] = {{100, {0, 20, 40, 60, 80, 100, 120, 140, 160, 180, 200}},
                        {30, {0, 67, 134}},
                        {10, {0, 200}},
                        {1, {0}},
                        {50, {0, 40, 80, 120, 160, 200}}};
  for (const Case& c : cases) {
    GraphReport program;
    program.report.microvoltScale = c.scale;
    program.report.drawSpectraAndCoherence();
    std::vector<double> ticks;
    for (const Mark& line : program.lines(program.reportWindow.spectrum1)) {
      EXPECT_EQ(line.x1, 192);
      EXPECT_EQ(line.x2, 196);
      EXPECT_EQ(line.y1, line.y2);
      EXPECT_EQ(line.colour, Colour::blue);
      ticks.push_back(line.y1);
    }
    EXPECT_EQ(ticks, c.ticks) << c.scale;
  }
}

TEST(SpectrumPanels, TheTicksEndForEveryScale) {
  GraphReport program;
  for (int scale = 1; scale <= 200; ++scale) {
    program.reportWindow.scaleSlider.moveTo(scale);
    EXPECT_LE(program.lines(program.reportWindow.spectrum1).size(), 21U) << scale;
  }
  EXPECT_TRUE(program.host.faults.empty());
}

TEST(SpectrumPanels, AScaleWhoseTicksFallTogetherDrawsOneTick) {
  GraphReport program;
  for (const int scale : {4000, 4001, 32'767}) {
    program.report.microvoltScale = scale;
    program.report.drawSpectraAndCoherence();
    EXPECT_EQ(program.lines(program.reportWindow.spectrum1).size(), 1U) << scale;
  }
}

TEST(Panels, EachHasItsLabel) {
  GraphReport program;
  const float coherences[] = {0, 54.7F, -3, 45.5F, 100};
  for (int pair = 1; pair <= 4; ++pair) program.report.pairCoherence[pair] = coherences[pair];
  program.report.drawSpectraAndCoherence();
  ReportWindow& window = program.reportWindow;
  const std::pair<Surface*, Mark> labels[] = {
      {&window.spectrum1, {Mark::Kind::text, Colour::black, 2, 2, 0, 20, "F1"}},
      {&window.spectrum2, {Mark::Kind::text, Colour::black, 2, 2, 0, 20, "F2"}},
      {&window.spectrum3, {Mark::Kind::text, Colour::black, 2, 2, 0, 20, "T5"}},
      {&window.spectrum4, {Mark::Kind::text, Colour::black, 2, 2, 0, 20, "T6"}},
      {&window.coherence1, {Mark::Kind::text, Colour::black, 2, 180, 0, 198, "Coerenza F1-F2=54.7"}},
      {&window.coherence2, {Mark::Kind::text, Colour::black, 2, 180, 0, 198, "Coerenza T5-T6=-3"}},
      {&window.coherence3, {Mark::Kind::text, Colour::black, 2, 180, 0, 198, "Coerenza F1-T5=45.5"}},
      {&window.coherence4, {Mark::Kind::text, Colour::black, 2, 180, 0, 198, "Coerenza F2-T6=100"}}};
  for (const auto& [surface, label] : labels) {
    const auto texts = marksOf(*surface, Mark::Kind::text);
    ASSERT_EQ(texts.size(), 1U) << label.text;
    EXPECT_EQ(texts[0], label) << label.text;
    EXPECT_TRUE(hasPoint(*surface, label.x1, label.y1, Colour::white)) << label.text;
  }
}

TEST(CoherencePanels, TheLineStartsLevelAndGoesThroughAll64Indexes) {
  GraphReport program;
  for (int k = 1; k <= 64; ++k) program.report.coherenceSpectrum[3][k] = static_cast<float>(k) + 0.4F;
  program.report.drawSpectraAndCoherence();
  const auto lines = program.lines(program.reportWindow.coherence3);
  ASSERT_EQ(lines.size(), 64U);
  EXPECT_EQ(lines[0].y1, lines[0].y2);
  for (int k = 1; k <= 64; ++k) {
    const Mark& line = lines[static_cast<std::size_t>(k) - 1];
    EXPECT_EQ(line.x1, k - 1);
    EXPECT_EQ(line.x2, k);
    EXPECT_EQ(line.y1, k == 1 ? 99 : 101 - k) << k;
    EXPECT_EQ(line.y2, 100 - k) << k;
    EXPECT_EQ(line.colour, Colour::blue);
  }
}

TEST(CoherencePanels, OneHundredIsTheTopZeroTheMiddleAndTheNegativeHalfLiesBelow) {
  const std::pair<float, double> cases[] = {{100, 0}, {0, 100}, {-100, 200}, {-50, 150}};
  for (const auto& [coherence, y] : cases) {
    GraphReport program;
    for (int k = 1; k <= 64; ++k) program.report.coherenceSpectrum[1][k] = coherence;
    program.report.drawSpectraAndCoherence();
    EXPECT_EQ(program.lines(program.reportWindow.coherence1)[30].y1, y) << coherence;
  }
}

TEST(CoherencePanels, ADottedLineMarksZero) {
  GraphReport program;
  program.report.drawSpectraAndCoherence();
  int dots = 0;
  for (const Mark& point : marksOf(program.reportWindow.coherence2, Mark::Kind::point))
    if (point.y1 == 100) {
      EXPECT_EQ(point.x1, 2 * dots + 1);
      EXPECT_EQ(point.colour, Colour::blue);
      ++dots;
    }
  EXPECT_EQ(dots, 32);
}

struct BandReport : GraphReport {
  BandReport() {
    for (int channel = 1; channel <= 4; ++channel) {
      for (int k = 1; k <= 64; ++k) report.meanSpectrum[channel][k] = static_cast<float>(channel);
      for (const int peak : {1, 8, 17, 27}) report.meanSpectrum[channel][peak] = static_cast<float>(channel + peak);
    }
  }
  std::vector<std::string> shown(int channel) {
    std::vector<std::string> texts;
    for (const std::string& text : reportWindow.spectrumOf(channel).texts())
      if (text.find('=') != std::string::npos) texts.push_back(text);
    return texts;
  }
  using Texts = std::vector<std::string>;
};

TEST(BandValues, AFreshReportShowsZeros) {
  BandReport program;
  program.report.drawBandValues();
  EXPECT_EQ(program.shown(1), (BandReport::Texts{"Delta=0", "Theta=0", "Alpha  =0", "Beta=0"}));
}

TEST(BandValues, TheSecondPanelSpacesTwoLabels) {
  BandReport program;
  program.report.drawBandValues();
  EXPECT_EQ(program.shown(2), (BandReport::Texts{"Delta=0", "Theta =0", "Alpha  =0", "Beta =0"}));
  EXPECT_EQ(program.shown(3), (BandReport::Texts{"Delta=0", "Theta=0", "Alpha  =0", "Beta=0"}));
  EXPECT_EQ(program.shown(4), (BandReport::Texts{"Delta=0", "Theta=0", "Alpha  =0", "Beta=0"}));
}

TEST(BandValues, StandAtTheirPlaces) {
  BandReport program;
  program.report.drawBandValues();
  const auto texts = marksOf(program.reportWindow.spectrum1, Mark::Kind::text);
  const std::pair<double, double> places[] = {{60, 8}, {100, 8}, {60, 30}, {100, 30}};
  ASSERT_EQ(texts.size(), 4U);
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(texts[i].x1, places[i].first);
    EXPECT_EQ(texts[i].y1, places[i].second);
  }
}

TEST(BandValues, TheMaximumBoxShowsMaxima) {
  BandReport program;
  program.reportWindow.maximumCheck.click();
  EXPECT_EQ(program.shown(3), (BandReport::Texts{"Delta=4", "Theta=11", "Alpha  =20", "Beta=30"}));
}

TEST(BandValues, TheMeanBoxShowsMeans) {
  BandReport program;
  program.reportWindow.meanCheck.click();
  // 3 + 1/7, 3 + 8/9, 3 + 17/10, 3 + 27/38, floored to one decimal
  EXPECT_EQ(program.shown(3), (BandReport::Texts{"Delta=3.1", "Theta=3.8", "Alpha  =4.7", "Beta=3.7"}));
}

TEST(BandValues, TheTwoBoxesExcludeEachOther) {
  BandReport program;
  ReportWindow& window = program.reportWindow;
  window.maximumCheck.click();
  window.meanCheck.click();
  EXPECT_FALSE(window.maximumCheck.checked());
  EXPECT_TRUE(window.meanCheck.checked());
  window.maximumCheck.click();
  EXPECT_TRUE(window.maximumCheck.checked());
  EXPECT_FALSE(window.meanCheck.checked());
  EXPECT_EQ(program.shown(1)[0], "Delta=2");
}

TEST(BandValues, WithBothBoxesClearedTheLastValuesStay) {
  BandReport program;
  program.reportWindow.maximumCheck.click();
  program.reportWindow.maximumCheck.click();
  for (int k = 1; k <= 7; ++k) program.report.meanSpectrum[1][k] = 99;
  program.reportWindow.numbersButton.press();
  EXPECT_EQ(program.shown(1)[0], "Delta=2");
}

TEST(BandValues, AreWrittenAgainAfterThePanelsWereCleared) {
  BandReport program;
  program.reportWindow.scaleSlider.moveTo(50);
  EXPECT_EQ(program.shown(1).size(), 4U);
}

TEST(Scale, TheSliderSetsTheScaleItsLabelAndTheReportLine) {
  GraphReport program;
  program.reportWindow.scaleSlider.moveTo(75);
  EXPECT_EQ(program.report.microvoltScale, 75);
  EXPECT_EQ(program.reportWindow.scaleLabel.text(), "Microvolts=75");
  EXPECT_EQ(program.report.reportLines[4], "Scala: 75 microvolts");
  EXPECT_TRUE(program.reportWindow.ground.shows("Scala: 75 microvolts"));
}

TEST(Scale, TheSliderGoesFrom1To200AndBeginsAt30) {
  const ReportWindow window;
  EXPECT_EQ(window.scaleSlider.first(), 1);
  EXPECT_EQ(window.scaleSlider.last(), 200);
  EXPECT_EQ(window.scaleSlider.value(), 30);
  EXPECT_EQ(window.scaleLabel.text(), "Microvolts=30");
}

TEST(Scale, TheOldLineIsFilledWithTheBackgroundAndNotRead) {
  HeadlessReport program;
  program.fillHistories(1, 10);
  program.openReport();
  ASSERT_TRUE(program.reportWindow.ground.shows("Scala: 30 microvolts"));
  program.reportWindow.scaleSlider.moveTo(40);
  const Surface& ground = program.reportWindow.ground;
  EXPECT_FALSE(ground.shows("Scala: 30 microvolts"));
  EXPECT_TRUE(ground.shows("Scala: 40 microvolts"));
  const auto boxes = marksOf(ground, Mark::Kind::box);
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_EQ(boxes[0], (Mark{Mark::Kind::box, Colour::windowBackground, 880, 144, 1196, 168}));
  const Mark line = marksOf(ground, Mark::Kind::text).back();
  EXPECT_EQ(line, (Mark{Mark::Kind::text, Colour::blue, 880, 144, 0, 162, "Scala: 40 microvolts"}));
}

TEST(Scale, TheOtherLinesOfTheReportStay) {
  HeadlessReport program;
  program.fillHistories(1, 10);
  program.openReport();
  const auto before = program.reportWindow.ground.texts().size();
  for (int scale = 1; scale <= 200; ++scale) program.reportWindow.scaleSlider.moveTo(scale);
  EXPECT_EQ(program.reportWindow.ground.texts().size(), before);
  EXPECT_TRUE(program.reportWindow.ground.shows("Data: 21/11/2026"));
  EXPECT_TRUE(program.reportWindow.ground.shows("F1-F2 Ottimo ritmo Alfa  "));
}

TEST(Scale, AnEndlessDraggingOfTheSliderKeepsTheGroundBounded) {
  HeadlessReport program;
  program.fillHistories(1, 10);
  program.openReport();
  Surface& ground = program.reportWindow.ground;
  for (int earlier = 0; earlier < 7'900; ++earlier) ground.point(880, 144, Colour::windowBackground);
  for (int scale = 1; scale <= 200; ++scale) program.reportWindow.scaleSlider.moveTo(scale);
  EXPECT_LE(program.reportWindow.ground.marks().size(), Surface::foldingSize);
  EXPECT_TRUE(program.reportWindow.ground.shows("Norvess Instruments"));
}

TEST(Panels, HalvesGoToTheEvenUnit) {
  GraphReport program;  // two units a microvolt
  const std::pair<float, double> bars[] = {{0.25F, 200}, {0.75F, 198}, {1.25F, 198}},
                                 lines[] = {{0.5F, 100}, {1.5F, 98}};
  for (const auto& [microvolts, y] : bars) {
    program.report.meanSpectrum[1][1] = microvolts;
    program.report.drawSpectraAndCoherence();
    EXPECT_EQ(program.bars(1)[0].y2, y) << microvolts;
  }
  for (const auto& [coherence, y] : lines) {
    program.report.coherenceSpectrum[1][1] = coherence;
    program.report.drawSpectraAndCoherence();
    EXPECT_EQ(program.lines(program.reportWindow.coherence1)[0].y2, y) << coherence;
  }
}

}  // namespace
}  // namespace korvinel
