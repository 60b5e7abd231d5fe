#include "instrument/signal_sources.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace korvinel::instrument {
namespace {

constexpr double turn = 2 * std::numbers::pi;

struct Stage {
  double step;    // fraction of the way to a new value: 1 - exp(-2 pi f / 128)
  double weight;  // of the stage in the sum; the squares sum to 1
};

// Corner frequencies 0.6, 2.4, 9.6 and 38.4 Hz: steps of 12 dB a stage, summed, fall like 1/f.
constexpr std::array<Stage, 4> pinkStages{{{0.0290229, 0.55}, {0.1111346, 0.55}, {0.3757715, 0.5}, {0.8481641, 0.38}}};

}  // namespace

double PinkNoise::next(Random& random) {
  double sum = 0;
  for (std::size_t stage = 0; stage < pinkStages.size(); ++stage) {
    const auto& [step, weight] = pinkStages[stage];
    levels_[stage] += step * (random.normal() - levels_[stage]);
    sum += weight * levels_[stage] * std::sqrt((2 - step) / step);  // the root normalises each stage to deviation 1
  }
  return sum;
}

BandNoise::BandNoise(double hertz, double bandwidth) {
  const double radius = std::exp(-std::numbers::pi * bandwidth / framesPerSecond);
  first_ = 2 * radius * std::cos(turn * hertz / framesPerSecond);
  second_ = -radius * radius;
  // Deviation 1 at the output: the variance of an autoregressive process of second order.
  gain_ = std::sqrt((1 + second_) * ((1 - second_) * (1 - second_) - first_ * first_) / (1 - second_));
}

double BandNoise::next(Random& random) {
  const double value = first_ * previous_ + second_ * beforePrevious_ + gain_ * random.normal();
  beforePrevious_ = previous_;
  return previous_ = value;
}

double SlowLevel::next(Random& random) {
  constexpr double step = 0.0121963;  // two stages with their corner at 0.25 Hz
  constexpr double toUnitDeviation = 18.06;
  inner_ += step * (random.normal() - inner_);
  outer_ += step * (inner_ - outer_);
  return outer_ * toUnitDeviation;
}

void Rhythm::advance(Random& random) {
  wander_ += 0.02 * (3 * random.normal() - wander_);  // deviation about 0.3 Hz, over half a second
  phase_ += (hertz_ + wander_) / framesPerSecond;
  phase_ -= std::floor(phase_);
  height_ = std::clamp(0.6 + 0.35 * waxing_.next(random), 0.05, 1.0);
}

double Rhythm::value(double lag) const { return height_ * std::sin(turn * (phase_ - lag)); }

void BilateralRhythm::advance(Random& random) {
  common_.advance(random);
  left_.advance(random);
  right_.advance(random);
}

double Blinks::next(Random& random) {
  if (framesOfBlink_ == 0) scheduleNext(random);
  if (framesUntilBlink_ > 0) {
    --framesUntilBlink_;
    return 0;
  }
  const double sine = std::sin(std::numbers::pi * ++framesIntoBlink_ / (framesOfBlink_ + 1));
  if (framesIntoBlink_ == framesOfBlink_) framesOfBlink_ = 0;
  return height_ * sine * sine;
}

void Blinks::scheduleNext(Random& random) {
  framesUntilBlink_ = static_cast<int>(random.between(3, 6) * framesPerSecond);
  // The flat ends of the curve are lost in the background: 0.3..0.5 s from end to end look like 0.2..0.4 s.
  framesOfBlink_ = static_cast<int>(random.between(0.3, 0.5) * framesPerSecond);
  framesIntoBlink_ = 0;
  height_ = random.between(100, 150);
}

}  // namespace korvinel::instrument
