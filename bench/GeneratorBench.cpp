// The next free number of a house that is nearly full, beside one read of its register.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "PlainReads.h"
#include "StationGate.h"
#include "Timed.h"

namespace vintoral {
namespace {

using namespace bench;

/// All slots but the last one are taken.
class FullHouse {
 public:
  explicit FullHouse(const std::string& folder) : gate_(folder, Plates::kNone) {
    Form1& form = gate_.Form();
    Register<RegistroFicha> act(gate_.Devices().Devices().disk, form.RutaCompartida("Vintoral.ACT"),
                                OpenMode::kReadWrite);
    RegistroFicha taken;
    taken.EnUso = true;
    taken.PorteriaSalida = "??";
    for (int slot = 1; slot < kSlots; ++slot)
      act.Write(slot, taken, false).PassOver();
    form.ActivarTiquetes();
    form.PctBoton[boton::kTiquetes].BorderStyle = 1;
  }
  Form1& Form() { return gate_.Form(); }
  std::string Act() {
    PosixDisk disk(gate_.Devices().Devices().disk.CurrentFolder().ToUtf8());
    return disk.PathOf("Multimedia\\Vintoral.ACT");
  }
  void Forget() { gate_.Devices().Events.Take(); }

 private:
  Gate gate_;
};

/// `codes`: in barcode mode, a new code drawn.
void HomeWith999Inside(benchmark::State& state, bool codes) {
  const WorkFolder folder;
  FullHouse house(folder.Path("Vintoral"));
  Form1& form = house.Form();
  if (codes) form.AlternarCodigoBarras();
  const std::string act = house.Act();
  std::vector<char> bytes;
  double ours = 0, theirs = 0;
  for (auto _ : state) {
    const double took = Timed([&] { form.GenerarFicha(); });
    if (form.NumeroEscrito() != kSlots) return state.SkipWithError("not the last slot");
    form.LimpiarCampos();
    house.Forget();
    theirs += Timed([&] { benchmark::DoNotOptimize(ReadWhole(act, bytes)); });
    ours += took;
    state.SetIterationTime(took / 1e6);
  }
  state.counters["ratio"] = ours / theirs;
}
BENCHMARK_CAPTURE(HomeWith999Inside, numbers, false)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(HomeWith999Inside, codes, true)->UseManualTime()->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace vintoral
