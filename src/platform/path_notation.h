#pragma once

#include <functional>
#include <string>

namespace korvinel::platform {

/// Converts between the program's own notation "C:\QUARVEL5\..." and the paths of this machine. Other paths are
/// returned unchanged.
struct PathNotation {
  std::function<std::string(const std::string& path)> toHost;
  std::function<std::string(const std::string& hostPath)> toProgram;
};

}  // namespace korvinel::platform
