#pragma once

#include "values/bounded.h"

namespace korvinel {

struct ByteSource;

/// The two configuration files hold items separated by commas or line ends; text items may be in double quotes.
/// A missing or unreadable item is a RuntimeError (input) that names the file and the item.

/// Reads all nine items of the settings file and returns the third, the serial port's number.
[[nodiscard]] int readSettings(ByteSource& file);

/// Reads the 64 calibration factors into indexes 1..64; 65..128 become 1, and 0, 129, 130 stay as they are.
void readCalibration(ByteSource& file, Bounded<float, 130>& factors);

}  // namespace korvinel
