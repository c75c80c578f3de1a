#include "tariffs/Estadia.h"

#include <gtest/gtest.h>

namespace vintoral {
namespace {

TEST(EstadiaEntre, CountsDaysHoursAndMinutes) {
  EXPECT_EQ(EstadiaEntre("01/03/2024 10:00:00", "02/03/2024 12:30:00"), (Estadia{1, 2, 30}));
  EXPECT_EQ(EstadiaEntre("01/03/2024 23:59:00", "02/03/2024 00:00:00"), (Estadia{0, 0, 1}));
  EXPECT_EQ(EstadiaEntre("01/03/2024 10:00:00", "02/03/2024 09:59:59"), (Estadia{0, 23, 59}));
}

TEST(EstadiaEntre, CutsSecondsOff) {
  EXPECT_EQ(EstadiaEntre("01/03/2024 10:00:00", "01/03/2024 10:00:40"), (Estadia{0, 0, 0}));
  EXPECT_EQ(EstadiaEntre("01/03/2024 10:00:50", "01/03/2024 10:01:49"), (Estadia{0, 0, 0}));
  EXPECT_EQ(EstadiaEntre("01/03/2024 10:00:50", "01/03/2024 10:01:50"), (Estadia{0, 0, 1}));
}

TEST(EstadiaEntre, ReadsTheDayFirst) {
  // Month first, this would be 28 days.
  EXPECT_EQ(EstadiaEntre("04/03/2024 00:00:00", "05/03/2024 00:00:00"), (Estadia{1, 0, 0}));
}

TEST(EstadiaEntre, KnowsTheCalendar) {
  EXPECT_EQ(EstadiaEntre("28/02/2024 00:00:00", "01/03/2024 00:00:00"), (Estadia{2, 0, 0}));
  EXPECT_EQ(EstadiaEntre("28/02/2023 00:00:00", "01/03/2023 00:00:00"), (Estadia{1, 0, 0}));
  EXPECT_EQ(EstadiaEntre("31/12/2023 23:00:00", "01/01/2025 00:00:00"), (Estadia{366, 1, 0}));
}

TEST(EstadiaEntre, AnEntryInTheSameMomentIsAStayOfNothing) {
  EXPECT_EQ(EstadiaEntre("01/03/2024 10:00:00", "01/03/2024 10:00:00"), (Estadia{0, 0, 0}));
}

TEST(EstadiaEntre, AnEntryInTheFutureIsNoStay) {
  EXPECT_EQ(EstadiaEntre("01/03/2024 10:01:00", "01/03/2024 10:00:00"), std::nullopt);
  EXPECT_EQ(EstadiaEntre("02/03/2024 00:00:00", "01/03/2024 23:59:00"), std::nullopt);
}

TEST(EstadiaEntre, WhatIsNoMomentIsNoStay) {
  const std::string_view good = "01/03/2024 10:00:00";
  for (const std::string_view bad : {"", "??", "30/02/2024 10:00:00", "01/13/2023 10:00:00",
                                     "01/03/2024 24:00:00", "01/03/2024 10:60:00", "  /  /       :  :00"}) {
    EXPECT_EQ(EstadiaEntre(bad, good), std::nullopt) << bad;
    EXPECT_EQ(EstadiaEntre(good, bad), std::nullopt) << bad;
  }
}

TEST(TextoEstadia, BeginsAtTheUnitThatCounts) {
  EXPECT_EQ(TextoEstadia({0, 0, 0}), "00M "_w);
  EXPECT_EQ(TextoEstadia({0, 0, 59}), "59M "_w);
  EXPECT_EQ(TextoEstadia({0, 2, 5}), "02H 05M "_w);
  EXPECT_EQ(TextoEstadia({1, 2, 30}), "01D 02H 30M "_w);
}

TEST(TextoEstadia, KeepsHoursAfterDays) {
  EXPECT_EQ(TextoEstadia({3, 0, 0}), "03D 00H 00M "_w);
}

TEST(TextoEstadia, GrowsWithTheDays) {
  EXPECT_EQ(TextoEstadia({99, 23, 59}), "99D 23H 59M "_w);
  EXPECT_EQ(TextoEstadia({1234, 0, 7}), "1234D 00H 07M "_w);
}

TEST(PuntosDe, CountsCompleteQuarters) {
  EXPECT_EQ(PuntosDe({0, 0, 14}), 0);
  EXPECT_EQ(PuntosDe({0, 0, 15}), 1);
  EXPECT_EQ(PuntosDe({0, 1, 0}), 4);
  EXPECT_EQ(PuntosDe({0, 2, 59}), 11);
  EXPECT_EQ(PuntosDe({1, 0, 0}), 96);
  EXPECT_EQ(PuntosDe({2, 3, 30}), 206);
}

TEST(PuntosDe, ReachesBeyond32Bits) {
  EXPECT_EQ(PuntosDe({100'000'000, 0, 0}), 9'600'000'000);
}

}  // namespace
}  // namespace vintoral
