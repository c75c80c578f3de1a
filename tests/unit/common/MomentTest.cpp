#include "common/Moment.h"

#include <gtest/gtest.h>

namespace vintoral {
namespace {

constexpr std::int64_t kDay = 86'400'000;

bool Legal(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
  return Moment::From(
             {.year = year, .month = month, .day = day, .hour = hour, .minute = minute, .second = second})
      .has_value();
}

TEST(Moment, CountsFromYearOne) {
  EXPECT_EQ(Moment::From({})->Milliseconds(), 0);
  EXPECT_EQ(Moment::From({.day = 2})->Milliseconds(), kDay);
  // 1970 begins 719,162 days after year one.
  EXPECT_EQ(Moment::From({.year = 1970})->Milliseconds(), 719'162 * kDay);
  EXPECT_EQ(Moment::From({.hour = 1, .minute = 2, .second = 3, .millisecond = 4})->Milliseconds(), 3'723'004);
}

TEST(Moment, LeapYearsAreThoseOfTheCalendar) {
  EXPECT_TRUE(Legal(2024, 2, 29));
  EXPECT_TRUE(Legal(2000, 2, 29));
  EXPECT_FALSE(Legal(1900, 2, 29));
  EXPECT_FALSE(Legal(2023, 2, 29));
  EXPECT_EQ(DateText(Moment::From({.year = 2024, .month = 2, .day = 28})->Plus(kDay)), "29/02/2024"_w);
  EXPECT_EQ(DateText(Moment::From({.year = 2023, .month = 2, .day = 28})->Plus(kDay)), "01/03/2023"_w);
}

TEST(Moment, PartsOutOfRangeAreNoMoment) {
  EXPECT_FALSE(Legal(0, 1, 1));
  EXPECT_FALSE(Legal(10000, 1, 1));
  EXPECT_FALSE(Legal(2024, 0, 1));
  EXPECT_FALSE(Legal(2024, 13, 1));
  EXPECT_FALSE(Legal(2024, 4, 31));
  EXPECT_FALSE(Legal(2024, 1, 0));
  EXPECT_FALSE(Legal(2024, 1, 1, 24));
  EXPECT_FALSE(Legal(2024, 1, 1, 0, 60));
  EXPECT_FALSE(Legal(2024, 1, 1, 0, 0, 60));
  EXPECT_FALSE(Legal(2024, 1, 1, -1));
  EXPECT_TRUE(Legal(9999, 12, 31, 23, 59, 59));
}

TEST(Moment, PartsComeBack) {
  const Civil civil{
      .year = 2024, .month = 12, .day = 31, .hour = 23, .minute = 59, .second = 58, .millisecond = 997};
  EXPECT_EQ(Moment::From(civil)->Parts(), civil);
  const Civil before{
      .year = 0, .month = 12, .day = 31, .hour = 23, .minute = 59, .second = 59, .millisecond = 999};
  EXPECT_EQ(Moment::FromMilliseconds(-1).Parts(), before);
}

TEST(Moment, WholeMinuteDropsTheSeconds) {
  const Moment moment = Moment::From({.hour = 1, .minute = 2, .second = 59, .millisecond = 999}).value();
  EXPECT_EQ(moment.WholeMinute(), Moment::From({.hour = 1, .minute = 2}));
  EXPECT_EQ(Moment::FromMilliseconds(-1).WholeMinute().Milliseconds(), -60'000);
}

TEST(Stamp, HasItsPartsAtFixedPlaces) {
  const Moment moment =
      Moment::From({.year = 2021, .month = 9, .day = 3, .hour = 4, .minute = 5, .second = 59}).value();
  EXPECT_EQ(StampOf(moment), "04:05  (03/09/2021)"_w);
  EXPECT_EQ(StampTime("04:05  (03/09/2021)"), "04:05"_w);
  EXPECT_EQ(StampDate("04:05  (03/09/2021) "), "03/09/2021"_w);
  EXPECT_EQ(MomentOfStamp("04:05  (03/09/2021) "), moment.WholeMinute());
}

TEST(Stamp, DamagedOneHoldsNoMoment) {
  for (const char* stamp :
       {"??", "", "                    ", "04:05", "04:05  (31/09/2021)", "24:00  (03/09/2021)",
        "0x:05  (03/09/2021)", "04:05  (03/09/20 1)", "04.05  (03/09/2021)"})
    EXPECT_FALSE(MomentOfStamp(stamp)) << stamp;
  EXPECT_FALSE(MomentOfStamp(std::string(20, '\0')));
}

TEST(ParseDateTime, ReadsDayFirst) {
  const auto parsed = ParseDateTime("03/09/2021 04:05:06");
  EXPECT_EQ(parsed, Moment::From({.year = 2021, .month = 9, .day = 3, .hour = 4, .minute = 5, .second = 6}));
  EXPECT_EQ(ParseDateTime("3/9/2021 4:5:6"), parsed);
  EXPECT_EQ(ParseDateTime(" 03/09/2021 04:05:06 "), parsed);
}

TEST(ParseDateTime, RefusesAllElse) {
  for (const char* text : {"", "03/09/2021", "03/09/21 04:05:06", "03/09/2021 04:05", "03/09/2021 04:05:06x",
                           "003/09/2021 04:05:06", "03-09-2021 04:05:06", "-3/09/2021 04:05:06",
                           "13/13/2021 04:05:06", "29/02/2023 00:00:00"})
    EXPECT_FALSE(ParseDateTime(text)) << text;
}

}  // namespace
}  // namespace vintoral
