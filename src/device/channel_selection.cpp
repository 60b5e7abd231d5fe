#include "frame/main_state.h"

namespace korvinel {

void MainState::toggleChannelPair() {
  // Each acquisition resets the count but keeps the pair, so a press may select the pair already shown.
  pairToggleCount += 1;
  const bool firstPair = pairToggleCount % 2 == 0;
  channelPair = firstPair ? 1 : 2;
  pairLabel1 = firstPair ? "C1" : "C3";
  pairLabel2 = firstPair ? "C2" : "C4";
  if (intervalSelectable == 1) summariseSynchrony();
  if (intervalSelectable == 1) drawSpectrumDisplay();
}

}  // namespace korvinel
