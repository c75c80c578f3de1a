#include "tariffs/Valor.h"

#include <gtest/gtest.h>

#include "unit/tariffs/Categoria.h"

namespace vintoral {
namespace {

struct Example {
  const char* category;
  Estadia stay;
  std::int64_t units;
  bool priced = true;
  Estadia counted;
};

void PrintTo(const Example& example, std::ostream* out) {
  *out << example.category << ' ' << example.stay.dias << 'D' << example.stay.horas << 'H'
       << example.stay.minutos;
}

class DefaultTariff : public testing::TestWithParam<Example> {};

TEST_P(DefaultTariff, PricesTheStay) {
  const Example& example = GetParam();
  const Valor valor = CalcularValorDe(TableOf(TarifasPredeterminadas()), example.category, example.stay);
  EXPECT_TRUE(valor.encontrada);
  EXPECT_EQ(valor.conPrecio, example.priced);
  EXPECT_EQ(valor.valor, Money::FromUnits(example.units));
  EXPECT_EQ(valor.contada, example.counted);
}

constexpr Example Same(const char* category, Estadia stay, std::int64_t units, bool priced = true) {
  return {category, stay, units, priced, stay};
}

INSTANTIATE_TEST_SUITE_P(
    Stays, DefaultTariff,
    testing::Values(Same("AUTOMOVIL", {0, 0, 0}, 0), Same("AUTOMOVIL", {0, 0, 37}, 3700),
                    Same("AUTOMOVIL", {0, 2, 30}, 15000), Same("AUTOMOVIL", {0, 4, 59}, 29900),
                    Same("AUTOMOVIL", {0, 5, 0}, 30000), Same("AUTOMOVIL", {0, 7, 45}, 30000),
                    Same("AUTOMOVIL", {1, 2, 30}, 45000), Same("AUTOMOVIL", {2, 0, 0}, 60000),
                    Same("MOTOCICLETA", {0, 0, 0}, 0),
                    Example{"MOTOCICLETA", {0, 0, 3}, 2000, true, {0, 1, 0}},
                    Same("MOTOCICLETA", {0, 1, 2}, 2000), Same("MOTOCICLETA", {0, 1, 20}, 3000),
                    Same("MOTOCICLETA", {0, 1, 59}, 3500), Same("MOTOCICLETA", {0, 6, 10}, 10000),
                    Example{"MOTOCICLETA", {3, 0, 1}, 32000, true, {3, 1, 0}},
                    Example{"BICICLETA", {0, 0, 20}, 600, true, {0, 1, 0}},
                    Same("BICICLETA", {0, 1, 20}, 800), Same("COMPRA MES AUTO", {0, 0, 0}, 300000),
                    Same("COMPRA MES AUTO", {0, 0, 1}, 300000), Same("COMPRA MES AUTO", {0, 23, 59}, 300000),
                    Same("COMPRA MES AUTO", {31, 5, 7}, 300000), Same("LAVADO AUTOMOVIL", {0, 0, 0}, 50000),
                    Same("LAVADO AUTOMOVIL", {2, 3, 4}, 50000), Same("VISITANTE", {0, 0, 0}, 0, false),
                    Same("VISITANTE", {4, 3, 2}, 0, false)));

}  // namespace
}  // namespace vintoral
