#pragma once

#include <QFont>
#include <QSize>
#include <QStringList>
#include <QTextOption>

namespace korvinel::platform {

/// The font at the largest size that fits, but at least three quarters of its own.
[[nodiscard]] QFont fittedFont(QFont font, const QString& text, const QSize& room);

/// The text in lines no wider than this many pixels; as a rule broken between words where they are not too long.
[[nodiscard]] QStringList brokenLines(const QFont& font, const QString& text, int width,
                                      QTextOption::WrapMode breaks = QTextOption::WrapAtWordBoundaryOrAnywhere);

/// Lines fitted into an area.
struct FittedText {
  QFont font;
  QStringList lines;
  bool whole;  ///< nothing was left out
};

/// Each line of the text, shortened if it is too wide for the area even in small letters.
[[nodiscard]] FittedText lineByLine(const QFont& font, const QString& text, const QSize& room);

/// The text broken into as many lines as fit the area; shortened at its end if they are too few even in small letters.
[[nodiscard]] FittedText inBrokenLines(const QFont& font, const QString& text, const QSize& room);

}  // namespace korvinel::platform
