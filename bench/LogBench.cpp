// One entry of the log of functions, against one read of its file and one write of a file of the same length.
//
// A minute of running time changes one record in its place. An event, and the first minute of a day, move all
// of them: these go into a new file that takes the place of the old one. Nothing is synced on either side.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <chrono>
#include <string>
#include <thread>
#include <vector>

#include "Median.h"
#include "PlainReads.h"
#include "StationGate.h"
#include "Timed.h"
#include "station/form1/Archivos.h"
#include "station/form1/Funciones.h"

namespace vintoral {
namespace {

using namespace bench;

constexpr int kEntries = 400;
constexpr std::chrono::milliseconds kApart{5};  ///< what the disk still has to do is done meanwhile

/// As any program writes a file again: opened, emptied, one write, closed.
void WriteWhole(const std::string& path, const std::vector<char>& bytes) {
  const int descriptor = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  benchmark::DoNotOptimize(write(descriptor, bytes.data(), bytes.size()));
  close(descriptor);
}

/// The same into its place, which is there already.
void WriteOver(const std::string& path, const std::vector<char>& bytes) {
  const int descriptor = open(path.c_str(), O_WRONLY | O_CLOEXEC);
  benchmark::DoNotOptimize(write(descriptor, bytes.data(), bytes.size()));
  close(descriptor);
}

void LogEntry(benchmark::State& state, std::string_view code) {
  for (auto _ : state) {
    const WorkFolder folder;
    Gate gate(folder.Path("Vintoral"), Plates::kNone);
    const std::string log = folder.Path("Vintoral/Recursos/Vintoral.FDR"),
                      other = folder.Path("reference.FDR");
    std::vector<char> bytes;
    if (ReadWhole(log, bytes) != 46'000) return state.SkipWithError("the log is not whole");
    WriteWhole(other, bytes);
    std::vector<double> entry, anew, over;
    for (int i = 0; i < kEntries; ++i) {
      std::this_thread::sleep_for(kApart);
      ++gate.Form().TiempoEjecucion;
      entry.push_back(Timed([&] { gate.Form().RegistrarHoraTrabajo(code); }));
      std::this_thread::sleep_for(kApart);
      over.push_back(Timed([&] {
        ReadWhole(other, bytes);
        WriteOver(other, bytes);
      }));
      std::this_thread::sleep_for(kApart);
      anew.push_back(Timed([&] {
        ReadWhole(other, bytes);
        WriteWhole(other, bytes);
      }));
    }
    state.SetIterationTime(Median(entry) * 1e-6);
    state.counters["entry_us"] = Median(entry);
    state.counters["read_and_write_over_us"] = Median(over);
    state.counters["read_and_write_anew_us"] = Median(anew);
    state.counters["to_over"] = Median(entry) / Median(over);
    state.counters["to_anew"] = Median(entry) / Median(anew);
  }
}
BENCHMARK_CAPTURE(LogEntry, minute, funcion::kEnEjecucion)->UseManualTime()->Iterations(3);
BENCHMARK_CAPTURE(LogEntry, event, std::string_view("10"))->UseManualTime()->Iterations(3);

}  // namespace
}  // namespace vintoral
