#include "guidance/clock_text.h"

namespace korvinel::guidance {

std::string clockText(int seconds) {
  const std::string rest = std::to_string(seconds % 60);
  return std::to_string(seconds / 60) + (rest.size() < 2 ? ":0" : ":") + rest;
}

}  // namespace korvinel::guidance
