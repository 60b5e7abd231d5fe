#include "analysis/plain_transform.h"

#include <utility>

#include "analysis/twiddles.h"

namespace korvinel {
namespace {

void reorderByReversedBits(Fixed* re, Fixed* im) {
  int j = 1;
  for (int i = 1; i < transformLength; ++i) {
    if (i < j) {
      std::swap(re[i], re[j]);
      std::swap(im[i], im[j]);
    }
    int k = transformLength / 2;
    for (; k < j; k /= 2) j -= k;
    j += k;
  }
}

void combine(Fixed* re, Fixed* im, int upper, int lower, ComplexFactor factor) {
  const double lowerRe = re[lower].toDouble();
  const double lowerIm = im[lower].toDouble();
  const Fixed turnedRe = Fixed::nearest(lowerRe * factor.re - lowerIm * factor.im);
  const Fixed turnedIm = Fixed::nearest(lowerRe * factor.im + lowerIm * factor.re);
  re[lower] = re[upper] - turnedRe;
  im[lower] = im[upper] - turnedIm;
  re[upper] += turnedRe;
  im[upper] += turnedIm;
}

}  // namespace

void transformPlainly(Fixed* re, Fixed* im) {
  reorderByReversedBits(re, im);
  for (int half = 1; half < transformLength; half *= 2)
    for (int j = 1; j <= half; ++j) {
      const auto place = static_cast<std::size_t>(half + j - 1);
      const ComplexFactor factor{twiddles.re[place], twiddles.im[place]};
      for (int i = j; i <= transformLength; i += 2 * half) combine(re, im, i, i + half, factor);
    }
}

}  // namespace korvinel
