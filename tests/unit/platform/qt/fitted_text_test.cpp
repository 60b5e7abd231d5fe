#include "platform/qt/fitted_text.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFontMetrics>

namespace korvinel::platform {
namespace {

QFont letters(int pixels = 20) {
  QFont font = QApplication::font();
  font.setPixelSize(pixels);
  return font;
}

int widthOf(const QFont& font, const QString& text) { return QFontMetrics(font).horizontalAdvance(text); }

int sizeIn(int width) { return fittedFont(letters(), "Registrazione", QSize(width, 100)).pixelSize(); }

TEST(FittedFont, IsAsLargeAsTheRoomAllowsAndNeverBelowThreeQuarters) {
  const int whole = QFontMetrics(letters()).size(0, "Registrazione").width();
  EXPECT_EQ(sizeIn(whole), 20);
  EXPECT_LT(sizeIn(whole - 1), 20);
  EXPECT_GE(sizeIn(whole - 1), 18);
  EXPECT_EQ(sizeIn(1), 15);
  EXPECT_EQ(fittedFont(letters(1), "Registrazione", QSize(1, 1)).pixelSize(), 1);
}

TEST(FittedFont, TakesTheHeightIntoAccountToo) {
  const int height = QFontMetrics(letters()).height();
  EXPECT_EQ(fittedFont(letters(), "una\nriga", QSize(1000, height)).pixelSize(), 15);
}

TEST(LineByLine, ShortensOnlyTheLinesThatAreTooWideInSmallLetters) {
  const FittedText fitted = lineByLine(letters(), "corta\nuna riga molto piu' lunga del posto", QSize(100, 60));
  EXPECT_FALSE(fitted.whole);
  ASSERT_EQ(fitted.lines.size(), 2);
  EXPECT_EQ(fitted.lines[0], "corta");
  EXPECT_TRUE(fitted.lines[1].endsWith(QChar(0x2026)));
  EXPECT_LE(widthOf(fitted.font, fitted.lines[1]), 100);
}

TEST(LineByLine, LeavesNothingOutOfATextThatFits) {
  const FittedText fitted = lineByLine(letters(), "una\nriga", QSize(500, 100));
  EXPECT_TRUE(fitted.whole);
  EXPECT_EQ(fitted.lines, QStringList({"una", "riga"}));
  EXPECT_EQ(fitted.font.pixelSize(), 20);
}

const QString sentence = "Il calcolo non è possibile: il segnale è piatto o l'intervallo è vuoto.";

TEST(BrokenLines, AreNoWiderThanTheRoomAndBreakBetweenWords) {
  const QStringList lines = brokenLines(letters(), sentence, 200);
  EXPECT_GT(lines.size(), 2);
  EXPECT_EQ(lines.join(""), sentence);
  for (qsizetype i = 0; i < lines.size(); ++i) {
    EXPECT_LE(widthOf(letters(), lines[i].trimmed()), 200) << i;
    EXPECT_EQ(lines[i].endsWith(' '), i + 1 < lines.size()) << i;
  }
}

TEST(InBrokenLines, IsWholeWhereItsLinesFitAndEndsInDotsWhereTheyAreTooMany) {
  const int line = QFontMetrics(letters()).height();
  const auto needed = static_cast<int>(brokenLines(letters(), sentence, 200).size());
  const FittedText roomy = inBrokenLines(letters(), sentence, QSize(200, needed * line));
  EXPECT_TRUE(roomy.whole);
  EXPECT_EQ(roomy.font.pixelSize(), 20);
  EXPECT_EQ(roomy.lines.join(""), sentence);
  const FittedText narrow = inBrokenLines(letters(), sentence, QSize(200, line));
  EXPECT_FALSE(narrow.whole);
  EXPECT_EQ(narrow.font.pixelSize(), 15);
  EXPECT_TRUE(narrow.lines.back().endsWith(QChar(0x2026)));
  EXPECT_LE(widthOf(narrow.font, narrow.lines.back()), 200);
}

TEST(InBrokenLines, ShowOneLineEvenWhereThereIsNoRoomForIt) {
  EXPECT_EQ(inBrokenLines(letters(), sentence, QSize(200, 1)).lines.size(), 1);
}

}  // namespace
}  // namespace korvinel::platform
