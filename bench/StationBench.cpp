// A day at a gate, on disk and synced, against the same facts in SQLite: vehicles come in and leave one after
// the other, and each of them is saved and retired. Nobody asks for their plates, so slot and row are all
// that is written.
//
// Both start in the morning with the same fichas inside, SQLite with a database that was closed the evening
// before. Its log grows until it is written over from the start (by its default after 1000 pages, some 330
// vehicles), which is then cheaper, so the day is told as a whole and in its two parts.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <numeric>
#include <span>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "Sqlite.h"
#include "StationGate.h"
#include "Timed.h"
#include "common/Numbers.h"

namespace vintoral {
namespace {

using namespace bench;

constexpr int kVehicles = 1000;   ///< of the day
constexpr int kLogGrowing = 300;  ///< the first of them, while SQLite's log grows
constexpr std::chrono::milliseconds kApart{5};

/// The same facts in two tables, one transaction to come in and one to leave.
class SqlGate {
 public:
  explicit SqlGate(const std::string& file) : database_(file) {
    const std::string columns =
        "EnUso INT, MarcaEntrada TEXT, MarcaSalida TEXT, NumeroFicha TEXT, Placa TEXT, Nombre TEXT, Apellido "
        "TEXT, "
        "Telefono TEXT, Observacion TEXT, Categoria TEXT, PorteriaEntrada TEXT, PorteriaSalida TEXT, "
        "ValorCobrado INT, InicioTurno INT, UsuarioPuntos INT)";
    database_.Run("BEGIN");
    database_.Run("CREATE TABLE Adentro (Posicion INTEGER PRIMARY KEY, " + columns);
    database_.Run("CREATE TABLE Historial (Posicion INTEGER PRIMARY KEY, " + columns);
    for (int slot = 1; slot <= kSlots; ++slot)
      database_.Run("INSERT INTO Adentro VALUES (" + std::to_string(slot) + ", " +
                    (slot <= kInside ? Inside(slot) : kBlank));
    database_.Run("COMMIT");
    database_.Reopen();
    save_ = database_.Prepare(
        "INSERT OR REPLACE INTO Adentro VALUES (?1, -1, '14:00  (20/11/2026)', '?\?', ?2, '', '', '', "
        "'', '', "
        "'AUTOMOVIL', '01', '?\?', 0, 0, 0)");
    leave_ = database_.Prepare(
        "UPDATE Adentro SET EnUso = 0, MarcaSalida = '14:00  (20/11/2026)', PorteriaSalida = '01' WHERE "
        "Posicion = ?1");
    row_ = database_.Prepare(
        "INSERT INTO Historial SELECT NULL, -1, MarcaEntrada, MarcaSalida, NumeroFicha, Placa, Nombre, "
        "Apellido, "
        "Telefono, Observacion, Categoria, PorteriaEntrada, PorteriaSalida, 0, InicioTurno, UsuarioPuntos "
        "FROM Adentro WHERE Posicion = ?1");
  }

  void BeforeSave(int slot) {
    Sqlite::Bind(save_, 1, slot);
    Sqlite::Bind(save_, 2, Digits(slot, 4).ToUtf8());
  }
  void BeforeRetire(int slot) {
    Sqlite::Bind(leave_, 1, slot);
    Sqlite::Bind(row_, 1, slot);
  }
  void Save() { database_.Transaction({save_}); }
  void Retire() { database_.Transaction({leave_, row_}); }
  std::int64_t Retired() { return database_.Count("Historial"); }

 private:
  static constexpr const char* kBlank = "0, '', '', '', '', '', '', '', '', '', '', '', 0, 0, 0)";
  static std::string Inside(int slot) {
    return "-1, '14:00  (20/11/2026)', '?\?', '" + Digits(slot, 4).ToUtf8() +
           "', '', '', '', '', '', 'AUTOMOVIL', '01', '?\?', 0, 0, 0)";
  }

  Sqlite database_;
  sqlite3_stmt *save_ = nullptr, *leave_ = nullptr, *row_ = nullptr;
};

/// What the two commands took for one vehicle; `pause` comes before each.
template <class AnyGate>
double Pass(AnyGate& gate, int slot, std::chrono::milliseconds pause) {
  const auto timed = [&](auto&& command) {
    std::this_thread::sleep_for(pause);
    return Timed(command);
  };
  gate.BeforeSave(slot);
  const double save = timed([&] { gate.Save(); });
  gate.BeforeRetire(slot);
  return save + timed([&] { gate.Retire(); });
}

double Mean(std::span<const double> values) {
  return std::accumulate(values.begin(), values.end(), 0.0) / static_cast<double>(values.size());
}

/// What the vehicles took at both gates, in microseconds.
struct Times {
  std::vector<double> ours, theirs;

  double Ratio(std::size_t first, std::size_t end) const {
    const auto mean = [&](std::span<const double> times) { return Mean(times.subspan(first, end - first)); };
    return mean(ours) / mean(theirs);
  }
};

/// The gates take turns, so that a disk that slows down slows both. False when one of them lost a vehicle.
bool ADay(Times& times, std::chrono::milliseconds pause) {
  const WorkFolder folder;
  Gate gate(folder.Path("Vintoral"), Plates::kNone);
  SqlGate reference(folder.Path("reference.db"));
  const std::int64_t before = gate.Retired();
  times.ours.clear();
  times.theirs.clear();
  for (int i = 0; i < kVehicles; ++i) {
    times.ours.push_back(Pass(gate, SlotOf(i), pause));
    times.theirs.push_back(Pass(reference, SlotOf(i), pause));
  }
  return gate.Retired() - before == kVehicles && reference.Retired() == kVehicles;
}

/// Means, not medians: a day is over when all of it is done, the moments included when SQLite folds its log
/// into the database.
void SaveAndRetire(benchmark::State& state, std::chrono::milliseconds pause) {
  Times times;
  for ([[maybe_unused]] auto day : state) {
    if (!ADay(times, pause)) return state.SkipWithError("a vehicle is missing");
    state.SetIterationTime(Mean(times.ours) / 1e6);
  }
  state.counters["ours_us"] = Mean(times.ours);
  state.counters["sqlite_us"] = Mean(times.theirs);
  state.counters["ratio"] = times.Ratio(0, kVehicles);
  state.counters["log_growing"] = times.Ratio(0, kLogGrowing);
  state.counters["log_written_over"] = times.Ratio(kLogGrowing, kVehicles);
}
BENCHMARK_CAPTURE(SaveAndRetire, apart, kApart)
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(5)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(SaveAndRetire, back_to_back, std::chrono::milliseconds(0))
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(5)
    ->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace vintoral
