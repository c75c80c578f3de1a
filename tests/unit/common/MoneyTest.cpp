#include "common/Money.h"

#include <gtest/gtest.h>

#include <limits>

namespace vintoral {
namespace {

constexpr std::int64_t kLargest = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kSmallest = std::numeric_limits<std::int64_t>::min();

String Shown(std::int64_t raw) {
  return Money::FromRaw(raw).Format();
}

TEST(Money, ShowsTwoDecimals) {
  EXPECT_EQ(Shown(0), "0.00"_w);
  EXPECT_EQ(Shown(150'000'000), "15000.00"_w);
  EXPECT_EQ(Shown(25'000), "2.50"_w);
  EXPECT_EQ(Shown(-25'000), "-2.50"_w);
  EXPECT_EQ(Shown(100), "0.01"_w);
}

TEST(Money, HalvesGoAwayFromZero) {
  EXPECT_EQ(Shown(49), "0.00"_w);
  EXPECT_EQ(Shown(50), "0.01"_w);
  EXPECT_EQ(Shown(-49), "0.00"_w);
  EXPECT_EQ(Shown(-50), "-0.01"_w);
  EXPECT_EQ(Shown(9'950), "1.00"_w);
  EXPECT_EQ(Shown(9'949), "0.99"_w);
  EXPECT_EQ(Money::FromRaw(12'350).RoundedToCents().Raw(), 12'400);
  EXPECT_EQ(Money::FromRaw(12'349).RoundedToCents().Raw(), 12'300);
  EXPECT_EQ(Money::FromRaw(-12'350).RoundedToCents().Raw(), -12'400);
  EXPECT_EQ(Money::FromRaw(-12'349).RoundedToCents().Raw(), -12'300);
}

TEST(Money, EndsOfTheRangeAreShown) {
  EXPECT_EQ(Shown(kLargest), "922337203685477.58"_w);
  EXPECT_EQ(Shown(kSmallest), "-922337203685477.58"_w);
  EXPECT_EQ(Money::FromRaw(kSmallest).Full(), "-922337203685477.5808"_w);
  EXPECT_EQ(Money::FromRaw(kLargest).Plain(), "922337203685477.5807"_w);
}

TEST(Money, PlainIsAsShortAsItCanBe) {
  EXPECT_EQ(Money::FromRaw(25'000).Plain(), "2.5"_w);
  EXPECT_EQ(Money::FromRaw(0).Plain(), "0"_w);
  EXPECT_EQ(Money::FromRaw(-120'000).Plain(), "-12"_w);
  EXPECT_EQ(Money::FromRaw(1).Plain(), "0.0001"_w);
  EXPECT_EQ(Money::FromRaw(-1).Plain(), "-0.0001"_w);
  EXPECT_EQ(Money::FromRaw(25'000).Full(), "2.5000"_w);
}

TEST(Money, SumsStopAtTheEndsOfTheRange) {
  EXPECT_EQ((Money::FromRaw(kLargest) + Money::FromRaw(1)).Raw(), kLargest);
  EXPECT_EQ((Money::FromRaw(kSmallest) + Money::FromRaw(-1)).Raw(), kSmallest);
  EXPECT_EQ((Money::FromRaw(kSmallest) - Money::FromRaw(1)).Raw(), kSmallest);
  EXPECT_EQ((Money::FromRaw(0) - Money::FromRaw(kSmallest)).Raw(), kLargest);
  EXPECT_EQ((Money::FromUnits(2) + Money::FromUnits(3)).Units(), 5);
  EXPECT_EQ((Money::FromUnits(2) - Money::FromUnits(3)).Units(), -1);
  // The largest ends in 58.0 cents and 7 ten-thousandths; one more cent would not fit.
  EXPECT_EQ(Money::FromRaw(kLargest).RoundedToCents().Raw(), 9'223'372'036'854'775'800);
}

TEST(Money, UnitsAreCutTowardZero) {
  EXPECT_EQ(Money::FromRaw(19'999).Units(), 1);
  EXPECT_EQ(Money::FromRaw(-19'999).Units(), -1);
}

TEST(MoneyFromText, ReadsWhatAnOperatorTypes) {
  EXPECT_EQ(MoneyFromText("12,50").Raw(), 125'000);
  EXPECT_EQ(MoneyFromText("12.5").Raw(), 125'000);
  EXPECT_EQ(MoneyFromText(" 30000**").Raw(), 300'000'000);
  EXPECT_EQ(MoneyFromText("-7").Raw(), -70'000);
  EXPECT_EQ(MoneyFromText(".5").Raw(), 5'000);
  EXPECT_EQ(MoneyFromText("1,2,3").Raw(), 12'000);
  EXPECT_EQ(MoneyFromText("$5").Raw(), 0);
  EXPECT_EQ(MoneyFromText("").Raw(), 0);
}

TEST(MoneyFromText, HalfOfATenThousandthGoesToTheEvenOne) {
  EXPECT_EQ(MoneyFromText("0.00005").Raw(), 0);
  EXPECT_EQ(MoneyFromText("0.00015").Raw(), 2);
  EXPECT_EQ(MoneyFromText("0.00025").Raw(), 2);
  EXPECT_EQ(MoneyFromText("0.000251").Raw(), 3);
  EXPECT_EQ(MoneyFromText("0.00024999").Raw(), 2);
  EXPECT_EQ(MoneyFromText("-0.00015").Raw(), -2);
}

TEST(MoneyFromText, StopsAtTheEndsOfTheRange) {
  EXPECT_EQ(MoneyFromText("922337203685477.5807").Raw(), kLargest);
  EXPECT_EQ(MoneyFromText("922337203685477.5808").Raw(), kLargest);
  EXPECT_EQ(MoneyFromText("-922337203685477.5809").Raw(), kSmallest);
  EXPECT_EQ(MoneyFromText("99999999999999999999999999999999999999999").Raw(), kLargest);
}

TEST(DifferenceInCents, IsRoundedOnce) {
  const auto change = [](const char* cash, std::int64_t raw) {
    return DifferenceInCents(cash, Money::FromRaw(raw)).Raw();
  };
  EXPECT_EQ(change("12,5", 100'000), 25'000);
  EXPECT_EQ(change("0.00499", 0), 0);
  EXPECT_EQ(change("0,00495", 0), 0);
  EXPECT_EQ(change("0.005", 0), 100);
  EXPECT_EQ(change("0.00500001", 0), 100);
  EXPECT_EQ(change("0.01499999", 0), 100);
  // 0.99501 less 1 is -0.00499, and 0.995 less 1 is half a cent.
  EXPECT_EQ(change("0.99501", 10'000), 0);
  EXPECT_EQ(change("0.995", 10'000), -100);
  EXPECT_EQ(change("0.98500001", 10'000), -100);
  EXPECT_EQ(change("0.98499", 10'000), -200);
  EXPECT_EQ(change("-0.00499", 0), 0);
  EXPECT_EQ(change("-0.99501", -10'000), 0);
  EXPECT_EQ(change("", 15'000), -15'000);
}

}  // namespace
}  // namespace vintoral
