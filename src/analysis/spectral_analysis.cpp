#include "analysis/spectrum.h"
#include "analysis/transform.h"
#include "frame/main_state.h"
#include "frame/program_values.h"

namespace korvinel {
namespace {

/// The complex spectrum of one channel, and with it the block's deviation and the shape. The mean is not subtracted:
/// the transform discards it.
void transformSamples(MainState& state, int channel) {
  state.channelIndex = channel;
  auto& samples = state.sampleBlock[channel];
  samples[0] = samples[1];
  for (int i = 0; i <= state.samplesPerBlock; ++i) state.fftRe[i] = Fixed::nearest(static_cast<double>(samples[i]));
  state.blockDeviation = meanDeviation(state.fftRe.data());
  state.transformChannel();
  for (int i = 1; i <= state.samplesPerBlock; ++i) {
    state.spectrumRe[channel][i] = state.fftRe[i];
    state.spectrumIm[channel][i] = state.fftIm[i];
  }
}

void keepAmplitudes(MainState& state, int channel) {
  const auto& amplitude = state.amplitudeSpectrum[channel];
  auto& history = state.shared.spectrumHistory[state.blockCount][channel];
  for (int i = 1; i <= state.fftHalf; ++i) history[i] = amplitude[i];
  renewMeans(state.runningMeanSpectrum[channel].data(), amplitude.data(), state.blockCount);
}

void setBlockLength(MainState& state) {
  state.samplesPerBlock = transformLength;
  state.fftHalf = keptIndexes;
}

}  // namespace

void MainState::analyseBlockSpectra() {
  setBlockLength(*this);
  for (int channel = 1; channel <= 4; ++channel) {
    transformSamples(*this, channel);
    scaleAmplitudes(blockDeviation, shapeSpectrum[channel].data(), binCalibration.data(),
                    amplitudeSpectrum[channel].data());
  }
  for (int channel = 1; channel <= 4; ++channel) keepAmplitudes(*this, channel);
  for (int channel = 1; channel <= 4; ++channel)
    mainsDisturbance[channel] = largestAmplitude(amplitudeSpectrum[channel].data(), eeg::mainsRange);
}

void MainState::computeComplexSpectra() {
  setBlockLength(*this);
  for (int channel = 1; channel <= 4; ++channel) transformSamples(*this, channel);
}

void MainState::transformChannel() {
  auto& shape = shapeSpectrum[channelIndex];
  fftIm[0] = 0;
  transformReal(fftRe.data(), fftIm.data());
  replaceZeroFrequency(fftRe.data(), fftIm.data());
  magnitudeShape(fftRe.data(), fftIm.data(), shape.data());
}

}  // namespace korvinel
