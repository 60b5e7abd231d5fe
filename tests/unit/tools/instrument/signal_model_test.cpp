#include "instrument/signal_model.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <stdexcept>

namespace korvinel::instrument {
namespace {

constexpr int blockFrames = 256;  // two bins per hertz
constexpr int blocks = 30;        // a minute
enum Site : std::size_t { f1, f2, t5, t6 };
using Trace = std::vector<double>;

std::vector<Frame> framesOf(std::string_view models, std::uint64_t seed, int count = blocks * blockFrames) {
  SignalModel model(parseModels(models), seed);
  std::vector<Frame> frames(static_cast<std::size_t>(count));
  for (Frame& frame : frames) frame = model.nextFrame();
  return frames;
}

Trace traceOf(const std::vector<Frame>& frames, Site site) {
  Trace trace;
  for (const Frame& frame : frames) trace.push_back(frame[site]);
  return trace;
}

double meanOf(const Trace& trace) {
  double sum = 0;
  for (const double value : trace) sum += value;
  return sum / static_cast<double>(trace.size());
}

double covariance(const Trace& a, const Trace& b) {
  const double meanA = meanOf(a), meanB = meanOf(b);
  double sum = 0;
  for (std::size_t i = 0; i < a.size(); ++i) sum += (a[i] - meanA) * (b[i] - meanB);
  return sum / static_cast<double>(a.size());
}

double correlation(const Trace& a, const Trace& b) {
  return covariance(a, b) / std::sqrt(covariance(a, a) * covariance(b, b));
}

// A block prepared as the program does: smoothed with the weights 0.3, 1, 0.3, without drift.
Trace prepared(Trace block) {
  const auto clamped = [&](const Trace& trace, std::ptrdiff_t at) {
    return trace[static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(at, 0, blockFrames - 1))];
  };
  for (std::ptrdiff_t at = 0; at < blockFrames; ++at)
    block[static_cast<std::size_t>(at)] =
        (clamped(block, at) + 0.3 * clamped(block, at - 1) + 0.3 * clamped(block, at + 1)) / 1.6;
  Trace drift = block;
  for (int pass = 0; pass < 400; ++pass)
    for (std::ptrdiff_t at = 0; at < blockFrames; ++at)
      drift[static_cast<std::size_t>(at)] = (clamped(drift, at - 1) + clamped(drift, at) + clamped(drift, at + 1)) / 3;
  for (std::size_t at = 0; at < block.size(); ++at) block[at] -= drift[at];
  return block;
}

double waveAt(int step) {  // a cosine of 256 steps
  static const Trace table = [] {
    Trace wave;
    for (int at = 0; at < blockFrames; ++at) wave.push_back(std::cos(2 * std::numbers::pi * at / blockFrames));
    return wave;
  }();
  return table[static_cast<std::size_t>(step % blockFrames)];
}

// Amplitudes of the bins 0..127 in uV, by the plain definition of the Fourier transform.
Trace amplitudesOf(const Trace& block) {
  constexpr int quarter = blockFrames / 4;
  Trace amplitudes;
  for (int bin = 0; bin < blockFrames / 2; ++bin) {
    double real = 0, imaginary = 0;
    for (int at = 0; at < blockFrames; ++at) {
      real += block[static_cast<std::size_t>(at)] * waveAt(bin * at);
      imaginary += block[static_cast<std::size_t>(at)] * waveAt(bin * at + quarter);
    }
    amplitudes.push_back(std::hypot(real, imaginary) * 2 / blockFrames);
  }
  return amplitudes;
}

std::vector<Trace> blocksOf(const std::vector<Frame>& frames, Site site) {
  const Trace trace = traceOf(frames, site);
  std::vector<Trace> found;
  for (auto at = trace.begin(); trace.end() - at >= blockFrames; at += blockFrames)
    found.push_back(prepared({at, at + blockFrames}));
  return found;
}

Trace meanSpectrum(const std::vector<Frame>& frames, Site site) {
  const std::vector<Trace> all = blocksOf(frames, site);
  Trace mean(blockFrames / 2, 0.0);
  for (const Trace& block : all) {
    const Trace amplitudes = amplitudesOf(block);
    for (std::size_t bin = 0; bin < mean.size(); ++bin) mean[bin] += amplitudes[bin] / static_cast<double>(all.size());
  }
  return mean;
}

double peakHertz(const Trace& spectrum) {
  return static_cast<double>(std::ranges::max_element(spectrum) - spectrum.begin()) / 2;
}

double meanBetween(const Trace& spectrum, double lowHertz, double highHertz) {
  const auto begin = spectrum.begin() + std::lround(lowHertz * 2);
  return meanOf({begin, spectrum.begin() + std::lround(highHertz * 2) + 1});
}

// The mains disturbance of a block at 50 Hz, with the spectrum scaled so that its peak is three mean deviations.
double mainsFigure(const Trace& block) {
  double deviation = 0;
  for (const double value : block) deviation += std::abs(value - meanOf(block)) / blockFrames;
  const Trace amplitudes = amplitudesOf(block);
  const double largest = *std::max_element(amplitudes.begin() + 1, amplitudes.end());
  return 3 * deviation * *std::max_element(amplitudes.begin() + 99, amplitudes.begin() + 114) / largest;
}

constexpr std::uint64_t seeds[] = {1, 2, 3, 77};

TEST(SignalModel, GivesTheSameFramesForTheSameSeed) {
  EXPECT_EQ(framesOf("blinks:3,drowsy", 9), framesOf("blinks:3,drowsy", 9));
}

TEST(SignalModel, GivesAnotherHeadForAnotherSeed) { EXPECT_NE(framesOf("eyes-closed", 1), framesOf("eyes-closed", 2)); }

TEST(SignalModel, HasABackgroundOfAboutTenMicrovoltsAroundTheMiddle) {
  for (const std::uint64_t seed : seeds) {
    const auto frames = framesOf("eyes-open", seed);
    for (const Site site : {f1, f2, t5, t6}) {
      const Trace trace = traceOf(frames, site);
      EXPECT_NEAR(meanOf(trace), 128, 1.5) << seed << ' ' << site;
      EXPECT_GT(std::sqrt(covariance(trace, trace)), 8) << seed << ' ' << site;
      EXPECT_LT(std::sqrt(covariance(trace, trace)), 12) << seed << ' ' << site;
    }
  }
}

TEST(SignalModel, FallsWithFrequencyWhenTheEyesAreOpen) {
  for (const std::uint64_t seed : seeds) {
    const Trace spectrum = meanSpectrum(framesOf("eyes-open", seed), t5);
    EXPECT_GT(meanBetween(spectrum, 2, 5), 1.5 * meanBetween(spectrum, 13, 20)) << seed;
    EXPECT_GT(meanBetween(spectrum, 13, 20), 1.5 * meanBetween(spectrum, 40, 60)) << seed;
  }
}

TEST(SignalModel, HasItsAlphaPeakAtTheBackWhenTheEyesAreClosed) {
  for (const std::uint64_t seed : seeds) {
    const auto closed = framesOf("eyes-closed", seed);
    const auto open = framesOf("eyes-open", seed);
    for (const Site site : {t5, t6}) {
      const Trace spectrum = meanSpectrum(closed, site);
      EXPECT_GE(peakHertz(spectrum), 8) << seed;
      EXPECT_LE(peakHertz(spectrum), 12.5) << seed;
      EXPECT_GT(meanBetween(spectrum, 9, 11), 2.5 * meanBetween(meanSpectrum(open, site), 9, 11)) << seed;
      EXPECT_GT(meanBetween(spectrum, 9, 11), 1.5 * meanBetween(meanSpectrum(closed, f1), 9, 11)) << seed;
    }
  }
}

TEST(SignalModel, StaysWithinSeventyMicrovoltsNearlyAlwaysWhenTheEyesAreClosed) {
  for (const std::uint64_t seed : seeds) {
    int beyond = 0;
    for (const Frame& frame : framesOf("eyes-closed", seed))
      beyond += std::ranges::any_of(frame, [](int sample) { return std::abs(sample - 128) > 70; }) ? 1 : 0;
    EXPECT_LT(beyond, blocks * blockFrames / 1000) << seed;
  }
}

TEST(SignalModel, SharesActivityBetweenHomologousSites) {
  for (const std::uint64_t seed : seeds) {
    for (const auto* model : {"eyes-closed", "eyes-open", "drowsy"}) {
      const auto frames = framesOf(model, seed);
      const double front = correlation(traceOf(frames, f1), traceOf(frames, f2));
      const double back = correlation(traceOf(frames, t5), traceOf(frames, t6));
      EXPECT_GT(front, 0.3) << model << seed;
      EXPECT_LT(front, 0.9) << model << seed;
      EXPECT_GT(back, 0.3) << model << seed;
      EXPECT_LT(back, 0.95) << model << seed;
    }
  }
}

TEST(SignalModel, ShowsBlinksInFrontOnly) {
  for (const std::uint64_t seed : seeds) {
    const auto frames = framesOf("blinks", seed);
    const auto highest = [&](Site site) {
      const Trace trace = traceOf(frames, site);
      return *std::ranges::max_element(trace);
    };
    EXPECT_GT(highest(f1), 128 + 95) << seed;
    EXPECT_GT(highest(f2), 128 + 85) << seed;
    EXPECT_LT(highest(t5), 128 + 60) << seed;
    EXPECT_LT(highest(t6), 128 + 60) << seed;
  }
}

TEST(SignalModel, HumsSoLoudlyThatEveryBlocksMainsFigureIsHigh) {
  for (const std::uint64_t seed : seeds) {
    const auto frames = framesOf("mains-hum", seed);
    for (const Site site : {f1, f2, t5, t6}) {
      EXPECT_EQ(peakHertz(meanSpectrum(frames, site)), 50) << seed;
      for (const Trace& block : blocksOf(frames, site)) EXPECT_GT(mainsFigure(block), 60) << seed;
    }
  }
}

TEST(SignalModel, HumsOnlyWhenAskedTo) {
  for (const auto* model : {"eyes-closed", "eyes-open", "drowsy"})
    for (const Trace& block : blocksOf(framesOf(model, 1), t6)) EXPECT_LT(mainsFigure(block), 30) << model;
}

TEST(SignalModel, IsDominatedByThetaWhenDrowsy) {
  for (const std::uint64_t seed : seeds) {
    for (const Site site : {f1, t6}) {
      const Trace spectrum = meanSpectrum(framesOf("drowsy", seed), site);
      EXPECT_GE(peakHertz(spectrum), 4.5) << seed << site;
      EXPECT_LE(peakHertz(spectrum), 6.5) << seed << site;
      EXPECT_GT(meanBetween(spectrum, 5, 6), 2 * meanBetween(spectrum, 9, 11)) << seed << site;
    }
  }
}

TEST(SignalModel, IsClippedAtBothEndsWhenSaturated) {
  for (const std::uint64_t seed : seeds) {
    const auto frames = framesOf("saturated", seed);
    for (const Site site : {f1, f2, t5, t6}) {
      const Trace trace = traceOf(frames, site);
      EXPECT_GT(std::ranges::count(trace, 0.0), blocks * blockFrames / 5) << seed;
      EXPECT_GT(std::ranges::count(trace, 255.0), blocks * blockFrames / 5) << seed;
    }
  }
}

TEST(SignalModel, IsAllZeroMicrovoltsWhenFlat) {
  for (const Frame& frame : framesOf("flat", 1)) ASSERT_EQ(frame, (Frame{128, 128, 128, 128}));
}

TEST(SignalModel, ChangesModelAfterItsSecondsAndStaysAtALastOneWithout) {
  const auto frames = framesOf("flat:1,eyes-open:0.5,flat", 1, 1000);
  const Frame middle{128, 128, 128, 128};
  EXPECT_EQ(std::ranges::count(frames.begin(), frames.begin() + 128, middle), 128);
  EXPECT_LT(std::ranges::count(frames.begin() + 128, frames.begin() + 192, middle), 5);
  EXPECT_EQ(std::ranges::count(frames.begin() + 192, frames.end(), middle), 1000 - 192);
}

TEST(SignalModel, StartsAListAgainWhenTheLastModelHasSecondsToo) {
  const auto frames = framesOf("flat:1,saturated:1", 1, 512);
  const Frame middle{128, 128, 128, 128};
  for (const std::size_t at : {0U, 127U, 256U, 383U}) EXPECT_EQ(frames[at], middle) << at;
  EXPECT_LT(std::ranges::count(frames.begin() + 128, frames.begin() + 256, middle), 5);
  EXPECT_LT(std::ranges::count(frames.begin() + 384, frames.begin() + 512, middle), 5);
}

TEST(ParseModels, ReadsNamesAndSeconds) {
  EXPECT_EQ(parseModels("drowsy"), std::vector{ModelStep{Model::drowsy}});
  EXPECT_EQ(parseModels("eyes-open:2.5,eyes-closed"),
            (std::vector{ModelStep{Model::eyesOpen, 320}, ModelStep{Model::eyesClosed}}));
  EXPECT_EQ(parseModels("blinks:0.01"), (std::vector{ModelStep{Model::blinks, 1}}));
}

TEST(ParseModels, RefusesWhatItCannotPlay) {
  for (const auto* text : {"", "asleep", "flat,", ",flat", "flat,blinks", "flat:", "flat:0", "flat:-1", "flat:x",
                           "flat:1:2", "Flat", "flat:1 ,blinks"})
    EXPECT_THROW((void)parseModels(text), std::invalid_argument) << text;
}

TEST(ParseModels, NamesTheModelsInItsRefusal) {
  try {
    (void)parseModels("asleep");
    FAIL();
  } catch (const std::invalid_argument& refusal) {
    EXPECT_STREQ(refusal.what(),
                 "unknown model 'asleep'; the models are eyes-closed, eyes-open, blinks, mains-hum, "
                 "drowsy, saturated, flat");
  }
}

}  // namespace
}  // namespace korvinel::instrument
