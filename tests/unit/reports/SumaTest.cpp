#include "reports/Suma.h"

#include <gtest/gtest.h>

#include <limits>

namespace vintoral {
namespace {

constexpr Money kMost = Money::FromRaw(std::numeric_limits<std::int64_t>::max());
constexpr Money kLeast = Money::FromRaw(std::numeric_limits<std::int64_t>::min());

TEST(Suma, AddsAndShowsCents) {
  Suma sum;
  EXPECT_EQ(sum.Texto(), "0.00"_w);
  sum += Suma(Money::FromUnits(1500));
  sum += Suma(Money::FromRaw(5000));
  EXPECT_EQ(sum.Texto(), "1500.50"_w);
}

TEST(Suma, TheEndOfTheRangeIsStillASum) {
  Suma sum(kMost);
  sum += Suma();
  EXPECT_EQ(sum.Texto(), "922337203685477.58"_w);
}

TEST(Suma, OneThatHasRunOverSaysSo) {
  Suma sum(kMost);
  sum += Suma(Money::FromRaw(1));
  EXPECT_EQ(sum.Texto(), "¡ERROR!"_w);
  Suma below(kLeast);
  below += Suma(Money::FromRaw(-1));
  EXPECT_EQ(below.Texto(), "¡ERROR!"_w);
}

TEST(Suma, ItStaysSoWhateverIsAdded) {
  Suma sum(kMost);
  sum += Suma(kMost);
  sum += Suma(kLeast);
  EXPECT_EQ(sum.Texto(), "¡ERROR!"_w);
  EXPECT_EQ(sum.ACentavos().Texto(), "¡ERROR!"_w);
  Suma total;
  total += sum;
  EXPECT_EQ(total.Texto(), "¡ERROR!"_w);
}

TEST(Suma, AProductIsExactOrSaysSo) {
  EXPECT_EQ(Suma::Producto(3, Money::FromUnits(500)).Texto(), "1500.00"_w);
  EXPECT_EQ(Suma::Producto(-2, Money::FromUnits(500)).Texto(), "-1000.00"_w);
  EXPECT_EQ(Suma::Producto(0, kMost).Texto(), "0.00"_w);
  EXPECT_EQ(Suma::Producto(1, kMost).Texto(), "922337203685477.58"_w);
  EXPECT_EQ(Suma::Producto(2, kMost).Texto(), "¡ERROR!"_w);
}

TEST(Suma, RoundsToCents) {
  Suma sum = Suma(Money::FromRaw(50)).ACentavos();  // half a cent
  sum += Suma(Money::FromRaw(49)).ACentavos();
  EXPECT_EQ(sum, Suma(Money::FromRaw(100)));
}

TEST(ConMoneda, OneBlankBetweenThem) {
  EXPECT_EQ(ConMoneda(" $ "_w, Suma(Money::FromUnits(5))), "$ 5.00"_w);
  EXPECT_EQ(ConMoneda(""_w, Suma()), " 0.00"_w);
}

}  // namespace
}  // namespace vintoral
