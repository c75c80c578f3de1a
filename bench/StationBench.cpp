// A day at a gate, on disk and synced, against the same facts in SQLite: vehicles come in and leave one after
// the other, and each of them is saved and retired.
//
// Both start in the morning with the same fichas inside, SQLite with a database that was closed the evening
// before. Its log grows until it is written over from the start (by its default after 1000 pages, some 330
// vehicles), which is then cheaper, so the day is told as a whole and in its two parts.
#include <sqlite3.h>

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

#include "StationGate.h"
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
  explicit SqlGate(const std::string& file) {
    Open(file);
    const std::string columns =
        "EnUso INT, MarcaEntrada TEXT, MarcaSalida TEXT, NumeroFicha TEXT, Placa TEXT, Nombre TEXT, Apellido "
        "TEXT, "
        "Telefono TEXT, Observacion TEXT, Categoria TEXT, PorteriaEntrada TEXT, PorteriaSalida TEXT, "
        "ValorCobrado INT, InicioTurno INT, UsuarioPuntos INT)";
    Run("BEGIN");
    Run("CREATE TABLE Adentro (Posicion INTEGER PRIMARY KEY, " + columns);
    Run("CREATE TABLE Historial (Posicion INTEGER PRIMARY KEY, " + columns);
    for (int slot = 1; slot <= kSlots; ++slot)
      Run("INSERT INTO Adentro VALUES (" + std::to_string(slot) + ", " +
          (slot <= kInside ? Inside(slot) : kBlank));
    Run("COMMIT");
    sqlite3_close(database_);  // in the evening, and opened again in the morning
    Open(file);
    Prepare(&begin_, "BEGIN IMMEDIATE");
    Prepare(&commit_, "COMMIT");
    Prepare(&save_,
            "INSERT OR REPLACE INTO Adentro VALUES (?1, -1, '14:00  (20/11/2026)', '?\?', ?2, ?3, '', '', "
            "'', '', "
            "'AUTOMOVIL', '01', '?\?', 0, 0, 1)");
    Prepare(&leave_,
            "UPDATE Adentro SET EnUso = 0, MarcaSalida = '14:00  (20/11/2026)', PorteriaSalida = '01' WHERE "
            "Posicion = ?1");
    Prepare(
        &row_,
        "INSERT INTO Historial SELECT NULL, -1, MarcaEntrada, MarcaSalida, NumeroFicha, Placa, Nombre, "
        "Apellido, "
        "Telefono, Observacion, Categoria, PorteriaEntrada, PorteriaSalida, 0, InicioTurno, UsuarioPuntos "
        "FROM Adentro WHERE Posicion = ?1");
  }
  SqlGate(const SqlGate&) = delete;
  SqlGate& operator=(const SqlGate&) = delete;
  ~SqlGate() {
    for (sqlite3_stmt* statement : {save_, leave_, row_, begin_, commit_})
      sqlite3_finalize(statement);
    sqlite3_close(database_);
  }

  void BeforeSave(int slot) {
    const std::string number = Digits(slot, 4).ToUtf8(), plate = "ABC" + number;
    sqlite3_bind_int(save_, 1, slot);
    sqlite3_bind_text(save_, 2, number.c_str(), -1, SQLITE_TRANSIENT);
    sqlite3_bind_text(save_, 3, plate.c_str(), -1, SQLITE_TRANSIENT);
  }
  void BeforeRetire(int slot) {
    sqlite3_bind_int(leave_, 1, slot);
    sqlite3_bind_int(row_, 1, slot);
  }
  void Save() { Transaction({{begin_, save_, commit_}}); }
  void Retire() { Transaction({{begin_, leave_, row_, commit_}}); }
  std::int64_t Retired() {
    sqlite3_stmt* count = nullptr;
    Prepare(&count, "SELECT COUNT(*) FROM Historial");
    sqlite3_step(count);
    const std::int64_t rows = sqlite3_column_int64(count, 0);
    sqlite3_finalize(count);
    return rows;
  }

 private:
  static constexpr const char* kBlank = "0, '', '', '', '', '', '', '', '', '', '', '', 0, 0, 0)";
  static std::string Inside(int slot) {
    const std::string number = Digits(slot, 4).ToUtf8();
    return "-1, '14:00  (20/11/2026)', '?\?', '" + number + "', 'ABC" + number +
           "', '', '', '', '', 'AUTOMOVIL', '01', '?\?', 0, 0, 1)";
  }
  void Open(const std::string& file) {
    Check(sqlite3_open(file.c_str(), &database_));
    Run("PRAGMA journal_mode=WAL");
    Run("PRAGMA synchronous=FULL");
  }
  static void Check(int code) {
    if (code != SQLITE_OK) throw std::runtime_error(sqlite3_errstr(code));
  }
  void Run(const std::string& sql) { Check(sqlite3_exec(database_, sql.c_str(), nullptr, nullptr, nullptr)); }
  void Prepare(sqlite3_stmt** statement, const std::string& sql) {
    Check(sqlite3_prepare_v2(database_, sql.c_str(), -1, statement, nullptr));
  }
  void Transaction(std::span<sqlite3_stmt* const> statements) {
    for (sqlite3_stmt* statement : statements) {
      if (sqlite3_step(statement) != SQLITE_DONE) throw std::runtime_error(sqlite3_errmsg(database_));
      sqlite3_reset(statement);
    }
  }

  sqlite3* database_ = nullptr;
  sqlite3_stmt *save_ = nullptr, *leave_ = nullptr, *row_ = nullptr, *begin_ = nullptr, *commit_ = nullptr;
};

using Microseconds = std::chrono::duration<double, std::micro>;

/// What the two commands took for one vehicle; `pause` comes before each.
template <class AnyGate>
double Pass(AnyGate& gate, int slot, std::chrono::milliseconds pause) {
  const auto timed = [&](auto&& command) {
    std::this_thread::sleep_for(pause);
    const auto start = std::chrono::steady_clock::now();
    command();
    return Microseconds(std::chrono::steady_clock::now() - start).count();
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
  Gate gate(folder.Path("Vintoral"));
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
