#include "frame/fault_text.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

namespace korvinel {
namespace {

Facts allFactsOf(Cause cause) {
  return {.cause = cause, .path = "PATH", .newPath = "NEW", .text = "TEXT", .systemReason = "REASON"};
}

TEST(FaultText, SaysEveryCauseInItalian) {
  const std::map<Cause, const char*> texts = {
      {Cause::tooLargeFor16Bits, "Numero troppo grande per un campo di 16 bit"},
      {Cause::tooLargeFor32Bits, "Numero troppo grande per un campo di 32 bit"},
      {Cause::tooLargeForFixed, "Numero troppo grande per quattro decimali in 64 bit"},
      {Cause::tooLargeForAnyNumber, "Numero troppo grande: TEXT"},
      {Cause::indexOutside, "Indice fuori dai limiti"},
      {Cause::zeroDivisor, "Divisione per zero"},
      {Cause::emptyInterval, "Divisione per zero: l'intervallo non ha blocchi"},
      {Cause::noCorrelation, "Correlazione non calcolabile"},
      {Cause::noNumber, "Numero non valido: \"TEXT\""},
      {Cause::fieldTooLong, "Campo troppo lungo: il file è danneggiato"},
      {Cause::quoteMissing, "Mancano le virgolette finali di un testo"},
      {Cause::endOfFile, "Fine del file inattesa"},
      {Cause::notReadable, "Impossibile leggere il file PATH:\rREASON"},
      {Cause::notWritable, "Impossibile scrivere il file PATH:\rREASON"},
      {Cause::notRemoved, "Impossibile cancellare il file PATH:\rREASON"},
      {Cause::notRenamed, "Impossibile rinominare il file PATH:\rREASON: NEW"},
      {Cause::folderNotMade, "REASON: PATH"},
      {Cause::noHome, "L'utente non ha una cartella personale in cui tenere le registrazioni."},
      {Cause::portSettings, "Impostazioni della porta seriale non valide: TEXT"},
      {Cause::portMissing, "La porta seriale PATH non c'è: REASON"},
      {Cause::noPort, "PATH non è una porta seriale"},
      {Cause::portForbidden, "La porta seriale PATH non si apre: manca il permesso (gruppo dialout)"},
      {Cause::portInUse, "La porta seriale PATH è già in uso"},
      {Cause::portNotOpened, "La porta seriale PATH non si apre: REASON"},
      {Cause::portRefusesSettings, "La porta seriale PATH non accetta le impostazioni: REASON"},
      {Cause::portClosed, "La porta seriale è chiusa"},
      {Cause::portSilent, "La porta seriale non risponde: REASON"},
      {Cause::portFull, "La porta seriale non accetta dati"},
      {Cause::foreign, "REASON"},
  };
  ASSERT_EQ(texts.size(), static_cast<std::size_t>(causeCount));
  std::set<std::string> different;
  for (const auto& [cause, text] : texts) EXPECT_EQ(faultText(allFactsOf(cause)), text);
  for (const auto& [cause, text] : texts) EXPECT_TRUE(different.insert(text).second) << text;
}

TEST(FaultText, EndsBeforeAReasonThatTheSystemDoesNotGive) {
  EXPECT_EQ(faultText(Facts{.cause = Cause::notReadable, .path = "C:\\a"}), "Impossibile leggere il file C:\\a");
  EXPECT_EQ(faultText(Facts{.cause = Cause::notRenamed, .path = "C:\\a", .newPath = "C:\\b"}),
            "Impossibile rinominare il file C:\\a");
  EXPECT_EQ(faultText(Facts{.cause = Cause::portMissing, .path = "COM2"}), "La porta seriale COM2 non c'è");
  EXPECT_EQ(faultText(Facts{.cause = Cause::portSilent}), "La porta seriale non risponde");
}

TEST(FaultText, SaysWhereAFileLiesAndThatItIsNoOrdinaryOne) {
  EXPECT_EQ(faultText(Facts{.cause = Cause::notWritable,
                            .path = "C:\\a",
                            .placeOnDisk = "/disk/a",
                            .systemReason = "No space left on device"}),
            "Impossibile scrivere il file C:\\a:\rNo space left on device\r(/disk/a)");
  EXPECT_EQ(faultText(Facts{.cause = Cause::notReadable, .path = "/dev/null", .notOrdinary = true}),
            "Impossibile leggere il file /dev/null:\rnon è un normale file");
}

TEST(FaultText, LeavesAPathThatLooksLikeAMarkAsItIs) {
  EXPECT_EQ(faultText(Facts{.cause = Cause::notReadable, .path = "a<reason>:b", .systemReason = "<path>"}),
            "Impossibile leggere il file a<reason>:b:\r<path>");
}

TEST(FaultText, BeginsWithThePlaceWhereItHappened) {
  EXPECT_EQ(faultText(Facts{.cause = Cause::endOfFile, .block = 3}),
            "La lettura si è fermata al blocco 3.\rFine del file inattesa");
  EXPECT_EQ(faultText(Facts{.cause = Cause::folderNotMade,
                            .path = "/data/ports",
                            .systemReason = "Permission denied",
                            .installation = "/data/drive_c/QUARVEL5"}),
            "Impossibile creare la cartella /data/drive_c/QUARVEL5:\rPermission denied: /data/ports");
  const std::pair<ItemMeaning, const char*> meanings[] = {{ItemMeaning::text, "testo"},
                                                          {ItemMeaning::number, "numero"},
                                                          {ItemMeaning::serialPort, "numero della porta seriale"},
                                                          {ItemMeaning::calibrationFactor, "fattore di calibrazione"}};
  for (const auto& [meaning, name] : meanings)
    EXPECT_EQ(faultText(Facts{.cause = Cause::noNumber,
                              .text = "x",
                              .parameterFile = "C:\\QUARVEL5\\Factors.val",
                              .item = 5,
                              .meaning = meaning}),
              std::string("C:\\QUARVEL5\\Factors.val: manca o non è valido l'elemento 5 (") + name +
                  ").\rNumero non valido: \"x\"");
}

TEST(FaultText, LeavesALibrarysTextAsItIs) {
  EXPECT_EQ(faultText(std::runtime_error("out: of paper")), "out: of paper");
}

}  // namespace
}  // namespace korvinel
