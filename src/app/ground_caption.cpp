#include "app/ground_caption.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "platform/qt/help.h"

namespace korvinel {
namespace {

constexpr double lettersOfGround = 13;  // of the plan, as the ground's own font
constexpr int smallestLetters = 8;

}  // namespace

QColor captionInk(bool strong) { return strong ? QColor(Qt::white) : QColor(192, 192, 192); }

QFont captionFont(const QWidget& onGround, double letters, bool strong) {
  QFont font = onGround.font();
  const double unit = std::max(1, font.pixelSize()) / lettersOfGround;
  font.setPixelSize(std::max(smallestLetters, static_cast<int>(std::lround(letters * unit))));
  font.setBold(strong);
  return font;
}

GroundCaption::GroundCaption(QWidget* ground, const QString& role, const QString& help, Look look)
    : QWidget(ground), look_(look) {
  setObjectName(role);
  setAccessibleName(role);
  setToolTip(platform::inLines(help));
}

void GroundCaption::show(const QString& text, bool attention) {
  if (text == text_ && attention == attention_) return;
  text_ = text;
  attention_ = attention;
  setAccessibleDescription(text);
  update();
}

void GroundCaption::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setFont(captionFont(*this, look_.letters, look_.strong));
  painter.setPen(attention_ ? QColor(255, 224, 130) : captionInk(look_.strong));
  constexpr int shortest = 8;  // letters: the names of sites are never shortened
  const bool mayShrink = text_.size() > shortest;
  const QString shown = mayShrink ? painter.fontMetrics().elidedText(text_, Qt::ElideMiddle, width()) : text_;
  painter.drawText(rect(), static_cast<int>(look_.place.toInt()) | Qt::TextDontClip, shown);
}

}  // namespace korvinel
