#include "recording/conclusion.h"

#include <algorithm>
#include <utility>

#include "eeg/block.h"
#include "frame/fault_text.h"
#include "frame/main_state.h"
#include "frame/program_values.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/machine.h"
#include "platform/platform.h"
#include "platform/skip_on_fault.h"
#include "recording/channel_record.h"
#include "recording/data_file.h"
#include "recording/data_paths.h"
#include "recording/notes.h"
#include "recording/record_line.h"
#include "recording/recording_names.h"
#include "recording/safe_keeping.h"
#include "recording/side_file.h"
#include "values/runtime_error.h"

namespace korvinel {
namespace {

using platform::Choice;
using platform::skipOnFault;

constexpr auto title = "Korvinel";

void tell(MainState& state, std::string text) {
  if (state.nobodyToAsk == 0) return state.host.dialogs.notice(text);
  std::replace(text.begin(), text.end(), '\r', ' ');
  state.host.machine.tell(text);
}

/// Asks only about what has not been reported yet: while a box was open, the program's end may have done all of this.
bool isStillToBeSaved(const MainState& state) {
  const bool anythingRecorded = state.temporaryContent.size() > recordedHeaderBytes(state);
  return state.recordingFaultUntold == 1 && anythingRecorded && state.dataFileWhole == 0 &&
         state.savedElsewhere.empty() && !recordedDataAreKept(state);
}

void writeDataFile(MainState& state, const std::string& path) {
  std::string bytes = headerLine(state.shared.subjectName, state.recordingDate, state.noteCount);
  for (int note = 1; note <= state.noteCount; ++note) bytes += noteLine(state.noteTimes[note], state.noteTexts[note]);
  bytes += state.temporaryContent.substr(recordedHeaderBytes(state));
  const auto file = state.host.files.create(path);
  file->write(bytes);
  file->synchronise();
}

/// Returns the reason of a failure, or "".
std::string saveIn(MainState& state, const std::string& folder) {
  auto& files = state.host.files;
  const std::string path = folder + freeFileName(files, folder, state.shared.dataFileName);
  try {
    writeDataFile(state, path);
    state.savedElsewhere = path;
    return "";
  } catch (const RuntimeError& fault) {
    skipOnFault([&] { files.remove(path); });
    return faultText(fault);
  }
}

bool wantsAnotherPlace(MainState& state, const std::string& cause) {
  const std::string text = "La registrazione non è al sicuro!\r" + cause +
                           "\rPremere OK per scegliere la cartella in cui salvarla,\roppure Cancel per rinunciare.";
  return state.host.dialogs.ask(text, title) == Choice::ok;
}

bool givesTheRecordingUp(MainState& state) {
  const std::string text =
      "Rinunciare davvero alla registrazione?\rQuanto non è stato scritto sarà perduto per sempre.\r"
      "Premere OK per rinunciare,\roppure Cancel per scegliere una cartella.";
  return state.host.dialogs.ask(text, title) == Choice::ok;
}

void askForAnotherPlace(MainState& state) {
  std::string cause = state.recordingFault ? faultText(*state.recordingFault) : "";
  while (isStillToBeSaved(state)) {
    if (!wantsAnotherPlace(state, cause)) {
      if (!isStillToBeSaved(state) || givesTheRecordingUp(state)) return;
      continue;
    }
    const std::string folder =
        state.host.dialogs.chooseFolder("Dove salvare la registrazione", state.host.machine.homeFolder());
    if (!folder.empty() && isStillToBeSaved(state)) cause = saveIn(state, folder);
  }
}

void findAnotherPlace(MainState& state) {
  if (!isStillToBeSaved(state)) return;
  if (state.nobodyToAsk == 0) return askForAnotherPlace(state);
  const std::string fault = saveIn(state, state.host.machine.homeFolder());
  if (!fault.empty()) tell(state, fault);
}

std::string secondsNotWritten(const MainState& state) {
  const int bytes = static_cast<int>(state.temporaryContent.size()) - state.temporaryWritten;
  const int blocks = (bytes + blockBytes - 1) / blockBytes;
  return blocks > 0 ? "\rNe mancano gli ultimi " + std::to_string(blocks * eeg::secondsPerBlock) + " secondi." : "";
}

std::string whereTheDataAre(const MainState& state) {
  if (state.dataFileWhole == 1 && state.setAsidePath.empty()) return "\rIl file dell'esame è completo.";
  if (state.dataFileWhole == 1)
    return "\rIl file dell'esame è completo.\rUna copia dei dati è nel file\r" + state.setAsidePath;
  if (!state.savedElsewhere.empty()) return "\rLa registrazione completa è nel file\r" + state.savedElsewhere;
  if (state.setAsidePath.empty()) return "\rLa registrazione non è stata salvata.";
  std::string text = "\rI dati registrati sono conservati nel file\r" + state.setAsidePath + secondsNotWritten(state);
  if (!sideFileIsComplete(state)) text += "\rLe note non sono complete.";
  return text;
}

std::string whatWasChanged(const MainState& state) {
  std::string text;
  if (state.blocksFromMemory > 0)
    text += "\rIl file temporaneo era stato alterato: i blocchi presi dalla memoria sono " +
            std::to_string(state.blocksFromMemory) + ".";
  if (!state.foreignPaths.empty())
    text += "\rAl posto del file temporaneo c'era altro, conservato in" + state.foreignPaths;
  return text;
}

void tellOnce(MainState& state) {
  if (state.recordingFaultUntold == 0) return;
  state.recordingFaultUntold = 0;
  if (!state.recordingFault) return tell(state, "La registrazione è completa." + whatWasChanged(state));
  tell(state, "Errore di scrittura durante la registrazione!\r" + faultText(*state.recordingFault) +
                  whereTheDataAre(state) + whatWasChanged(state));
}

}  // namespace

void concludeRecording(MainState& state) {
  const platform::LastWords guard(state.host.dialogs);
  findAnotherPlace(state);
  tellOnce(state);
  if (!state.recordingNotice.empty()) tell(state, std::exchange(state.recordingNotice, ""));
}

void bringRecordingHome(MainState& state) {
  skipOnFault([&] {
    if (DataFileAssembly* const rest = std::exchange(state.assembly, nullptr)) return finishAssembling(*rest);
    if (state.recordingActive != 1) return;
    takeOpenNote(state);
    takeFreeName(state);
    assembleWithoutEvents(state);
  });
  state.recordingActive = state.recordingArmed = 0;
  skipOnFault([&] { concludeRecording(state); });
}

}  // namespace korvinel
