// What paper adds to a vehicle's day: number and log, synced, beside the same day without them; and one
// invoice on top of years of them, beside `cp`. The printing itself happens beside the gate.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>
#include <numeric>
#include <stdexcept>
#include <string>
#include <vector>

#include "Median.h"
#include "StationGate.h"
#include "Timed.h"
#include "station/form1/Archivos.h"

namespace vintoral {
namespace {

using namespace bench;
/// A gate with ticket and invoice for everyone, or with neither.
class PaperGate {
 public:
  PaperGate(const std::string& folder, bool paper) : paper_(paper), gate_(Made(folder)) {
    if (!paper) return;
    Form1& form = gate_.Form();
    gate_.Devices().Printer.Installed = {{"Tira80"_w}, "Tira80"_w};
    form.TiqueteActual.DimFuente = form.FacturaActual.DimFuente = 10.5F;
    form.FacturaActual.Impuesto = 19;
    form.FacturaActual.Prefijo = "No.FACTURA\x1B";
    form.ActivarTiquetes();
    form.PctBoton[boton::kFacturas].BorderStyle = 1;
  }

  /// What the two commands took for one vehicle, and how long it took until nothing was left to do behind
  /// them; at a gate the next vehicle comes seconds later.
  struct Took {
    double commands = 0, settled = 0;
    Took& operator+=(const Took& other) {
      commands += other.commands;
      settled += other.settled;
      return *this;
    }
  };
  Took Vehicle(int slot) {
    gate_.BeforeSave(slot);
    const double save = Timed([this] { gate_.Save(); });
    gate_.BeforeRetire(slot);
    gate_.Form().ChkFactura.Value = paper_ ? 1 : 0;
    const double retire = Timed([this] { gate_.Retire(); });
    const double behind = Timed([this] { gate_.Devices().Devices().disk.Settle(); });
    gate_.Devices().Events.Take();
    return {save + retire, save + retire + behind};
  }
  std::int32_t Invoices() { return gate_.Form().FacturaActual.NumFactura; }

 private:
  static std::string Made(const std::string& folder) {
    std::filesystem::create_directories(folder + "/Multimedia");
    std::ofstream(folder + "/Multimedia/Vintoral.USR").flush();
    return folder;
  }
  bool paper_;
  Gate gate_;
};

/// The gates take turns, so that a disk that slows down slows both.
void PaperOnTop(benchmark::State& state) {
  constexpr int kDay = 300;
  PaperGate::Took with, without;
  for ([[maybe_unused]] auto day : state) {
    const WorkFolder folder;
    PaperGate paper(folder.Path("Papel"), true), plain(folder.Path("Sin"), false);
    with = without = {};
    for (int i = 0; i < kDay; ++i) {
      with += paper.Vehicle(SlotOf(i));
      without += plain.Vehicle(SlotOf(i));
    }
    if (paper.Invoices() != kDay || plain.Invoices() != 0)
      return state.SkipWithError("an invoice is missing");
    state.SetIterationTime(with.commands / kDay / 1e6);
  }
  state.counters["with_us"] = with.commands / kDay;
  state.counters["without_us"] = without.commands / kDay;
  state.counters["ratio"] = with.commands / without.commands;
  state.counters["settled_us"] = with.settled / kDay;
  state.counters["settled_ratio"] = with.settled / without.settled;
}
BENCHMARK(PaperOnTop)->UseManualTime()->Iterations(1)->Repetitions(5)->Unit(benchmark::kMicrosecond);

void MakeLog(const std::string& path, std::size_t length) {
  std::ofstream log(path, std::ios::binary);
  const std::string invoice(1000, 'x');
  for (std::size_t written = 0; written < length; written += invoice.size())
    log << invoice;
}

void SyncFile(const std::string& path) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0 || fsync(file) != 0) throw std::runtime_error("can't sync " + path);
  close(file);
}

/// Of a log of 50 MB.
void InvoiceOnALongLog(benchmark::State& state) {
  constexpr int kTimes = 10;
  std::vector<double> ours, theirs;
  for ([[maybe_unused]] auto run : state) {
    const WorkFolder folder;
    PosixDisk disk(folder.Path("Vintoral"));
    const std::string log = folder.Path("Vintoral/log"), old = folder.Path("old"), copy = folder.Path("copy");
    for (const std::string& each : {log, old}) {
      MakeLog(each, 50'000'000);
      SyncFile(each);
    }
    ours.clear();
    theirs.clear();
    for (int i = 0; i < kTimes; ++i) {
      std::filesystem::remove(copy);
      theirs.push_back(Timed([&] {
        if (std::system(("cp '" + old + "' '" + copy + "'").c_str()) != 0)
          throw std::runtime_error("no copy");
        SyncFile(copy);
      }));
      ours.push_back(Timed([&] {
        const std::unique_ptr<Replacement> longer = disk.BeginReplacement("log");
        longer->PutAround(std::string(800, 'n'), "\r\n");
        longer->Commit().PassOver();
        disk.Settle();
      }));
    }
    state.SetIterationTime(Median(ours) / 1e6);
  }
  state.counters["ours_ms"] = Median(ours) / 1e3;
  state.counters["cp_ms"] = Median(theirs) / 1e3;
  state.counters["ratio"] = Median(ours) / Median(theirs);
}
BENCHMARK(InvoiceOnALongLog)->UseManualTime()->Iterations(1)->Repetitions(3)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vintoral
