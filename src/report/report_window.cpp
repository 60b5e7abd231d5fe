#include "report/report_window.h"

#include <array>

#include "values/bounded.h"

namespace korvinel {
namespace {

platform::Surface& oneOf(const std::array<platform::Surface*, 4>& surfaces, int number) {
  if (number < 1 || number > 4) throwSubscript();
  return *surfaces[static_cast<std::size_t>(number) - 1];
}

}  // namespace

platform::Surface& ReportWindow::spectrumOf(int channel) {
  return oneOf({&spectrum1, &spectrum2, &spectrum3, &spectrum4}, channel);
}

platform::Surface& ReportWindow::coherenceOf(int pair) {
  return oneOf({&coherence1, &coherence2, &coherence3, &coherence4}, pair);
}

}  // namespace korvinel
