// One ficha saved and retired, on disk and synced, against the same facts in SQLite.
#include <sqlite3.h>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/headless/HeadlessPlatform.h"
#include "station/form1/Form1.h"
#include "station/form1/Input.h"

namespace vintoral {
namespace {

using Seconds = std::chrono::duration<double>;

/// A folder on the disk that the build lies on; memory would sync for nothing.
class WorkFolder {
 public:
  WorkFolder() : path_(std::filesystem::current_path() / "bench-station") {
    std::filesystem::remove_all(path_);
    std::filesystem::create_directories(path_ / "Vintoral");
  }
  WorkFolder(const WorkFolder&) = delete;
  WorkFolder& operator=(const WorkFolder&) = delete;
  ~WorkFolder() { std::filesystem::remove_all(path_); }
  std::string Path(const char* name) const { return (path_ / name).string(); }

 private:
  std::filesystem::path path_;
};

class Gate {
 public:
  explicit Gate(const std::string& folder) : platform_(folder), form_(platform_.Devices()), input_(form_) {
    platform_.Screen.OnWait = [this] {
      if (!platform_.Screen.Answer(Answer::kYes)) platform_.Screen.Answer(Answer::kOk);
    };
    platform_.Clock.Set(*Moment::From({.year = 2026, .month = 11, .day = 20, .hour = 14}));
    form_.Form_Load();
    AdvanceTime(platform_.Clock, form_, 4000);
  }

  void Type(const std::string& text) {
    for (const char character : text)
      input_.Character(character);
    input_.Character('\r');
  }

  /// A ficha comes in and leaves; no time passes, so no tick weighs in.
  void SaveAndRetire() {
    Type("7");
    form_.TxtCampo[1].SetText("ABC123"_w);
    form_.PctBoton_Click(5);
    Type("7");
    form_.PctBoton_Click(6);
  }

 private:
  HeadlessPlatform platform_;
  Form1 form_;
  Input input_;
};

/// The same facts in two tables, one transaction to come in and one to leave.
class SqlGate {
 public:
  explicit SqlGate(const std::string& file) {
    Check(sqlite3_open(file.c_str(), &database_));
    const std::string columns =
        "EnUso INT, MarcaEntrada TEXT, MarcaSalida TEXT, NumeroFicha TEXT, Placa TEXT, Nombre TEXT, Apellido "
        "TEXT, "
        "Telefono TEXT, Observacion TEXT, Categoria TEXT, PorteriaEntrada TEXT, PorteriaSalida TEXT, "
        "ValorCobrado INT, "
        "InicioTurno INT, UsuarioPuntos INT)";
    Run("PRAGMA journal_mode=WAL");
    Run("PRAGMA synchronous=FULL");
    Run("CREATE TABLE Adentro (Posicion INTEGER PRIMARY KEY, " + columns);
    Run("CREATE TABLE Historial (Posicion INTEGER PRIMARY KEY, " + columns);
    const std::string values =
        "-1, '14:00  (20/11/2026)', '?\?', '0007', 'ABC123', '', '', '', '', 'AUTOMOVIL', '01', '?\?', 0, 0, "
        "1)";
    for (int slot = 1; slot <= 1000; ++slot) {
      Run("INSERT INTO Adentro VALUES (" + std::to_string(slot) + ", " + values);
    }
    Prepare(&save_, "INSERT OR REPLACE INTO Adentro VALUES (7, " + values);
    Prepare(&leave_,
            "UPDATE Adentro SET EnUso = 0, MarcaSalida = '14:00  (20/11/2026)', PorteriaSalida = '01' WHERE "
            "Posicion = 7");
    Prepare(&row_, "INSERT INTO Historial VALUES (NULL, " + values);
    Prepare(&begin_, "BEGIN IMMEDIATE");
    Prepare(&commit_, "COMMIT");
  }
  SqlGate(const SqlGate&) = delete;
  SqlGate& operator=(const SqlGate&) = delete;
  ~SqlGate() {
    for (sqlite3_stmt* statement : {save_, leave_, row_, begin_, commit_})
      sqlite3_finalize(statement);
    sqlite3_close(database_);
  }

  void SaveAndRetire() {
    Transaction({save_});
    Transaction({leave_, row_});
  }

 private:
  static void Check(int code) {
    if (code != SQLITE_OK) throw std::runtime_error(sqlite3_errstr(code));
  }
  void Run(const std::string& sql) { Check(sqlite3_exec(database_, sql.c_str(), nullptr, nullptr, nullptr)); }
  void Prepare(sqlite3_stmt** statement, const std::string& sql) {
    Check(sqlite3_prepare_v2(database_, sql.c_str(), -1, statement, nullptr));
  }
  void Transaction(const std::vector<sqlite3_stmt*>& statements) {
    Step(begin_);
    for (sqlite3_stmt* statement : statements)
      Step(statement);
    Step(commit_);
  }
  void Step(sqlite3_stmt* statement) {
    if (sqlite3_step(statement) != SQLITE_DONE) throw std::runtime_error(sqlite3_errmsg(database_));
    sqlite3_reset(statement);
  }

  sqlite3* database_ = nullptr;
  sqlite3_stmt *save_ = nullptr, *leave_ = nullptr, *row_ = nullptr, *begin_ = nullptr, *commit_ = nullptr;
};

template <class Work>
double Time(Work&& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return Seconds(std::chrono::steady_clock::now() - start).count();
}

double Median(std::vector<double> values) {
  std::nth_element(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2),
                   values.end());
  return values[values.size() / 2];
}

/// Both gates take turns, so that a disk that slows down slows both.
void SaveAndRetire(benchmark::State& state) {
  const WorkFolder folder;
  Gate gate(folder.Path("Vintoral"));
  SqlGate reference(folder.Path("reference.db"));
  std::vector<double> ours, theirs;
  for ([[maybe_unused]] auto turn : state) {
    ours.push_back(Time([&] { gate.SaveAndRetire(); }));
    theirs.push_back(Time([&] { reference.SaveAndRetire(); }));
    state.SetIterationTime(ours.back());
  }
  state.counters["ours_us"] = Median(ours) * 1e6;
  state.counters["sqlite_us"] = Median(theirs) * 1e6;
  state.counters["ratio"] = Median(ours) / Median(theirs);
}
BENCHMARK(SaveAndRetire)->UseManualTime()->Iterations(300)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace vintoral
