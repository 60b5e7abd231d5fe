#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

#include "frame/main_state.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/machine.h"
#include "platform/platform.h"
#include "platform/timing.h"
#include "recording/data_paths.h"
#include "recording/lock_note.h"

namespace korvinel {
namespace {

using platform::LockOutcome;

/// Who is acquiring here and since when; nothing about the patient.
std::string noteOf(const MainState& state) {
  const platform::CalendarTime now = state.host.clock.localTime();
  std::array<char, 64> since{};
  std::snprintf(since.data(), since.size(), "dalle %02d:%02d del %02d/%02d/%04d", now.hour, now.minute, now.day,
                now.month, now.year);
  return lockNote(state.host.machine.identity(), since.data());
}

/// The note comes from another program: it is shown only if it is a text of one or two lines.
std::string shownNote(const std::string& note) {
  const auto isControl = [](char sign) { return static_cast<unsigned char>(sign) < ' ' && sign != '\r'; };
  if (note.empty() || std::any_of(note.begin(), note.end(), isControl)) return "un altro programma";
  return note;
}

bool refuse(MainState& state, const std::string& holder) {
  state.host.dialogs.notice("In questa cartella dei dati è già in corso un esame:\r" + shownNote(holder) +
                            "\rDue esami insieme si mescolerebbero in un solo file.\r"
                            "Finché l'altro non è concluso qui si possono aprire,\r"
                            "rivedere e stampare le registrazioni.");
  return false;
}

bool goOnWithout(MainState& state, const std::string& text) {
  const std::string question = text + "\rPremere OK per continuare lo stesso\roppure Cancel per rinunciare.";
  return state.host.dialogs.ask(question, "Attenzione!") == platform::Choice::ok;
}

}  // namespace

bool MainState::reserveDataFolder() {
  releaseDataFolder();
  platform::LockAttempt attempt = host.files.lock(folderLockPath, noteOf(*this));
  folderLock = std::move(attempt.lock);
  switch (attempt.outcome) {
    case LockOutcome::taken: return true;
    case LockOutcome::held: return refuse(*this, attempt.told);
    case LockOutcome::notWritable:
      return goOnWithout(*this, "Nella cartella dei dati non si può scrivere:\r" + attempt.told +
                                    "\rI segnali si possono vedere, ma non registrare.");
    case LockOutcome::notOrdinary: attempt.told += ": non è un normale file"; break;
    case LockOutcome::notOffered: break;
  }
  return goOnWithout(*this, "La cartella dei dati non si può riservare a questo esame:\r" + attempt.told +
                                "\rSe un altro programma vi registra nello stesso momento,\r"
                                "i dati di due pazienti si mescolano.");
}

void MainState::releaseDataFolder() { folderLock.reset(); }

}  // namespace korvinel
