// A sale as values: its total, its rows on an invoice, and the list with it on top.
#include "sales/Venta.h"

#include <gtest/gtest.h>

#include <limits>

#include "records/RegistroExtra.h"
#include "support/Bytes.h"
#include "support/MemoryStation.h"

namespace vintoral {
namespace {

using test::At;
using test::Blanks;
using test::Encoded;
using test::Hex;
using test::Zeros;

constexpr std::size_t kLine = RegistroExtra::kSize;
constexpr std::size_t kList = 230'000;

Renglon Line(std::string_view article, std::int16_t quantity, std::int64_t units) {
  return {String(article), quantity, Money::FromUnits(units)};
}

/// A full list: line n was sold n times, at n.
std::string FullList() {
  std::string list;
  for (std::int16_t n = 1; n <= 5000; ++n)
    list += Encoded(RegistroExtra{"19/11/26"_w, "CASCO MOTO     "_w, n == 7, Money::FromUnits(n), 800, n});
  return list;
}

std::string LineOf(std::string_view list, std::size_t number) {
  return std::string(list.substr((number - 1) * kLine, kLine));
}

TEST(Venta, ALineCostsItsQuantityTimesItsPrice) {
  EXPECT_EQ(ImporteDe(Money::FromRaw(12'345), 3), Money::FromRaw(37'035));
  EXPECT_EQ(ImporteDe(Money::FromUnits(1'000'000), 999), Money::FromUnits(999'000'000));
  EXPECT_EQ(ImporteDe(Money::FromUnits(5), 0), Money());
}

TEST(Venta, ASumThatRunsOverIsNoAmount) {
  constexpr auto kMost = std::numeric_limits<std::int64_t>::max();
  EXPECT_FALSE(EsImporte(ImporteDe(Money::FromRaw(kMost / 2), 3)));
  const Renglon half{"A"_w, 1, Money::FromRaw(kMost / 2)};
  EXPECT_EQ(TotalDe({half, half}), Money::FromRaw(kMost - 1));
  EXPECT_TRUE(EsImporte(TotalDe({half, half})));
  EXPECT_FALSE(EsImporte(TotalDe({half, half, half})));
  EXPECT_EQ(TotalDe({}), Money());
  EXPECT_EQ(TotalDe({Line("A", 2, 100), Line("B", 3, 50)}), Money::FromUnits(350));
}

TEST(Venta, ItsRowsHaveThirtyOneColumns) {
  EXPECT_EQ(DetalleDeVenta({Line("MINUTO CELULAR", 3, 200)}), "MINUTO CELULAR    3      600.00"_w);
  EXPECT_EQ(DetalleDeVenta({Line("CAFE", 999, 1'000'000), Line("TARJETA PREPAGO", 12, 10'000)}),
            "CAFE            999999000000.00\r\n"
            "TARJETA PREPAGO  12   120000.00"_w);
  EXPECT_EQ(DetalleDeVenta({{"A"_w, 1, Money::FromRaw(15'000)}}), "A                 1        1.50"_w);
}

TEST(Venta, TheMarkOfAStayIsABlankOnAnInvoice) {
  EXPECT_EQ(DetalleDeVenta({Line("A\x1B"
                                 "B",
                                 1, 1)}),
            "A B               1        1.00"_w);
}

String ListaConVenta(std::string_view list, const std::vector<Renglon>& sale, Moment moment) {
  return ListaConLineas(list, LineasDeVenta(sale, moment));
}

TEST(ListaConVenta, AnEmptyFileBecomesAListWithTheSaleOnTop) {
  const String list = ListaConVenta("", {Line("MINUTO CELULAR", 3, 200), Line("CAFE", 1, 5000)}, At(14, 5));
  ASSERT_EQ(list.Size(), kList);
  // 200.0000 is 1E8480, 5000.0000 is 2FAF080; 14:05 is 1405, 57D.
  EXPECT_EQ(LineOf(list, 1), Hex("08 00 08 00") + "20/11/26" + Hex("08 00 0F 00") + "MINUTO CELULAR " +
                                 Hex("00 00  80 84 1E 00 00 00 00 00  7D 05  03 00") + Zeros(1));
  EXPECT_EQ(LineOf(list, 2), Hex("08 00 08 00") + "20/11/26" + Hex("08 00 0F 00") + "CAFE           " +
                                 Hex("00 00  80 F0 FA 02 00 00 00 00  7D 05  01 00") + Zeros(1));
  EXPECT_EQ(list.Bytes().substr(2 * kLine), ListaExtrasEnBlanco().Bytes().substr(2 * kLine));
}

TEST(ListaConVenta, ThreeArticlesPushTheThreeOldestOut) {
  const std::string before = FullList() + "registro 5001, y lo que haya";
  const String after =
      ListaConVenta(before, {Line("A", 1, 1), Line("B", 2, 2), Line("C", 3, 3)}, At(0, 5, 0, 1));
  ASSERT_EQ(after.Size(), before.size());
  const auto third = RegistroExtra::Decode(test::RecordBytes<RegistroExtra>(LineOf(after, 3)));
  EXPECT_EQ(third, (RegistroExtra{"01/11/26"_w, "C              "_w, false, Money::FromUnits(3), 5, 3}));
  EXPECT_EQ(after.Bytes().substr(3 * kLine, kList - 3 * kLine), before.substr(0, kList - 3 * kLine));
  EXPECT_EQ(after.Bytes().substr(kList), "registro 5001, y lo que haya");
}

TEST(ListaConVenta, AMarkOfAShiftMovesWithItsLine) {
  const std::string before = FullList();
  const String after = ListaConVenta(before, {Line("A", 1, 1)}, At(14, 5));
  EXPECT_EQ(LineOf(after, 8), LineOf(before, 7));
  EXPECT_TRUE(RegistroExtra::Decode(test::RecordBytes<RegistroExtra>(LineOf(after, 8))).MarcaTurnoExtra);
}

TEST(ListaConVenta, NoSaleIsLongerThanTheList) {
  const std::string before = FullList() + "candado";
  const String after = ListaConVenta(before, std::vector(5001, Line("A", 1, 1)), At(14, 5));
  EXPECT_EQ(after.Size(), before.size());
  EXPECT_EQ(after.Bytes().substr(kList), "candado");
  EXPECT_EQ(LineOf(after, 5000), LineOf(after, 1));
}

TEST(ListaConVenta, ACutListIsWholeAgain) {
  const std::string full = FullList(), blank = Encoded(RegistroExtra{});
  // Two lines and a piece: of the third the byte left over is missing, or more.
  for (const std::size_t cut : {2 * kLine, 2 * kLine + 1, 3 * kLine - 2, 3 * kLine - 1, 3 * kLine}) {
    const String after = ListaConVenta(full.substr(0, cut), {Line("A", 1, 1)}, At(14, 5));
    ASSERT_EQ(after.Size(), kList) << cut;
    EXPECT_EQ(LineOf(after, 3), LineOf(full, 2)) << cut;
    EXPECT_EQ(LineOf(after, 4), cut < 3 * kLine - 1 ? blank : LineOf(full, 3)) << cut;
    EXPECT_EQ(LineOf(after, 5), blank) << cut;
    EXPECT_EQ(LineOf(after, 5000), blank) << cut;
  }
}

TEST(ListaConVenta, APieceOfTheLastLineFallsOffLikeAWholeOne) {
  const std::string full = FullList();
  const String after = ListaConVenta(full.substr(0, kList - 1), {Line("A", 1, 1)}, At(14, 5));
  ASSERT_EQ(after.Size(), kList);
  EXPECT_EQ(LineOf(after, 5000), LineOf(full, 4999));
}

TEST(ListaConVenta, APieceOfTheLockStaysAPiece) {
  const String after = ListaConVenta(FullList() + Blanks(20), {Line("A", 1, 1)}, At(14, 5));
  EXPECT_EQ(after.Size(), kList + 20);
}

}  // namespace
}  // namespace vintoral
