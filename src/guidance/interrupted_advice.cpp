#include "guidance/interrupted_advice.h"

#include "frame/fault_text.h"
#include "guidance/wording.h"

namespace korvinel::guidance {
std::string interruptedText(const Interrupted& interrupted, int number, int count) {
  std::string text = "Esame interrotto";
  if (count > 1) text += " (" + std::to_string(number) + " di " + std::to_string(count) + ")";
  text += ": " + interrupted.subject + ", " + interrupted.date + ", durata " +
          minutesOf(static_cast<int>(interrupted.blocks)) + ", " + notes(interrupted.notes) + ".";
  return text + (interrupted.notesAreDamaged ? " Una parte delle note non si legge." : "");
}

std::string recoveryText(const Recovery& recovery) {
  switch (recovery.outcome) {
    case RecoveryOutcome::recovered:
      return "Recuperato: " + recovery.fileName + ", durata " + minutesOf(static_cast<int>(recovery.blocks)) + ", " +
             notes(recovery.notes) + ".";
    case RecoveryOutcome::folderInUse:
      return "Non recuperato: un altro programma registra in questa cartella. Riprovare alla fine del suo esame.";
    case RecoveryOutcome::notReservable: return "Non recuperato: la cartella dei dati non si può riservare.";
    case RecoveryOutcome::nothingToMake: return "Non recuperato: il file temporaneo non c'è più.";
    case RecoveryOutcome::failed: break;
  }
  return "Non recuperato, i dati restano dove sono: " + (recovery.fault ? oneLine(faultText(*recovery.fault)) : "");
}

std::string interruptedReminder(int count) {
  if (count == 0) return "";
  return count == 1 ? "Un esame interrotto è da recuperare."
                    : std::to_string(count) + " esami interrotti sono da recuperare.";
}

}  // namespace korvinel::guidance
