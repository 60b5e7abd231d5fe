#include "analysis/spectrum.h"

#include <gtest/gtest.h>

#include <array>

#include "analysis/transform.h"
#include "values/runtime_error.h"

namespace korvinel {
namespace {

using Amplitudes = std::array<float, keptIndexes + 1>;

TEST(ScaleAmplitudes, MakesThePeakThreeTimesTheDeviationTimesItsCalibration) {
  std::array<Fixed, keptIndexes + 1> shape{};
  Amplitudes calibration{}, amplitude{};
  calibration.fill(1);
  shape[11] = Fixed::nearest(150.0);
  shape[12] = Fixed::nearest(75.0);
  calibration[12] = 0.5F;
  scaleAmplitudes(Fixed::nearest(10.0), shape.data(), calibration.data(), amplitude.data());
  EXPECT_EQ(amplitude[11], 30.0F);
  EXPECT_EQ(amplitude[12], 7.5F);
  EXPECT_EQ(amplitude[13], 0.0F);
}

TEST(RenewMeans, AreThoseOfEachIndex) {
  Amplitudes means{}, values{};
  for (int count = 1; count <= 3; ++count) {
    for (std::size_t i = 1; i <= keptIndexes; ++i) values[i] = static_cast<float>(i) * static_cast<float>(count);
    Amplitudes expected = means;
    for (std::size_t i = 1; i <= keptIndexes; ++i) expected[i] = runningMean(means[i], values[i], count);
    renewMeans(means.data(), values.data(), count);
    EXPECT_EQ(means, expected);
  }
  EXPECT_EQ(means[7], 14.0F);
}

TEST(RenewMeans, ACountOfZeroIsAFaultThatChangesNothing) {
  Amplitudes means{}, values{};
  means.fill(3);
  values.fill(5);
  const Amplitudes before = means;
  EXPECT_THROW(renewMeans(means.data(), values.data(), 0), RuntimeError);
  EXPECT_EQ(means, before);
}

}  // namespace
}  // namespace korvinel
