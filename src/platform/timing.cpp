#include "platform/timing.h"

#include <array>
#include <cstdio>

namespace korvinel::platform {

std::string dateText(const CalendarTime& time) {
  std::array<char, 40> text{};
  std::snprintf(text.data(), text.size(), "%02d/%02d/%04d", time.day, time.month, time.year);
  return text.data();
}

}  // namespace korvinel::platform
