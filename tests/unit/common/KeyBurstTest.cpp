#include "common/KeyBurst.h"

#include <gtest/gtest.h>

namespace vintoral {
namespace {

TEST(KeyBurst, CharactersUnder50MillisecondsApartBelongTogether) {
  KeyBurst burst;
  burst.Add('A', 1000);
  burst.Add('1', 1049);
  burst.Add('B', 1098);
  EXPECT_EQ(burst.Text(), "A1B");
}

TEST(KeyBurst, AHandBeginsAnewWithEachCharacter) {
  KeyBurst burst;
  burst.Add('A', 1000);
  burst.Add('1', 1050);
  EXPECT_EQ(burst.Text(), "1");
}

TEST(KeyBurst, AllAtOnceIsABurst) {
  KeyBurst burst;
  for (int i = 0; i < 12; ++i)
    burst.Add('7', 5);
  EXPECT_EQ(burst.Text(), "777777777777");
}

TEST(KeyBurst, ContinuesUntilTheGapIsOver) {
  KeyBurst burst;
  EXPECT_FALSE(burst.Continues(0));
  burst.Add('A', 1000);
  EXPECT_TRUE(burst.Continues(1000));
  EXPECT_TRUE(burst.Continues(1049));
  EXPECT_FALSE(burst.Continues(1050));
}

TEST(KeyBurst, NothingContinuesBackwards) {
  KeyBurst burst;
  burst.Add('A', 1000);
  EXPECT_FALSE(burst.Continues(999));
  burst.Add('B', 0);  // the clock of a screen begins anew after 49 days
  EXPECT_EQ(burst.Text(), "B");
}

TEST(KeyBurst, NothingContinuesOneThatWasCleared) {
  KeyBurst burst;
  burst.Add('A', 1000);
  burst.Clear();
  EXPECT_EQ(burst.Text(), "");
  EXPECT_FALSE(burst.Continues(1001));
  burst.Add('B', 1001);
  EXPECT_EQ(burst.Text(), "B");
}

}  // namespace
}  // namespace vintoral
