#include "guidance/cues.h"

#include <utility>

#include "frame/main_fields.h"

namespace korvinel::guidance {
namespace {

constexpr int enoughBlocks = 140;  // seven minutes, three seconds a block

/// Follows a state; whether it has just come.
bool hasCome(bool& known, bool now) { return !std::exchange(known, now) && now; }

bool isAcquiring(const MainFields& record) {
  return record.acquisitionRunning == 1 && record.intervalSelectable == 0 && record.openFilePath.empty();
}

}  // namespace

int acceptedBlocks(const MainFields& record) {
  return static_cast<int>(record.blockCount) - (record.artefactFlag == 1 ? 1 : 0);
}

Cue Cues::due(const MainFields& record) {
  if (isAcquiring(record)) acquiring_ = true;
  // Stop only asks for the end. The data are complete when they can be analysed.
  const bool ended = acquiring_ && record.intervalSelectable == 1;
  if (ended) acquiring_ = false;
  const bool enough = hasCome(enough_, acquiring_ && acceptedBlocks(record) >= enoughBlocks);
  if (hasCome(lost_, record.linkTrouble != LinkTrouble::none)) return Cue::linkLost;
  if (ended) return Cue::ended;
  return enough ? Cue::enoughData : Cue::none;
}

}  // namespace korvinel::guidance
