#include "guidance/interrupted_advice.h"

#include <gtest/gtest.h>

namespace korvinel::guidance {
namespace {

Interrupted ofRossi() {
  Interrupted interrupted;
  interrupted.subject = "Rossi Anna";
  interrupted.date = "21/11/2026";
  interrupted.blocks = 42;
  interrupted.notes = 2;
  return interrupted;
}

TEST(InterruptedText, SaysWhoWhenHowLongAndHowManyNotes) {
  Interrupted interrupted = ofRossi();
  EXPECT_EQ(interruptedText(interrupted, 1, 1), "Esame interrotto: Rossi Anna, 21/11/2026, durata 2:06, 2 note.");
  interrupted.blocks = 1;
  interrupted.notes = 1;
  EXPECT_EQ(interruptedText(interrupted, 1, 1), "Esame interrotto: Rossi Anna, 21/11/2026, durata 0:03, 1 nota.");
  interrupted.notes = 0;
  interrupted.notesAreDamaged = true;
  EXPECT_EQ(interruptedText(interrupted, 2, 3),
            "Esame interrotto (2 di 3): Rossi Anna, 21/11/2026, durata 0:03, nessuna nota. Una parte delle note non si "
            "legge.");
}

TEST(RecoveryText, SaysWhereTheExaminationIsOrWhyNot) {
  EXPECT_EQ(recoveryText({.outcome = RecoveryOutcome::recovered, .fileName = "uno (2).QVD", .blocks = 42, .notes = 2}),
            "Recuperato: uno (2).QVD, durata 2:06, 2 note.");
  EXPECT_EQ(recoveryText({.outcome = RecoveryOutcome::folderInUse}),
            "Non recuperato: un altro programma registra in questa cartella. Riprovare alla fine del suo esame.");
  EXPECT_EQ(recoveryText({.outcome = RecoveryOutcome::notReservable}),
            "Non recuperato: la cartella dei dati non si può riservare.");
  EXPECT_EQ(recoveryText({.outcome = RecoveryOutcome::nothingToMake}),
            "Non recuperato: il file temporaneo non c'è più.");
  const Facts full{.cause = Cause::notWritable, .path = "C:\\a", .systemReason = "No space left on device"};
  EXPECT_EQ(recoveryText({.outcome = RecoveryOutcome::failed, .fault = full}),
            "Non recuperato, i dati restano dove sono: Impossibile scrivere il file C:\\a: No space left on device");
}

TEST(InterruptedReminder, CountsWhatWaits) {
  EXPECT_EQ(interruptedReminder(0), "");
  EXPECT_EQ(interruptedReminder(1), "Un esame interrotto è da recuperare.");
  EXPECT_EQ(interruptedReminder(3), "3 esami interrotti sono da recuperare.");
}

}  // namespace
}  // namespace korvinel::guidance
