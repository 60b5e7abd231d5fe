#include "frame/fault_text.h"

#include "values/fault_template.h"

namespace korvinel {
namespace {

// The last part of a sentence, from its first colon, is left out if there is no reason.
constexpr FaultTemplates sentences = {{
    {Cause::tooLargeFor16Bits, "Numero troppo grande per un campo di 16 bit"},
    {Cause::tooLargeFor32Bits, "Numero troppo grande per un campo di 32 bit"},
    {Cause::tooLargeForFixed, "Numero troppo grande per quattro decimali in 64 bit"},
    {Cause::tooLargeForAnyNumber, "Numero troppo grande: <text>"},
    {Cause::indexOutside, "Indice fuori dai limiti"},
    {Cause::zeroDivisor, "Divisione per zero"},
    {Cause::emptyInterval, "Divisione per zero: l'intervallo non ha blocchi"},
    {Cause::noCorrelation, "Correlazione non calcolabile"},
    {Cause::noNumber, "Numero non valido: \"<text>\""},
    {Cause::fieldTooLong, "Campo troppo lungo: il file è danneggiato"},
    {Cause::quoteMissing, "Mancano le virgolette finali di un testo"},
    {Cause::endOfFile, "Fine del file inattesa"},
    {Cause::notReadable, "Impossibile leggere il file <path>:\r<reason>"},
    {Cause::notWritable, "Impossibile scrivere il file <path>:\r<reason>"},
    {Cause::notRemoved, "Impossibile cancellare il file <path>:\r<reason>"},
    {Cause::notRenamed, "Impossibile rinominare il file <path>:\r<reason>: <newPath>"},
    {Cause::folderNotMade, "<reason>: <path>"},
    {Cause::noHome, "L'utente non ha una cartella personale in cui tenere le registrazioni."},
    {Cause::portSettings, "Impostazioni della porta seriale non valide: <text>"},
    {Cause::portMissing, "La porta seriale <path> non c'è: <reason>"},
    {Cause::noPort, "<path> non è una porta seriale"},
    {Cause::portForbidden, "La porta seriale <path> non si apre: manca il permesso (gruppo dialout)"},
    {Cause::portInUse, "La porta seriale <path> è già in uso"},
    {Cause::portNotOpened, "La porta seriale <path> non si apre: <reason>"},
    {Cause::portRefusesSettings, "La porta seriale <path> non accetta le impostazioni: <reason>"},
    {Cause::portClosed, "La porta seriale è chiusa"},
    {Cause::portSilent, "La porta seriale non risponde: <reason>"},
    {Cause::portFull, "La porta seriale non accetta dati"},
    {Cause::foreign, "<reason>"},
}};
static_assert(areInOrder(sentences));

const char* nameOf(ItemMeaning meaning) {
  switch (meaning) {
    case ItemMeaning::text: return "testo";
    case ItemMeaning::number: return "numero";
    case ItemMeaning::serialPort: return "numero della porta seriale";
    case ItemMeaning::calibrationFactor: return "fattore di calibrazione";
  }
  return "";
}

/// Where it happened, as a line of its own, or "".
std::string placeOf(const Facts& facts) {
  if (!facts.installation.empty()) return "Impossibile creare la cartella " + facts.installation + ":\r";
  if (facts.item > 0)
    return facts.parameterFile + ": manca o non è valido l'elemento " + std::to_string(facts.item) + " (" +
           nameOf(facts.meaning) + ").\r";
  if (facts.block) return "La lettura si è fermata al blocco " + std::to_string(*facts.block) + ".\r";
  return "";
}

}  // namespace

std::string faultText(const Facts& facts) {
  const std::string where = facts.placeOnDisk.empty() ? "" : "\r(" + facts.placeOnDisk + ")";
  return placeOf(facts) + filled(sentences, facts, "non è un normale file") + where;
}

}  // namespace korvinel
