#include "app/strip_marks.h"

#include <QHelpEvent>
#include <QPainter>
#include <QPolygonF>
#include <QTimer>
#include <QToolTip>
#include <cmath>

#include "eeg/block.h"
#include "platform/qt/qt_text.h"

namespace korvinel {
namespace {

constexpr double stripSeconds = 600;
constexpr double reachPixels = 5;  // of the pointer
constexpr double flag = 6;         // pixels

}  // namespace

StripMarks::StripMarks(QWidget* ground, platform::PointerSurfaceView& strip) : QWidget(ground), strip_(strip) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  strip_.installEventFilter(this);
}

void StripMarks::show(const std::vector<guidance::NoteLine>& notes, bool marksAreMissing) {
  if (notes == notes_ && marksAreMissing == painted_) return;
  notes_ = notes;
  painted_ = marksAreMissing;
  update();
}

double StripMarks::pixelsPerSecond() const { return strip_.width() / stripSeconds; }

bool StripMarks::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::ToolTip) {
    const auto& asked = *static_cast<const QHelpEvent*>(event);
    if (tellUnderPointer(asked.pos(), asked.globalPos())) return true;
  }
  // Once the strip has moved its mark and described the place.
  if (event->type() == QEvent::KeyPress) QTimer::singleShot(0, this, [this] { tellUnderMark(); });
  return QWidget::eventFilter(watched, event);
}

bool StripMarks::tellUnderPointer(const QPoint& place, const QPoint& onScreen) {
  const int second = static_cast<int>(std::lround(place.x() / pixelsPerSecond()));
  const int reach = static_cast<int>(std::ceil(reachPixels / pixelsPerSecond()));
  const std::string text = guidance::notesAt(notes_, second, reach);
  if (text.empty()) return false;
  QToolTip::showText(onScreen, platform::toQt(text), &strip_);
  return true;
}

void StripMarks::tellUnderMark() {
  const int second = strip_.mark();
  const std::string text = guidance::notesAt(notes_, second, 1);
  if (text.empty() || !strip_.hasFocus()) return;
  const QPoint below(static_cast<int>(second * pixelsPerSecond()), strip_.height());
  const QString place = QToolTip::isVisible() ? QToolTip::text() + "\n" : QString();
  QToolTip::showText(strip_.mapToGlobal(below), place + platform::toQt(text), &strip_);
}

void StripMarks::paintEvent(QPaintEvent*) {
  if (!painted_) return;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(255, 0, 0));
  for (const guidance::NoteLine& note : notes_) {
    if (note.block == 0) continue;
    const double x = note.block * eeg::secondsPerBlock * pixelsPerSecond();
    painter.drawPolygon(QPolygonF({QPointF(x - flag / 2, 0), QPointF(x + flag / 2, 0), QPointF(x, flag + 2)}));
  }
}

}  // namespace korvinel
