#include <benchmark/benchmark.h>
#include <fftw3.h>

#include <algorithm>
#include <array>
#include <complex>

#include "analysis/correlation.h"
#include "analysis/lane_transform.h"
#include "analysis/ocular_pass.h"
#include "analysis/phase.h"
#include "analysis/plain_transform.h"
#include "analysis/spectrum.h"
#include "analysis/transform.h"
#include "eeg/montage.h"
#include "headless_program.h"
#include "signals.h"

namespace korvinel {
namespace {

constexpr double blockBudgetUs = 1000;  // limit for the analysis of one block

/// A program in the middle of an acquisition, with an alpha wave, a blink and noise on every channel.
struct Acquisition {
  Acquisition() {
    state.startUp();
    state.blockCount = 1;
    state.window.ocularCheck.setChecked(true);
    Noise noise(1);
    fillAllChannels(state, [&](int s) {
      const double blink = s > 90 && s < 105 ? 110 : 0;
      return 128 + sineAt(s, 20, 30) + blink + 15 * noise.next();
    });
    raw = state.sampleBlock;
    state.analyseBlockSpectra();
    state.computeCoherence();
  }

  HeadlessProgram program;
  MainState& state = program.state;
  Bounded<float, 4, 258> raw;
};

template <typename Step>
void perBlock(benchmark::State& bench, Step&& step) {
  Acquisition acquisition;
  for (auto iteration : bench) {
    acquisition.state.sampleBlock = acquisition.raw;
    step(acquisition.state);
    benchmark::DoNotOptimize(acquisition.state.sampleBlock);
  }
  bench.counters["budget_us"] = blockBudgetUs;
}

void operation(benchmark::State& bench, void (MainState::*step)()) {
  perBlock(bench, [&](MainState& state) { (state.*step)(); });
}

void analyse(MainState& state) {
  state.removeOcularArtefacts();
  state.analyseBlockSpectra();
  state.lowPassBlock();
  state.computeBlockCorrelation();
  state.computeCoherence();
}

void chainWithoutBaseline(benchmark::State& bench) { perBlock(bench, analyse); }

void chainWithBaseline(benchmark::State& bench) {
  perBlock(bench, [](MainState& state) {
    state.smoothBlock();
    state.checkArtefacts();
    state.removeBaseline();
    analyse(state);
  });
}

void displays(benchmark::State& bench) {
  perBlock(bench, [](MainState& state) {
    state.drawCoherenceGraph();
    state.drawSpectrumDisplay();
    state.showBandPeaks();
  });
}

#define KORVINEL_OPERATION(name) BENCHMARK_CAPTURE(operation, name, &MainState::name)->Unit(benchmark::kMicrosecond)
KORVINEL_OPERATION(checkArtefacts);
KORVINEL_OPERATION(removeOcularArtefacts);
KORVINEL_OPERATION(computeComplexSpectra);
KORVINEL_OPERATION(analyseBlockSpectra);
KORVINEL_OPERATION(lowPassBlock);
KORVINEL_OPERATION(computeBlockCorrelation);
KORVINEL_OPERATION(computeCoherence);
KORVINEL_OPERATION(resetAnalysis);
KORVINEL_OPERATION(drawCoherenceGraph);
KORVINEL_OPERATION(drawSpectrumDisplay);
KORVINEL_OPERATION(showBandPeaks);
#undef KORVINEL_OPERATION
BENCHMARK(chainWithoutBaseline)->Unit(benchmark::kMicrosecond);
BENCHMARK(chainWithBaseline)->Unit(benchmark::kMicrosecond);
BENCHMARK(displays)->Unit(benchmark::kMicrosecond);

// The arithmetic without the record, for one channel or pair.

using Column = std::array<Fixed, transformLength + 1>;

Column noisyColumn() {
  Column column;
  Noise noise(2);
  for (Fixed& value : column) value = Fixed::nearest(128 + 60 * noise.next());
  return column;
}

void transformBy(benchmark::State& bench, void (*way)(Fixed*, Fixed*)) {
  const Column samples = noisyColumn();
  Column re, im{};
  for (auto iteration : bench) {
    std::copy(samples.begin(), samples.end(), re.begin());
    way(re.data(), im.data());
    benchmark::DoNotOptimize(re);
    benchmark::DoNotOptimize(im);
  }
}

void transformOfOneChannel(benchmark::State& bench) { transformBy(bench, transformReal); }
void transformPlainly(benchmark::State& bench) {
  transformBy(bench, [](Fixed* re, Fixed* im) {
    std::fill_n(im, transformLength + 1, Fixed{});
    korvinel::transformPlainly(re, im);
  });
}
void transformInNarrowLanes(benchmark::State& bench) {
  transformBy(bench, [](Fixed* re, Fixed* im) { (void)transformRealInLanes(re, im, narrowLanes); });
}

void inverseOfOneChannel(benchmark::State& bench) {
  const Column samples = noisyColumn();
  for (auto iteration : bench) {
    Column re = samples, im{};
    invertTransform(re.data(), im.data());
    benchmark::DoNotOptimize(re);
    benchmark::DoNotOptimize(im);
  }
}

/// The same size without rounding, for comparison: real values, half a spectrum.
void transformByFftw(benchmark::State& bench) {
  alignas(64) std::array<double, transformLength> in{};
  alignas(64) std::array<std::complex<double>, transformLength / 2 + 1> out{};
  const auto plan =
      fftw_plan_dft_r2c_1d(transformLength, in.data(), reinterpret_cast<fftw_complex*>(out.data()), FFTW_MEASURE);
  Noise noise(2);
  for (double& value : in) value = 128 + 60 * noise.next();
  for (auto iteration : bench) {
    fftw_execute(plan);
    benchmark::DoNotOptimize(out);
  }
  fftw_destroy_plan(plan);
}

void magnitudeShapeOfOneChannel(benchmark::State& bench) {
  Column re = noisyColumn(), im{}, shape{};
  transform(re.data(), im.data());
  for (auto iteration : bench) {
    magnitudeShape(re.data(), im.data(), shape.data());
    benchmark::DoNotOptimize(shape);
  }
}

void correlationOfOnePair(benchmark::State& bench) {
  const Acquisition acquisition;
  for (auto iteration : bench)
    benchmark::DoNotOptimize(correlationPercent(acquisition.raw[1].data(), acquisition.raw[2].data()));
}

void phaseAngleOfOneIndex(benchmark::State& bench) {
  double re = 3.25, im = -1.75;
  for (auto iteration : bench) {
    benchmark::DoNotOptimize(re);
    benchmark::DoNotOptimize(im);
    benchmark::DoNotOptimize(phaseAngle(im, re));
  }
}

void coherenceOfOneIndex(benchmark::State& bench) {
  Fixed first = Fixed::fromCount(12'345);
  for (auto iteration : bench) {
    benchmark::DoNotOptimize(first);
    benchmark::DoNotOptimize(phaseCoherence(first, 1));
  }
}

/// The reference: pair by pair and index by index, as the coherence is defined.
void coherencePlainly(benchmark::State& bench) {
  Acquisition acquisition;
  MainState& state = acquisition.state;
  const auto phase = [&](int channel, int i) {
    return Fixed::nearest(phaseAngle(state.spectrumIm[channel][i].toDouble(), state.spectrumRe[channel][i].toDouble()));
  };
  for (auto iteration : bench) {
    for (int pair = 1; pair <= eeg::pairCount; ++pair) {
      const auto [first, second] = eeg::channelsOfPair(pair);
      float* mean = state.meanCoherence[pair].data();
      for (int i = 1; i <= keptIndexes; ++i)
        mean[i] = runningMean(mean[i], phaseCoherence(phase(first, i), phase(second, i)), 1);
    }
    benchmark::DoNotOptimize(state.meanCoherence);
  }
}

void ocularScreenOfOnePair(benchmark::State& bench) {
  const Column samples = noisyColumn();
  for (auto iteration : bench) {
    Column first = samples, second = samples;
    first[7] = 250;
    benchmark::DoNotOptimize(fillFromReserve(first.data(), second.data()));
  }
}

BENCHMARK(transformPlainly)->Unit(benchmark::kMicrosecond);
BENCHMARK(transformInNarrowLanes)->Unit(benchmark::kMicrosecond);
BENCHMARK(transformOfOneChannel)->Unit(benchmark::kMicrosecond);
BENCHMARK(inverseOfOneChannel)->Unit(benchmark::kMicrosecond);
BENCHMARK(transformByFftw)->Unit(benchmark::kMicrosecond);
BENCHMARK(magnitudeShapeOfOneChannel)->Unit(benchmark::kMicrosecond);
BENCHMARK(correlationOfOnePair)->Unit(benchmark::kMicrosecond);
BENCHMARK(ocularScreenOfOnePair)->Unit(benchmark::kMicrosecond);
BENCHMARK(coherencePlainly)->Unit(benchmark::kMicrosecond);
BENCHMARK(phaseAngleOfOneIndex);
BENCHMARK(coherenceOfOneIndex);

}  // namespace
}  // namespace korvinel
