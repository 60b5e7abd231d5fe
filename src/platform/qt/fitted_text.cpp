#include "platform/qt/fitted_text.h"

#include <QFontMetrics>
#include <QTextLayout>
#include <algorithm>

namespace korvinel::platform {
namespace {

int smallestOf(const QFont& font) { return std::max(1, font.pixelSize() * 3 / 4); }

/// Where the lines of a text begin in a width.
std::vector<int> lineStarts(const QFont& font, const QString& text, int width,
                            QTextOption::WrapMode breaks = QTextOption::WrapAtWordBoundaryOrAnywhere) {
  QTextLayout layout(text, font);
  QTextOption option;
  option.setWrapMode(breaks);
  layout.setTextOption(option);
  std::vector<int> starts;
  layout.beginLayout();
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLineWidth(width);
    starts.push_back(line.textStart());
  }
  layout.endLayout();
  return starts;
}

QStringList cutAt(const QString& text, const std::vector<int>& starts) {
  QStringList lines;
  for (std::size_t i = 0; i < starts.size(); ++i)
    lines << text.mid(starts[i], i + 1 < starts.size() ? starts[i + 1] - starts[i] : -1);
  return lines;
}

}  // namespace

QStringList brokenLines(const QFont& font, const QString& text, int width, QTextOption::WrapMode breaks) {
  return cutAt(text, lineStarts(font, text, width, breaks));
}

QFont fittedFont(QFont font, const QString& text, const QSize& room) {
  const auto fits = [&] {
    const QSize size = QFontMetrics(font).size(0, text);
    return size.width() <= room.width() && size.height() <= room.height();
  };
  const int smallest = smallestOf(font);
  while (font.pixelSize() > smallest && !fits()) font.setPixelSize(font.pixelSize() - 1);
  return font;
}

FittedText lineByLine(const QFont& font, const QString& text, const QSize& room) {
  FittedText fitted{fittedFont(font, text, room), text.split('\n'), true};
  for (QString& line : fitted.lines) {
    const QString shown = QFontMetrics(fitted.font).elidedText(line, Qt::ElideRight, room.width());
    fitted.whole = fitted.whole && shown == line;
    line = shown;
  }
  return fitted;
}

FittedText inBrokenLines(const QFont& font, const QString& text, const QSize& room) {
  FittedText fitted{font, {}, true};
  const int smallest = smallestOf(font);
  for (;; fitted.font.setPixelSize(fitted.font.pixelSize() - 1)) {
    const QFontMetrics metrics(fitted.font);
    const auto starts = lineStarts(fitted.font, text, room.width());
    const auto most = static_cast<std::size_t>(std::max(1, room.height() / metrics.height()));
    fitted.lines = cutAt(text, starts);
    if (starts.size() <= most) return fitted;
    if (fitted.font.pixelSize() > smallest) continue;
    fitted.lines = fitted.lines.mid(0, static_cast<qsizetype>(most));
    fitted.lines.back() = metrics.elidedText(text.mid(starts[most - 1]), Qt::ElideRight, room.width());
    fitted.whole = false;
    return fitted;
  }
}

}  // namespace korvinel::platform
