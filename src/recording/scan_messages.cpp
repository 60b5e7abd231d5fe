#include "recording/scan_messages.h"

#include <initializer_list>

#include "eeg/block.h"
#include "frame/fault_text.h"
#include "frame/main_state.h"
#include "frame/main_window.h"
#include "frame/program_values.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "platform/skip_on_fault.h"
#include "values/number_text.h"

namespace korvinel {
namespace {

using platform::Colour;
using platform::skipOnFault;

void printSummary(MainState& state) {
  auto& panel = state.window.messagePanel;
  const auto print = [&](Colour ink, std::initializer_list<std::string> lines) {
    panel.setInk(ink);
    for (const std::string& line : lines) panel.print(line);
  };
  panel.clear();
  panel.printAt(2, 20, panel.ink(), " ");
  print(panel.ink(), {" Nome file=" + state.openFileTitle, " Nome soggetto=" + state.shared.subjectName,
                      " Data registrazione=" + state.recordingDate,
                      " Lunghezza file=" + signedText(state.shared.fileBlockCount) + " bloks", " "});
  print(Colour::lightRed,
        {" E' possibile anche iniziare a leggere da un punto", " qualsiasi del file spostando lo slider in basso,",
         " Premere Display per cominciare lettura file...", " oppure Analisi Finale...", " "});
  print(Colour::blue,
        {" E' possibile inoltre selezionare col mouse", " un intervallo di dati qualsiasi, basta premere",
         " col mouse sul punto iniziale del grafico sotto,", " e rilasciare sul punto finale, poi premere ",
         " il tasto Analisi.", " Si puo' cosi' avere una analisi quantitativa."});
  panel.setInk(Colour::black);
}

}  // namespace

void announceReading(MainState& state) {
  auto& panel = state.window.messagePanel;
  panel.clear();
  panel.box(10, 10, 120, 30, Colour::yellow);
  panel.printAt(12, 12, panel.ink(), " Attendere lettura file...");
}

void showScannedFile(MainState& state) {
  const int blocks = state.shared.fileBlockCount;
  state.window.blockLabel.setText("Totale=" + std::to_string(blocks * eeg::secondsPerBlock) + "s");
  skipOnFault([&] { state.drawCoherenceGraph(); });
  skipOnFault([&] { state.summariseSynchrony(); });
  skipOnFault([&] { state.drawSpectrumDisplay(); });
  state.window.zLabel.setText("Z1=" + std::to_string(state.shared.replayStartBlock) + "  Z2=" + std::to_string(blocks));
  state.window.noteBox.setEnabled(true);
  state.shared.dataFileName = state.openFileTitle;
  printSummary(state);
}

void showThatItWasStopped(MainState& state) {
  state.window.messagePanel.clear();
  state.window.messagePanel.printAt(2, 20, Colour::black, " Lettura interrotta.");
}

void tellReadFault(MainState& state) {
  if (!state.openingFault) return;
  state.host.dialogs.notice(faultText(*state.openingFault) +
                            "\rSi possono rivedere e analizzare solo i blocchi precedenti.");
}

}  // namespace korvinel
