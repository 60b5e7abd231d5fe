#include "guidance/link_advice.h"

#include "frame/fault_text.h"
#include "frame/main_state.h"
#include "guidance/wording.h"

namespace korvinel::guidance {
namespace {

/// At most two bytes, as a service technician wants them: "4E 4F".
std::string bytesOf(const std::string& answer) {
  constexpr auto digits = "0123456789ABCDEF";
  std::string text;
  for (const char letter : answer) {
    const auto byte = static_cast<unsigned char>(letter);
    text += std::string(text.empty() ? "" : " ") + digits[byte / 16] + digits[byte % 16];
  }
  return text;
}

std::string portAdvice(const Facts& facts) {
  switch (facts.cause) {
    case Cause::portMissing: return "la porta non c'è. Collegare il cavo dello strumento, poi OK.";
    case Cause::noPort: return "non è una porta seriale. Controllare a che cosa è collegata, poi OK.";
    case Cause::portForbidden:
      return "manca il permesso. Chiedere a chi amministra il computer di aggiungere l'utente al gruppo dialout, poi "
             "rientrare nella sessione.";
    case Cause::portInUse: return "la porta è usata da un altro programma. Chiuderlo, poi OK.";
    case Cause::portSilent:
    case Cause::portClosed:
    case Cause::portFull: return "il collegamento si è interrotto. Controllare il cavo e l'adattatore, poi OK.";
    default: return oneLine(faultText(facts)) + ".";
  }
}

std::string reason(const MainState& state) {
  switch (state.linkTrouble) {
    case LinkTrouble::none: break;
    case LinkTrouble::port:
      if (state.lineFault) return portAdvice(*state.lineFault);
      return "il collegamento si è interrotto. Controllare il cavo e l'adattatore, poi OK.";
    case LinkTrouble::silence:
      return "la porta si apre ma lo strumento tace. Controllare che sia acceso e collegato, poi OK.";
    case LinkTrouble::otherAnswer:
      return "risponde qualcosa che non è lo strumento (" + bytesOf(state.linkAnswer) +
             "). Controllare che sia la porta giusta, poi OK.";
    case LinkTrouble::noSilence: return "lo strumento risponde e poi non tace. Spegnerlo e riaccenderlo, poi OK.";
    case LinkTrouble::lostFrames:
      return "i campioni arrivano incompleti. Chiudere gli altri programmi e controllare l'adattatore, poi OK.";
  }
  return "";
}

}  // namespace

std::string portName(const MainState& state) { return "COM" + std::to_string(state.serialPort); }

std::string linkAdvice(const MainState& state, const std::string& device) {
  const std::string where = device.empty() || device == portName(state) ? "" : " (" + device + ")";
  return portName(state) + where + ": " + reason(state);
}

}  // namespace korvinel::guidance
