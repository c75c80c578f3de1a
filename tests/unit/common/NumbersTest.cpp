#include "common/Numbers.h"

#include <gtest/gtest.h>

#include <limits>

namespace vintoral {
namespace {

constexpr std::int64_t kLargest = std::numeric_limits<std::int64_t>::max();

TEST(LeadingInteger, ReadsTheNumberAtTheStart) {
  EXPECT_EQ(LeadingInteger("123"), 123);
  EXPECT_EQ(LeadingInteger("  42 MIN"), 42);
  EXPECT_EQ(LeadingInteger("0007"), 7);
  EXPECT_EQ(LeadingInteger("-5"), -5);
  EXPECT_EQ(LeadingInteger("+5"), 5);
  EXPECT_EQ(LeadingInteger("12.9"), 12);
  EXPECT_EQ(LeadingInteger("-12.9"), -12);
}

TEST(LeadingInteger, NoNumberIsZero) {
  for (const char* text : {"", " ", "x1", "-", ".", "- 5", "\xB9"})
    EXPECT_EQ(LeadingInteger(text), 0) << text;
}

TEST(LeadingInteger, StopsAtTheEndsOfTheRange) {
  EXPECT_EQ(LeadingInteger("9223372036854775807"), kLargest);
  EXPECT_EQ(LeadingInteger("9223372036854775808"), kLargest);
  EXPECT_EQ(LeadingInteger("-9223372036854775809"), -kLargest - 1);
  EXPECT_EQ(LeadingInteger(std::string(5000, '9')), kLargest);
  EXPECT_EQ(LeadingInteger(std::string(5000, '0') + "7"), 7);
}

TEST(LeadingDecimal, KeepsDigitsAndPoint) {
  const Decimal number = LeadingDecimal(" -12.340x");
  EXPECT_TRUE(number.negative);
  EXPECT_EQ(static_cast<std::int64_t>(number.digits), 12'340);
  EXPECT_EQ(number.decimals, 3);
}

TEST(LeadingDecimal, TellsWhereTheNumberEnds) {
  EXPECT_EQ(LeadingDecimal(" -12.340x").length, 8U);
  EXPECT_EQ(LeadingDecimal("7").length, 1U);
  EXPECT_EQ(LeadingDecimal("5 000").length, 1U);
  EXPECT_EQ(LeadingDecimal("x7").length, 0U);
}

TEST(LeadingDecimal, SecondPointEndsTheNumber) {
  const Decimal number = LeadingDecimal("1.2.3");
  EXPECT_EQ(static_cast<std::int64_t>(number.digits), 12);
  EXPECT_EQ(number.decimals, 1);
}

TEST(Digits, FillsWithZeros) {
  EXPECT_EQ(Digits(7, 4), "0007"_w);
  EXPECT_EQ(Digits(12345, 4), "12345"_w);
  EXPECT_EQ(Digits(-7, 4), "-0007"_w);
  EXPECT_EQ(Digits(0), "0"_w);
  EXPECT_EQ(Digits(-kLargest - 1), "-9223372036854775808"_w);
  EXPECT_EQ(Digits(7, -1), "7"_w);
}

}  // namespace
}  // namespace vintoral
