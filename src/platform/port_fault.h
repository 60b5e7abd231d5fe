#pragma once

#include "values/runtime_error.h"

namespace korvinel::platform {

/// The port cannot be opened, is closed, or its line has failed (an unplugged adapter). A failed line is closed at its
/// first error and stays silent until it is opened again.
struct PortFault : RuntimeError {
  using RuntimeError::RuntimeError;
};

}  // namespace korvinel::platform
