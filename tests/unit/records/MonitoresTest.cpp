#include "records/Monitores.h"

#include <gtest/gtest.h>

namespace vintoral {
namespace {

Moment At(std::string_view text) {
  return ParseDateTime(text).value();
}

RegistroFicha Entered(std::string_view stamp) {
  RegistroFicha ficha;
  ficha.MarcaEntrada = stamp;
  ficha.MarcaSalida = "??";
  ficha.PorteriaSalida = "??";
  return ficha;
}

RegistroFicha Left(std::string_view stamp) {
  RegistroFicha ficha = Entered("08:00  (15/06/2024)");
  ficha.MarcaSalida = stamp;
  ficha.PorteriaSalida = "01";
  return ficha;
}

TEST(Monitores, InsideIsToldByTheExitGateAlone) {
  RegistroFicha ficha = Entered("08:00  (15/06/2024)");
  ficha.EnUso = false;
  EXPECT_TRUE(EstaDentro(ficha));
  EXPECT_TRUE(EstaDentro(ficha.Encode()));
  ficha.EnUso = true;
  for (const char* gate : {"02", "", "?", "? ", " ?"}) {
    ficha.PorteriaSalida = gate;
    EXPECT_FALSE(EstaDentro(ficha)) << gate;
    EXPECT_FALSE(EstaDentro(ficha.Encode())) << gate;
  }
}

TEST(EntroHace, ReachesBackToTheMinute) {
  const Moment now = At("15/06/2024 10:30:00");
  EXPECT_TRUE(EntroHace(Entered("10:30  (15/06/2024)"), now, 10));
  EXPECT_TRUE(EntroHace(Entered("10:20  (15/06/2024)"), now, 10));
  EXPECT_FALSE(EntroHace(Entered("10:19  (15/06/2024)"), now, 10));
}

TEST(EntroHace, CountsSecondsButNoFractions) {
  const RegistroFicha ficha = Entered("10:20  (15/06/2024)");
  EXPECT_TRUE(EntroHace(ficha, At("15/06/2024 10:30:00").Plus(999), 10));
  EXPECT_FALSE(EntroHace(ficha, At("15/06/2024 10:30:01"), 10));
}

TEST(EntroHace, KnowsTodayAlone) {
  const Moment now = At("15/06/2024 10:30:00");
  EXPECT_FALSE(EntroHace(Entered("10:25  (14/06/2024)"), now, 10));
  EXPECT_FALSE(EntroHace(Entered("10:25  (16/06/2024)"), now, 10));
  EXPECT_FALSE(EntroHace(Entered("10:25  (15/06/2023)"), now, 10));
}

TEST(EntroHace, DoesNotReachBackOverMidnight) {
  const Moment now = At("15/06/2024 00:05:00");
  // Ten minutes ago it was 23:55, which is later than any entry of this young day.
  EXPECT_FALSE(EntroHace(Entered("00:02  (15/06/2024)"), now, 10));
  EXPECT_FALSE(EntroHace(Entered("23:58  (14/06/2024)"), now, 10));
  EXPECT_TRUE(EntroHace(Entered("00:02  (15/06/2024)"), now, 5));
}

TEST(EntroHace, WholeDayIsThisTimeOfDay) {
  const Moment now = At("15/06/2024 10:30:00");
  EXPECT_FALSE(EntroHace(Entered("10:29  (15/06/2024)"), now, 1440));
  EXPECT_TRUE(EntroHace(Entered("10:30  (15/06/2024)"), now, 1440));
}

TEST(PermaneceDesde, BeginsWithTheMinute) {
  const RegistroFicha ficha = Entered("10:20  (15/06/2024)");
  EXPECT_FALSE(PermaneceDesde(ficha, At("15/06/2024 10:29:59"), 10));
  EXPECT_TRUE(PermaneceDesde(ficha, At("15/06/2024 10:30:00"), 10));
  EXPECT_TRUE(PermaneceDesde(ficha, At("15/06/2024 23:59:59"), 10));
}

TEST(PermaneceDesde, KnowsTodayAlone) {
  EXPECT_FALSE(PermaneceDesde(Entered("08:00  (14/06/2024)"), At("15/06/2024 10:30:00"), 10));
}

TEST(PermaneceDesde, EntryAheadOfTheClockHasStayedForNoTime) {
  EXPECT_FALSE(PermaneceDesde(Entered("10:31  (15/06/2024)"), At("15/06/2024 10:30:00"), 0));
  EXPECT_TRUE(PermaneceDesde(Entered("10:30  (15/06/2024)"), At("15/06/2024 10:30:00"), 0));
}

TEST(SalioHace, BeginsWithTheMinuteOfTheExit) {
  const RegistroFicha ficha = Left("10:20  (15/06/2024)");
  EXPECT_FALSE(SalioHace(ficha, At("15/06/2024 10:29:59"), 10));
  EXPECT_TRUE(SalioHace(ficha, At("15/06/2024 10:30:00"), 10));
  EXPECT_FALSE(SalioHace(ficha, At("16/06/2024 10:30:00"), 10));
}

TEST(SalioHoy, LooksAtTheDayOfTheExit) {
  EXPECT_TRUE(SalioHoy(Left("10:20  (15/06/2024)"), At("15/06/2024 00:00:00")));
  EXPECT_FALSE(SalioHoy(Left("10:20  (14/06/2024)"), At("15/06/2024 00:00:00")));
  EXPECT_TRUE(SalioHoy(Left("1x:20  (15/06/2024)"), At("15/06/2024 00:00:00")));
  EXPECT_FALSE(SalioHoy(Left("??"), At("15/06/2024 00:00:00")));
}

TEST(Monitores, DamagedStampIsInNone) {
  const Moment now = At("15/06/2024 10:30:00");
  for (const char* stamp :
       {"??", "", "10:20  (31/06/2024)", "1x:20  (15/06/2024)", "10:60  (15/06/2024)", "\xFF\xFE", "10:20"}) {
    EXPECT_FALSE(EntroHace(Entered(stamp), now, 1000)) << stamp;
    EXPECT_FALSE(PermaneceDesde(Entered(stamp), now, 0)) << stamp;
    EXPECT_FALSE(SalioHace(Left(stamp), now, 0)) << stamp;
  }
}

}  // namespace
}  // namespace vintoral
