#include "frame/configuration.h"

#include "frame/fault_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "values/field_reader.h"
#include "values/runtime_error.h"

namespace korvinel {
namespace {

using testing::HasSubstr;

int portOf(std::string_view text) {
  TextSource file(text);
  return readSettings(file);
}

std::string failureOf(std::string_view text) {
  try {
    portOf(text);
  } catch (const RuntimeError& error) {
    return faultText(error);
  }
  return "";
}

TEST(ReadSettings, TheThirdItemIsTheSerialPort) {
  EXPECT_EQ(portOf("\"abc\",\"def\",2,0,0,0,0\r\n\"x\",\"y\"\r\n"), 2);
  EXPECT_EQ(portOf("abc,def\n3\n1,2,3,4\nx,y"), 3);
}

TEST(ReadSettings, AShortFileNamesItselfAndTheMissingItem) {
  EXPECT_THAT(failureOf("\"a\",\"b\""),
              HasSubstr("Instal8s.val: manca o non è valido l'elemento 3 (numero della porta seriale)"));
  EXPECT_THAT(failureOf("\"a\",\"b\",2,0,0"), HasSubstr("elemento 6 (numero)"));
  EXPECT_THAT(failureOf("\"a\",\"b\",2,0,0,0,0\r\n\"x\"\r\n"), HasSubstr("elemento 9 (testo)"));
  EXPECT_THAT(failureOf(""), HasSubstr("elemento 1 (testo)"));
}

TEST(ReadSettings, APortThatIsNoNumberOrDoesNotFitIsRefused) {
  EXPECT_THAT(failureOf("\"a\",\"b\",COM2,0,0,0,0,x,y"), HasSubstr("elemento 3"));
  EXPECT_THAT(failureOf("\"a\",\"b\",40000,0,0,0,0,x,y"), HasSubstr("elemento 3"));
}

TEST(ReadSettings, ANumberBeyondA32BitFloatIsRefusedAndNamed) {
  EXPECT_THAT(failureOf("a,b,2,0,1e39,0,0,x,y"), HasSubstr("elemento 5 (numero)"));
  EXPECT_THAT(failureOf("a,b,1e39,0,0,0,0,x,y"), HasSubstr("elemento 3 (numero della porta seriale)"));
  EXPECT_EQ(portOf("a,b,2,0,3e38,0,0,x,y"), 2);
}

std::string factorsUpTo(int count) {
  std::string text;
  for (int i = 1; i <= count; ++i) text += std::to_string(i) + (i % 8 == 0 ? "\r\n" : ",");
  return text;
}

TEST(ReadCalibration, SixtyFourFactorsThenOnesThenZeros) {
  const std::string text = factorsUpTo(64);
  TextSource file(text);
  Bounded<float, 130> factors;
  readCalibration(file, factors);
  EXPECT_EQ(factors[0], 0);
  EXPECT_EQ(factors[1], 1);
  EXPECT_EQ(factors[64], 64);
  EXPECT_EQ(factors[65], 1);
  EXPECT_EQ(factors[128], 1);
  EXPECT_EQ(factors[129], 0);
  EXPECT_EQ(factors[130], 0);
}

std::string calibrationFailureOf(const std::string& text) {
  TextSource file(text);
  Bounded<float, 130> factors;
  try {
    readCalibration(file, factors);
  } catch (const RuntimeError& error) {
    return faultText(error);
  }
  return "";
}

TEST(ReadCalibration, AMissingFactorIsNamed) {
  EXPECT_THAT(calibrationFailureOf(factorsUpTo(63)),
              HasSubstr("C:\\QUARVEL5\\Factors.val: manca o non è valido l'elemento 64"));
}

TEST(ReadCalibration, AFactorBeyondA32BitFloatIsRefusedAndNamed) {
  for (const char* factor : {"1e39", "-1e39", "3.5e38", "1e400"})
    EXPECT_THAT(calibrationFailureOf("1,2," + std::string(factor) + "," + factorsUpTo(64)), HasSubstr("elemento 3 "))
        << factor;
  EXPECT_EQ(calibrationFailureOf("3.4e38,-3.4e38,1e-60," + factorsUpTo(64)), "");
}

}  // namespace
}  // namespace korvinel
