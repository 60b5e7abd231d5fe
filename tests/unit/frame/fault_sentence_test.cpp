#include "frame/fault_sentence.h"

#include <gtest/gtest.h>

#include <new>

#include "values/fixed.h"
#include "values/int16.h"
#include "values/runtime_error.h"

namespace korvinel {
namespace {

template <typename Act>
std::string sentenceAfter(Act&& act) {
  try {
    act();
  } catch (const std::exception& fault) {
    return faultSentence(fault);
  }
  return "";
}

TEST(FaultSentence, SaysInPlainWordsWhatAFaultOfTheNumbersMeans) {
  EXPECT_EQ(sentenceAfter([] { (void)(Fixed(1) / Fixed(0)); }),
            "Operazione interrotta: Il calcolo non è possibile: il segnale è piatto o l'intervallo è vuoto. "
            "(Divisione per zero)");
  EXPECT_EQ(sentenceAfter([] { (void)Int16(40'000); }),
            "Operazione interrotta: Un numero è troppo grande per il programma. (Numero troppo grande per un campo di "
            "16 bit)");
  EXPECT_EQ(
      sentenceAfter([] { throw RuntimeError(Facts{.cause = Cause::indexOutside, .block = 203}); }),
      "Operazione interrotta: È stato chiesto un dato che il programma non ha. (La lettura si è fermata al blocco "
      "203. Indice fuori dai limiti)");
}

TEST(FaultSentence, LeavesWhatIsInPlainWordsAndMakesItOneLine) {
  EXPECT_EQ(sentenceAfter([] {
              throw RuntimeError(Facts{.cause = Cause::notWritable, .path = "C:\\a", .systemReason = "Disk full"});
            }),
            "Operazione interrotta: Impossibile scrivere il file C:\\a: Disk full");
}

TEST(FaultSentence, ExplainsWhatTheLibrariesThrow) {
  EXPECT_EQ(
      sentenceAfter([] { throw std::bad_alloc(); }).find("Operazione interrotta: La memoria del computer non basta. ("),
      0U);
  EXPECT_EQ(sentenceAfter([] {
              (void)std::string("a").at(5);
            }).find("Operazione interrotta: Il programma ha fatto un errore. ("),
            0U);
}

}  // namespace
}  // namespace korvinel
