#include "app/lamp.h"

#include <QFocusEvent>
#include <QFontMetrics>
#include <QPainter>
#include <QTimer>
#include <QToolTip>

#include "app/lamp_shapes.h"
#include "platform/qt/help.h"

namespace korvinel {
namespace {

using guidance::SignalHistory;

// In pixels.
constexpr int edge = 4;
constexpr int gap = 5;
constexpr QSize cellSize(4, 9);
constexpr int cellStep = cellSize.width() + 1;
constexpr int historyWidth = static_cast<int>(SignalHistory::blocksShown) * cellStep - 1;
const QColor ground(255, 255, 255);
const QColor frame(176, 190, 197);
const QColor focusFrame(13, 92, 171);
const QColor emptyCell(224, 229, 231);

QString fromUtf8(std::string_view text) { return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())); }

QFont bold(QFont font) {
  font.setBold(true);
  return font;
}

int signSize(const QFontMetrics& metrics) { return metrics.ascent(); }

}  // namespace

Lamp::Lamp(int channel, QWidget* parent) : QLabel(parent), channel_(channel), site_(eeg::siteOf(channel)) {
  setObjectName("Segnale " + site_);
  setFocusPolicy(Qt::TabFocus);  // a click leaves the keyboard where the operator is typing
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  describe();
}

void Lamp::display(const SignalHistory& history) {
  const guidance::SiteSignal& now = history.now(channel_);
  if (now == signal_ && history.lastMinute(channel_) == states_) return;
  signal_ = now;
  states_ = history.lastMinute(channel_);
  summary_ = fromUtf8(history.summary(channel_));
  describe();
  update();
}

void Lamp::describe() {
  const QString reason =
      signal_.reason.empty() ? QString("in attesa: nessuna acquisizione in corso") : fromUtf8(signal_.reason);
  QStringList lines{site_ + ", " + reason};
  if (!summary_.isEmpty()) lines << summary_;
  const QString remedy = fromUtf8(guidance::remedyFor(signal_.state));
  if (!remedy.isEmpty()) lines << platform::inLines(remedy);
  setToolTip(lines.join('\n'));
  setAccessibleName(site_ + ": " + fromUtf8(guidance::nameOf(signal_.state)));
  setAccessibleDescription(lines.join(". ").replace('\n', ' '));
}

QSize Lamp::sizeHint() const {
  const QFontMetrics letters(font());
  const QFontMetrics boldLetters(bold(font()));
  const int words = signSize(letters) + gap + boldLetters.horizontalAdvance("T5") + gap +
                    boldLetters.horizontalAdvance(fromUtf8(guidance::nameOf(guidance::SignalState::movement)));
  return {std::max(words, historyWidth) + 2 * (edge + 2), letters.height() + cellSize.height() + 2 * (edge - 1) + 3};
}

void Lamp::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  constexpr double roundness = 4;
  painter.setBrush(ground);
  painter.setPen(hasFocus() ? QPen(focusFrame, 2) : QPen(frame, 1));
  painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), roundness, roundness);
  drawHeading(painter);
  painter.setRenderHint(QPainter::Antialiasing, false);
  drawHistory(painter);
}

void Lamp::drawHeading(QPainter& painter) const {
  const QFontMetrics letters(font());
  QRect line(edge + 2, edge - 1, width() - 2 * edge - 2, letters.height());
  const int size = signSize(letters);
  drawLampSign(painter, QRectF(line.left(), line.center().y() - size / 2.0 + 1, size, size), signal_.state);
  line.setLeft(line.left() + size + gap);
  painter.setFont(bold(font()));
  painter.setPen(palette().color(QPalette::WindowText));
  painter.drawText(line, Qt::AlignVCenter | Qt::AlignLeft, site_);
  line.setLeft(line.left() + QFontMetrics(bold(font())).horizontalAdvance(site_) + gap);
  const bool isFault = !guidance::remedyFor(signal_.state).empty();
  painter.setFont(isFault ? bold(font()) : font());
  painter.setPen(lampColour(signal_.state));
  painter.drawText(line, Qt::AlignVCenter | Qt::AlignLeft, fromUtf8(guidance::nameOf(signal_.state)));
}

void Lamp::drawHistory(QPainter& painter) const {
  const QPoint first((width() - historyWidth) / 2, height() - edge - cellSize.height());
  const auto all = static_cast<int>(SignalHistory::blocksShown);
  const int missing = all - static_cast<int>(states_.size());
  for (int i = 0; i < all; ++i) {
    const QRect cell(first + QPoint(i * cellStep, 0), cellSize);
    painter.fillRect(cell.left(), cell.bottom(), cell.width(), 1, emptyCell);
    if (i >= missing) drawHistoryCell(painter, cell, states_[static_cast<std::size_t>(i - missing)]);
  }
}

void Lamp::focusInEvent(QFocusEvent* event) {
  QLabel::focusInEvent(event);
  const bool byKey = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
  if (!byKey) return;
  // Later: the rest of the change of focus would hide it.
  QTimer::singleShot(0, this, [this] {
    if (hasFocus()) QToolTip::showText(mapToGlobal(QPoint(0, height())), toolTip(), this);
  });
}

void Lamp::focusOutEvent(QFocusEvent* event) {
  QLabel::focusOutEvent(event);
  QToolTip::hideText();
}

}  // namespace korvinel
