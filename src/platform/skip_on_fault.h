#pragma once

#include <exception>
#include <utility>

namespace korvinel::platform {

/// Runs one step; a fault skips the rest of it. Returns whether it succeeded.
template <typename Step>
bool skipOnFault(Step&& step) {
  try {
    std::forward<Step>(step)();
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

}  // namespace korvinel::platform
