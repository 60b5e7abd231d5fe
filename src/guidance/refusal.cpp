#include "guidance/refusal.h"

#include "frame/main_state.h"
#include "frame/main_window.h"
#include "recording/file_header.h"
#include "values/code_page.h"

namespace korvinel::guidance {
namespace {

bool examinationRuns(const MainState& state) { return state.acquisitionRunning == 1 && state.fileLoopRunning == 0; }

std::string start(const MainState& state) {
  if (state.linkPending == 1) return "Start: il collegamento con lo strumento è già in corso.";
  if (examinationRuns(state)) return "Start: un esame è già in corso. Per finirlo premere Stop.";
  if (state.acquisitionRunning == 1) return "Start: prima deve finire la lettura del file, o premere Stop.";
  if (state.acquisitionPending()) return "Start: l'esame di prima sta finendo.";
  if (state.intervalSelectable == 1 && state.stopRequested == 0)
    return "Start: prima premere Stop, per lasciare i dati in memoria.";
  if (isBlank(state.window.fileNameBox.text())) return "Start: prima scrivere il nome del file.";
  if (isBlank(state.window.subjectBox.text())) return "Start: prima scrivere il nome del soggetto.";
  return "";
}

std::string stop(const MainState& state) {
  if (state.stopRequested == 1 && (state.fileLoopRunning == 1 || state.acquisitionPending()))
    return "Stop: è già stato premuto, si attende la fine.";
  const bool frees = state.intervalSelectable == 1 && state.stopRequested == 0;
  if (state.fileLoopRunning == 1 || state.acquisitionPending() || frees) return "";
  return "Stop: non c'è nulla da fermare.";
}

std::string record(const MainState& state) {
  if (state.recordingActive == 1) return "Registra: la registrazione è già in corso.";
  if (!examinationRuns(state) && state.linkPending == 0 && !state.acquisitionPending())
    return "Registra: prima premere Start e guardare i segnali.";
  if (state.linkPending == 1 && state.acquisitionRunning == 0)
    return "Registra: prima deve riuscire il collegamento con lo strumento.";
  if (state.stopRequested == 1 || state.endRequested == 1) return "Registra: l'esame sta finendo.";
  return "";
}

std::string note(const MainState& state) {
  if (!state.openFilePath.empty()) return "Annota: le note si scrivono durante un esame, non su un file aperto.";
  if (state.assembling == 1) return "Annota: il file dell'esame viene già scritto.";
  if (state.noteCount >= mostNotes) return "Annota: l'esame ha già 60 note.";
  return "";
}

std::string open(const MainState& state) {
  if (state.fileLoopRunning == 1 && state.acquisitionRunning == 0) return "";
  if (state.acquisitionRunning == 1 || state.acquisitionPending())
    return "Apri File: prima deve finire l'esame o la lettura in corso; premere Stop.";
  return "";
}

std::string replay(const MainState& state) {
  if (state.openFilePath.empty()) return "Display: prima aprire un file con Apri File.";
  if (state.acquisitionRunning == 1) return "Display: prima deve finire la lettura del file, o premere Stop.";
  return "";
}

std::string report(const MainState& state) {
  if (state.acquisitionRunning == 1) return "Analisi: prima deve finire l'esame o la lettura; premere Stop.";
  if (state.intervalSelectable == 0) return "Analisi: non ci sono dati in memoria.";
  return "";
}

std::string threshold(const MainState& state) {
  if (!state.window.ocularCheck.checked()) return "";
  return "Artefatti: la soglia si cambia solo senza la rimozione degli artefatti oculari.";
}

}  // namespace

std::string whyRefused(Command command, const MainState& state) {
  switch (command) {
    case Command::start: return start(state);
    case Command::stop: return stop(state);
    case Command::record: return record(state);
    case Command::note: return note(state);
    case Command::threshold: return threshold(state);
    case Command::open: return open(state);
    case Command::replay: return replay(state);
    case Command::report: return report(state);
    case Command::pair:
    case Command::print:
    case Command::end: return "";
  }
  return "";
}

}  // namespace korvinel::guidance
