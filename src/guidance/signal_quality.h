#pragma once

#include <array>
#include <string>
#include <string_view>

#include "eeg/montage.h"
#include "guidance/signal_features.h"
#include "values/bounded.h"

namespace korvinel::guidance {

/// What the signal of a site is like. Of several faults the one is named that is to be mended first.
enum class SignalState { waiting, good, flat, saturated, mains, movement };
constexpr int signalStates = 6;

struct SiteSignal {
  SignalState state = SignalState::waiting;
  std::string reason;  ///< Italian: "saturo: 31 % dei campioni al limite della scala"
  friend bool operator==(const SiteSignal&, const SiteSignal&) = default;
};
using SiteSignals = std::array<SiteSignal, eeg::channelCount>;  ///< of channels 1..4, at index 0..3

[[nodiscard]] SiteSignal siteSignal(ChannelSamples samples);

/// `block`: samples 1..256 of channels 1..4 as decoded, before they are smoothed, so that the ends of the scale show.
[[nodiscard]] SiteSignals signalQuality(const Bounded<float, 4, 258>& block);

[[nodiscard]] std::string_view nameOf(SignalState state);     ///< the word on the lamp
[[nodiscard]] std::string_view remedyFor(SignalState state);  ///< what the operator can do; "" where nothing is wrong

}  // namespace korvinel::guidance
