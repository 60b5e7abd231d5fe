#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "instrument/signal_sources.h"

namespace korvinel::instrument {

/// One sampling instant: channels 1..4 at the sites F1, F2, T5, T6; 128 is 0 uV, one unit is 1 uV.
using Frame = std::array<std::uint8_t, 4>;

enum class Model : std::uint8_t { eyesClosed, eyesOpen, blinks, mainsHum, drowsy, saturated, flat };

/// A model and how long it lasts.
struct ModelStep {
  Model model;
  std::int64_t frames = 0;  ///< 128 per second; 0 = forever
  friend bool operator==(const ModelStep&, const ModelStep&) = default;
};

/// Reads "MODEL" or "MODEL:SECONDS,MODEL:SECONDS,...". A model without seconds has no end and must be the last; if the
/// last one has seconds too, the list repeats. Throws std::invalid_argument with a message for the user.
[[nodiscard]] std::vector<ModelStep> parseModels(std::string_view text);

[[nodiscard]] std::string modelNames();  ///< "eyes-closed, eyes-open, ..."

/// The EEG of a simulated head. The same steps and seed give the same frames.
class SignalModel {
 public:
  SignalModel(std::vector<ModelStep> steps, std::uint64_t seed);  ///< `steps` must not be empty
  [[nodiscard]] Frame nextFrame();

 private:
  void advanceSources();
  void advanceStep();
  [[nodiscard]] std::array<double, 4> microvolts() const;

  std::vector<ModelStep> steps_;
  std::size_t step_ = 0;
  std::int64_t framesOfStep_ = 0;  // already given in the current step

  // All sources run all the time, whatever the model takes of them, so a change of model does not cut a rhythm short.
  Random random_;
  std::array<PinkNoise, 7> background_;  // one of the whole head, one of the front, one of the back, one of each site
  BilateralRhythm alpha_, theta_;
  std::array<BandNoise, 4> beta_, swing_;
  std::array<BandNoise, 3> slowWaves_;
  SlowLevel alertness_;
  Blinks blinks_;
  double humPhase_ = 0;
  struct Instant {
    std::array<double, 4> background, beta, slowWaves, swing;
    double alertness, blink, hum;
  } now_{};
};

}  // namespace korvinel::instrument
