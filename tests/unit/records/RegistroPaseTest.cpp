#include "records/RegistroPase.h"

#include <gtest/gtest.h>

#include "support/Bytes.h"

namespace vintoral {
namespace {

using test::Blanks;
using test::Decoded;
using test::Encoded;
using test::Hex;
using test::Zeros;

TEST(RegistroPase, ADaysPassStandsInCfrAsWrittenByHand) {
  RegistroPase pase;
  pase.CodigoPase = "A1B2C3D4E5F6";
  pase.PlacaPase = "XYZ987";
  pase.ModoPase = 1;
  pase.FechaPase = "14:05  (01/11/2026)";
  pase.RestantesPase = 299;  // 012B
  const std::string bytes =
      "A1B2C3D4E5F6" + Blanks(38) + "XYZ987" + Blanks(14) + Hex("01") + "14:05  (01/11/2026) " + Hex("2B 01");
  EXPECT_EQ(bytes.size(), 93u);
  EXPECT_EQ(Encoded(pase), bytes);
  EXPECT_EQ(Decoded<RegistroPase>(bytes), pase);
}

TEST(RegistroPase, BlankIsBlanksAndZero) {
  EXPECT_EQ(Encoded(RegistroPase{}), Blanks(70) + Zeros(1) + Blanks(20) + Zeros(2));
}

TEST(RegistroPase, TheModeHasNoSignAndTheRestHas) {
  const std::string bytes = Blanks(70) + Hex("FF") + Blanks(20) + Hex("FE FF");
  const auto pase = Decoded<RegistroPase>(bytes);
  EXPECT_EQ(pase.ModoPase, 255);
  EXPECT_EQ(pase.RestantesPase, -2);
  EXPECT_EQ(Encoded(pase), bytes);
}

TEST(RegistroPase, KeepsBytesThatAreNoText) {
  const std::string bytes = Zeros(50) + std::string(20, '\xFF') + Hex("02") + Zeros(20) + Hex("00 80");
  const auto pase = Decoded<RegistroPase>(bytes);
  EXPECT_EQ(pase.RestantesPase, -32768);
  EXPECT_EQ(pase.FechaPase.Trimmed(), String(20, '\0'));
  EXPECT_EQ(Encoded(pase), bytes);
}

}  // namespace
}  // namespace vintoral
