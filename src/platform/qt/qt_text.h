#pragma once

#include <QColor>
#include <QString>
#include <algorithm>
#include <string>

#include "platform/colour.h"

namespace korvinel::platform {

/// A text of the program for the screen: its lines are separated by carriage returns.
inline QString toQt(std::string text) {
  std::replace(text.begin(), text.end(), '\r', '\n');
  return QString::fromStdString(text);
}

inline QColor toQt(Rgb colour) { return {colour.red, colour.green, colour.blue}; }

inline Rgb fromQt(const QColor& colour) {
  const auto part = [](int value) { return static_cast<unsigned char>(value); };
  return {part(colour.red()), part(colour.green()), part(colour.blue())};
}

}  // namespace korvinel::platform
