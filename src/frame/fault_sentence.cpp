#include "frame/fault_sentence.h"

#include <algorithm>
#include <new>

#include "frame/fault_text.h"

namespace korvinel {
namespace {

/// Empty if the fault's text is plain already.
std::string meaningOf(const std::exception& fault) {
  if (dynamic_cast<const std::bad_alloc*>(&fault) != nullptr) return "La memoria del computer non basta.";
  const auto* known = dynamic_cast<const RuntimeError*>(&fault);
  if (known == nullptr) return "Il programma ha fatto un errore.";
  switch (known->fault) {
    case Fault::divisionByZero: return "Il calcolo non è possibile: il segnale è piatto o l'intervallo è vuoto.";
    case Fault::overflow: return "Un numero è troppo grande per il programma.";
    case Fault::subscript: return "È stato chiesto un dato che il programma non ha.";
    default: return "";
  }
}

}  // namespace

std::string faultSentence(const std::exception& fault) {
  std::string fact = faultText(fault);
  std::replace(fact.begin(), fact.end(), '\r', ' ');
  const std::string meaning = meaningOf(fault);
  return "Operazione interrotta: " + (meaning.empty() ? fact : meaning + " (" + fact + ")");
}

}  // namespace korvinel
