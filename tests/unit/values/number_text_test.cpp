#include "values/number_text.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdlib>
#include <limits>
#include <random>

#include "values/runtime_error.h"

namespace korvinel {
namespace {

TEST(ShortestDecimal, HasNoTrailingZerosAndNoExponent) {
  const std::pair<float, const char*> cases[] = {{12.3F, "12.3"}, {0.5F, "0.5"},      {15.0F, "15"},    {-2.0F, "-2"},
                                                 {0.0F, "0"},     {1e7F, "10000000"}, {1e-4F, "0.0001"}};
  for (const auto& [number, text] : cases) EXPECT_EQ(shortestDecimal(number), text);
  EXPECT_EQ(shortestDecimal(0.1), "0.1");
  EXPECT_EQ(shortestDecimal(1e21), "1000000000000000000000");
}

TEST(ShortestDecimal, OfFixedShowsUpToFourDecimals) {
  const std::pair<std::int64_t, const char*> cases[] = {{335'000, "33.5"}, {-1, "-0.0001"},       {0, "0"},
                                                        {10'000, "1"},     {-123'450, "-12.345"}, {1'230, "0.123"}};
  for (const auto& [count, text] : cases) EXPECT_EQ(shortestDecimal(Fixed::fromCount(count)), text);
  EXPECT_EQ(shortestDecimal(Fixed::fromCount(std::numeric_limits<std::int64_t>::min())), "-922337203685477.5808");
}

TEST(ShortestDecimal, ReadsBackAsTheSameFloat) {
  std::mt19937 random(4);
  for (int i = 0; i < 100'000; ++i) {
    const auto number = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
    if (!(std::abs(number) < 1e30F)) continue;
    ASSERT_EQ(std::strtof(shortestDecimal(number).c_str(), nullptr), number);
  }
}

TEST(RecordDecimal, LeavesTheZeroBeforeThePointOut) {
  const std::pair<float, const char*> cases[] = {{0.5F, ".5"},  {-0.25F, "-.25"}, {2.0F, "2"},
                                                 {15.0F, "15"}, {0.0F, "0"},      {10.5F, "10.5"}};
  for (const auto& [number, text] : cases) EXPECT_EQ(recordDecimal(number), text);
}

TEST(SignedText, PutsABlankWhereTheSignWouldStand) {
  EXPECT_EQ(signedText(130), " 130");
  EXPECT_EQ(signedText(0), " 0");
  EXPECT_EQ(signedText(-18), "-18");
}

TEST(LeadingNumber, TakesTheNumberAtTheStartAndElseZero) {
  const std::pair<const char*, double> cases[] = {
      {"70", 70}, {"  128", 128}, {"70 uV", 70}, {"-5", -5}, {"+7", 7},  {"12.5x", 12.5}, {".5", 0.5}, {"", 0},
      {"abc", 0}, {"-", 0},       {"1e2", 100},  {"nan", 0}, {"inf", 0}, {"+-3", 0},      {"1,5", 1}};
  for (const auto& [text, number] : cases) EXPECT_EQ(leadingNumber(text), number) << text;
}

TEST(LeadingNumber, TooLargeIsARuntimeErrorAndTooSmallIsZero) {
  EXPECT_THROW(static_cast<void>(leadingNumber("1e400")), RuntimeError);
  EXPECT_EQ(leadingNumber("1e-400"), 0);
}

TEST(WholeNumber, TakesNothingButANumber) {
  EXPECT_EQ(wholeNumber(" 0.8727 "), 0.8727);
  EXPECT_EQ(wholeNumber("-3"), -3);
  for (const char* text : {"", " ", "abc", "1 2", "1x", "nan", "inf", "--1", "0x10"})
    EXPECT_THROW(static_cast<void>(wholeNumber(text)), RuntimeError) << text;
}

}  // namespace
}  // namespace korvinel
