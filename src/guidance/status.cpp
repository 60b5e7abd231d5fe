#include "guidance/status.h"

#include <algorithm>
#include <cmath>

#include "eeg/block.h"
#include "frame/fault_text.h"
#include "frame/main_state.h"
#include "frame/main_window.h"
#include "frame/program_values.h"
#include "guidance/link_advice.h"
#include "guidance/wording.h"
#include "platform/platform.h"
#include "platform/timing.h"

namespace korvinel::guidance {
namespace {

constexpr double handshakeSeconds = 4;     // until the instrument is asked
constexpr int blocksThatRecallADoubt = 5;  // a quarter of a minute, long enough to be read
constexpr int mostBlocks = eeg::blockLimit - 1;

Status line(Tone tone, const std::string& text) { return {tone, text, text}; }

Status linking(const MainState& state) {
  const std::string port = "Collegamento con " + portName(state);
  if (state.linkReady == 1) return line(Tone::busy, port + ": avvio dei segnali");
  const double left = handshakeSeconds - (state.host.clock.seconds() - state.handshakeStart);
  if (left <= 0) return line(Tone::busy, port + ": si attende la risposta dello strumento");
  return {Tone::busy, port + ": ancora " + std::to_string(static_cast<int>(std::ceil(left))) + " s", port};
}

/// The blocks that were left out, or "".
std::string rejected(const MainState& state) {
  if (state.blocksRejected == 0) return "";
  const int seen = state.blocksRejected + state.blockCount;
  return " · scartati " + std::to_string(state.blocksRejected) + " di " + std::to_string(seen) + " (soglia " +
         std::to_string(state.artefactThreshold) + ")";
}

Status recording(const MainState& state) {
  if (state.recordingFault)
    return line(Tone::fault, "Il disco non accetta la registrazione, che resta al sicuro in memoria: non chiudere. " +
                                 oneLine(faultText(*state.recordingFault)));
  if (state.recordingArmed == 1) return line(Tone::recording, "La registrazione comincia con il prossimo blocco");
  const int left = std::max(mostBlocks - state.blockCount, 0);
  return {Tone::recording,
          "Registrazione " + minutesOf(state.blockCount) + " · " + notes(state.noteCount) + " · restano " +
              minutesOf(left) + rejected(state),
          "Registrazione in corso"};
}

Status listening(const MainState& state) {
  return {Tone::listening, "In ascolto, NON si registra · " + minutesOf(state.blockCount) + rejected(state),
          "In ascolto, non si registra"};
}

bool wasInDoubtLately(const MainState& state) {
  return !state.alignmentFault.empty() && state.decodedBlocks - state.alignmentFaultBlock < blocksThatRecallADoubt;
}

Status acquiring(const MainState& state) {
  if (state.assembling == 1) return line(Tone::busy, "Salvataggio di " + state.shared.dataFileName);
  const bool ends = state.stopRequested == 1 || state.endRequested == 1;
  if (ends) return line(Tone::busy, "Si ferma alla fine del turno");
  if (wasInDoubtLately(state)) {
    const std::string kept = state.recordingActive == 1 ? " · la registrazione continua" : "";
    return line(Tone::warning, "Allineamento dei canali incerto: flusso riavviato" + kept);
  }
  return state.recordingActive == 1 ? recording(state) : listening(state);
}

Status readingFile(const MainState& state) {
  if (state.stopRequested == 1 || state.endRequested == 1) return line(Tone::busy, "Si ferma dopo questo blocco");
  const std::string block = std::to_string(state.blockCount);
  if (state.replayActive == 1)
    return {Tone::busy,
            "Replay " + block + " di " + std::to_string(state.shared.fileBlockCount) + ", velocità " +
                std::to_string(state.displaySpeed),
            "Replay di " + state.openFileTitle};
  const std::string total = state.scanTotal > 0 ? " di " + std::to_string(state.scanTotal) : "";
  return {Tone::busy, "Lettura " + block + total, "Lettura di " + state.openFileTitle};
}

Status recorded(const MainState& state) {
  const std::string content = ", " + blocks(state.lastRecording.blocks) + ", " + notes(state.lastRecording.notes);
  if (state.dataFileWhole == 1) return line(Tone::done, "Salvato: " + state.shared.dataFileName + content);
  if (!state.savedElsewhere.empty()) return line(Tone::warning, "Salvato altrove: " + state.savedElsewhere + content);
  if (!state.setAsidePath.empty())
    return line(Tone::fault, "File dell'esame non scritto: i dati sono conservati in " + state.setAsidePath);
  return line(Tone::fault, "La registrazione non è stata salvata");
}

Status openedFile(const MainState& state) {
  const std::string opened = state.openFileTitle + " · " + state.shared.subjectName;
  if (state.openingFault)
    return line(Tone::warning, "Letto solo in parte: " + opened + " · " + oneLine(faultText(*state.openingFault)));
  const int count = state.shared.fileBlockCount;
  return line(Tone::calm, "Aperto: " + opened + " · " + blocks(count) + " (" + minutesOf(count) + ")");
}

/// Nothing is under way.
Status resting(const MainState& state) {
  if (!state.openFilePath.empty() && state.intervalSelectable == 1) return openedFile(state);
  if (state.openingFault) return line(Tone::fault, "File non aperto: " + oneLine(faultText(*state.openingFault)));
  if (state.lastRecording.made) return recorded(state);
  if (state.intervalSelectable == 1) return line(Tone::warning, "Nessun file scritto: Registra non è stato premuto");
  return line(Tone::calm, "Pronto");
}

}  // namespace

Status statusOf(const MainState& state, const Surroundings& around) {
  if (state.linkTrouble != LinkTrouble::none && state.acquisitionPending())
    return line(Tone::fault, linkAdvice(state, around.serialDevice));
  if (state.linkPending == 1) return linking(state);
  if (state.fileLoopRunning == 1) return readingFile(state);
  return state.acquisitionPending() || state.assembling == 1 ? acquiring(state) : resting(state);
}

}  // namespace korvinel::guidance
