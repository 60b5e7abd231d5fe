#pragma once

#include <QFont>
#include <QSize>
#include <QStringList>
#include <QTextOption>

namespace korvinel::platform {

/// The font with letters as large as fit, but no smaller than three quarters of its size.
[[nodiscard]] QFont fittedFont(QFont font, const QString& text, const QSize& room);

/// The text in lines no wider than this many pixels; as a rule broken between words where they are not too long.
[[nodiscard]] QStringList brokenLines(const QFont& font, const QString& text, int width,
                                      QTextOption::WrapMode breaks = QTextOption::WrapAtWordBoundaryOrAnywhere);

/// Lines as they stand in a room.
struct FittedText {
  QFont font;
  QStringList lines;
  bool whole;  ///< nothing had to be left out
};

/// Each line of the text, shortened where it is too wide for the room even in small letters.
[[nodiscard]] FittedText lineByLine(const QFont& font, const QString& text, const QSize& room);

/// The text broken into as many lines as the room has; shortened at its end where they are too few even in small
/// letters.
[[nodiscard]] FittedText inBrokenLines(const QFont& font, const QString& text, const QSize& room);

}  // namespace korvinel::platform
