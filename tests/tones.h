#pragma once

#include <array>
#include <cmath>
#include <numbers>
#include <string>
#include <string_view>

#include "instrument/frame_source.h"

namespace korvinel {

/// A sine of another frequency on each of the four channels, so that they cannot be confused.
namespace tones {

constexpr std::array<int, 4> cyclesPerBlock{12, 20, 28, 40};  // 6, 10, 14 and 20 Hz

/// Sines of 30 units around 128; every `artefactEvery` frames, some samples of channel 2 exceed 70 units.
class Source final : public instrument::FrameSource {
 public:
  explicit Source(int artefactEvery) : artefactEvery_(artefactEvery) {}

  std::optional<instrument::Frame> nextFrame() override {
    instrument::Frame frame;
    for (std::size_t channel = 0; channel < 4; ++channel) {
      const double turns = cyclesPerBlock[channel] * static_cast<double>(number_) / 256;
      frame[channel] = static_cast<std::uint8_t>(std::lround(128 + 30 * std::sin(2 * std::numbers::pi * turns)));
    }
    if (artefactEvery_ > 0 && number_ % artefactEvery_ >= artefactEvery_ - 4) frame[1] = 255;
    ++number_;
    return frame;
  }

 private:
  int artefactEvery_;
  int number_ = 0;
};

inline double power(std::string_view samples, int cycles) {
  double re = 0, im = 0;
  for (std::size_t s = 0; s < samples.size(); ++s) {
    const double phase = 2 * std::numbers::pi * cycles * static_cast<double>(s) / 256;
    const double value = static_cast<unsigned char>(samples[s]) - 128.0;
    re += value * std::cos(phase);
    im += value * std::sin(phase);
  }
  return re * re + im * im;
}

/// The channels whose tones the four records of a block hold, "1234" if each is in its place; "?" for a mixture.
inline std::string channelsOf(std::string_view block) {
  std::string places;
  for (std::size_t record = 0; record < 4; ++record) {
    const std::string_view samples = block.substr(259 * record, 256);
    std::array<double, 4> powers{};
    double sum = 0;
    for (std::size_t tone = 0; tone < 4; ++tone) sum += powers[tone] = power(samples, cyclesPerBlock[tone]);
    char place = '?';
    for (std::size_t tone = 0; tone < 4; ++tone)
      if (powers[tone] > 0.95 * sum) place = static_cast<char>('1' + tone);
    places += place;
  }
  return places;
}

}  // namespace tones
}  // namespace korvinel
