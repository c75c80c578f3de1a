#include "station/forms/TextCaret.h"

#include <gtest/gtest.h>

namespace vintoral {
namespace {

// Positions: a0 b1 CR2 LF3 c4 CR5 LF6 CR7 LF8 d9 e10 f11, end 12.
const String kText = "ab\r\nc\r\n\r\ndef"_w;

TEST(TextCaret, StandsNeverBetweenTheTwoCharactersOfALineEnd) {
  const std::size_t expected[] = {0, 1, 2, 2, 4, 5, 5, 7, 7, 9, 10, 11, 12, 12};
  for (std::size_t i = 0; i < std::size(expected); ++i)
    EXPECT_EQ(CaretAt(kText, i), expected[i]) << i;
}

TEST(TextCaret, StepsOverALineEndAtOnce) {
  EXPECT_EQ(CaretBehind(kText, 1), 2u);
  EXPECT_EQ(CaretBehind(kText, 2), 4u);
  EXPECT_EQ(CaretBehind(kText, 5), 7u);
  EXPECT_EQ(CaretBehind(kText, 7), 9u);
  EXPECT_EQ(CaretBehind(kText, 12), 12u);
  EXPECT_EQ(CaretBefore(kText, 4), 2u);
  EXPECT_EQ(CaretBefore(kText, 9), 7u);
  EXPECT_EQ(CaretBefore(kText, 1), 0u);
  EXPECT_EQ(CaretBefore(kText, 0), 0u);
}

TEST(TextCaret, KnowsTheEndsOfItsLine) {
  EXPECT_EQ(LineStart(kText, 1), 0u);
  EXPECT_EQ(LineEnd(kText, 1), 2u);
  EXPECT_EQ(LineStart(kText, 5), 4u);
  EXPECT_EQ(LineStart(kText, 7), 7u);  // a line of nothing
  EXPECT_EQ(LineEnd(kText, 7), 7u);
  EXPECT_EQ(LineStart(kText, 12), 9u);
  EXPECT_EQ(LineEnd(kText, 9), 12u);
  EXPECT_EQ(LineStart({}, 0), 0u);
  EXPECT_EQ(LineEnd({}, 0), 0u);
}

TEST(TextCaret, KeepsItsColumnAsFarAsTheLineGoes) {
  EXPECT_EQ(CaretLines(kText, 2, 1), 5u);
  EXPECT_EQ(CaretLines(kText, 1, 1), 5u);
  EXPECT_EQ(CaretLines(kText, 0, 1), 4u);
  EXPECT_EQ(CaretLines(kText, 12, -1), 7u);
  EXPECT_EQ(CaretLines(kText, 11, -3), 2u);
  EXPECT_EQ(CaretLines(kText, 1, 99), 10u);
  EXPECT_EQ(CaretLines(kText, 10, -99), 1u);
}

TEST(TextCaret, CountsItsLineFromNought) {
  EXPECT_EQ(LineAt(kText, 2), 0u);
  EXPECT_EQ(LineAt(kText, 4), 1u);
  EXPECT_EQ(LineAt(kText, 7), 2u);
  EXPECT_EQ(LineAt(kText, 12), 3u);
}

}  // namespace
}  // namespace vintoral
