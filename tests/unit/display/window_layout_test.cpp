#include <gtest/gtest.h>

#include <map>

#include "display/spectrum_display.h"
#include "display/window_geometry.h"
#include "headless_program.h"
#include "signals.h"

namespace korvinel {
namespace {

using platform::Colour;
using platform::Mark;

struct LayoutTest : testing::Test {
  LayoutTest() { program.state.startUp(); }
  HeadlessProgram program;
  MainWindow& window = program.window;
};

int textsAt(const platform::Surface& surface, const std::string& text, double x, double y) {
  int count = 0;
  for (const Mark& mark : surface.marks())
    count += mark.kind == Mark::Kind::text && mark.text == text && mark.x1 == x && mark.y1 == y ? 1 : 0;
  return count;
}

TEST_F(LayoutTest, LabelsAreResetAtTheStart) {
  EXPECT_EQ(window.fileNameCaption.text(), "Nome File");
  EXPECT_EQ(window.subjectCaption.text(), "Soggetto");
  EXPECT_EQ(window.dateLabel.text(), "Data =21/11/2026");
  EXPECT_EQ(window.timeLabel.text(), "Tempo=");
  EXPECT_EQ(window.amplitudeLabel.text(), "EEG microvolts 60");
  EXPECT_EQ(window.speedLabel.text(), "Velocita' display=6");
  EXPECT_EQ(window.statusLabel.text(), "Registrazione disattiva");
  EXPECT_TRUE(window.messagePanel.shows(" Eseguire questo programma in grafica 1024x768"));
}

TEST_F(LayoutTest, TheStatusIsWrittenInLowerCaseHere) {
  program.state.recordingActive = 1;
  program.state.drawGraphFrames();
  EXPECT_EQ(window.statusLabel.text(), "Registrazione attiva");
}

TEST_F(LayoutTest, AFileNameAlwaysGetsItsEnding) {
  for (const char* typed : {"abc", "abc.QVD"}) {
    window.fileNameBox.type(typed);
    program.state.drawGraphFrames();
    EXPECT_EQ(program.shared.dataFileName, std::string(typed) + ".QVD");
  }
}

TEST_F(LayoutTest, TheFrequencyAxisReadsTwoUnitsAHertz) {
  const std::tuple<const char*, double, double> labels[] = {{"30", 2, 0},  {"Hz", 2, 5},  {"25", 2, 9}, {"20", 2, 19},
                                                            {"15", 2, 29}, {"10", 2, 39}, {"5", 4, 49}, {"0", 4, 57}};
  for (const auto& [text, x, y] : labels) EXPECT_EQ(textsAt(window.frequencyAxis, text, x, y), 1) << text;
  EXPECT_EQ(window.frequencyAxis.height(), 60);
}

TEST_F(LayoutTest, TheAxisCaptionsStandOnTheWindowInLightGrey) {
  const auto texts = window.axisCaptions.texts();
  EXPECT_EQ(std::count(texts.begin(), texts.end(), "Seconds"), 2);
  for (const char* caption : {"Coerenza ", "Tempo", "minuti"})
    EXPECT_TRUE(window.axisCaptions.shows(caption)) << caption;
  for (const Mark& mark : window.axisCaptions.marks()) EXPECT_EQ(mark.colour, Colour::lightGrey);
}

TEST_F(LayoutTest, DrawingTheFramesAgainOnClearedGraphsAddsNothing) {
  const auto once = window.axisCaptions.marks().size() + window.firstTrace.marks().size() +
                    window.Picture6.marks().size() + window.messagePanel.marks().size() +
                    window.leftRuler.marks().size();
  program.state.clearPictures();
  program.state.drawGraphFrames();
  EXPECT_EQ(window.axisCaptions.marks().size() + window.firstTrace.marks().size() + window.Picture6.marks().size() +
                window.messagePanel.marks().size() + window.leftRuler.marks().size(),
            once);
}

TEST_F(LayoutTest, FramesAreGreenOnTheTracesAndWhiteOnTheMessages) {
  const auto has = [](const platform::Surface& surface, Colour colour) {
    return std::any_of(surface.marks().begin(), surface.marks().end(),
                       [&](const Mark& mark) { return mark.kind == Mark::Kind::line && mark.colour == colour; });
  };
  EXPECT_TRUE(has(window.firstTrace, Colour::green));
  EXPECT_TRUE(has(window.secondTrace, Colour::green));
  EXPECT_TRUE(has(window.messagePanel, Colour::white));
}

TEST_F(LayoutTest, AFrameRunsAlongAllFourEdges) {
  const std::pair<const platform::Surface*, Colour> framed[] = {
      {&window.firstTrace, Colour::green}, {&window.secondTrace, Colour::green}, {&window.messagePanel, Colour::white}};
  for (const auto& [surface, colour] : framed) {
    const double right = surface->width(), bottom = surface->height();
    const double edges[][4] = {
        {0, 0, right, 0}, {right, 0, right, bottom}, {right, bottom, 0, bottom}, {0, bottom, 0, 0}};
    for (const auto& [x1, y1, x2, y2] : edges) {
      const Mark edge{Mark::Kind::line, colour, x1, y1, x2, y2};
      EXPECT_EQ(std::count(surface->marks().begin(), surface->marks().end(), edge), 1) << surface->name() << x1 << y1;
    }
  }
}

TEST_F(LayoutTest, TheSecondsStandJustBelowTheirTrace) {
  for (const auto& trace : {geometry::firstTrace, geometry::secondTrace}) {
    const auto& marks = window.axisCaptions.marks();
    EXPECT_EQ(std::count_if(marks.begin(), marks.end(),
                            [&](const Mark& mark) {
                              return mark.text == "Seconds" && mark.y1 == trace.bottom() + 2 && mark.x1 > trace.x &&
                                     mark.x1 < trace.right();
                            }),
              1)
        << trace.y;
  }
}

TEST_F(LayoutTest, TheAmplitudeBarSetsTheScaleAndTheRulers) {
  const auto ticksBefore = window.leftRuler.marks().size();
  window.HScroll1.moveTo(80);
  EXPECT_EQ(program.state.microvoltScale, 80);
  EXPECT_EQ(window.amplitudeLabel.text(), "EEG microvolts80");
  EXPECT_GT(window.leftRuler.marks().size(), ticksBefore);
  EXPECT_TRUE(window.leftRuler.shows("0"));
  EXPECT_TRUE(window.rightRuler.shows("0"));
}

TEST_F(LayoutTest, TheSpeedBarSetsTheReplaySpeed) {
  window.HScroll2.moveTo(2);
  EXPECT_EQ(program.state.displaySpeed, 2);
  EXPECT_EQ(window.speedLabel.text(), " Velocita' display=2");
}

TEST_F(LayoutTest, TheSpeedLabelIsWrittenOnlyInItalian) {
  program.shared.languageFlag = "Eng";
  window.HScroll2.moveTo(3);
  EXPECT_EQ(program.state.displaySpeed, 3);
  EXPECT_EQ(window.speedLabel.text(), "Velocita' display=6");
}

TEST_F(LayoutTest, RulerTicksFaceEachOtherFromZero) {
  const auto ticks = [](const platform::Surface& ruler) {
    std::vector<double> positions;
    for (const Mark& mark : ruler.marks())
      if (mark.kind == Mark::Kind::line) positions.push_back(mark.x1);
    return positions;
  };
  const auto left = ticks(window.leftRuler);
  const auto right = ticks(window.rightRuler);
  ASSERT_EQ(left.size(), 7U);
  ASSERT_EQ(right.size(), 7U);
  for (std::size_t i = 0; i < left.size(); ++i) EXPECT_EQ(left[i], 259 - right[i]);
}

TEST(Geometry, NothingOverlapsAndNothingLeavesTheWindow) {
  using namespace geometry;
  const Rect all[] = {geometry::firstTrace,
                      geometry::leftSpectrum,
                      geometry::frequencyAxis,
                      geometry::rightSpectrum,
                      geometry::leftRuler,
                      geometry::rightRuler,
                      geometry::coherenceGraph,
                      geometry::firstNumbers,
                      geometry::secondNumbers,
                      geometry::secondTrace,
                      geometry::messagePanel,
                      statusLabel,
                      noteBox,
                      fileNameCaption,
                      fileNameBox,
                      subjectCaption,
                      subjectBox,
                      ocularCheck,
                      dateLabel,
                      blockLabel,
                      timeLabel,
                      replayPositionLabel,
                      zLabel,
                      amplitudeLabel,
                      amplitudeBar,
                      speedLabel,
                      speedBar,
                      timeStrip,
                      slider,
                      buttonRow};
  for (const Rect& a : all) {
    EXPECT_TRUE(a.x >= 0 && a.y >= 0 && a.right() <= geometry::width && a.bottom() <= geometry::height)
        << a.x << "," << a.y;
    for (const Rect& b : all) {
      const bool apart = a.right() <= b.x || b.right() <= a.x || a.bottom() <= b.y || b.bottom() <= a.y;
      EXPECT_TRUE(&a == &b || apart) << a.x << "," << a.y << " over " << b.x << "," << b.y;
    }
  }
}

TEST_F(LayoutTest, TheFrequencyLabelsAreBlackBehindWhiteTicks) {
  int labels = 0;
  for (const Mark& mark : window.frequencyAxis.marks()) {
    if (mark.kind != Mark::Kind::text) continue;
    ++labels;
    EXPECT_EQ(mark.colour, Colour::black) << mark.text;
    EXPECT_TRUE(hasPoint(window.frequencyAxis, mark.x1, mark.y1, Colour::white)) << mark.text;
  }
  EXPECT_EQ(labels, 8);
}

TEST_F(LayoutTest, EveryGraphHasItsDottedGridInBlue) {
  const std::tuple<const platform::Surface*, double, double> grids[] = {
      {&window.firstTrace, 64.5, 64.5}, {&window.secondTrace, 64.5, 64.5}, {&window.leftSpectrum, 43, 43},
      {&window.rightSpectrum, 43, 43},  {&window.coherenceGraph, 50, 50},  {&window.Picture6, 60, 50}};
  for (const auto& [graph, stepX, stepY] : grids) {
    for (int i = 1; i * stepX < graph->width(); ++i)
      EXPECT_TRUE(hasPoint(*graph, i * stepX, 9, Colour::blue)) << graph->name() << i;
    for (int i = 1; i * stepY < graph->height(); ++i)
      EXPECT_TRUE(hasPoint(*graph, 9, i * stepY, Colour::blue)) << graph->name() << i;
  }
}

/// The ticks drawn since the ruler was last painted over.
std::vector<Mark> ticksOf(const platform::Surface& ruler) {
  std::vector<Mark> ticks;
  for (const Mark& mark : ruler.marks()) {
    const bool paintedOver = mark.kind == Mark::Kind::box && mark.colour == Colour::white && mark.x2 == ruler.width() &&
                             mark.y2 == ruler.height();
    if (paintedOver) ticks.clear();
    if (mark.kind == Mark::Kind::line) ticks.push_back(mark);
  }
  return ticks;
}

TEST_F(LayoutTest, TheRulersTicksStandWhereABarOfSoManyMicrovoltsEnds) {
  for (const int scale : {10, 60, 80, 127, 200}) {
    window.HScroll1.moveTo(scale);
    const auto left = ticksOf(window.leftRuler), right = ticksOf(window.rightRuler);
    ASSERT_EQ(left.size(), static_cast<std::size_t>(scale / 10 + 1)) << scale;
    ASSERT_EQ(right.size(), left.size()) << scale;
    for (std::size_t i = 0; i < left.size(); ++i) {
      const auto microvolts = static_cast<float>(10 * i);
      EXPECT_NEAR(left[i].x1, leftBarEnd(barScale(scale), microvolts), 2) << scale << ", " << microvolts;
      EXPECT_NEAR(right[i].x1, rightBarEnd(barScale(scale), microvolts), 1) << scale << ", " << microvolts;
      const double length = i % 5 == 0 ? 10 : 6;
      EXPECT_EQ(left[i], (Mark{Mark::Kind::line, Colour::blue, left[i].x1, 0, left[i].x1, length}));
      EXPECT_EQ(right[i], (Mark{Mark::Kind::line, Colour::blue, right[i].x1, 0, right[i].x1, length}));
    }
  }
}

TEST_F(LayoutTest, ANewExaminationBeginsWithoutTheWarningOfTheLast) {
  window.statusLabel.setInk(Colour::lightRed);
  window.statusLabel.setText("Errore di scrittura su disco!");
  program.state.clearPictures();
  EXPECT_EQ(window.statusLabel.ink(), Colour::black);
  EXPECT_EQ(window.statusLabel.text(), "Registrazione disattiva");
}

TEST_F(LayoutTest, TheFrequencyAxisIsDrawnAnewAndNotOverItself) {
  const auto once = window.frequencyAxis.marks();
  program.state.drawFrequencyAxis();
  EXPECT_EQ(window.frequencyAxis.marks(), once);
}

TEST_F(LayoutTest, TheFramesRunAlongAllFourEdges) {
  const std::pair<const platform::Surface*, Colour> framed[] = {
      {&window.firstTrace, Colour::green}, {&window.secondTrace, Colour::green}, {&window.messagePanel, Colour::white}};
  for (const auto& [surface, colour] : framed) {
    const double right = surface->width(), bottom = surface->height();
    EXPECT_TRUE(hasLine(*surface, 0, 0, right, 0, colour)) << surface->name();
    EXPECT_TRUE(hasLine(*surface, right, 0, right, bottom, colour)) << surface->name();
    EXPECT_TRUE(hasLine(*surface, right, bottom, 0, bottom, colour)) << surface->name();
    EXPECT_TRUE(hasLine(*surface, 0, bottom, 0, 0, colour)) << surface->name();
  }
}

/// The captions right under a graph, from left to right.
std::vector<std::string> captionsUnder(const platform::Surface& ground, const platform::Rect& graph) {
  std::map<double, std::string> captions;
  for (const Mark& mark : ground.marks()) {
    const bool under = mark.y1 > graph.bottom() && mark.y1 < graph.bottom() + 5;
    if (under && mark.x1 >= graph.x && mark.x1 < graph.right()) captions[mark.x1] += mark.text;
  }
  std::vector<std::string> texts;
  for (const auto& [x, text] : captions) texts.push_back(text);
  return texts;
}

TEST_F(LayoutTest, TheNumbersOfAnAxisStandRightUnderItsGraph) {
  using Texts = std::vector<std::string>;
  const Texts seconds = {"0", "0.5", "1", "1.5", "Seconds", "2"};
  EXPECT_EQ(captionsUnder(window.axisCaptions, geometry::firstTrace), seconds);
  EXPECT_EQ(captionsUnder(window.axisCaptions, geometry::secondTrace), seconds);
  EXPECT_EQ(captionsUnder(window.axisCaptions, geometry::coherenceGraph), (Texts{"100", "0", "-100"}));
  EXPECT_EQ(captionsUnder(window.axisCaptions, geometry::timeStrip),
            (Texts{"0", "1", "2", "3", "4", "5", "6", "7", "8", "9", "10"}));
  EXPECT_EQ(textsAt(window.axisCaptions, "0", geometry::timeStrip.x, geometry::timeStrip.bottom() + 2), 1);
}

}  // namespace
}  // namespace korvinel
