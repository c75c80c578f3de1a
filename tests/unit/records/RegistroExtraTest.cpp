#include "records/RegistroExtra.h"

#include <gtest/gtest.h>

#include <random>

#include "support/Bytes.h"

namespace vintoral {
namespace {

using test::Blanks;
using test::Decoded;
using test::Encoded;
using test::Hex;
using test::Zeros;

// No shift, price 0, time -1, quantity 0.
const std::string kBlank =
    Hex("08 00 09 00") + Blanks(9) + Hex("08 00 0F 00") + Blanks(15) + Zeros(10) + Hex("FF FF  00 00");

RegistroExtra Phone() {
  return {.FechaVenta = "20/11/26"_w,
          .Articulo = "MINUTO CELULAR "_w,
          .MarcaTurnoExtra = false,
          .PrecioUnitario = Money::FromUnits(200),  // 2,000,000 is 1E8480
          .HoraVenta = 1405,                        // 57D
          .Cantidad = 3};
}

TEST(RegistroExtra, ABlankOneFillsItsBytes) {
  EXPECT_EQ(kBlank.size(), RegistroExtra::kSize);
  EXPECT_EQ(Encoded(RegistroExtra{}), kBlank);
  EXPECT_EQ(Decoded<RegistroExtra>(kBlank), RegistroExtra{});
}

TEST(RegistroExtra, ASaleLeavesItsLastByteOver) {
  const std::string sale = Hex("08 00 08 00") + "20/11/26" + Hex("08 00 0F 00") + "MINUTO CELULAR " +
                           Hex("00 00  80 84 1E 00 00 00 00 00  7D 05  03 00");
  EXPECT_EQ(sale.size(), RegistroExtra::kSize - 1);
  EXPECT_EQ(Encoded(Phone()), sale + Zeros(1));
  EXPECT_EQ(Decoded<RegistroExtra>(sale + "\x7F"), Phone());
}

TEST(RegistroExtra, TheMarkOfAShiftIsOneAnyNumberReadsAs) {
  RegistroExtra marked = Phone();
  marked.MarcaTurnoExtra = true;
  std::string bytes = Encoded(marked);
  EXPECT_EQ(bytes.substr(31, 2), Hex("FF FF"));  // 12 of the date, 19 of the name
  bytes[31] = 1;
  bytes[32] = 0;
  EXPECT_EQ(Decoded<RegistroExtra>(bytes), marked);
}

std::string WithTime(std::string_view bytes, std::int16_t time) {
  const auto changed = ConHoraVenta(test::RecordBytes<RegistroExtra>(bytes), time);
  return {changed.data(), changed.size()};
}

TEST(ConHoraVenta, ChangesTwoBytesWhereverTheyStand) {
  std::string sale = Encoded(Phone());
  sale[45] = '\x7F';
  std::string changed = sale;
  changed.replace(41, 2, Hex("FF FF"));
  EXPECT_EQ(WithTime(sale, -1), changed);
  // In a blank record a byte further.
  changed = kBlank;
  changed.replace(42, 2, Hex("7D 05"));
  EXPECT_EQ(WithTime(kBlank, 1405), changed);
}

TEST(ConHoraVenta, KeepsFieldsThatAnotherProgramWroteOtherwise) {
  const std::string numbers = Hex("02 00 07 00  00 00  FF FF") + Zeros(8) + Hex("05 00  06 00") + Blanks(26);
  std::string changed = numbers;
  changed.replace(16, 2, Hex("FF FF"));
  EXPECT_EQ(WithTime(numbers, -1), changed);
}

TEST(ConHoraVenta, HasItInAnyRecord) {
  std::mt19937 random(4);
  for (int round = 0; round < 5000; ++round) {
    std::string bytes(RegistroExtra::kSize, '\0');
    for (char& byte : bytes)
      byte = static_cast<char>(random() & 0xFF);
    if (round % 3 != 0) bytes[0] = 8;
    if (round % 2 == 0) bytes[1] = bytes[3] = 0;
    EXPECT_EQ(Decoded<RegistroExtra>(WithTime(bytes, -1)).HoraVenta, -1);
  }
}

TEST(ConMarcaTurno, ChangesTheMarkAlone) {
  std::string sale = Encoded(Phone());
  sale[45] = '\x7F';
  const auto marked = ConMarcaTurno(test::RecordBytes<RegistroExtra>(sale));
  std::string changed = sale;
  ASSERT_EQ(changed.substr(31, 2), Hex("00 00"));
  changed.replace(31, 2, Hex("FF FF"));
  EXPECT_EQ(std::string(marked.data(), marked.size()), changed);
}

TEST(ListaExtrasEnBlanco, HasFiveThousandBlankRecords) {
  const String list = ListaExtrasEnBlanco();
  ASSERT_EQ(list.Size(), 230'000u);
  for (std::size_t at = 0; at < list.Size(); at += RegistroExtra::kSize)
    ASSERT_EQ(list.Bytes().substr(at, RegistroExtra::kSize), kBlank) << at;
}

}  // namespace
}  // namespace vintoral
