#include "guidance/quick_notes.h"

#include <gtest/gtest.h>

namespace korvinel::guidance {
namespace {

using Texts = std::vector<std::string>;

TEST(QuickNotes, AreEditedAsOneLine) {
  EXPECT_EQ(quickNotesText(usualQuickNotes()), "occhi chiusi, occhi aperti, movimento, tosse");
  EXPECT_EQ(quickNotesFrom(quickNotesText(usualQuickNotes())), usualQuickNotes());
}

TEST(QuickNotes, EmptyAndRepeatedOnesAreLeftOut) {
  EXPECT_EQ(quickNotesFrom(" sonno ,, sonno;\tluce "), (Texts{"sonno", "luce"}));
  EXPECT_EQ(quickNotesFrom("1,2,3,4,5,6,7"), (Texts{"1", "2", "3", "4", "5", "6"}));
}

TEST(QuickNotes, NoneLeftGivesTheUsualOnes) {
  for (const char* text : {"", " , ,", "\n"}) EXPECT_EQ(quickNotesFrom(text), usualQuickNotes());
}

}  // namespace
}  // namespace korvinel::guidance
