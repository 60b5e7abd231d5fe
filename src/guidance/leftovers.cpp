#include "guidance/leftovers.h"

#include <algorithm>

#include "frame/main_state.h"
#include "frame/main_window.h"
#include "guidance/at_hand.h"

namespace korvinel::guidance {
namespace {

bool showsAFile(const platform::Surface& panel) {
  const auto texts = panel.texts();
  return std::any_of(texts.begin(), texts.end(), [](const std::string& text) {
    return text.starts_with(" Nome soggetto=") || text == " Lettura interrotta.";
  });
}

/// The labels of an empty window are empty, or hold their captions and today's date ("Data =").
bool showAnExamination(const MainWindow& window) {
  const std::string& date = window.dateLabel.text();
  const std::string& time = window.timeLabel.text();
  return !window.blockLabel.text().empty() || !window.zLabel.text().empty() || (!time.empty() && time != "Tempo=") ||
         date.starts_with("Data=") || date.starts_with("Intervallo");
}

void giveReasons(Leftovers& left, AtHand now) {
  if (left == Leftovers{}) return;
  left.reason =
      now == AtHand::linking
          ? "Esame precedente, non più in memoria. Il nuovo esame sta per cominciare."
          : "Esame precedente, non più in memoria. Premere Start per un nuovo esame o Apri File per rivederne uno.";
  left.labelsReason = "Dati dell'esame precedente. I nomi qui sopra valgono per il prossimo esame.";
}

}  // namespace

Leftovers leftoversOf(const MainState& state) {
  Leftovers left;
  const AtHand now = atHand(state);
  if (hasGraphs(now)) return left;
  left.firstTrace = left.secondTrace = state.tracesPair != 0;
  left.spectra = state.spectraPair != 0;
  left.numbers = state.coherencePair != 0 || state.numbersPair != 0;
  left.strip = state.stripPair != 0;
  left.messages = showsAFile(state.window.messagePanel);
  left.labels = showAnExamination(state.window);
  giveReasons(left, now);
  return left;
}

}  // namespace korvinel::guidance
