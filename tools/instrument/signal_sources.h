#pragma once

#include <array>

#include "instrument/random.h"

/// The sources inside the head that the signal models mix. Each yields one number per sample, 128 per second.
namespace korvinel::instrument {

inline constexpr double framesPerSecond = 128;

/// Background activity whose power falls with frequency (about 1/f from 0.6 to 38 Hz); mean 0, deviation 1.
class PinkNoise {
 public:
  double next(Random& random);

 private:
  std::array<double, 4> levels_{};
};

/// A band of noise around `hertz`, about `bandwidth` Hz wide; mean 0, deviation 1.
class BandNoise {
 public:
  BandNoise(double hertz, double bandwidth);
  double next(Random& random);

 private:
  double first_, second_, gain_;  // coefficients of the resonance of second order
  double previous_ = 0, beforePrevious_ = 0;
};

/// A level that changes over seconds; mean 0, deviation about 1.
class SlowLevel {
 public:
  double next(Random& random);

 private:
  double inner_ = 0, outer_ = 0;
};

/// A rhythm that waxes and wanes in spindles of some seconds and varies slightly in frequency; -1..1, where 1 is the
/// peak of a full spindle.
class Rhythm {
 public:
  explicit Rhythm(double hertz) : hertz_(hertz) {}
  void advance(Random& random);
  [[nodiscard]] double value(double lag = 0) const;  ///< `lag`: delay in periods of the rhythm, 0..1

 private:
  double hertz_, wander_ = 0, phase_ = 0, height_ = 0;
  SlowLevel waxing_;
};

/// A rhythm of both hemispheres: mostly common, partly independent.
class BilateralRhythm {
 public:
  explicit BilateralRhythm(double hertz) : common_(hertz), left_(hertz), right_(hertz) {}
  void advance(Random& random);
  [[nodiscard]] double left(double lag = 0) const { return 0.8 * common_.value(lag) + 0.35 * left_.value(lag); }
  [[nodiscard]] double right(double lag = 0) const { return 0.8 * common_.value(lag) + 0.35 * right_.value(lag); }

 private:
  Rhythm common_, left_, right_;
};

/// The potential of blinking as recorded above the eyes, in uV, 0 between blinks: one blink of 100..150 uV and 200..400
/// ms every 3 to 6 s.
class Blinks {
 public:
  double next(Random& random);

 private:
  void scheduleNext(Random& random);
  int framesUntilBlink_ = 0, framesOfBlink_ = 0, framesIntoBlink_ = 0;
  double height_ = 0;
};

}  // namespace korvinel::instrument
