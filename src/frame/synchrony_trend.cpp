#include "frame/synchrony_trend.h"

#include "eeg/block.h"
#include "frame/main_state.h"
#include "frame/main_window.h"
#include "platform/surface.h"
#include "values/int16.h"

namespace korvinel {
namespace {

using platform::Colour;
using platform::Surface;

constexpr int stripWidth = 600;
constexpr int unitsPerBlock = eeg::secondsPerBlock;

void dottedGuide(Surface& strip, int y, int spacing) {
  for (int x = 0; x <= stripWidth; x += spacing) strip.point(x, y, Colour::blue);
}

Int16 heightOf(float percent) { return Int16::nearest(100.0 - static_cast<double>(percent)); }

}  // namespace

void drawTrendScale(Surface& strip) {
  for (int x = 0; x <= stripWidth; x += 60) strip.line(x, 200, x, 190, Colour::blue);
  dottedGuide(strip, 50, 12);
  dottedGuide(strip, 150, 12);
  dottedGuide(strip, 100, 6);
}

void drawTrend(Surface& strip, const Bounded<float, 202>& correlation, int blocks) {
  for (int block = 1; block <= blocks; ++block)
    strip.line((block - 1) * unitsPerBlock, heightOf(correlation[block - 1]), block * unitsPerBlock,
               heightOf(correlation[block]), Colour::blue);
}

void drawNoteMarks(MainState& state) {
  for (int note = 1; note <= state.noteCount; ++note) {
    const double time = static_cast<double>(state.noteTimes[note]);
    // A file's times may be anything: one that is not a block, or far beyond the strip, gets no mark.
    if (!(time >= 1 && time * unitsPerBlock <= stripWidth)) continue;
    const Int16 x = Int16::nearest(unitsPerBlock * time);
    state.window.Picture6.line(x, 1, x, 13, Colour::lightRed);
  }
}

}  // namespace korvinel
