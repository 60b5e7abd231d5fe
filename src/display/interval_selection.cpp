#include <cmath>

#include "eeg/block.h"
#include "frame/main_state.h"
#include "frame/main_window.h"
#include "frame/program_values.h"
#include "platform/surface.h"

namespace korvinel {
namespace {

using platform::Colour;

constexpr int unitsPerBlock = eeg::secondsPerBlock;

int blockAt(int x) { return static_cast<int>(std::floor(static_cast<double>(x) / unitsPerBlock)); }

/// The bar is only a pixel high; the tint behind the trend makes it visible.
void drawBar(MainState& state) {
  platform::Surface& strip = state.window.Picture6;
  strip.box(state.selectionStartX, 1, state.selectionEndX, 2, Colour::lightRed);
  strip.shade(state.selectionStartX, state.selectionEndX, Colour::lightRed);
}

/// Coarse on purpose: x 0..5 is block 1, then three units per block. A drag to the left leaves first above last.
void selectInterval(MainState& state) {
  ProgramValues& shared = state.shared;
  shared.analysisFirstBlock = blockAt(state.selectionStartX);
  if (shared.analysisFirstBlock == 0) shared.analysisFirstBlock = 1;
  shared.analysisLastBlock = blockAt(state.selectionEndX);
  if (shared.analysisLastBlock > shared.fileBlockCount) shared.analysisLastBlock = shared.fileBlockCount;
  const int blocks = shared.analysisLastBlock - shared.analysisFirstBlock + 1;
  state.window.dateLabel.setText("Intervallo=" + std::to_string(blocks * unitsPerBlock) + "s");
}

void selectEverything(MainState& state) {
  state.shared.analysisFirstBlock = 1;
  state.shared.analysisLastBlock = state.shared.fileBlockCount;
  state.window.dateLabel.setText("Intervallo non valido");
}

}  // namespace

void MainState::stripPressed(float x) {
  if (intervalSelectable == 0) return;
  selectionStartX = Int16::nearest(std::floor(static_cast<double>(x)));
  selectionDragging = 1;
  window.Picture6.box(0, 1, 600, 2, Colour::white);
  window.Picture6.shade(0, 0, Colour::white);
}

void MainState::stripMoved(float x) {
  if (intervalSelectable == 0 || selectionDragging != 1) return;
  selectionEndX = Int16::nearest(std::floor(static_cast<double>(x)));
  drawBar(*this);
}

void MainState::stripReleased(float x) {
  if (intervalSelectable == 0 || selectionDragging != 1) return;
  selectionEndX = Int16::nearest(std::floor(static_cast<double>(x)));
  selectionDragging = 0;
  const int dataEnd = shared.fileBlockCount * unitsPerBlock;
  if (selectionEndX > dataEnd) selectionEndX = dataEnd;
  if (selectionStartX <= dataEnd)
    selectInterval(*this);
  else
    selectEverything(*this);
  drawBar(*this);
}

}  // namespace korvinel
