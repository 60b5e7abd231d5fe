#include "recording/record_line.h"

#include <gtest/gtest.h>

namespace korvinel {
namespace {

TEST(RecordLine, HeaderHoldsSubjectDateWithTagTypeAndNoteCount) {
  EXPECT_EQ(headerLine("Rossi", "21/11/2026", 3), "\"Rossi\",\"21/11/2026 V3\",\"4canali\",3\r\n");
}

TEST(RecordLine, TemporaryHeaderHasThreeFieldsAndNoTag) {
  EXPECT_EQ(temporaryHeaderLine("Rossi", "21/11/2026"), "\"Rossi\",\"21/11/2026\",\"4canali\"\r\n");
}

TEST(RecordLine, NoteTimesAreInShortestDecimalForm) {
  const std::pair<float, const char*> cases[] = {{2.0F, "2"}, {15.0F, "15"}, {0.5F, ".5"}, {-0.25F, "-.25"}};
  for (const auto& [time, text] : cases) EXPECT_EQ(noteLine(time, "x"), std::string(text) + ",\"x\"\r\n");
}

TEST(RecordLine, TextsAreStoredInCodePage1252) {
  EXPECT_EQ(noteLine(2, "perch\xC3\xA9 \xE2\x82\xAC"), "2,\"perch\xE9 \x80\"\r\n");
}

TEST(RecordLine, WhatALineCannotHoldIsAltered) {
  EXPECT_EQ(noteLine(2, "un \"tic\"\r\nqui"), "2,\"un 'tic'  qui\"\r\n");
  EXPECT_EQ(noteLine(2, "\xE6\x97\xA5"), "2,\"?\"\r\n");
}

}  // namespace
}  // namespace korvinel
