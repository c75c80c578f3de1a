#include "records/RegistroFuncion.h"

#include <gtest/gtest.h>

#include "support/Bytes.h"

namespace vintoral {
namespace {

using test::Decoded;
using test::Hex;
using test::Zeros;

// 20 November, 14:05, 1 hour and 30 minutes; 10 for station "01" and code "0" is 100,000, 186A0.
const std::string kDay = Hex("08 00 11 00") + "20/11/2026  14:05" + Hex("08 00 05 00") + "01:30" +
                         Hex("00 00") + Hex("A0 86 01 00 00 00 00 00  0F 00  23 00");

RegistroFuncion Day() {
  return {.FechaHora = "20/11/2026  14:05"_w,
          .Tiempo = "01:30"_w,
          .CodigoFuncion = Money::FromUnits(10),
          .HoraFin = 15,
          .MinutoFin = 35};
}

std::string Over(std::string place, const RegistroFuncion& record) {
  record.EncodeOver(std::span<char, RegistroFuncion::kSize>(place.data(), RegistroFuncion::kSize));
  return place;
}

TEST(RegistroFuncion, LeavesTwoBytesAsTheyAre) {
  EXPECT_EQ(kDay.size(), 44u);
  EXPECT_EQ(Over(std::string(46, 'x'), Day()), kDay + "xx");
  EXPECT_EQ(Decoded<RegistroFuncion>(kDay + Zeros(2)), Day());
  EXPECT_EQ(Decoded<RegistroFuncion>(kDay + "xx"), Day());
}

TEST(RegistroFuncion, ABlankOneHasNoEnd) {
  RegistroFuncion blank = Day();
  blank.HoraFin = blank.MinutoFin = RegistroFuncion::kSinFin;
  EXPECT_EQ(Over(Zeros(46), blank), kDay.substr(0, 40) + Hex("FF FF FF FF  00 00"));
}

TEST(RegistroFuncion, ShorterTextsMoveWhatStandsBehindThem) {
  RegistroFuncion shorter = Day();
  shorter.FechaHora = "20/11/2026"_w;
  shorter.Tiempo = {};
  const std::string bytes = Hex("08 00 0A 00") + "20/11/2026" + Hex("08 00 00 00") + kDay.substr(30);
  EXPECT_EQ(bytes.size(), 32u);
  EXPECT_EQ(Over(std::string(46, 'x'), shorter), bytes + std::string(14, 'x'));
  EXPECT_EQ(Decoded<RegistroFuncion>(bytes + std::string(14, 'x')), shorter);
}

}  // namespace
}  // namespace vintoral
