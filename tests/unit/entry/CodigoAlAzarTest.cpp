// Codes as they are drawn: twice for each character, once for its kind and once for itself.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

#include "entry/Codigo.h"
#include "support/ScriptedRandom.h"

namespace vintoral {
namespace {

using test::ScriptedRandom;

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}
bool IsCapital(char c) {
  return c >= 'A' && c <= 'Z';
}

TEST(CodigoAlAzar, BelowAHalfIsADigitElseALetter) {
  ScriptedRandom random;
  // The kind, then 10 times or 26 times the draw, cut to a whole number.
  random.Next = {0.0,  0.0,  0.49, 0.99, 0.5, 0.0,  0.99, 0.99, 0.25, 0.55, 0.75, 0.5,
                 0.49, 0.09, 0.0,  0.1,  0.5, 0.03, 0.9,  0.04, 0.1,  0.95, 0.6,  0.96};
  // 0, 9, A, Z (25.74), 5, N (13), 0 (0.9), 1, A (0.78), B (1.04), 9, Y (24.96).
  EXPECT_EQ(CodigoAlAzar(random), "09AZ5N01AB9Y"_w);
  EXPECT_TRUE(random.Next.empty());
}

TEST(CodigoAlAzar, TheLastDrawBelowOneIsStillAnEnd) {
  ScriptedRandom random;
  const double last = 1.0 - 0x1p-53;
  for (int i = 0; i < 6; ++i) {
    random.Next.insert(random.Next.end(), {0.0, last});
    random.Next.insert(random.Next.end(), {last, last});
  }
  EXPECT_EQ(CodigoAlAzar(random), "9Z9Z9Z9Z9Z9Z"_w);
}

TEST(CodigoAlAzar, AllCodesHaveTheFormAndBothKindsComeEquallyOften) {
  SeededRandom random;
  random.Seed(1);
  std::set<std::string> codes;
  std::set<char> characters;
  int digits = 0;
  constexpr int kCodes = 10'000;
  for (int i = 0; i < kCodes; ++i) {
    const std::string code = CodigoAlAzar(random).Bytes();
    ASSERT_EQ(code.size(), 12u) << code;
    ASSERT_TRUE(std::all_of(code.begin(), code.end(), [](char c) { return IsDigit(c) || IsCapital(c); }))
        << code;
    digits += static_cast<int>(std::count_if(code.begin(), code.end(), IsDigit));
    characters.insert(code.begin(), code.end());
    codes.insert(code);
  }
  EXPECT_EQ(characters.size(), 36u);
  EXPECT_EQ(codes.size(), static_cast<std::size_t>(kCodes));
  // 120,000 throws of a coin: five times the spread of 173 around the half.
  EXPECT_NEAR(digits, 60'000, 900);
}

TEST(SeededRandom, TheSameSeedGivesTheSameCodesAndAnotherOneOthers) {
  SeededRandom one, two;
  one.Seed(7);
  two.Seed(7);
  const String code = CodigoAlAzar(one);
  EXPECT_EQ(CodigoAlAzar(two), code);
  two.Seed(8);
  EXPECT_NE(CodigoAlAzar(two), code);
}

TEST(SeededRandom, DrawsStayFromZeroToBelowOne) {
  SeededRandom random;
  random.Seed(3);
  double least = 1, most = 0;
  for (int i = 0; i < 10'000; ++i) {
    const double draw = random.Draw();
    least = std::min(least, draw);
    most = std::max(most, draw);
  }
  EXPECT_GE(least, 0.0);
  EXPECT_LT(least, 0.01);
  EXPECT_GT(most, 0.99);
  EXPECT_LT(most, 1.0);
}

}  // namespace
}  // namespace vintoral
