#include <array>
#include <cmath>
#include <string>

#include "display/grid.h"
#include "display/window_geometry.h"
#include "frame/main_state.h"
#include "frame/main_window.h"
#include "frame/program_values.h"
#include "platform/surface.h"
#include "values/number_text.h"

namespace korvinel {
namespace {

using geometry::Rect;
using platform::Colour;
using platform::Surface;

constexpr double captionGap = 2;
constexpr double stripUnitsPerMinute = 60;

/// The approximate width of a text on the background, whose lines are 14 units high.
double widthOf(const std::string& text) { return 7.2 * static_cast<double>(text.size()); }

/// Captions along the bottom of a graph, the first at its left end and the last at its right end.
template <std::size_t count>
void printAlong(Surface& ground, const Rect& graph, const std::array<const char*, count>& captions) {
  for (std::size_t i = 0; i < count; ++i) {
    const double share = static_cast<double>(i) / static_cast<double>(count - 1);
    const double x = graph.x + share * (graph.width - widthOf(captions[i]));
    ground.printAt(x, graph.bottom() + captionGap, Colour::lightGrey, captions[i]);
  }
}

void printTraceCaptions(Surface& ground, const Rect& trace) {
  printAlong(ground, trace, std::array{"0", "0.5", "1", "1.5", "2"});
  ground.printAt(trace.x + trace.width * 0.81, trace.bottom() + captionGap, Colour::lightGrey, "Seconds");
}

void printAxisCaptions(Surface& ground) {
  printTraceCaptions(ground, geometry::firstTrace);
  printTraceCaptions(ground, geometry::secondTrace);
  const Rect& coherence = geometry::coherenceGraph;
  printAlong(ground, coherence, std::array{"100", "0", "-100"});
  ground.printAt(coherence.x + 36, coherence.bottom() + captionGap + ground.lineHeight(), Colour::lightGrey,
                 "Coerenza ");
  const Rect& strip = geometry::timeStrip;
  printAlong(ground, strip, std::array{"0", "1", "2", "3", "4", "5", "6", "7", "8", "9", "10"});
  ground.printAt(10, strip.y, Colour::lightGrey, "Tempo");
  ground.printAt(10, strip.bottom() + captionGap, Colour::lightGrey, "minuti");
}

void drawFrame(Surface& surface, Colour colour) {
  const double right = surface.width();
  const double bottom = surface.height();
  surface.line(0, 0, right, 0, colour);
  surface.line(right, 0, right, bottom, colour);
  surface.line(right, bottom, 0, bottom, colour);
  surface.line(0, bottom, 0, 0, colour);
}

/// Ticks every ten microvolts from the zero at the base of the bars; longer ones every fifty.
void drawRuler(Surface& ruler, int microvoltScale, bool zeroAtRight) {
  ruler.box(0, 0, ruler.width(), ruler.height(), Colour::white);
  const double unitsPerMicrovolt = 254.0 / microvoltScale;
  for (int microvolts = 0; microvolts <= microvoltScale; microvolts += 10) {
    const double distance = std::nearbyint(microvolts * unitsPerMicrovolt);
    const double x = zeroAtRight ? 258 - distance : 1 + distance;
    ruler.line(x, 0, x, microvolts % 50 == 0 ? 10 : 6, Colour::blue);
  }
  ruler.printAt(zeroAtRight ? 240 : 6, 12, Colour::black, "0");
}

}  // namespace

void MainState::clearPictures() {
  MainWindow& w = window;
  for (Surface* surface : {&w.firstTrace, &w.secondTrace, &w.coherenceGraph, &w.leftSpectrum, &w.rightSpectrum,
                           &w.firstNumbers, &w.secondNumbers, &w.Picture6})
    surface->clear();
  for (platform::Label* label : {&w.timeLabel, &w.zLabel, &w.replayPositionLabel}) label->setText("");
  tracesPair = spectraPair = coherencePair = numbersPair = stripPair = 0;
  w.statusLabel.setInk(Colour::black);
  w.statusLabel.setText("Registrazione disattiva");
  w.Slider1.setValue(0);
}

void MainState::drawGraphFrames() {
  drawAxesAndLabels();
  drawGrids();
}

void MainState::drawAxesAndLabels() {
  printAxisCaptions(window.axisCaptions);
  drawFrequencyAxis();
  takeNames();
  window.fileNameCaption.setText("Nome File");
  window.subjectCaption.setText("Soggetto");
  window.dateLabel.setText("Data =" + recordingDate);
  window.timeLabel.setText("Tempo=");
  window.amplitudeLabel.setText("EEG microvolts " + std::to_string(microvoltScale));
  window.speedLabel.setText("Velocita' display=" + std::to_string(displaySpeed));
  // Lower case here, a capital on the record button: both forms are settled.
  window.statusLabel.setText(recordingActive == 1 ? "Registrazione attiva" : "Registrazione disattiva");
  window.messagePanel.clear();
  window.messagePanel.print(" Eseguire questo programma in grafica 1024x768");
}

void MainState::drawFrequencyAxis() {
  struct AxisLabel {
    const char* text;
    double x, y;
  };
  // Ten units for 5 Hz, so two units per hertz, as the bars have two indexes per hertz.
  constexpr std::array<AxisLabel, 8> labels = {{{"30", 2, 0},
                                                {"Hz", 2, 5},
                                                {"25", 2, 9},
                                                {"20", 2, 19},
                                                {"15", 2, 29},
                                                {"10", 2, 39},
                                                {"5", 4, 49},
                                                {"0", 4, 57}}};
  window.frequencyAxis.clear();
  for (const AxisLabel& label : labels) {
    window.frequencyAxis.point(label.x, label.y, Colour::white);
    window.frequencyAxis.print(label.text);
  }
}

void MainState::drawGrids() {
  for (Surface* trace : {&window.firstTrace, &window.secondTrace}) {
    drawGrid(*trace, 64.5, 64.5);
    drawFrame(*trace, Colour::green);
  }
  drawGrid(window.leftSpectrum, spectrumGridStep, spectrumGridStep);
  drawGrid(window.rightSpectrum, spectrumGridStep, spectrumGridStep);
  drawGrid(window.coherenceGraph, 50, 50);
  drawGrid(window.Picture6, stripUnitsPerMinute, 50);
  drawRulers();
  drawFrame(window.messagePanel, Colour::white);
}

void MainState::drawRulers() {
  drawRuler(window.leftRuler, microvoltScale, true);
  drawRuler(window.rightRuler, microvoltScale, false);
}

void MainState::amplitudeScaleMoved() {
  microvoltScale = window.HScroll1.value();
  window.amplitudeLabel.setText("EEG microvolts" + std::to_string(microvoltScale));
  drawRulers();
  if (intervalSelectable == 1) drawSpectrumDisplay();
}

void MainState::displaySpeedMoved() {
  displaySpeed = window.HScroll2.value();
  if (shared.inItalian()) window.speedLabel.setText(" Velocita' display=" + std::to_string(displaySpeed));
}

}  // namespace korvinel
