#pragma once

#include <functional>
#include <string>

namespace korvinel::platform {

/// The two ways between the program's own notation "C:\QUARVEL5\..." and the paths of this machine. What has no other
/// notation stays as it is.
struct PathNotation {
  std::function<std::string(const std::string& path)> toHost;
  std::function<std::string(const std::string& hostPath)> toProgram;
};

}  // namespace korvinel::platform
