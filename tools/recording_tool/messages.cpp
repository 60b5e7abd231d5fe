#include "recording_tool/messages.h"

#include <iostream>
#include <syncstream>

namespace korvinel::tool {

void tell(const std::string& file, const std::string& note) {
  std::osyncstream(std::cerr) << file + ": " + note + "\n";
}

void tellError(const std::exception& error) { std::osyncstream(std::cerr) << error.what() << "\n"; }

}  // namespace korvinel::tool
