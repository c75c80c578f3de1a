// A day at a gate, on disk and synced, against the same facts in SQLite: vehicles come in and leave one after
// the other, and each of them is saved and retired. Nobody asks for their plates, so slot and row are all
// that is written.
//
// Both start in the morning with the same fichas inside, SQLite with a database that was closed the evening
// before. Its log grows until it is written over from the start (by its default after 1000 pages, some 330
// vehicles), which is then cheaper, so the day is told as a whole and in its two parts.
#include <benchmark/benchmark.h>

#include <chrono>
#include <string>

#include "Days.h"
#include "Sqlite.h"
#include "StationGate.h"
#include "common/Numbers.h"

namespace vintoral {
namespace {

using namespace bench;

constexpr int kVehicles = 1000;   ///< of the day
constexpr int kLogGrowing = 300;  ///< the first of them, while SQLite's log grows

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
  gate.BeforeSave(slot);
  const double save = TimedAfter(pause, [&] { gate.Save(); });
  gate.BeforeRetire(slot);
  return save + TimedAfter(pause, [&] { gate.Retire(); });
}

/// The gates take turns, so that a disk that slows down slows both. False when one of them lost a vehicle.
bool ADay(Times& times, std::chrono::milliseconds pause) {
  const WorkFolder folder;
  Gate gate(folder.Path("Vintoral"), Plates::kNone);
  SqlGate reference(folder.Path("reference.db"));
  const std::int64_t before = gate.Retired();
  for (int i = 0; i < kVehicles; ++i) {
    times.ours.push_back(Pass(gate, SlotOf(i), pause));
    times.theirs.push_back(Pass(reference, SlotOf(i), pause));
  }
  return gate.Retired() - before == kVehicles && reference.Retired() == kVehicles;
}

void SaveAndRetire(benchmark::State& state, std::chrono::milliseconds pause) {
  const Times times = MeasureDays(state, [pause](Times& day) { return ADay(day, pause); });
  state.counters["log_growing"] = times.Ratio(0, kLogGrowing);
  state.counters["log_written_over"] = times.Ratio(kLogGrowing, kVehicles);
}
BENCHMARK_CAPTURE(SaveAndRetire, apart, kApart)->Apply(FiveDays);
BENCHMARK_CAPTURE(SaveAndRetire, back_to_back, kBackToBack)->Apply(FiveDays);

}  // namespace
}  // namespace vintoral
