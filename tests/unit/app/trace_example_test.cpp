#include "app/trace_example.h"

#include <gtest/gtest.h>

#include <QImage>
#include <algorithm>
#include <cmath>

namespace korvinel {
namespace {

using Kind = TraceExample::Kind;

/// The share of the values at an edge.
double shareAtEdges(const std::vector<double>& values) {
  const auto count = std::count_if(values.begin(), values.end(), [](double each) { return std::abs(each) == 1; });
  return static_cast<double>(count) / static_cast<double>(values.size());
}

double largest(const std::vector<double>& values) {
  return std::abs(
      *std::max_element(values.begin(), values.end(), [](double a, double b) { return std::abs(a) < std::abs(b); }));
}

int crossings(const std::vector<double>& values) {
  int count = 0;
  for (std::size_t i = 1; i < values.size(); ++i) count += (values[i - 1] < 0) != (values[i] < 0);
  return count;
}

TEST(ExampleOf, EachTraceShowsItsFault) {
  EXPECT_EQ(largest(exampleOf(Kind::flat, 200)), 0);
  EXPECT_GT(shareAtEdges(exampleOf(Kind::saturated, 200)), 0.4);
  EXPECT_GT(crossings(exampleOf(Kind::hum, 400)), 45);  // 25 cycles
  EXPECT_GT(largest(exampleOf(Kind::movement, 200)), 0.9);
}

TEST(ExampleOf, AGoodTraceIsCalmAndSlow) {
  const auto good = exampleOf(Kind::good, 400);
  EXPECT_LT(largest(good), 0.7);
  EXPECT_GT(largest(good), 0.3);
  EXPECT_LT(crossings(good), 20);
}

TEST(TraceExample, IsNamedAndExplained) {
  TraceExample example(Kind::hum, "50 Hz", "La rete elettrica.", nullptr);
  EXPECT_EQ(example.accessibleName(), "50 Hz");
  EXPECT_EQ(example.accessibleDescription(), "La rete elettrica.");
  example.resize(120, 80);
  EXPECT_FALSE(example.grab().toImage().isNull());
}

}  // namespace
}  // namespace korvinel
