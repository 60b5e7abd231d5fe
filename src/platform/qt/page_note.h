#pragma once

#include <QPainter>
#include <QString>

namespace korvinel::platform {

/// Writes a line below the page's picture, which keeps its place and size; nothing if it is empty. `picture`: in dots
/// of the painter.
void paintPageNote(QPainter& painter, const QString& note, const QRectF& picture, double dotsPerMillimetre);

}  // namespace korvinel::platform
