#include "records/Piezas.h"

#include <gtest/gtest.h>

#include "support/Bytes.h"

namespace vintoral {
namespace {

TEST(Piezas, FourPiecesMakeAValue) {
  RegistrosDePiezas records;
  records[0].CampoA = "ABCDEFGHIJKL"_w;
  records[0].CampoB = "MNOPQRSTUVWX"_w;
  records[1].CampoA = "YZ0123456789"_w;
  records[1].CampoB = "abc"_w;
  records[12].CampoA = std::int16_t{587};
  const auto values = UnirPiezas(records);
  EXPECT_EQ(values[0], "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789abc"_w);
  EXPECT_EQ(values[1], ""_w);
  EXPECT_EQ(values[6], "587"_w);
}

TEST(Piezas, ValueIsCutIntoTwelves) {
  const RegistrosDePiezas records =
      CortarPiezas({""_w, "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789abcdefghijklTOO LONG"_w});
  EXPECT_EQ(TextOf(records[2].CampoA), "ABCDEFGHIJKL"_w);
  EXPECT_EQ(TextOf(records[2].CampoB), "MNOPQRSTUVWX"_w);
  EXPECT_EQ(TextOf(records[3].CampoA), "YZ0123456789"_w);
  EXPECT_EQ(TextOf(records[3].CampoB), "abcdefghijkl"_w);
  EXPECT_EQ(TextOf(records[4].CampoA), ""_w);
}

TEST(Piezas, ValuesOf48CharactersComeBackFromTheFile) {
  std::array<String, 7> values;
  for (std::size_t i = 0; i < values.size(); ++i)
    values[i] = String(47, static_cast<char>('A' + i)) + "."_w;
  RegistrosDePiezas records = CortarPiezas(values);
  for (RegistroMixto& record : records)
    record = test::Decoded<RegistroMixto>(test::Encoded(record));
  EXPECT_EQ(UnirPiezas(records), values);
}

TEST(Piezas, BlanksAtTheSeamsStay) {
  const String value = "ELEVEN CHAR  TWO BLANKS ARE KEPT"_w;
  EXPECT_EQ(UnirPiezas(CortarPiezas({value}))[0], value);
}

}  // namespace
}  // namespace vintoral
