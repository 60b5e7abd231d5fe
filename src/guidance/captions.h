#pragma once

#include <array>
#include <string>

namespace korvinel {
struct MainState;
}

namespace korvinel::guidance {

/// What stands beside the graphs of the main window, on its ground: which sites each of them shows.
struct Captions {
  std::string firstTrace, secondTrace;      ///< "F1"
  std::string leftSpectrum, rightSpectrum;  ///< "F1"
  std::string coherence;                    ///< "F1-F2"
  std::string firstNumbers, secondNumbers;  ///< "F1"
  std::string strip;                        ///< "Sincronia F1-F2"
  std::string examination;                  ///< whose graphs these are; "" = nobody's
  bool namesDiffer = false;                 ///< the boxes hold other names, probably those of the next examination

  friend bool operator==(const Captions&, const Captions&) = default;
};

/// For each graph the pair that it shows; for an empty one the pair that it will show next.
[[nodiscard]] Captions captionsOf(const MainState& state);

/// A label of a scale: `place` in the units of the graph beside it, from its top.
struct ScaleLabel {
  double place;
  const char* text;
};

/// The scale of a trace in microvolts, on the 258 units of its graph. One sample unit is one microvolt, as the
/// instrument sends it; the calibration factors are those of the frequencies and do not apply to a trace.
inline constexpr std::array<ScaleLabel, 5> traceScale = {
    {{27, "100"}, {77, "50"}, {127, "0"}, {177, "-50"}, {227, "-100"}}};

/// The scale of the synchrony in percent, on the 200 units of the time strip.
inline constexpr std::array<ScaleLabel, 3> stripScale = {{{0, "100"}, {100, "0"}, {200, "-100"}}};

}  // namespace korvinel::guidance
