#include "device/baseline.h"

namespace korvinel {

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

}  // namespace korvinel
