#include "guidance/report_standing.h"

#include <vector>

#include "eeg/block.h"
#include "eeg/montage.h"
#include "eeg/spectrum.h"
#include "frame/main_state.h"
#include "frame/program_values.h"
#include "guidance/at_hand.h"
#include "guidance/clock_text.h"
#include "report/report_state.h"

namespace korvinel::guidance {
namespace {

bool isSameExamination(const ReportOrigin& origin, const MainState& state) {
  return origin.examination == state.shared.examination && state.intervalSelectable == 1;
}

/// The same names, but opened or acquired again since.
std::string differsBy(const ReportOrigin& origin, const MainState& state) {
  const AtHand now = atHand(state);
  const bool sameNames = origin.file == (now == AtHand::opened ? state.openFileTitle : state.shared.dataFileName) &&
                         origin.subject == state.shared.subjectName;
  if (!hasGraphs(now)) return ". Ora non è aperto nessun esame.";
  if (sameNames && now == AtHand::opened) return ", com'era prima di riaprirlo.";
  if (sameNames) return ", un esame precedente con lo stesso nome.";
  return now == AtHand::live ? ", non l'esame ora in corso." : ", non l'esame ora aperto.";
}

void judgeExamination(ReportStanding& standing, const ReportOrigin& origin, const MainState& state) {
  const std::string subject = origin.file + ", " + intervalText(origin.firstBlock, origin.lastBlock);
  const int first = state.shared.analysisFirstBlock, last = state.shared.analysisLastBlock;
  standing.line = "Questo rapporto riguarda " + subject;
  if (!isSameExamination(origin, state)) {
    standing.line += differsBy(origin, state);
  } else if (first != origin.firstBlock || last != origin.lastBlock) {
    standing.line += ", non l'intervallo ora scelto (" + intervalText(first, last) + ").";
  } else {
    standing.line = "Rapporto di " + subject + ".";
    standing.current = true;
  }
}

bool isFlat(const ReportState& report, int channel) {
  for (int k = 1; k <= eeg::reportedIndexes; ++k)
    if (report.meanSpectrum[channel][k] != 0) return false;
  return true;
}

/// The sites without any signal in the interval: "F1", "F1 e T5", "F1, F2 e T5"; "" = none.
std::string flatSites(const ReportState& report) {
  std::vector<std::string> sites;
  for (int channel = 1; channel <= eeg::channelCount; ++channel)
    if (isFlat(report, channel)) sites.emplace_back(eeg::siteOf(channel));
  std::string text;
  for (std::size_t i = 0; i < sites.size(); ++i)
    text += (i == 0 ? "" : i + 1 == sites.size() ? " e " : ", ") + sites[i];
  return text;
}

}  // namespace

ReportOrigin reportOrigin(const ProgramValues& shared) {
  return {shared.examination, shared.dataFileName, shared.subjectName, shared.analysisFirstBlock,
          shared.analysisLastBlock};
}

std::string intervalText(int firstBlock, int lastBlock) {
  if (lastBlock < firstBlock) return "intervallo vuoto";
  return clockText((firstBlock - 1) * eeg::secondsPerBlock) + "-" + clockText(lastBlock * eeg::secondsPerBlock);
}

void judgeData(ReportStanding& standing, const ReportOrigin& origin, const ReportState& report) {
  const std::string flat = flatSites(report);
  const std::string flatReason = "segnale piatto in " + flat + ".";
  if (origin.lastBlock < origin.firstBlock)
    standing.missing = "Rapporto non calcolato: l'intervallo è vuoto. Sceglierlo di nuovo da sinistra a destra.";
  else if (report.reached != ReportStep::verdicts)
    standing.missing =
        "Rapporto non calcolato: " + (flat.empty() ? std::string("il calcolo si è interrotto.") : flatReason);
  else if (!flat.empty())
    standing.doubtful = "Commenti non validi: " + flatReason;
}

ReportStanding reportStanding(const ReportOrigin& origin, const ReportState& report, const MainState& state) {
  ReportStanding standing;
  judgeExamination(standing, origin, state);
  judgeData(standing, origin, report);
  return standing;
}

}  // namespace korvinel::guidance
