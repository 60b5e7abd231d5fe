#include "recording_tool/csv_text.h"

#include <gtest/gtest.h>

#include <regex>

namespace korvinel::tool {
namespace {

TEST(CsvText, WhatASpreadsheetWouldTakeForAFormulaBeginsWithAnApostrophe) {
  const std::pair<const char*, const char*> cases[] = {{"=1+1", "'=1+1"},
                                                       {"+39 02", "'+39 02"},
                                                       {"-", "'-"},
                                                       {"@SUM(A1)", "'@SUM(A1)"},
                                                       {" =1", "' =1"},
                                                       {"'=1", "''=1"},
                                                       {"Rossi;=1", "Rossi;'=1"},
                                                       {"Rossi\t=1", "Rossi\t'=1"},
                                                       {"Rossi\r\n=1", "Rossi\r\n'=1"},
                                                       {";;=1", ";;'=1"}};
  for (const auto& [text, plain] : cases) EXPECT_EQ(plainText(text), plain);
}

TEST(CsvText, OtherTextsStayAsTheyAre) {
  for (const char* text :
       {"", "Rossi", "D'Amico", "'Ndrangheta", "a=b", "Rossi-Bianchi", "21/11/2026", " ", "'", ";", "1 - 2"})
    EXPECT_EQ(plainText(text), text);
}

/// Restores a field as docs/recording-tool.md describes.
std::string readAgain(const std::string& field) {
  static const std::regex mark("(^|[;\t\r\n])'(?=[' ]*[=+@-])");
  return std::regex_replace(field, mark, "$1");
}

TEST(CsvText, AReaderGetsEveryTextBack) {
  const std::string letters = "=-' ;\ta";
  for (std::size_t number = 0; number < 7 * 7 * 7 * 7 * 7; ++number) {
    std::string text;
    for (std::size_t rest = number, i = 0; i < 5; ++i, rest /= 7) text += letters[rest % 7];
    ASSERT_EQ(readAgain(plainText(text)), text);
  }
}

TEST(CsvText, NegativeNumbersAreNumbers) {
  EXPECT_EQ(CsvLine().add(-1).add(-0.5F).add(-2.5).add(Fixed(-3)).add("-4").text(), "-1,-0.5,-2.5,-3,'-4");
}

}  // namespace
}  // namespace korvinel::tool
