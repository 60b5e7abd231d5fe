#include "report/verdicts.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace korvinel {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

double below(double limit) { return std::nextafter(limit, -infinity); }
double above(double limit) { return std::nextafter(limit, infinity); }
float below(float limit) { return std::nextafterf(limit, -std::numeric_limits<float>::infinity()); }
float above(float limit) { return std::nextafterf(limit, std::numeric_limits<float>::infinity()); }

TEST(AlphaClass, AtJustBelowAndJustAboveEveryLimit) {
  const double little = static_cast<double>(1.3F);
  const std::pair<double, int> cases[] = {
      {0, 0},          {below(little), 0}, {little, 0}, {above(little), 1}, {1.3, 1}, {below(2.0), 1}, {2, 2},
      {above(2.0), 2}, {below(3.0), 2},    {3, 3},      {above(3.0), 3},    {50, 3}};
  for (const auto& [ratio, expected] : cases) EXPECT_EQ(alphaClass(ratio), expected) << ratio;
}

TEST(AlphaClass, OnePointThreeInDoublePrecisionLiesAboveTheSinglePrecisionLimit) {
  EXPECT_EQ(frontalAlphaVerdict(alphaClass(1.3)), "F1-F2 Poco ritmo Alfa    ");
  EXPECT_EQ(frontalAlphaVerdict(alphaClass(2)), "F1-F2 Discreto ritmo Alfa");
  EXPECT_EQ(frontalAlphaVerdict(alphaClass(3)), "F1-F2 Ottimo ritmo Alfa  ");
}

TEST(AlphaVerdict, EveryRowToTheLastBlank) {
  EXPECT_EQ(frontalAlphaVerdict(0), "F1-F2 niente Alfa     ");
  EXPECT_EQ(frontalAlphaVerdict(1), "F1-F2 Poco ritmo Alfa    ");
  EXPECT_EQ(frontalAlphaVerdict(2), "F1-F2 Discreto ritmo Alfa");
  EXPECT_EQ(frontalAlphaVerdict(3), "F1-F2 Ottimo ritmo Alfa  ");
  EXPECT_EQ(temporalAlphaVerdict(0), "T5-T6 niente Alfa     ");
  EXPECT_EQ(temporalAlphaVerdict(1), "T5-T6 Poco ritmo Alfa    ");
  EXPECT_EQ(temporalAlphaVerdict(2), "T5-T6 Discreto ritmo Alfa");
  EXPECT_EQ(temporalAlphaVerdict(3), "T5-T6 Ottimo ritmo Alfa  ");
}

TEST(SymmetryClass, AtJustBelowAndJustAboveEveryLimit) {
  const double muchRight = static_cast<double>(0.8F), right = static_cast<double>(0.95F);
  const double left = static_cast<double>(1.05F), muchLeft = static_cast<double>(1.2F);
  const std::pair<double, int> cases[] = {{0, 2},
                                          {below(muchRight), 2},
                                          {muchRight, 0},
                                          {above(muchRight), 1},
                                          {below(right), 1},
                                          {right, 0},
                                          {above(right), 0},
                                          {1, 0},
                                          {below(left), 0},
                                          {left, 0},
                                          {above(left), -1},
                                          {below(muchLeft), -1},
                                          {muchLeft, -1},
                                          {above(muchLeft), -2},
                                          {50, -2}};
  for (const auto& [ratio, expected] : cases) EXPECT_EQ(symmetryClass(ratio), expected) << ratio;
}

TEST(SymmetryClass, RatiosInDoublePrecisionAgainstTheSinglePrecisionLimits) {
  const std::pair<double, int> cases[] = {{8.0 / 10, 2}, {0.5, 2},  {0.9, 1},  {0.95, 0}, {1.0, 0},
                                          {1.05, -1},    {1.1, -1}, {1.2, -1}, {1.21, -2}};
  for (const auto& [ratio, expected] : cases) EXPECT_EQ(symmetryClass(ratio), expected) << ratio;
}

TEST(SymmetryVerdict, EveryRow) {
  EXPECT_EQ(frontalSymmetryVerdict(0), "Buona simmetria frontale");
  EXPECT_EQ(frontalSymmetryVerdict(1), "F1-F2 legg. sbilanciato a destra");
  EXPECT_EQ(frontalSymmetryVerdict(-1), "F1-F2 legg. sbilanciato a sinistra");
  EXPECT_EQ(frontalSymmetryVerdict(2), "F1-F2 molto sbilanciato a destra");
  EXPECT_EQ(frontalSymmetryVerdict(-2), "F1-F2 molto sbilanciato a sinistra");
  EXPECT_EQ(temporalSymmetryVerdict(0), "Buona simmetria temporale");
  EXPECT_EQ(temporalSymmetryVerdict(1), "T5-T6 legg. sbilanciato a destra");
  EXPECT_EQ(temporalSymmetryVerdict(-1), "T5-T6 legg. sbilanciato a sinistra");
  EXPECT_EQ(temporalSymmetryVerdict(2), "T5-T6 molto sbilanciato a destra");
  EXPECT_EQ(temporalSymmetryVerdict(-2), "T5-T6 molto sbilanciato a sinistra");
}

TEST(FrontalCoherenceClass, AtJustBelowAndJustAboveEveryLimit) {
  const std::pair<float, int> cases[] = {{-100, 0},         {below(40.0F), 0}, {40, 0},           {above(40.0F), 1},
                                         {below(50.0F), 1}, {50, 2},           {above(50.0F), 2}, {below(80.0F), 2},
                                         {80, 3},           {above(80.0F), 3}, {100, 3}};
  for (const auto& [coherence, expected] : cases) EXPECT_EQ(frontalCoherenceClass(coherence), expected) << coherence;
}

TEST(TemporalCoherenceClass, AtJustBelowAndJustAboveEveryLimit) {
  const std::pair<float, int> cases[] = {
      {-100, 0},        {below(-10.0F), 0}, {-10, 1}, {above(-10.0F), 1}, {0, 1},  {below(1.0F), 1}, {1, 2},
      {above(1.0F), 2}, {below(40.0F), 2},  {40, 2},  {above(40.0F), 3},  {100, 3}};
  for (const auto& [coherence, expected] : cases) EXPECT_EQ(temporalCoherenceClass(coherence), expected) << coherence;
}

TEST(CoherenceVerdict, EveryRow) {
  EXPECT_EQ(frontalCoherenceVerdict(3), "F1-F2 coerenza=elevata");
  EXPECT_EQ(frontalCoherenceVerdict(2), "F1-F2 coerenza=normale");
  EXPECT_EQ(frontalCoherenceVerdict(1), "F1-F2 coerenza=bassa");
  EXPECT_EQ(frontalCoherenceVerdict(0), "F1-F2 coerenza=molto bassa");
  EXPECT_EQ(temporalCoherenceVerdict(3), "T5-T6 coerenza=alta");
  EXPECT_EQ(temporalCoherenceVerdict(2), "T5-T6 coerenza=normale");
  EXPECT_EQ(temporalCoherenceVerdict(1), "T5-T6 coerenza=bassa");
  EXPECT_EQ(temporalCoherenceVerdict(0), "T5-T6 coerenza=molto bassa");
}

TEST(CoherenceVerdict, TheTwoPairsHaveUnevenLimits) {
  EXPECT_EQ(temporalCoherenceVerdict(temporalCoherenceClass(0)), "T5-T6 coerenza=bassa");
  EXPECT_EQ(temporalCoherenceVerdict(temporalCoherenceClass(40)), "T5-T6 coerenza=normale");
  EXPECT_EQ(frontalCoherenceVerdict(frontalCoherenceClass(40)), "F1-F2 coerenza=molto bassa");
}

std::string alphaComment(int sum) {
  std::string text = "prima";
  commentAlpha(sum, text);
  return text;
}

TEST(AlphaComment, EverySumOfTheTwoClasses) {
  EXPECT_EQ(alphaComment(0), "Molto basso: puo' essere utile training Alfa.");
  EXPECT_EQ(alphaComment(1), "Basso ");
  EXPECT_EQ(alphaComment(2), "Basso ");
  EXPECT_EQ(alphaComment(3), "Normale ");
  EXPECT_EQ(alphaComment(4), "Discreto");
  EXPECT_EQ(alphaComment(5), "Elevato ");
  EXPECT_EQ(alphaComment(6), "Molto alto");
  EXPECT_EQ(alphaComment(7), "prima");
  EXPECT_EQ(alphaComment(-1), "prima");
}

std::string symmetryComment(float symmetry) {
  std::string text = "prima";
  commentSymmetry(symmetry, text);
  return text;
}

TEST(SymmetryComment, EveryClassAndAnUnknownOneLeavesTheText) {
  EXPECT_EQ(symmetryComment(0), " Bilanciamento buono");
  EXPECT_EQ(symmetryComment(-1), "Leggermente sbilanciato sinistra");
  EXPECT_EQ(symmetryComment(-2), "Sbilanciato a sinistra");
  EXPECT_EQ(symmetryComment(1), "Leggermente sbilanciato destra");
  EXPECT_EQ(symmetryComment(2), "Sbilanciato a destra");
  EXPECT_EQ(symmetryComment(3), "prima");
  EXPECT_EQ(symmetryComment(0.5F), "prima");
}

std::string coherenceComment(float coherence) {
  std::string text = "prima";
  commentCoherence(coherence, text);
  return text;
}

TEST(CoherenceComment, EveryClass) {
  EXPECT_EQ(coherenceComment(3), "Ottimo");
  EXPECT_EQ(coherenceComment(2), "Normale");
  EXPECT_EQ(coherenceComment(1), "Leggermente basso");
  EXPECT_EQ(coherenceComment(0), "Basso: possibile sintomo ansia/stress");
  EXPECT_EQ(coherenceComment(4), "prima");
}

/// One row for each pair of alpha classes, frontal then temporal; one column for each F1-F2 coherence class 0..3.
struct AnxietyRow {
  float frontal, temporal;
  const char* level[4];
};

constexpr auto high = "Elevato", marked = "significativo", low = "Basso", veryLow = "molto Basso";
constexpr AnxietyRow anxiety[] = {
    {0, 0, {high, marked, low, low}},     {0, 1, {marked, marked, low, low}},   {0, 2, {marked, low, veryLow, veryLow}},
    {0, 3, {low, low, veryLow, veryLow}}, {1, 0, {marked, marked, low, low}},   {1, 1, {marked, low, veryLow, veryLow}},
    {1, 2, {low, low, veryLow, veryLow}}, {1, 3, {low, low, veryLow, veryLow}}, {2, 0, {marked, low, veryLow, veryLow}},
    {2, 1, {low, low, veryLow, veryLow}}, {2, 2, {low, low, veryLow, veryLow}}, {2, 3, {low, low, veryLow, veryLow}},
    {3, 0, {low, low, veryLow, veryLow}}, {3, 1, {low, low, veryLow, veryLow}}, {3, 2, {low, low, veryLow, veryLow}},
    {3, 3, {low, low, veryLow, veryLow}},
};

TEST(AnxietyComment, EveryCombinationOfTheThreeClasses) {
  for (const AnxietyRow& row : anxiety)
    for (int coherence = 0; coherence <= 3; ++coherence)
      EXPECT_EQ(anxietyComment(row.frontal, row.temporal, static_cast<float>(coherence)), row.level[coherence])
          << row.frontal << ", " << row.temporal << ", " << coherence;
}

}  // namespace
}  // namespace korvinel
