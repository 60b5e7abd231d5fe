#include "platform/qt/page_note.h"

#include <QApplication>

namespace korvinel::platform {

void paintPageNote(QPainter& painter, const QString& note, const QRectF& picture, double dotsPerMillimetre) {
  if (note.isEmpty()) return;
  QFont letters = QApplication::font();
  letters.setPointSize(16);
  letters.setBold(true);
  painter.setFont(letters);
  painter.setPen(Qt::black);
  const QRectF place(picture.left(), picture.bottom() + 3 * dotsPerMillimetre, picture.width(), 12 * dotsPerMillimetre);
  painter.drawText(place, Qt::AlignLeft | Qt::AlignTop, note);
}

}  // namespace korvinel::platform
