#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>

#include "values/field_reader.h"
#include "values/runtime_error.h"

namespace korvinel::fuzz {

inline TextSource sourceOf(const std::uint8_t* data, std::size_t size) {
  return TextSource({reinterpret_cast<const char*>(data), size});
}

/// Reads an input; the only exception allowed is RuntimeError.
template <typename Read>
void readOrFault(Read&& read) {
  try {
    std::forward<Read>(read)();
  } catch (const RuntimeError&) {
  }
}

inline void require(bool holds) {
  if (!holds) __builtin_trap();
}

}  // namespace korvinel::fuzz
