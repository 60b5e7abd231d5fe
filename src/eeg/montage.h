#pragma once

#include <array>
#include <cstddef>

namespace korvinel::eeg {

constexpr int channelCount = 4;

/// The electrode of channel 1..4.
[[nodiscard]] constexpr const char* siteOf(int channel) {
  constexpr std::array<const char*, channelCount> sites = {"F1", "F2", "T5", "T6"};
  return sites.at(static_cast<std::size_t>(channel) - 1);
}

constexpr int pairCount = 4;

struct ChannelPair {
  int first, second;
};

/// The channels of pair 1..4, in the order used everywhere: F1-F2, T5-T6, F1-T5, F2-T6.
[[nodiscard]] constexpr ChannelPair channelsOfPair(int pair) {
  return pair <= 2 ? ChannelPair{2 * pair - 1, 2 * pair} : ChannelPair{pair - 2, pair};
}

/// The first channel shown on traces and spectra for the pair that the user has chosen: 1 for pair 1, 3 for pair 2.
[[nodiscard]] constexpr int firstChannelShown(int chosenPair) { return chosenPair == 2 ? 3 : 1; }

static_assert(channelsOfPair(2).first == 3 && channelsOfPair(4).first == 2 && channelsOfPair(4).second == 4);

}  // namespace korvinel::eeg
