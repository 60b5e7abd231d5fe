#include "platform/colour.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "values/bounded.h"

namespace korvinel::platform {
namespace {

constexpr std::array<Rgb, 16> palette = {{{0, 0, 0},
                                          {0, 0, 128},
                                          {0, 128, 0},
                                          {0, 128, 128},
                                          {128, 0, 0},
                                          {128, 0, 128},
                                          {128, 128, 0},
                                          {192, 192, 192},
                                          {128, 128, 128},
                                          {0, 0, 255},
                                          {0, 255, 0},
                                          {0, 255, 255},
                                          {255, 0, 0},
                                          {255, 0, 255},
                                          {255, 255, 0},
                                          {255, 255, 255}}};

constexpr Rgb calmGrey{236, 239, 241};
constexpr Rgb slate{38, 50, 56};

double linear(unsigned char component) {
  const double share = component / 255.0;
  return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

double luminance(Rgb colour) {
  return 0.2126 * linear(colour.red) + 0.7152 * linear(colour.green) + 0.0722 * linear(colour.blue);
}

}  // namespace

Colour paletteColour(int index) {
  if (index < 0 || index > 15) throwSubscript();
  return static_cast<Colour>(index);
}

Rgb rgbOf(Colour colour) {
  const int index = static_cast<int>(colour);
  if (colour == Colour::graphArea) return slate;
  return index < 0 ? calmGrey : palette[static_cast<std::size_t>(index)];
}

double contrast(Rgb first, Rgb second) {
  const auto [darker, lighter] = std::minmax({luminance(first), luminance(second)});
  return (lighter + 0.05) / (darker + 0.05);
}

Rgb cellBehind(Rgb ink, Rgb background) {
  constexpr double readable = 3.0;
  if (contrast(ink, background) >= readable) return background;
  const Rgb black = rgbOf(Colour::black);
  const Rgb white = rgbOf(Colour::white);
  return contrast(ink, black) >= contrast(ink, white) ? black : white;
}

}  // namespace korvinel::platform
