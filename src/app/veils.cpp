#include "app/veils.h"

#include <QAccessible>
#include <QPainter>
#include <algorithm>

#include "display/window_geometry.h"
#include "platform/qt/qt_text.h"

namespace korvinel {
namespace {

namespace plan = geometry;

constexpr int margin = 8;  // pixels around the sentence

constexpr platform::Rect spectraWithAxis{plan::leftSpectrum.x, plan::leftSpectrum.y,
                                         plan::rightSpectrum.right() - plan::leftSpectrum.x,
                                         plan::leftRuler.bottom() - plan::leftSpectrum.y};
constexpr platform::Rect coherenceAndNumbers{plan::coherenceGraph.x, plan::coherenceGraph.y,
                                             plan::firstNumbers.right() - plan::coherenceGraph.x,
                                             plan::coherenceGraph.height};
/// Below it are instructions, and the text of a note that was not kept.
constexpr platform::Rect upperMessages{plan::messagePanel.x, plan::messagePanel.y, plan::messagePanel.width, 146};
constexpr platform::Rect labelsOfExamination{plan::dateLabel.x, plan::dateLabel.y,
                                             plan::blockLabel.right() - plan::dateLabel.x,
                                             plan::zLabel.bottom() - plan::dateLabel.y};

}  // namespace

/// The cover itself has no name for a screen reader, only its sentence has.
Veil::Veil(QWidget* parent, const QString& role) : QWidget(parent), sentence_(this) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  sentence_.setAccessibleDescription(role);
  sentence_.setTextFormat(Qt::PlainText);
  sentence_.setWordWrap(true);
  sentence_.setAlignment(Qt::AlignCenter);
  sentence_.setAutoFillBackground(true);
  sentence_.setPalette(QPalette(QColor(176, 186, 192)));
  hide();
}

void Veil::cover(const QString& reason) {
  if (reason == sentence_.text() && isVisibleTo(parentWidget()) == !reason.isEmpty()) return;
  sentence_.setText(reason);
  setVisible(!reason.isEmpty());
  if (reason.isEmpty()) return;
  raise();
  placeSentence();
  QAccessibleEvent spoken(&sentence_, QAccessible::Alert);
  QAccessible::updateAccessibility(&spoken);
}

void Veil::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), QColor(176, 186, 192));  // nothing of what is beneath can be read
  painter.fillRect(rect(), QBrush(QColor(164, 174, 180), Qt::BDiagPattern));
  painter.setPen(QPen(QColor(120, 130, 136), 1, Qt::DashLine));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void Veil::resizeEvent(QResizeEvent*) { placeSentence(); }

/// As high as its lines, in the middle.
void Veil::placeSentence() {
  const int wide = std::max(1, width() - 2 * margin);
  const int high = std::min(height() - 2, sentence_.heightForWidth(wide) + margin);
  sentence_.setGeometry(margin, (height() - high) / 2, wide, high);
}

Veils::Veils(platform::PlanGround& ground)
    : firstTrace_(over(ground, plan::firstTrace)),
      secondTrace_(over(ground, plan::secondTrace)),
      spectra_(over(ground, spectraWithAxis)),
      numbers_(over(ground, coherenceAndNumbers)),
      strip_(over(ground, plan::timeStrip)),
      messages_(over(ground, upperMessages)),
      labels_(over(ground, labelsOfExamination)) {}

Veil* Veils::over(platform::PlanGround& ground, const platform::Rect& place) {
  auto* veil = new Veil(&ground, "Perché è coperto");
  ground.put(veil, place);
  return veil;
}

void Veils::show(const guidance::Leftovers& left) {
  const QString reason = platform::toQt(left.reason);
  const auto cover = [&](Veil* veil, bool covered) { veil->cover(covered ? reason : QString()); };
  cover(firstTrace_, left.firstTrace);
  cover(secondTrace_, left.secondTrace);
  cover(spectra_, left.spectra);
  cover(numbers_, left.numbers);
  cover(strip_, left.strip);
  cover(messages_, left.messages);
  labels_->cover(left.labels ? platform::toQt(left.labelsReason) : QString());
}

}  // namespace korvinel
