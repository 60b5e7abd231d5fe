#pragma once

#include <QColor>
#include <QPainter>
#include <QRectF>

#include "guidance/signal_quality.h"

namespace korvinel {

/// The colour of a state, dark enough to be read as text on white.
[[nodiscard]] QColor lampColour(guidance::SignalState state);

/// The sign of a state in a square: a tick, a line, a cut-off wave, a wave in a rhombus, an exclamation mark in a
/// triangle; an empty circle while nothing is acquired.
void drawLampSign(QPainter& painter, const QRectF& square, guidance::SignalState state);

/// One turn in the history: a low bar for a good signal; for the faults a line in the middle, a full bar, stripes, a
/// step; a dot without signal.
void drawHistoryCell(QPainter& painter, const QRect& cell, guidance::SignalState state);

}  // namespace korvinel
