#include "frame/configuration.h"
#include "input.h"

using namespace korvinel;

/// The first byte selects the file: settings or calibration.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  TextSource source = fuzz::sourceOf(data + 1, size - 1);
  fuzz::readOrFault([&] {
    Bounded<float, 130> factors;
    if (data[0] % 2 == 0)
      (void)readSettings(source);
    else
      readCalibration(source, factors);
  });
  return 0;
}
