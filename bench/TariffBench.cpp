// The price of a stay in the largest category of a new installation, and what the dialog reckons while it is
// edited.
#include <benchmark/benchmark.h>

#include "tariffs/Curva.h"
#include "tariffs/Revision.h"
#include "tariffs/Tablas.h"
#include "tariffs/Valor.h"

namespace vintoral {
namespace {

void PriceAStay(benchmark::State& state) {
  std::vector<String> tabla;
  for (const String& linea : TarifasPredeterminadas())
    tabla.push_back(LineaTarifa(linea));
  // Every rule counts, and the last of each list decides.
  const Estadia estadia{1, 23, 59};
  for (auto _ : state)
    benchmark::DoNotOptimize(CalcularValorDe(tabla, "MOTOCICLETA", estadia));
}
BENCHMARK(PriceAStay)->Unit(benchmark::kNanosecond);

void DrawTheCurve(benchmark::State& state) {
  const std::vector<String> lineas = TarifasPredeterminadas();
  for (auto _ : state)
    benchmark::DoNotOptimize(CurvaDeTarifa(lineas, "MOTOCICLETA"));
}
BENCHMARK(DrawTheCurve)->Unit(benchmark::kMillisecond);

void ReviewTheTable(benchmark::State& state) {
  const std::vector<String> lineas = TarifasPredeterminadas();
  for (auto _ : state)
    benchmark::DoNotOptimize(RevisarTarifas(lineas));
}
BENCHMARK(ReviewTheTable)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vintoral
