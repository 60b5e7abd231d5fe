#include "analysis/transform.h"
#include "eeg/block.h"
#include "frame/main_state.h"

namespace korvinel {
namespace {

constexpr int firstCutIndex = 80;  // 39.5 Hz
constexpr double gain = 1.06;
constexpr double midLevel = eeg::midLevel;

/// Indexes 80..176. Not symmetric: one more component survives on the negative side.
void cutHighFrequencies(MainState& state) {
  for (int i = firstCutIndex; i <= state.samplesPerBlock - firstCutIndex; ++i) state.fftRe[i] = state.fftIm[i] = 0;
}

}  // namespace

void MainState::lowPassBlock() {
  for (int channel = 1; channel <= 4; ++channel) {
    channelIndex = channel;
    for (int i = 1; i <= samplesPerBlock; ++i) {
      fftRe[i] = spectrumRe[channel][i];
      fftIm[i] = spectrumIm[channel][i];
    }
    cutHighFrequencies(*this);
    inverseTransform();
    for (int i = 1; i <= samplesPerBlock; ++i) sampleBlock[channel][i] = filteredSamples[i];
  }
}

void MainState::inverseTransform() {
  invertTransform(fftRe.data(), fftIm.data());
  // The imaginary part left by the asymmetric cut is added, on purpose.
  for (int i = 0; i <= samplesPerBlock; ++i)
    filteredSamples[i] = static_cast<float>((fftRe[i] + fftIm[i]).toDouble() * gain + midLevel);
}

}  // namespace korvinel
