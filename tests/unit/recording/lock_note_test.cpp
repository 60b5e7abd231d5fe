#include "recording/lock_note.h"

#include <gtest/gtest.h>

namespace korvinel {
namespace {

const platform::Identity anna{"anna", "studio-1", 4711};

TEST(LockNote, IsReadAsItWasWritten) {
  const std::string note = lockNote(anna, "dalle 10:05 del 21/11/2026");
  EXPECT_EQ(note, "utente anna, computer studio-1, processo 4711,\rdalle 10:05 del 21/11/2026");
  const auto holder = holderIn(note);
  ASSERT_TRUE(holder);
  EXPECT_EQ(holder->self.user, "anna");
  EXPECT_EQ(holder->self.computer, "studio-1");
  EXPECT_EQ(holder->self.process, 4711);
  EXPECT_EQ(holder->since, "10:05");
  EXPECT_EQ(holder->day, "21/11/2026");
}

TEST(LockNote, OfAnotherProgramHasNoTime) {
  const auto holder = holderIn(lockNote(anna, "korvinel-recording recover"));
  ASSERT_TRUE(holder);
  EXPECT_EQ(holder->self.process, 4711);
  EXPECT_EQ(holder->since, "");
  EXPECT_EQ(holder->day, "");
}

TEST(LockNote, WithHalfATimeHasNone) {
  for (const char* second : {"dalle 10:05", "circa dalle 10:05 del 21/11/2026", "alle 10:05 del 21/11/2026"}) {
    const auto holder = holderIn(lockNote(anna, second));
    ASSERT_TRUE(holder) << second;
    EXPECT_EQ(holder->since + holder->day, "") << second;
  }
}

TEST(LockNote, OfAnotherFormHasNoHolder) {
  for (const char* note :
       {"", "anna", "utente anna,\rdalle 10:00", "utente anna, computer a", "x utente anna, computer a, processo 1,\r",
        "utente anna, computer a, processo ,\r", "utente anna, computer a, processo 1x,\r",
        "utente anna, computer a, processo 99999999999999999999,\r", "utente anna, computer a, processo 1"})
    EXPECT_FALSE(holderIn(note)) << note;
}

}  // namespace
}  // namespace korvinel
