#include <benchmark/benchmark.h>

#include "device/baseline.h"
#include "headless_program.h"

namespace korvinel {
namespace {

/// A block with a drift, an alpha-like wave and some noise on every channel.
void fillBlock(MainState& state) {
  unsigned seed = 1;
  for (int channel = 1; channel <= 4; ++channel)
    for (int s = 1; s <= 256; ++s) {
      seed = seed * 1'664'525U + 1'013'904'223U;
      const int wave = s % 13 < 6 ? 20 : -20;
      state.sampleBlock[channel][s] = static_cast<float>(128 + wave + s / 16 + static_cast<int>(seed >> 28));
    }
}

void runOnBlocks(benchmark::State& bench, void (MainState::*operation)()) {
  HeadlessProgram program;
  program.state.startUp();
  program.state.blockCount = 1;
  fillBlock(program.state);
  const auto block = program.state.sampleBlock;
  for (auto iteration : bench) {
    program.state.sampleBlock = block;
    (program.state.*operation)();
    benchmark::DoNotOptimize(program.state.sampleBlock);
  }
  bench.counters["budget_us"] = 870'000;  // a turn that takes longer exceeds three seconds
}

/// The reference: channel by channel, pass by pass.
void baselinePlainly(benchmark::State& bench) {
  HeadlessProgram program;
  fillBlock(program.state);
  const auto block = program.state.sampleBlock;
  for (auto iteration : bench) {
    auto signals = block;
    for (int channel = 1; channel <= 4; ++channel) smoothToBaseline(signals[channel].data(), 256);
    benchmark::DoNotOptimize(signals);
  }
}

BENCHMARK(baselinePlainly)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(runOnBlocks, smoothBlock, &MainState::smoothBlock)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(runOnBlocks, removeBaseline, &MainState::removeBaseline)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(runOnBlocks, drawRawTraces, &MainState::drawRawTraces)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(runOnBlocks, drawCorrectedTraces, &MainState::drawCorrectedTraces)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace korvinel
