#include "device/baseline.h"

#include <cstddef>
#include <vector>

namespace korvinel {
namespace {

constexpr int channels = 4;
constexpr int passesUnderWay = 8;
constexpr int lag = 2;                                 ///< samples between one pass and the next
constexpr int lastDelay = lag * (passesUnderWay - 1);  ///< of the last pass behind the first
static_assert(baselinePasses % passesUnderWay == 0);

/// One sample of every channel.
struct Column {
  alignas(16) float of[channels];
};

/// Renews `columns[0]`. `left`: the renewed column before it; becomes the one just renewed.
inline void takeMean(Column* columns, Column& left) {
  Column mean;
  for (int c = 0; c < channels; ++c) {
    const double before = left.of[c];
    const double after = columns[1].of[c];
    mean.of[c] = static_cast<float>((before + static_cast<double>(columns[0].of[c]) + after) / 3.0);
  }
  columns[0] = left = mean;
}

/// Several passes over the columns 1..count, each trailing the previous one by `lag`.
void runPasses(Column* columns, int count) {
  Column left[passesUnderWay];
  columns[count + 1] = columns[count];
  const auto stepsAtEdges = [&](int position) {
    for (int pass = 0; pass < passesUnderWay; ++pass) {
      const int s = position - lag * pass;
      if (s < 1 || s > count) continue;
      if (s == 1) left[pass] = columns[1];
      takeMean(columns + s, left[pass]);
      if (s == count) columns[count + 1] = columns[count];
    }
  };
  int position = 1;
  for (; position <= 1 + lastDelay; ++position) stepsAtEdges(position);
  for (; position < count; ++position)
    for (int pass = 0; pass < passesUnderWay; ++pass) takeMean(columns + position - lag * pass, left[pass]);
  for (; position <= count + lastDelay; ++position) stepsAtEdges(position);
}

}  // namespace

void smoothToBaseline(float* signal, int sampleCount) {
  const auto copyEdges = [&] {
    signal[0] = signal[1];
    signal[sampleCount + 1] = signal[sampleCount];
  };
  copyEdges();
  for (int pass = 0; pass < baselinePasses; ++pass) {
    for (int s = 1; s <= sampleCount; ++s) {
      const double left = signal[s - 1];
      const double right = signal[s + 1];
      signal[s] = static_cast<float>((left + static_cast<double>(signal[s]) + right) / 3.0);
    }
    copyEdges();
  }
}

void smoothChannelsToBaseline(const std::array<float*, 4>& signals, int sampleCount) {
  std::vector<Column> columns(static_cast<std::size_t>(sampleCount) + 2);
  for (std::size_t s = 1; s + 1 < columns.size(); ++s)
    for (std::size_t c = 0; c < channels; ++c) columns[s].of[c] = signals[c][s];
  for (int done = 0; done < baselinePasses; done += passesUnderWay) runPasses(columns.data(), sampleCount);
  columns.front() = columns[1];
  columns.back() = columns[columns.size() - 2];
  for (std::size_t s = 0; s < columns.size(); ++s)
    for (std::size_t c = 0; c < channels; ++c) signals[c][s] = columns[s].of[c];
}

}  // namespace korvinel
