#pragma once

namespace korvinel {

constexpr int pairCount = 4;

struct ChannelPair {
  int first, second;
};

/// The channels of pair 1..4, in the order used everywhere: F1-F2, T5-T6, F1-T5, F2-T6.
[[nodiscard]] constexpr ChannelPair channelsOfPair(int pair) {
  return pair <= 2 ? ChannelPair{2 * pair - 1, 2 * pair} : ChannelPair{pair - 2, pair};
}

static_assert(channelsOfPair(2).first == 3 && channelsOfPair(4).first == 2 && channelsOfPair(4).second == 4);

}  // namespace korvinel
