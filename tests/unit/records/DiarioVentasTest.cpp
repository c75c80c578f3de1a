// The journal of sales as bytes, and what it adds to a list that a power cut has brought back.
#include "records/DiarioVentas.h"

#include <gtest/gtest.h>

#include "common/Digest.h"
#include "records/RegistroExtra.h"
#include "support/Bytes.h"

namespace vintoral {
namespace {

using test::Encoded;
using test::Zeros;

constexpr std::size_t kSector = 512;

String Line(std::int16_t quantity) {
  return String(
      Encoded(RegistroExtra{"20/11/26"_w, "CAFE           "_w, false, Money::FromUnits(5), 1405, quantity}));
}

AnotacionVenta Sale(const String& before, std::int16_t quantity, std::string_view boot = "ayer") {
  return {Digest(before), String(boot), Line(quantity)};
}

std::string Journal(const std::vector<AnotacionVenta>& sales) {
  std::string bytes;
  for (const AnotacionVenta& sale : sales)
    bytes += EnDiario(sale).Bytes();
  return bytes;
}

TEST(DiarioVentas, AnEntryStandsInSectorsOfItsOwn) {
  AnotacionVenta sale = Sale(""_w, 1);
  EXPECT_EQ(EnDiario(sale).Size(), kSector);
  // 32 bytes of head, 4 of the name of the start, 476 of lines: 512.
  sale.lineas = String(476, 'x');
  EXPECT_EQ(EnDiario(sale).Size(), kSector);
  sale.lineas = String(477, 'x');
  EXPECT_EQ(EnDiario(sale).Size(), 2 * kSector);
}

TEST(DiarioVentas, IsReadAsItWasWritten) {
  const std::vector<AnotacionVenta> sales = {Sale("a"_w, 1), Sale("b"_w, 2, ""), Sale("c"_w, 3)};
  const DiarioVentas journal = LeerDiario(Journal(sales) + Zeros(1000));
  EXPECT_EQ(journal.anotaciones, sales);
  EXPECT_EQ(journal.fin, 3 * kSector);
  EXPECT_EQ(LeerDiario(Journal(sales)).fin, 3 * kSector);
}

TEST(DiarioVentas, EndsWhereAnEntryIsNotWhole) {
  const std::vector<AnotacionVenta> sales = {Sale("a"_w, 1), Sale("b"_w, 2)};
  const std::string whole = Journal(sales);
  const std::size_t entry = 32 + 4 + 46;  // what follows is room to the end of the sector
  for (std::size_t at = kSector; at < kSector + entry; ++at) {
    std::string torn = whole;
    torn[at] = static_cast<char>(torn[at] + 1);
    EXPECT_EQ(LeerDiario(torn).anotaciones.size(), 1u) << at;
    EXPECT_EQ(LeerDiario(torn).fin, kSector) << at;
    EXPECT_EQ(LeerDiario(whole.substr(0, at)).anotaciones.size(), 1u) << at;
  }
  EXPECT_EQ(LeerDiario(whole.substr(0, kSector + entry)).anotaciones.size(), 2u);
}

TEST(DiarioVentas, AnyBytesAreLegal) {
  EXPECT_EQ(LeerDiario("").fin, 0u);
  EXPECT_EQ(LeerDiario(std::string(5000, '\xFF')).fin, 0u);
  std::string lengths = Journal({Sale("a"_w, 1)});
  lengths.replace(24, 8, 8, '\xFF');
  EXPECT_EQ(LeerDiario(lengths).fin, 0u);
}

TEST(DiarioVentas, AListThatLacksSalesGetsThem) {
  const String none = ListaExtrasEnBlanco() + "candado"_w;
  const String one = ListaConLineas(none, Line(1)), two = ListaConLineas(one, Line(2));
  const std::vector<AnotacionVenta> sales = {Sale(none, 1), Sale(one, 2)};
  ASSERT_NE(none, one);
  EXPECT_EQ(ListaAlDia(none, sales, "hoy"), two);
  EXPECT_EQ(ListaAlDia(one, sales, "hoy"), two);
  EXPECT_EQ(ListaAlDia(two, sales, "hoy"), two);
}

TEST(DiarioVentas, TwoSalesAlikeAreTwo) {
  const String none = ListaExtrasEnBlanco();
  const String one = ListaConLineas(none, Line(1)), two = ListaConLineas(one, Line(1));
  const std::vector<AnotacionVenta> sales = {Sale(none, 1), Sale(one, 1)};
  EXPECT_EQ(ListaAlDia(none, sales, "hoy"), two);
  EXPECT_EQ(ListaAlDia(one, sales, "hoy"), two);
  EXPECT_EQ(ListaAlDia(two, sales, "hoy"), two);
}

TEST(DiarioVentas, AListThatSomebodyElseHasWrittenStays) {
  const String none = ListaExtrasEnBlanco(), other = ListaConLineas(none, Line(9));
  EXPECT_EQ(ListaAlDia(other, {Sale(none, 1)}, "hoy"), other);
}

TEST(DiarioVentas, WithoutAPowerCutTheListIsRight) {
  const String none = ListaExtrasEnBlanco();
  EXPECT_EQ(ListaAlDia(none, {Sale(none, 1, "hoy")}, "hoy"), none);
}

}  // namespace
}  // namespace vintoral
