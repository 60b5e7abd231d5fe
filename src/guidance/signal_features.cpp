#include "guidance/signal_features.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace korvinel::guidance {
namespace {

constexpr float lowest = 0, highest = 255;  // the codes of the instrument's eight bits
constexpr std::size_t second = eeg::samplesPerSecond;

constexpr double mainsHertz = 50;
/// Far enough from 50 Hz that a hum which fills only a part of the second does not reach them; below 60 Hz, the mains
/// of other countries, in whose recordings nothing hums at 50.
constexpr std::array<double, 4> neighbours{43, 45, 55, 57};

/// A sine and a cosine that fade in and out over a second, so that slow waves do not count as hum.
struct Probe {
  explicit Probe(double hertz) {
    for (std::size_t i = 0; i < second; ++i) {
      const double turn = 2 * std::numbers::pi * static_cast<double>(i) / static_cast<double>(second);
      const double weight = (1 - std::cos(turn)) * 2 / static_cast<double>(second);
      cosine[i] = weight * std::cos(hertz * turn);
      sine[i] = weight * std::sin(hertz * turn);
    }
  }
  [[nodiscard]] double power(std::span<const float> samples) const {
    double re = 0, im = 0;
    for (std::size_t i = 0; i < second; ++i) {
      const double sample = static_cast<double>(samples[i]) - eeg::midLevel;
      re += sample * cosine[i];
      im += sample * sine[i];
    }
    return re * re + im * im;
  }
  std::array<double, second> cosine{}, sine{};
};

double mainsIn(std::span<const float> samples) {
  static const Probe mains(mainsHertz);
  return std::sqrt(mains.power(samples));
}

/// At the frequencies beside that of the mains.
double usualIn(std::span<const float> samples) {
  static const std::array<Probe, neighbours.size()> others{Probe(neighbours[0]), Probe(neighbours[1]),
                                                           Probe(neighbours[2]), Probe(neighbours[3])};
  double sum = 0;
  for (const Probe& other : others) sum += other.power(samples);
  constexpr double least = 0.1;  // microvolts; a flat line has none
  return std::max(least, std::sqrt(sum / static_cast<double>(neighbours.size())));
}

}  // namespace

double shareAtLimits(ChannelSamples samples) {
  const auto atLimit = [](float sample) { return sample <= lowest || sample >= highest; };
  return static_cast<double>(std::ranges::count_if(samples, atLimit)) / eeg::samplesPerBlock;
}

int longestStill(ChannelSamples samples, float range) {
  std::size_t longest = 0;
  for (std::size_t first = 0; first + longest < samples.size(); ++first) {
    float least = samples[first], most = samples[first];
    std::size_t end = first + 1;
    for (; end < samples.size(); ++end) {
      least = std::min(least, samples[end]);
      most = std::max(most, samples[end]);
      if (most - least > range) break;
    }
    longest = std::max(longest, end - first);
  }
  return static_cast<int>(longest);
}

Hum mainsHum(ChannelSamples samples, double leastAmplitude, double leastOverNeighbours) {
  constexpr std::size_t step = second / 4;
  Hum most;
  for (std::size_t first = 0; first + second <= samples.size(); first += step) {
    const auto within = samples.subspan(first, second);
    const double amplitude = mainsIn(within);
    if (amplitude < std::max(leastAmplitude, most.amplitude)) continue;
    const double overNeighbours = amplitude / usualIn(within);
    if (overNeighbours >= leastOverNeighbours) most = {amplitude, overNeighbours};
  }
  return most;
}

Jumps jumps(ChannelSamples samples, int apart) {
  const auto distance = static_cast<std::size_t>(apart);
  std::array<float, eeg::samplesPerBlock> changes{}, sorted{};
  const std::size_t count = samples.size() - distance;
  for (std::size_t i = 0; i < count; ++i) changes[i] = std::abs(samples[i + distance] - samples[i]);
  std::copy_n(changes.begin(), count, sorted.begin());
  const auto middle = sorted.begin() + static_cast<std::ptrdiff_t>(count / 2);
  std::nth_element(sorted.begin(), middle, sorted.begin() + static_cast<std::ptrdiff_t>(count));

  constexpr std::ptrdiff_t nearby = 6;  // one jump, filtered on its way, is not counted twice
  const auto end = changes.begin() + static_cast<std::ptrdiff_t>(count);
  std::array<double, 3> largest{};
  for (double& each : largest) {
    const auto place = std::max_element(changes.begin(), end);
    each = static_cast<double>(*place);
    std::fill(place - std::min(nearby, place - changes.begin()), place + std::min(nearby + 1, end - place), 0.0F);
  }
  return {largest[0], largest[2], std::max(1.0, static_cast<double>(*middle))};
}

double shareDisplaced(ChannelSamples samples, double distance) {
  constexpr std::size_t fifthOfSecond = 24;  // of 128; two waves of alpha cancel themselves
  double sum = 0;
  int displaced = 0;
  for (std::size_t i = 0; i < samples.size(); ++i) {
    sum += static_cast<double>(samples[i]) - eeg::midLevel;
    if (i >= fifthOfSecond) sum -= static_cast<double>(samples[i - fifthOfSecond]) - eeg::midLevel;
    if (i + 1 >= fifthOfSecond && std::abs(sum) > distance * fifthOfSecond) ++displaced;
  }
  return displaced / static_cast<double>(samples.size() - fifthOfSecond + 1);
}

}  // namespace korvinel::guidance
