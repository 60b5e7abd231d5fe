#include "guidance/suggestions.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace korvinel::guidance {
namespace {

KnownSubjects known(const std::vector<std::string>& names) {
  KnownSubjects subjects;
  for (const std::string& name : names) subjects.add(name, "21/11/2026");
  return subjects;
}

TEST(CompletionOf, IsTheOnlyNameThatBeginsLikeThis) {
  const KnownSubjects subjects = known({"Rossi Anna", "Verdi Niccolò"});
  EXPECT_EQ(subjects.completionOf("Ro"), "Rossi Anna");
  EXPECT_EQ(subjects.completionOf("rossi a"), "Rossi Anna");
  EXPECT_EQ(subjects.completionOf("verdi niccol"), "Verdi Niccolò");
  for (const char* none : {"", "R", "Rossi Anna", "rossi anna", "Rossi Annab", "Bianchi"})
    EXPECT_EQ(subjects.completionOf(none), "") << none;
}

TEST(CompletionOf, NeverChoosesAmongSeveralPersons) {
  const KnownSubjects subjects = known({"Rossi Anna", "Rossi Andrea", "Rossini"});
  EXPECT_EQ(subjects.completionOf("Ro"), "Rossi");
  EXPECT_EQ(subjects.completionOf("Rossi"), "") << "nothing more is common";
  EXPECT_EQ(subjects.completionOf("Rossi "), "Rossi An");
  EXPECT_EQ(known({"Rossi", "Rossi Anna"}).completionOf("Rossi"), "") << "it is a name already";
}

TEST(CompletionOf, EndsWithAWholeLetter) { EXPECT_EQ(known({"Nicolò", "Nicolá"}).completionOf("Ni"), "Nicol"); }

TEST(CompletionOf, HasTheLatestSpelling) {
  KnownSubjects subjects;
  subjects.add("ROSSI ANNA", "21/11/2026");
  subjects.add("Rossi Anna", "02/12/2026");
  subjects.add("rossi anna", "30/01/2026");
  subjects.add("  ", "21/11/2026");
  subjects.add("Neri", "?");
  EXPECT_EQ(subjects.completionOf("ros"), "Rossi Anna");
  EXPECT_EQ(subjects.completionOf("ne"), "Neri");
  EXPECT_EQ(subjects.completionOf("  "), "");
}

std::string fileNameFor(const std::string& subject, const std::vector<std::string>& taken = {}) {
  return suggestedFileName(subject, {2026, 1, 7, 9, 30, 0}, [&](const std::string& name) {
    return std::find(taken.begin(), taken.end(), name) == taken.end();
  });
}

TEST(SuggestedFileName, IsTheSubjectAndTheDayInPlainLetters) {
  EXPECT_EQ(fileNameFor("Rossi Anna"), "rossi-anna-2026-01-07");
  EXPECT_EQ(fileNameFor(" D'Angelo  Niccolò Š. "), "d-angelo-niccolo-s-2026-01-07");
  EXPECT_EQ(fileNameFor("Çelik Œuvre Žižek ÿß Š3"), "celik-ouvre-zizek-ys-s3-2026-01-07");
  EXPECT_EQ(fileNameFor(std::string(200, 'a')), std::string(60, 'a') + "-2026-01-07");
  EXPECT_EQ(fileNameFor(" ...'"), "");
}

TEST(SuggestedFileName, IsAFreeOne) {
  EXPECT_EQ(fileNameFor("Rossi", {"rossi-2026-01-07"}), "rossi-2026-01-07-2");
  EXPECT_EQ(fileNameFor("Rossi", {"rossi-2026-01-07", "rossi-2026-01-07-2"}), "rossi-2026-01-07-3");
  EXPECT_EQ(suggestedFileName("Rossi", {}, [](const std::string&) { return false; }), "");
}

TEST(RestOf, IsWhatFollowsTheTypedBeginning) {
  EXPECT_EQ(restOf("Rossi Anna", "ros"), "si Anna");
  EXPECT_EQ(restOf("Rossi", ""), "Rossi");
  EXPECT_EQ(restOf("Rossi", "Rossi"), "");
  EXPECT_EQ(restOf("Rossi", "rx"), "");
  EXPECT_EQ(restOf("Nicolò", "NICOLÒ"), "");
}

}  // namespace
}  // namespace korvinel::guidance
