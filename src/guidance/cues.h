#pragma once

#include <cstdint>

namespace korvinel {
struct MainFields;
}

namespace korvinel::guidance {

/// What the operator should hear, since nobody looks at the screen for ten minutes.
enum class Cue : std::uint8_t {
  none,
  enoughData,  ///< seven minutes of accepted blocks: enough for a reliable analysis
  ended,       ///< the acquisition has ended, by Stop or at its limit
  linkLost,    ///< the instrument does not answer, or its data have stopped
};

/// How often the sound is heard: a cue is known by its number.
[[nodiscard]] constexpr int soundsOf(Cue cue) { return static_cast<int>(cue); }

/// Blocks accepted since the count began, without the one that is awaited.
[[nodiscard]] int acceptedBlocks(const MainFields& record);

/// Remembers which cues have been given, so that each comes once for its occasion.
class Cues {
 public:
  /// The cue that is due now; the most urgent if there are several, which are then given together.
  [[nodiscard]] Cue due(const MainFields& record);

 private:
  bool enough_ = false, acquiring_ = false, lost_ = false;
};

}  // namespace korvinel::guidance
