#include "values/code_page.h"

#include <gtest/gtest.h>

#include <string>

namespace korvinel {
namespace {

TEST(CodePage, EveryByteSurvivesTheWayToUtf8AndBack) {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  EXPECT_EQ(codePageFromUtf8(utf8FromCodePage(bytes)), bytes);
}

TEST(CodePage, KnowsItalianLettersAndTheEuro) {
  EXPECT_EQ(codePageFromUtf8("Nicolò è là €"), "Nicol\xF2 \xE8 l\xE0 \x80");
  EXPECT_EQ(utf8FromCodePage("perch\xE9 \x96 \x9C"), "perché – œ");
}

TEST(CodePage, WhatItDoesNotHoldBecomesAQuestionMark) { EXPECT_EQ(codePageFromUtf8("Ελ 😀 \xFF"), "?? ? ?"); }

TEST(CleanEntry, DropsWhatWouldBreakADataFilesLines) {
  EXPECT_EQ(cleanEntry("Rossi, \"Anna\"\t\n è", EntryKind::text), "Rossi Anna è");
  EXPECT_EQ(cleanEntry("occhi: aperti/chiusi?", EntryKind::text), "occhi: aperti/chiusi?");
}

TEST(CleanEntry, LeavesLettersOutsideThePageInATextForThemToBeTold) {
  EXPECT_EQ(cleanEntry("Ngọc Ω 日 😀", EntryKind::text), "Ngọc Ω 日 😀");
  EXPECT_EQ(cleanEntry("Ngọc Ω 日 😀", EntryKind::fileName), "Ngc   ");
}

TEST(CleanEntry, WritesTheFirstAndTheLastCharacterOfEachLengthAsItWasTyped) {
  for (const std::string text : {"~", "\u00A0", "\u07FF", "\u0800", "\uFFFD", "\U00010000", "\U0010FFFD"})
    EXPECT_EQ(cleanEntry(text, EntryKind::text), text);
}

TEST(CleanEntry, DropsWhatNobodyCanSee) {
  EXPECT_EQ(cleanEntry("\uFEFFRos\u200Bsi\u202E \u2060A\u2028", EntryKind::text), "Rossi A");
}

TEST(CleanEntry, DropsControlCharactersBeyondAsciiAndKeepsTheBlankAfterThem) {
  EXPECT_EQ(cleanEntry("a\u007F\u0080\u0085\u009Fb\u00A0c", EntryKind::text), "ab\u00A0c");
}

TEST(LettersOutsidePage, AreListedOnceInTheirOrderUpToTen) {
  EXPECT_EQ(lettersOutsidePage("Nicolò € – Rossi"), "");
  EXPECT_EQ(lettersOutsidePage(""), "");
  EXPECT_EQ(lettersOutsidePage("Ngọc Thị ọ😀"), "ọ, ị, 😀");
  EXPECT_EQ(lettersOutsidePage("αβγδεζηθικ"), "α, β, γ, δ, ε, ζ, η, θ, ι, κ");
  EXPECT_EQ(lettersOutsidePage("αβγδεζηθικλ"), "α, β, γ, δ, ε, ζ, η, θ, ι, κ...");
}

TEST(IsUtf8, FindsBytesThatBelongToNoCharacter) {
  EXPECT_TRUE(isUtf8(""));
  EXPECT_TRUE(isUtf8("Nicolò € 😀"));
  for (const char* damaged : {"\xE0", "a\xE2\x82", "\xC3z", "\xFF\xFE"}) EXPECT_FALSE(isUtf8(damaged)) << damaged;
}

TEST(LettersOutsidePage, BytesThatBelongToNoCharacterAreNoLetters) {
  EXPECT_EQ(lettersOutsidePage("a\xFFz \xE1\xBB"), "");
  EXPECT_EQ(upperCase("a\xFFz"), "AZ");
}

TEST(IsBlank, KnowsBothBlanksOfThePage) {
  EXPECT_TRUE(isBlank(""));
  EXPECT_TRUE(isBlank("  \u00A0 "));
  EXPECT_FALSE(isBlank(" . "));
  EXPECT_FALSE(isBlank("\u3000"));
}

TEST(CleanEntry, DropsWhatAFileNameCannotHold) {
  EXPECT_EQ(cleanEntry("..\\a/b:c*d?e<f>g|h", EntryKind::fileName), "..abcdefgh");
}

TEST(CleanEntry, SurvivesBrokenUtf8) { EXPECT_EQ(cleanEntry("a\xE2\x82z\xC3", EntryKind::text), "az"); }

TEST(UpperCase, CoversTheWholePage) {
  EXPECT_EQ(upperCase("Test.qvd"), "TEST.QVD");
  EXPECT_EQ(upperCase("nicolò÷ÿšž"), "NICOLÒ÷ŸŠŽ");
  EXPECT_EQ(upperCase("azàþœß"), "AZÀÞŒß");
}

}  // namespace
}  // namespace korvinel
