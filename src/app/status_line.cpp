#include "app/status_line.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QPainter>
#include <algorithm>

#include "platform/qt/help.h"
#include "platform/qt/qt_text.h"

namespace korvinel {
namespace {

using guidance::Tone;

constexpr int linesShown = 2;
constexpr int leastLetters = 11;  // pixels

/// On the dark ground of the window; each differs in lightness too.
QColor colourOf(Tone tone) {
  switch (tone) {
    case Tone::calm: return {176, 190, 197};
    case Tone::busy: return {100, 181, 246};
    case Tone::listening: return {255, 213, 79};
    case Tone::recording: return {255, 82, 82};
    case Tone::done: return {129, 199, 132};
    case Tone::warning: return {255, 183, 77};
    case Tone::fault: return {255, 138, 128};
  }
  return Qt::white;
}

/// A notification: of the roles that the toolkit knows, the one whose text screen readers speak wherever the focus is.
QAccessibleInterface* notificationAccess(const QString&, QObject* object) {
  auto* line = dynamic_cast<StatusLine*>(object);
  return line == nullptr ? nullptr : new QAccessibleWidget(line, QAccessible::Notification);
}

}  // namespace

StatusLine::StatusLine(QWidget* parent) : QLabel(parent) {
  setObjectName("Stato dell'esame");
  setTextFormat(Qt::PlainText);
  QAccessible::installFactory(notificationAccess);
  setAccessibleDescription("Stato dell'esame");
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
}

void StatusLine::show(const guidance::Status& status) {
  if (status == status_) return;
  const bool isNews = status.spoken != status_.spoken;
  status_ = status;
  setText(platform::toQt(status.text));
  setAccessibleName(text());
  setToolTip(platform::inLines(platform::toQt(status.text)));
  if (isNews) speak();
}

/// The toolkit has no live regions yet: a notification is spoken when it appears.
void StatusLine::speak() {
  QAccessibleEvent news(this, QAccessible::ObjectShow);
  QAccessible::updateAccessibility(&news);
}

QSize StatusLine::sizeHint() const { return {fontMetrics().averageCharWidth() * 60, minimumSizeHint().height()}; }

QSize StatusLine::minimumSizeHint() const {
  return {fontMetrics().averageCharWidth() * 30, fontMetrics().lineSpacing() * linesShown + 4};
}

void StatusLine::paintSign(QPainter& painter, const QRectF& place) const {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(colourOf(status_.tone));
  const bool isTrouble = status_.tone == Tone::warning || status_.tone == Tone::fault;
  if (isTrouble)
    return painter.drawPolygon(
        QPolygonF({QPointF(place.center().x(), place.top()), place.bottomRight(), place.bottomLeft()}));
  if (status_.tone == Tone::listening) {  // a ring: nothing is kept
    painter.setPen(QPen(colourOf(status_.tone), 3));
    painter.setBrush(Qt::NoBrush);
    return painter.drawEllipse(place.adjusted(1.5, 1.5, -1.5, -1.5));
  }
  painter.drawEllipse(place);
}

void StatusLine::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  constexpr double sign = 14, gap = 8;
  paintSign(painter, {2, (height() - sign) / 2, sign, sign});
  const QRectF room(2 + sign + gap, 0, width() - 2 - sign - gap, height());
  constexpr int flags = Qt::AlignVCenter | Qt::AlignLeft | Qt::TextWordWrap;
  QFont letters = font();
  for (letters.setBold(true);; letters.setPixelSize(letters.pixelSize() - 1)) {
    if (letters.pixelSize() < 0) letters.setPixelSize(QFontInfo(font()).pixelSize());
    painter.setFont(letters);
    if (room.contains(painter.boundingRect(room, flags, text())) || letters.pixelSize() <= leastLetters) break;
  }
  painter.setPen(Qt::white);
  painter.drawText(room, flags, text());
}

}  // namespace korvinel
