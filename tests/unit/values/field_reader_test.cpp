#include "values/field_reader.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

#include "values/runtime_error.h"

namespace korvinel {
namespace {

std::vector<std::string> fieldsOf(std::string_view text, int count) {
  TextSource source(text);
  std::vector<std::string> fields;
  for (int i = 0; i < count; ++i) fields.push_back(readField(source));
  return fields;
}

using Fields = std::vector<std::string>;

TEST(ReadField, CommasAndLineEndsSeparate) {
  EXPECT_EQ(fieldsOf("a,b\r\nc\nd\re", 5), (Fields{"a", "b", "c", "d", "e"}));
}

TEST(ReadField, QuotedTextsKeepCommasAndLineEnds) {
  EXPECT_EQ(fieldsOf("\"Rossi, Anna\",\"21/11/2026 V3\"\r\n\"x\r\ny\"", 3),
            (Fields{"Rossi, Anna", "21/11/2026 V3", "x\r\ny"}));
}

TEST(ReadField, LeadingBlanksAreSkippedAndInnerOnesKept) {
  EXPECT_EQ(fieldsOf("  \"a \" ,  b c\r\n", 2), (Fields{"a ", "b c"}));
}

TEST(ReadField, EmptyFieldsAreFields) { EXPECT_EQ(fieldsOf(",\"\",x", 3), (Fields{"", "", "x"})); }

TEST(ReadField, NothingLeftIsAnInputError) {
  TextSource source("a");
  EXPECT_EQ(readField(source), "a");
  EXPECT_THROW(static_cast<void>(readField(source)), RuntimeError);
}

TEST(ReadField, AMissingClosingQuoteIsAnInputError) {
  TextSource source("\"never closed");
  EXPECT_THROW(static_cast<void>(readField(source)), RuntimeError);
}

TEST(ReadField, AnEndlessFieldEndsInAnErrorInsteadOfFillingTheMemory) {
  const std::string noise(1'000'000, 'x');
  for (const std::string& text : {noise, "\"" + noise}) {
    TextSource source(text);
    EXPECT_THROW(static_cast<void>(readField(source)), RuntimeError);
  }
}

TEST(ReadField, TakesItsDelimiterAndNoMore) {
  TextSource source("5\r\n\r\nraw");
  EXPECT_EQ(readField(source), "5");
  EXPECT_EQ(source.peek(), '\r');
}

TEST(ReadNumber, RefusesTexts) {
  TextSource source("12.5,abc");
  EXPECT_EQ(readNumber(source), 12.5);
  EXPECT_THROW(static_cast<void>(readNumber(source)), RuntimeError);
}

TEST(ReadFloat, RefusesWhatIsBeyondA32BitFloatAndTakesItsField) {
  TextSource source("1e39,-3.5e38,340282346638528859811704183484516925440,7");
  EXPECT_THROW(static_cast<void>(readFloat(source)), RuntimeError);
  EXPECT_THROW(static_cast<void>(readFloat(source)), RuntimeError);
  EXPECT_EQ(readFloat(source), std::numeric_limits<float>::max());
  EXPECT_EQ(readFloat(source), 7.0F);
}

}  // namespace
}  // namespace korvinel
