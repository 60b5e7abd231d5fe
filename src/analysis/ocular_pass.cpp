#include <array>
#include <cstddef>

#include "analysis/ocular_pass.h"
#include "eeg/block.h"
#include "frame/main_state.h"
#include "frame/main_window.h"

namespace korvinel {
namespace {

using eeg::midLevel;
constexpr int sampleCount = eeg::samplesPerBlock;

struct SamplePair {
  Fixed first, second;
};

/// Good pairs of samples in order of time.
struct Reserve {
  std::array<SamplePair, sampleCount> pairs;
  std::size_t gathered = 0;

  SamplePair take(std::size_t& taken) const {
    const SamplePair pair = taken < gathered ? pairs[taken] : SamplePair{midLevel, midLevel};
    ++taken;
    return pair;
  }
};

bool good(Fixed sample) { return sample > lowestGoodSample && sample < highestGoodSample; }
bool bad(Fixed sample) { return sample < lowestGoodSample || sample > highestGoodSample; }

Reserve gather(const Fixed* first, const Fixed* second) {
  Reserve reserve;
  for (int i = 1; i <= sampleCount; ++i)
    if (good(first[i]) && good(second[i])) reserve.pairs[reserve.gathered++] = {first[i], second[i]};
  return reserve;
}

using WorkingCopy = Bounded<Fixed, 4, 260>;

WorkingCopy copyOf(const Bounded<float, 4, 258>& samples) {
  WorkingCopy copy;
  for (int channel = 1; channel <= 4; ++channel)
    for (int i = 1; i <= sampleCount; ++i) copy[channel][i] = Fixed::nearest(static_cast<double>(samples[channel][i]));
  return copy;
}

void putBack(const WorkingCopy& copy, Bounded<float, 4, 258>& samples) {
  for (int channel = 1; channel <= 4; ++channel)
    for (int i = 1; i <= sampleCount; ++i) samples[channel][i] = static_cast<float>(copy[channel][i].toDouble());
}

}  // namespace

bool fillFromReserve(Fixed* first, Fixed* second) {
  const Reserve reserve = gather(first, second);
  std::size_t takenByFirst = 0, takenBySecond = 0;
  for (int i = 1; i <= sampleCount; ++i) {
    const auto replaceBy = [&](SamplePair pair) {
      first[i] = pair.first;
      second[i] = pair.second;
    };
    if (bad(first[i])) replaceBy(reserve.take(takenByFirst));
    if (bad(second[i])) replaceBy(reserve.take(takenBySecond));
  }
  return takenByFirst + takenBySecond > 0;
}

void MainState::removeOcularArtefacts() {
  if (!window.ocularCheck.checked()) return;
  WorkingCopy copy = copyOf(sampleBlock);
  const bool frontal = fillFromReserve(copy[1].data(), copy[2].data());
  const bool temporal = fillFromReserve(copy[3].data(), copy[4].data());
  // After any replacement, all four channels are rounded to four decimals by the copy; otherwise none is.
  if (frontal || temporal) putBack(copy, sampleBlock);
}

}  // namespace korvinel
