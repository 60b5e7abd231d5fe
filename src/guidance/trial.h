#pragma once

#include <string_view>

namespace korvinel::guidance {

/// What is written wherever a simulated signal could be taken for a person's.
inline constexpr const char* trialNotice = "PROVA: strumento simulato";

/// Whether a folder or a file belongs to the trial, which keeps everything in a folder `korvinel-prova`. `path`: in the
/// host's notation.
[[nodiscard]] bool isOfTrial(std::string_view path);

}  // namespace korvinel::guidance
