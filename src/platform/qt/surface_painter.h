#pragma once

#include <QPainter>
#include <QSizeF>

#include "platform/surface.h"

namespace korvinel::platform {

/// Paints what a surface holds over the pixels (0, 0)..`size`. One unit of the painter is one pixel of the device;
/// `pixelRatio`: how many of them make one pixel of the layout, for the width of lines and points.
void paintSurface(QPainter& painter, const Surface& surface, const QSizeF& size, qreal pixelRatio);

}  // namespace korvinel::platform
