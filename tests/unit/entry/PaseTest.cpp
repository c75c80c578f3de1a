// What a pass allows, without screen or file.
#include "entry/Pase.h"

#include <gtest/gtest.h>

#include "support/MemoryStation.h"

namespace vintoral {
namespace {

using test::At;

RegistroPase Entries(int left) {
  RegistroPase pass;
  pass.CodigoPase = "A1B2C3D4E5F6";
  pass.PlacaPase = "ABC123";
  pass.RestantesPase = static_cast<std::int16_t>(left);
  return pass;
}
/// First used at 14:05 of a day of November.
RegistroPase Days(int granted, const char* stamp = "14:05  (01/11/2026)") {
  RegistroPase pass = Entries(granted - 1);
  pass.ModoPase = 1;
  pass.FechaPase = std::string_view(stamp);
  return pass;
}

/// Good, and for how many days or entries.
void ExpectGood(const Vigencia& worth, std::int64_t left, int unit) {
  EXPECT_TRUE(worth.vale);
  EXPECT_FALSE(worth.vencida);
  EXPECT_EQ(worth.quedan, left);
  EXPECT_EQ(worth.unidad, unit);
}
void ExpectOver(const Vigencia& worth) {
  EXPECT_FALSE(worth.vale);
  EXPECT_TRUE(worth.vencida);
}
void ExpectWorthless(const Vigencia& worth) {
  EXPECT_FALSE(worth.vale);
  EXPECT_FALSE(worth.vencida);
}

// ---- What it is worth
// --------------------------------------------------------------------------------------------------

TEST(Vigencia, EntriesAreGoodWhileThereAreAny) {
  ExpectGood(VigenciaDe(Entries(2), At(10, 0)), 2, 0);
  ExpectGood(VigenciaDe(Entries(1), At(10, 0)), 1, 0);
  ExpectGood(VigenciaDe(Entries(32767), At(10, 0)), 32767, 0);
}

TEST(Vigencia, WithoutEntriesItIsWorthNothingAndStays) {
  ExpectWorthless(VigenciaDe(Entries(0), At(10, 0)));
  ExpectWorthless(VigenciaDe(Entries(-1), At(10, 0)));
}

TEST(Vigencia, EntriesHaveNoDate) {
  RegistroPase pass = Entries(2);
  pass.FechaPase = "14:05  (01/01/1999)";
  ExpectGood(VigenciaDe(pass, At(10, 0)), 2, 0);
}

TEST(Vigencia, ThirtyDaysEndWithTheThirtieth) {
  ExpectGood(VigenciaDe(Days(30), At(14, 5, 0, 1)), 30, 1);
  ExpectGood(VigenciaDe(Days(30), At(14, 5, 0, 10)), 21, 1);  // 9 days on
  ExpectGood(VigenciaDe(Days(30), At(23, 59, 59, 30)), 1, 1);
  const Moment thirtyFirst = At(0, 0, 0, 30).Plus(86'400'000);
  ExpectOver(VigenciaDe(Days(30), thirtyFirst));
}

TEST(Vigencia, DaysAreThoseOfTheCalendar) {
  // A minute around midnight is a day; the hours of one day are none.
  const RegistroPase pass = Days(2, "23:59  (10/11/2026)");
  ExpectGood(VigenciaDe(pass, At(23, 59, 59, 10)), 2, 1);
  ExpectGood(VigenciaDe(pass, At(0, 0, 0, 11)), 1, 1);
  ExpectGood(VigenciaDe(pass, At(23, 59, 59, 11)), 1, 1);
  ExpectOver(VigenciaDe(pass, At(0, 0, 0, 12)));
}

TEST(Vigencia, OneDayIsGoodThatDay) {
  ExpectGood(VigenciaDe(Days(1), At(0, 0, 0, 1)), 1, 1);
  ExpectGood(VigenciaDe(Days(1), At(23, 59, 59, 1)), 1, 1);
  ExpectOver(VigenciaDe(Days(1), At(0, 0, 0, 2)));
}

TEST(Vigencia, ADateInTheFutureCountsByItsDistance) {
  const RegistroPase pass = Days(3, "08:00  (15/11/2026)");
  ExpectGood(VigenciaDe(pass, At(10, 0, 0, 14)), 2, 1);
  ExpectGood(VigenciaDe(pass, At(23, 0, 0, 13)), 1, 1);
  ExpectOver(VigenciaDe(pass, At(23, 59, 0, 12)));
}

TEST(Vigencia, DaysGoOverMonthsAndLeapDays) {
  const auto on = [](int year, int month, int day) {
    return Moment::From({.year = year, .month = month, .day = day, .hour = 12, .minute = 0, .second = 0})
        .value();
  };
  ExpectGood(VigenciaDe(Days(3, "08:00  (28/02/2028)"), on(2028, 3, 1)), 1, 1);  // 28, 29, 1
  ExpectOver(VigenciaDe(Days(2, "08:00  (28/02/2028)"), on(2028, 3, 1)));
  ExpectGood(VigenciaDe(Days(2, "08:00  (31/12/2026)"), on(2027, 1, 1)), 1, 1);
}

TEST(Vigencia, ADateThatCantBeReadIsWorthNothingAndStays) {
  for (const char* stamp :
       {"", "14:05", "14:05  (31/02/2026)", "14:05  (aa/bb/cccc)", "?????????????????????"})
    EXPECT_FALSE(VigenciaDe(Days(30, stamp), At(10, 0)).vale ||
                 VigenciaDe(Days(30, stamp), At(10, 0)).vencida)
        << stamp;
}

TEST(Vigencia, AnyModeButEntriesCountsDays) {
  for (const int mode : {1, 2, 48, 255}) {
    RegistroPase pass = Days(30);
    pass.ModoPase = static_cast<std::uint8_t>(mode);
    ExpectGood(VigenciaDe(pass, At(14, 5, 0, 10)), 21, 1);
    EXPECT_EQ(PaseUsado(pass), pass) << mode;
  }
}

TEST(Vigencia, DaysOutOfRangeDontWrapAround) {
  RegistroPase pass = Days(1);
  pass.RestantesPase = 32767;
  ExpectGood(VigenciaDe(pass, At(10, 0, 0, 1)), 32768, 1);
  pass.RestantesPase = -32768;
  ExpectOver(VigenciaDe(pass, At(10, 0, 0, 1)));
}

// ---- What an entry takes of it
// -----------------------------------------------------------------------------------------

TEST(PaseUsado, AnEntryLess) {
  EXPECT_EQ(PaseUsado(Entries(3)), Entries(2));
  EXPECT_EQ(PaseUsado(Entries(2)), Entries(1));
}

TEST(PaseUsado, TheLastEntryFreesTheRecordAndNothingElse) {
  for (const int left : {1, 0, -5}) {
    RegistroPase free = Entries(left);
    free.CodigoPase = "";
    EXPECT_EQ(PaseUsado(Entries(left)), free) << left;
  }
}

TEST(PaseUsado, DaysStayAsTheyAre) {
  EXPECT_EQ(PaseUsado(Days(30)), Days(30));
  EXPECT_EQ(PaseUsado(Days(1)), Days(1));
}

// ---- What is asked for
// -------------------------------------------------------------------------------------------------

TEST(ValidezEscrita, IsAWholeNumberOrNone) {
  EXPECT_EQ(ValidezEscrita("1"), 1);
  EXPECT_EQ(ValidezEscrita(" 30 "), 30);
  EXPECT_EQ(ValidezEscrita("999"), 999);
  EXPECT_EQ(ValidezEscrita("007"), 7);
  EXPECT_EQ(ValidezEscrita("1.5"), 1);
  EXPECT_EQ(ValidezEscrita("2,9"), 2);
  for (const char* none : {"", "  ", "0", "0.9", ".5", ",", "x", "-3"})
    EXPECT_EQ(ValidezEscrita(none), 0) << none;
}

TEST(TocaPase, ATicketForOneEntryIsNone) {
  constexpr int kEntries = 0, kDays = 1;
  EXPECT_FALSE(TocaPase({1, kEntries, false}));
  EXPECT_TRUE(TocaPase({2, kEntries, false}));
  EXPECT_TRUE(TocaPase({999, kEntries, false}));
  EXPECT_TRUE(TocaPase({1, kDays, false}));
  EXPECT_TRUE(TocaPase({30, kDays, false}));
}

TEST(TocaPase, APassThatComesBackIsSpentUnlessItRunsByDays) {
  constexpr int kEntries = 0, kDays = 1;
  EXPECT_TRUE(TocaPase({1, kEntries, true}));
  EXPECT_TRUE(TocaPase({2, kEntries, true}));
  EXPECT_FALSE(TocaPase({1, kDays, true}));
  EXPECT_FALSE(TocaPase({29, kDays, true}));
}

TEST(TocaPase, ANumberOfNoneMakesNone) {
  for (const int unit : {0, 1}) {
    for (const bool pass : {false, true})
      EXPECT_FALSE(TocaPase({0, unit, pass})) << unit << pass;
  }
}

// ---- What is made
// ------------------------------------------------------------------------------------------------------

TEST(PaseNuevo, OfEntriesHasNoDate) {
  const RegistroPase pass = PaseNuevo(" A1B2C3D4E5F6 ", " ABC123 ", {3, 0, false}, "14:05  (01/11/2026) ");
  EXPECT_EQ(pass, Entries(2));
}

TEST(PaseNuevo, OfDaysBeginsWithItsFirstEntry) {
  const RegistroPase pass = PaseNuevo("A1B2C3D4E5F6", "ABC123", {30, 1, false}, "14:05  (01/11/2026) ");
  EXPECT_EQ(pass, Days(30));
  EXPECT_EQ(pass.RestantesPase, 29);
}

TEST(PaseNuevo, OneDayLeavesNone) {
  EXPECT_EQ(PaseNuevo("A1B2C3D4E5F6", "ABC123", {1, 1, false}, "14:05  (01/11/2026)").RestantesPase, 0);
}

TEST(PaseNuevo, TheFieldTakesNoMoreThanItHolds) {
  EXPECT_EQ(PaseNuevo("A", "B", {32768, 0, false}, "").RestantesPase, 32767);
  EXPECT_EQ(PaseNuevo("A", "B", {32769, 0, false}, "").RestantesPase, 32767);
  EXPECT_EQ(PaseNuevo("A", "B", {32767, 0, false}, "").RestantesPase, 32766);
}

}  // namespace
}  // namespace vintoral
