#include "analysis/transform.h"

#include <algorithm>
#include <cmath>

#include "analysis/lane_transform.h"
#include "analysis/plain_transform.h"

namespace korvinel {
namespace {

constexpr Fixed peakFloor = Fixed::fromCount(1'000);  // 0.1
constexpr int shapePeak = 150;

int lanes() {
  static const int widest = widestLanes();
  return widest;
}

}  // namespace

void transform(Fixed* re, Fixed* im) {
  if (!transformInLanes(re, im, lanes())) transformPlainly(re, im);
}

void transformReal(Fixed* re, Fixed* im) {
  if (transformRealInLanes(re, im, lanes())) return;
  std::fill_n(im + 1, transformLength, Fixed{});
  transform(re, im);
}

void invertTransform(Fixed* re, Fixed* im) {
  for (int i = 0; i <= transformLength; ++i) im[i] = -im[i];
  transform(re, im);
  for (int i = 0; i <= transformLength; ++i) {
    re[i] = Fixed::nearest(re[i].toDouble() / transformLength);
    im[i] = Fixed::nearest((-im[i]).toDouble() / transformLength);
  }
}

void replaceZeroFrequency(Fixed* re, Fixed* im) {
  re[1] = Fixed::nearest(re[2].toDouble() / 2.0);
  im[1] = Fixed::nearest(im[2].toDouble() / 2.0);
}

void magnitudeShape(const Fixed* re, const Fixed* im, Fixed* shape) {
  Fixed peak = peakFloor;
  for (int i = 1; i <= keptIndexes; ++i) {
    const double imaginary = im[i].toDouble();
    const double real = re[i].toDouble();
    shape[i] = Fixed::nearest(std::sqrt(imaginary * imaginary + real * real));
    peak = std::max(peak, shape[i]);
  }
  for (int i = 1; i <= keptIndexes; ++i) shape[i] = Fixed::nearest(shape[i] * shapePeak / peak);
}

}  // namespace korvinel
