#pragma once

#include <QFont>
#include <QPointF>
#include <QSize>
#include <QString>
#include <vector>

class QPainter;
class QWidget;

namespace korvinel::platform {

/// A text as a window shows it.
struct RecordedText {
  QString text;
  QPointF begin;  ///< on its base line, in the window's pixels
  double width;   ///< in the window's pixels
  double height;  ///< of its letters
};

/// The texts of a window of this size.
struct WindowTexts {
  std::vector<RecordedText> texts;
  QSize window;
};

/// Every text of a window, in the order of its painting.
[[nodiscard]] std::vector<RecordedText> textsOf(QWidget& window);

/// Paints the texts of a window where its picture will cover them, so that they can be selected and found on a page
/// that looks like the picture alone. The painter has the window's coordinates.
void paintForSearching(QPainter& painter, const std::vector<RecordedText>& texts);

}  // namespace korvinel::platform
