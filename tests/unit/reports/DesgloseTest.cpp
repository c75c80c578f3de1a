// An amount as base and tax.
#include <gtest/gtest.h>

#include <limits>

#include "reports/Factura.h"

namespace vintoral {
namespace {

/// "100.00 + 19.00".
std::string Partes(std::int64_t raw, float porcentaje) {
  const Desglose partes = Desglosar(Money::FromRaw(raw), porcentaje);
  return partes.base.Format().Bytes() + " + " + partes.impuesto.Format().Bytes();
}

constexpr std::int64_t kCent = Money::kScale / 100;

TEST(Desglosar, TakesTheTaxOutOfTheAmount) {
  EXPECT_EQ(Partes(11900 * kCent, 19), "100.00 + 19.00");
  EXPECT_EQ(Partes(10000 * kCent, 19), "84.03 + 15.97");      // 84.0336
  EXPECT_EQ(Partes(600000 * kCent, 19), "5042.02 + 957.98");  // 5042.0168
  EXPECT_EQ(Partes(5000 * kCent, 8), "46.30 + 3.70");         // 46.2963
  EXPECT_EQ(Partes(0, 19), "0.00 + 0.00");
  EXPECT_EQ(Partes(-11900 * kCent, 19), "-100.00 + -19.00");
}

TEST(Desglosar, HalvesOfACentGoAwayFromZero) {
  EXPECT_EQ(Partes(1 * kCent, 100), "0.01 + 0.00");  // 0.005
  EXPECT_EQ(Partes(3 * kCent, 100), "0.02 + 0.01");  // 0.015
  EXPECT_EQ(Partes(-1 * kCent, 100), "-0.01 + 0.00");
  EXPECT_EQ(Partes(-3 * kCent, 100), "-0.02 + -0.01");
  EXPECT_EQ(Partes(5001 * kCent, 100), "25.01 + 25.00");  // 25.005
}

TEST(Desglosar, TheBaseIsMoneyBeforeItIsCents) {
  // 0.00495, as money 0.0050 and not 0.0049; 0.00485, as money 0.0048.
  EXPECT_EQ(Partes(99, 100), "0.01 + 0.00");
  EXPECT_EQ(Partes(97, 100), "0.00 + 0.01");
  EXPECT_EQ(Partes(-99, 100), "-0.01 + 0.00");
}

TEST(Desglosar, TakesThePercentAsTheSingleThatItIs) {
  EXPECT_EQ(Partes(10000 * kCent, 0.5F), "99.50 + 0.50");     // 99.5025
  EXPECT_EQ(Partes(10000 * kCent, 12.75F), "88.69 + 11.31");  // 88.6918
  EXPECT_EQ(Partes(10000 * kCent, 0.01F), "99.99 + 0.01");    // 99.9900
  EXPECT_EQ(Partes(10000 * kCent, 1e-30F), "100.00 + 0.00");
}

TEST(Desglosar, BaseAndTaxAreTheAmountAgain) {
  for (const float percent : {0.01F, 0.5F, 8.0F, 12.75F, 16.0F, 19.0F, 33.3F, 99.9F, 100.0F}) {
    for (std::int64_t cents = -3000; cents < 3000; cents += 7) {
      const Desglose parts = Desglosar(Money::FromRaw(cents * kCent), percent);
      ASSERT_EQ(parts.base + parts.impuesto, Money::FromRaw(cents * kCent)) << cents << " at " << percent;
      ASSERT_EQ(parts.base.Raw() % kCent, 0) << cents << " at " << percent;
    }
  }
}

TEST(Desglosar, LargeAmountsStayWhole) {
  EXPECT_EQ(Partes(99999999900 * kCent, 19), "840336133.61 + 159663865.39");  // 840336133.6134
  // Both ends of the range, where the quotient can't lie beyond.
  for (const std::int64_t raw :
       {std::numeric_limits<std::int64_t>::max(), std::numeric_limits<std::int64_t>::min()}) {
    const Money amount = Money::FromRaw(raw);
    const Desglose parts = Desglosar(amount, 1e-30F);
    EXPECT_EQ(parts.base + parts.impuesto, amount.RoundedToCents());
    const Desglose halves = Desglosar(amount, 100);
    EXPECT_EQ(halves.base + halves.impuesto, amount.RoundedToCents());
    EXPECT_NEAR(static_cast<double>(halves.base.Raw()), static_cast<double>(raw) / 2, 2048);
  }
}

}  // namespace
}  // namespace vintoral
