#include "analysis/transform.h"

#include <fftw3.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <complex>
#include <vector>

#include "signals.h"

namespace korvinel {
namespace {

using Column = std::array<Fixed, transformLength + 1>;
using Spectrum = std::vector<std::complex<double>>;  ///< index 0..255

/// Bound of the rounding errors: half of 1/10000 in both parts of every butterfly, at most doubled by each later stage,
/// and the short pi.
constexpr double worstRounding = 0.02;

struct Pair {
  Column re{}, im{};
  Spectrum values() const {
    Spectrum all;
    for (std::size_t i = 1; i <= transformLength; ++i) all.emplace_back(re[i].toDouble(), im[i].toDouble());
    return all;
  }
};

template <typename Signal>
Pair samplesOf(Signal&& signal) {
  Pair pair;
  for (int s = 1; s <= transformLength; ++s)
    pair.re[static_cast<std::size_t>(s)] = Fixed::nearest(static_cast<double>(signal(s)));
  return pair;
}

Pair noise(unsigned seed, double amplitude) {
  Noise source(seed);
  return samplesOf([&](int) { return 128 + amplitude * source.next(); });
}

Pair transformed(Pair pair) {
  transform(pair.re.data(), pair.im.data());
  return pair;
}

Spectrum byFftw(const Spectrum& input) {
  Spectrum in = input, out(input.size());
  // FFTW's complex type has the layout of std::complex.
  auto* source = reinterpret_cast<fftw_complex*>(in.data());
  auto* target = reinterpret_cast<fftw_complex*>(out.data());
  const auto plan = fftw_plan_dft_1d(static_cast<int>(in.size()), source, target, FFTW_FORWARD, FFTW_ESTIMATE);
  in = input;
  fftw_execute(plan);
  fftw_destroy_plan(plan);
  return out;
}

double largestDifference(const Spectrum& a, const Spectrum& b) {
  double largest = 0;
  for (std::size_t i = 0; i < a.size(); ++i) largest = std::max(largest, std::abs(a[i] - b[i]));
  return largest;
}

double rmsDifference(const Spectrum& a, const Spectrum& b) {
  double sum = 0;
  for (std::size_t i = 0; i < a.size(); ++i) sum += std::norm(a[i] - b[i]);
  return std::sqrt(sum / static_cast<double>(a.size()));
}

TEST(Transform, AgreesWithFftwWithinTheRoundingOfFourDecimals) {
  for (unsigned seed = 1; seed <= 20; ++seed) {
    const Pair input = noise(seed, 127);
    const Spectrum reference = byFftw(input.values());
    EXPECT_LT(largestDifference(transformed(input).values(), reference), worstRounding);
    EXPECT_LT(rmsDifference(transformed(input).values(), reference), 0.002);
  }
}

TEST(Transform, OfASingleSampleIsFlat) {
  const Pair spectrum = transformed(samplesOf([](int s) { return s == 1 ? 100 : 0; }));
  for (std::size_t i = 1; i <= transformLength; ++i) {
    EXPECT_EQ(spectrum.re[i], Fixed(100));
    EXPECT_EQ(spectrum.im[i], Fixed(0));
  }
}

TEST(Transform, OfTheConstantHoldsItsSumAtIndexOne) {
  const Pair spectrum = transformed(samplesOf([](int) { return 128; }));
  EXPECT_EQ(spectrum.re[1], Fixed(128 * 256));
  for (std::size_t i = 2; i <= transformLength; ++i) EXPECT_EQ(spectrum.re[i], Fixed(0)) << i;
}

TEST(Transform, OfASumIsTheSumOfTheTransformsWithinTheRounding) {
  const Pair a = noise(3, 60), b = noise(4, 60);
  Pair sum;
  for (std::size_t i = 1; i <= transformLength; ++i) sum.re[i] = a.re[i] + b.re[i];
  Spectrum expected = transformed(a).values();
  const Spectrum second = transformed(b).values();
  for (std::size_t i = 0; i < expected.size(); ++i) expected[i] += second[i];
  EXPECT_LT(largestDifference(transformed(sum).values(), expected), 3 * worstRounding);
}

TEST(Transform, KeepsTheEnergyOfTheBlockWithinTheRounding) {
  for (unsigned seed = 1; seed <= 5; ++seed) {
    const Pair input = noise(seed, 100);
    double energy = 0, spectralEnergy = 0;
    for (const auto& sample : input.values()) energy += std::norm(sample);
    for (const auto& value : transformed(input).values()) spectralEnergy += std::norm(value) / transformLength;
    EXPECT_NEAR(spectralEnergy / energy, 1, 1e-7);
  }
}

TEST(Transform, OfANegatedBlockIsTheExactNegative) {
  const Pair input = noise(9, 90);
  Pair negative;
  for (std::size_t i = 1; i <= transformLength; ++i) negative.re[i] = -input.re[i];
  const Pair spectrum = transformed(input), opposite = transformed(negative);
  for (std::size_t i = 1; i <= transformLength; ++i) {
    ASSERT_EQ(spectrum.re[i], -opposite.re[i]);
    ASSERT_EQ(spectrum.im[i], -opposite.im[i]);
  }
}

TEST(InvertTransform, GivesTheBlockBack) {
  const Pair input = noise(7, 127);
  Pair there = transformed(input);
  invertTransform(there.re.data(), there.im.data());
  EXPECT_LT(largestDifference(there.values(), input.values()), 2 * worstRounding / 16);
}

TEST(InvertTransform, ScalesTheUnusedIndexZeroWithTheRest) {
  Pair pair;
  pair.re[0] = 256;
  invertTransform(pair.re.data(), pair.im.data());
  EXPECT_EQ(pair.re[0], Fixed(1));
}

TEST(StageFactors, AreTheCosinesAndSinesOfTheShortPi) {
  for (int stage = 1; stage <= transformStages; ++stage) {
    const long double angle = static_cast<long double>(3.14159265 / (1 << (stage - 1)));
    const ComplexFactor& factor = stageFactors[static_cast<std::size_t>(stage) - 1];
    EXPECT_EQ(factor.re, static_cast<double>(std::cos(angle))) << stage;
    EXPECT_EQ(factor.im, static_cast<double>(-std::sin(angle))) << stage;
  }
}

TEST(MagnitudeShape, ScalesTheLargestTo150) {
  Pair pair;
  Column shape{};
  pair.re[5] = 3;
  pair.im[5] = -4;
  pair.re[9] = -1;
  magnitudeShape(pair.re.data(), pair.im.data(), shape.data());
  EXPECT_EQ(shape[5], Fixed(150));
  EXPECT_EQ(shape[9], Fixed(30));
  EXPECT_EQ(shape[10], Fixed(0));
}

TEST(MagnitudeShape, ASpectrumBelowTheFloorIsScaledByTheFloor) {
  Pair pair;
  Column shape{};
  pair.re[2] = Fixed::nearest(0.05);
  magnitudeShape(pair.re.data(), pair.im.data(), shape.data());
  EXPECT_EQ(shape[2], Fixed(75));
}

}  // namespace
}  // namespace korvinel
