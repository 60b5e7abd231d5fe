#pragma once

namespace korvinel::platform {

/// A colour by its index in the classic 16-colour palette, or a part of the desktop's own look.
enum class Colour : signed char {
  graphArea = -3,         ///< the dark background of the graphs
  windowBackground = -2,  ///< the background of the window that holds the surface
  buttonFace = -1,        ///< a control's usual background
  black = 0,
  blue = 1,
  green = 2,
  cyan = 3,
  red = 4,
  magenta = 5,
  brown = 6,
  lightGrey = 7,
  darkGrey = 8,
  lightBlue = 9,
  lightGreen = 10,
  lightCyan = 11,
  lightRed = 12,
  lightMagenta = 13,
  yellow = 14,
  white = 15,
};

/// The colour of a palette index 0..15; another index is a RuntimeError (subscript).
[[nodiscard]] Colour paletteColour(int index);

struct Rgb {
  unsigned char red, green, blue;  ///< 0..255
  friend bool operator==(Rgb, Rgb) = default;
};

/// The screen colour. The window's background and a button's face are one light grey.
[[nodiscard]] Rgb rgbOf(Colour colour);

/// Contrast ratio of two colours, 1..21 (relative luminance of sRGB, as the web accessibility guidelines define it).
[[nodiscard]] double contrast(Rgb first, Rgb second);

/// The colour of the opaque cell behind a text: the surface's background if the ink has a contrast of at least 3 on it,
/// else black or white, whichever contrasts more. So every text can be read, whatever its ink.
[[nodiscard]] Rgb cellBehind(Rgb ink, Rgb background);

}  // namespace korvinel::platform
