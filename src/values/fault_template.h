#pragma once

#include <array>
#include <string>
#include <string_view>

#include "values/runtime_error.h"

namespace korvinel {

/// A language's sentence for a cause. <path>, <newPath>, <text> and <reason> stand for the facts.
struct FaultTemplate {
  Cause cause;
  std::string_view sentence;
};
using FaultTemplates = std::array<FaultTemplate, causeCount>;

/// Whether every cause has its sentence at its place. A missing row is one of the first cause, without a sentence.
constexpr bool areInOrder(const FaultTemplates& templates) {
  for (int cause = 0; cause < causeCount; ++cause) {
    const FaultTemplate& row = templates[static_cast<std::size_t>(cause)];
    if (static_cast<int>(row.cause) != cause || row.sentence.empty()) return false;
  }
  return true;
}

/// The sentence of the facts' cause. If they have no reason, it ends before the colon that leads to <reason>.
/// `notOrdinary`: the reason if the path is no ordinary file.
[[nodiscard]] std::string filled(const FaultTemplates& templates, const Facts& facts, std::string_view notOrdinary);

}  // namespace korvinel
