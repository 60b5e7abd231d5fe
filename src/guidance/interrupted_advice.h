#pragma once

#include <string>

#include "frame/interrupted.h"

namespace korvinel::guidance {

/// Who, when, how long and how many notes, as sentences. `number` of `count`: shown if there are several.
[[nodiscard]] std::string interruptedText(const Interrupted& interrupted, int number, int count);

/// What "Recupera" has done, as sentences.
[[nodiscard]] std::string recoveryText(const Recovery& recovery);

/// For the status line while examinations wait to be recovered; "" if `count` is 0.
[[nodiscard]] std::string interruptedReminder(int count);

}  // namespace korvinel::guidance
