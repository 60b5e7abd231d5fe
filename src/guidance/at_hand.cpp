#include "guidance/at_hand.h"

#include "frame/main_state.h"
#include "frame/program_values.h"

namespace korvinel::guidance {

AtHand atHand(const MainState& state) {
  if (!state.openFilePath.empty()) return AtHand::opened;
  if (state.acquisitionRunning == 1) return AtHand::live;
  if (state.linkPending == 1) return AtHand::linking;
  if (state.acquisitionPending()) return AtHand::live;
  return state.intervalSelectable == 1 ? AtHand::finished : AtHand::nothing;
}

bool hasGraphs(AtHand examination) { return examination != AtHand::nothing && examination != AtHand::linking; }

std::string nameOf(const MainState& state) {
  const AtHand now = atHand(state);
  if (!hasGraphs(now)) return "";
  const std::string& subject = state.shared.subjectName;
  if (now == AtHand::live && state.recordingActive == 0) return subject;
  const std::string& file = now == AtHand::opened ? state.openFileTitle : state.shared.dataFileName;
  return subject.empty() ? file : subject + ", " + file;
}

}  // namespace korvinel::guidance
