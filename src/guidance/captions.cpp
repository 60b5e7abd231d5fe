#include "guidance/captions.h"

#include "eeg/montage.h"
#include "frame/main_state.h"
#include "frame/main_window.h"
#include "frame/program_values.h"
#include "guidance/at_hand.h"

namespace korvinel::guidance {
namespace {

struct Sites {
  std::string first, second;
  [[nodiscard]] std::string both() const { return first + "-" + second; }
};

/// `shown`: 1 or 2; 0: the graph is empty.
Sites sitesOf(int shown, int chosen) {
  const int first = eeg::firstChannelShown(shown == 0 ? chosen : shown);
  return {eeg::siteOf(first), eeg::siteOf(first + 1)};
}

/// The name of an opened file's box is the file's own; that of an acquisition lacks the ending.
bool boxesDiffer(const MainState& state) {
  const std::string& file = state.window.fileNameBox.text();
  const bool sameFile = file == state.shared.dataFileName || file + ".QVD" == state.shared.dataFileName;
  return !sameFile || state.window.subjectBox.text() != state.shared.subjectName;
}

}  // namespace

Captions captionsOf(const MainState& state) {
  const int chosen = state.channelPair;
  const Sites traces = sitesOf(state.tracesPair, chosen);
  const Sites spectra = sitesOf(state.spectraPair, chosen);
  const Sites numbers = sitesOf(state.numbersPair, chosen);
  Captions captions;
  captions.firstTrace = traces.first, captions.secondTrace = traces.second;
  captions.leftSpectrum = spectra.first, captions.rightSpectrum = spectra.second;
  captions.coherence = sitesOf(state.coherencePair, chosen).both();
  captions.firstNumbers = numbers.first, captions.secondNumbers = numbers.second;
  captions.strip = "Sincronia " + sitesOf(state.stripPair, chosen).both();
  captions.examination = nameOf(state);
  const bool inMemory = state.intervalSelectable == 1 && state.fileLoopRunning == 0;
  captions.namesDiffer = inMemory && !captions.examination.empty() && boxesDiffer(state);
  return captions;
}

}  // namespace korvinel::guidance
