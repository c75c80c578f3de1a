// Vehicles with a plate and a ticket by bar code, on disk and synced, against the same facts in SQLite: each
// of them comes in for the first time, buys a pass of two entries and becomes a user, leaves, and comes and
// leaves once more with the pass.
//
// The clock runs from the command to the end of it. Before it, at both, a code has been scanned and looked
// for, and the form filled in. While it runs, the gate looks whether the plate is inside or known and whether
// the slot is free, and reads the pass, the ficha and the user's points where it changes them: so does the
// reference, which finds plates and codes by indexes, as any program on SQLite would. The gate draws its grid
// besides.
#include <benchmark/benchmark.h>

#include <chrono>
#include <string>

#include "Days.h"
#include "Sqlite.h"
#include "StationGate.h"
#include "records/RegistroPase.h"

namespace vintoral {
namespace {

using namespace bench;

constexpr int kVehicles = 500;

/// One visit: of which vehicle, and whether it has been here before.
struct Visit {
  int vehicle;
  bool again;
};

class PassGate {
 public:
  explicit PassGate(const std::string& folder) : gate_(folder) {
    Form1& form = gate_.Form();
    form.ActivarTiquetes();
    form.PctBoton[boton::kTiquetes].BorderStyle = 1;
    form.AlternarCodigoBarras();
    // The slips are another measurement's.
    gate_.Devices().Printer.Installed = {};
  }

  void BeforeSave(const Visit& visit) {
    Form1& form = gate_.Form();
    if (visit.again) {
      form.TxtBarCodeOK.Visible = true;  // looked for, and shown as it enters, before the clock runs
      form.TxtBarCode.SetText(code_);
      if (!form.ValidarPase()) throw std::runtime_error("the pass is gone");
      form.GenerarFicha();
    } else {
      form.GenerarFicha();
      code_ = form.TxtBarCode.Text();
      form.TxtCampo[1].SetText("NEW"_w + Digits(visit.vehicle, 4));
      form.TxtMaxEntrada.SetText("2"_w);
    }
    slot_ = form.TxtCampo[0].Text();
  }
  void BeforeRetire() {
    gate_.Form().TxtCampo[0].SetText(slot_);
    gate_.Form().MostrarFicha();
    gate_.Devices().Events.Take();
  }
  void Save() { gate_.Save(); }
  void Retire() { gate_.Retire(); }
  bool Whole(std::int64_t before) {
    return gate_.Retired() - before == 2 * kVehicles && Movements() >= 2 * kVehicles &&
           gate_.Records<RegistroUsuario>("Vintoral.USR") >= kUsers + kVehicles;
  }
  std::int64_t Retired() { return gate_.Retired(); }

 private:
  std::int64_t Movements() { return gate_.Records<RegistroFicha>("Vintoral.CRD"); }
  Gate gate_;
  String code_, slot_;
};

/// A table for each register, one transaction to come in and one to leave.
class PassDatabase {
 public:
  explicit PassDatabase(const std::string& file) : database_(file) {
    const std::string ficha =
        "EnUso INT, MarcaEntrada TEXT, MarcaSalida TEXT, NumeroFicha TEXT, Placa TEXT, Nombre TEXT, Apellido "
        "TEXT, Telefono TEXT, Observacion TEXT, Categoria TEXT, PorteriaEntrada TEXT, PorteriaSalida TEXT, "
        "ValorCobrado INT, InicioTurno INT, UsuarioPuntos INT)";
    database_.Run("BEGIN");
    for (const char* table : {"Adentro", "Historial", "Primeras", "Movimientos"})
      database_.Run(std::string("CREATE TABLE ") + table + " (Posicion INTEGER PRIMARY KEY, " + ficha);
    database_.Run("CREATE TABLE Codigos (Posicion INTEGER PRIMARY KEY, Codigo TEXT, Ficha TEXT)");
    database_.Run(
        "CREATE TABLE Pases (Numero INTEGER PRIMARY KEY, Codigo TEXT, Placa TEXT, Modo INT, Fecha TEXT, "
        "Restantes INT)");
    database_.Run(
        "CREATE TABLE Usuarios (Numero INTEGER PRIMARY KEY, Placa TEXT, Nombre TEXT, Apellido TEXT, Telefono "
        "TEXT, Observacion TEXT, Categoria TEXT, Puntos INT)");
    for (const char* index : {"PlacaAdentro ON Adentro (Placa)", "PlacaUsuario ON Usuarios (Placa)",
                              "CodigoFicha ON Codigos (Codigo)", "CodigoPase ON Pases (Codigo)"})
      database_.Run(std::string("CREATE INDEX ") + index);
    for (int slot = 1; slot <= kSlots; ++slot) {
      database_.Run("INSERT INTO Adentro VALUES (" + std::to_string(slot) +
                    ", 0, '', '', '', '', '', '', '', '', '', '', '', 0, 0, 0)");
      database_.Run("INSERT INTO Codigos VALUES (" + std::to_string(slot) + ", '', '')");
    }
    database_.Run("COMMIT");
    database_.Reopen();
    Prepare();
  }

  void BeforeSave(const Visit& visit) {
    again_ = visit.again;
    const int slot = kInside + 1;
    const std::string plate = "NEW" + Digits(visit.vehicle, 4).ToUtf8();
    const std::string code = "CODE" + Digits(visit.vehicle, 8).ToUtf8();
    for (sqlite3_stmt* statement : {ficha_, slot_, code_, first_, leave_, uncode_, row_})
      Sqlite::Bind(statement, 1, std::int64_t{slot});
    for (sqlite3_stmt* statement : {user_, known_, validity_, pass_, spend_, balance_, points_})
      Sqlite::Bind(statement, 1, std::int64_t{visit.vehicle});
    for (sqlite3_stmt* statement : {inside_, registered_, slot_, user_, known_, pass_})
      Sqlite::Bind(statement, 2, plate);
    Sqlite::Bind(slot_, 3, std::int64_t{visit.vehicle});
    Sqlite::Bind(code_, 2, code);
    Sqlite::Bind(pass_, 3, code);
  }
  void BeforeRetire() {}
  void Save() {
    if (again_)
      return database_.Transaction({inside_, registered_, ficha_, validity_, known_, slot_, code_, spend_});
    database_.Transaction({inside_, registered_, ficha_, user_, slot_, first_, code_, pass_});
  }
  void Retire() { database_.Transaction({ficha_, balance_, leave_, uncode_, row_, points_, movement_}); }
  bool Whole() {
    return database_.Count("Historial") == 2 * kVehicles && database_.Count("Movimientos") == 2 * kVehicles &&
           database_.Count("Usuarios") == kVehicles && database_.Count("Pases") == kVehicles;
  }

 private:
  void Prepare() {
    inside_ = database_.Prepare("SELECT Posicion FROM Adentro WHERE Placa = ?2 AND EnUso <> 0");
    registered_ = database_.Prepare("SELECT * FROM Usuarios WHERE Placa = ?2");
    ficha_ = database_.Prepare("SELECT * FROM Adentro WHERE Posicion = ?1");
    validity_ = database_.Prepare("SELECT * FROM Pases WHERE Numero = ?1");
    balance_ = database_.Prepare("SELECT * FROM Usuarios WHERE Numero = ?1");
    slot_ = database_.Prepare(
        "INSERT OR REPLACE INTO Adentro VALUES (?1, -1, '14:00  (20/11/2026)', '?\?', '0301', ?2, '', '', "
        "'', "
        "'', 'AUTOMOVIL', '01', '?\?', 0, 0, ?3)");
    code_ = database_.Prepare("UPDATE Codigos SET Codigo = ?2, Ficha = '0301' WHERE Posicion = ?1");
    user_ = database_.Prepare("INSERT INTO Usuarios VALUES (?1, ?2, '', '', '', '', 'AUTOMOVIL', 0)");
    known_ = database_.Prepare(
        "UPDATE Usuarios SET Placa = ?2, Nombre = '', Apellido = '', Telefono = '', Observacion = '', "
        "Categoria = 'AUTOMOVIL' WHERE Numero = ?1");
    first_ = database_.Prepare("INSERT INTO Primeras SELECT NULL, " + Columns() +
                               " FROM Adentro WHERE Posicion = ?1");
    pass_ = database_.Prepare("INSERT INTO Pases VALUES (?1, ?3, ?2, 0, '', 1)");
    spend_ = database_.Prepare("UPDATE Pases SET Codigo = '' WHERE Numero = ?1");
    leave_ = database_.Prepare(
        "UPDATE Adentro SET EnUso = 0, MarcaSalida = '14:00  (20/11/2026)', PorteriaSalida = '01' WHERE "
        "Posicion = ?1");
    uncode_ = database_.Prepare("UPDATE Codigos SET Codigo = '', Ficha = '' WHERE Posicion = ?1");
    row_ = database_.Prepare("INSERT INTO Historial SELECT NULL, " + Columns() +
                             " FROM Adentro WHERE Posicion = ?1");
    points_ = database_.Prepare("UPDATE Usuarios SET Puntos = Puntos + 8 WHERE Numero = ?1");
    movement_ = database_.Prepare("INSERT INTO Movimientos SELECT NULL, " + Columns() +
                                  " FROM Historial WHERE Posicion = last_insert_rowid()");
  }
  static std::string Columns() {
    return "-1, MarcaEntrada, MarcaSalida, NumeroFicha, Placa, Nombre, Apellido, Telefono, Observacion, "
           "Categoria, PorteriaEntrada, PorteriaSalida, 0, InicioTurno, UsuarioPuntos";
  }

  Sqlite database_;
  bool again_ = false;
  sqlite3_stmt *inside_ = nullptr, *registered_ = nullptr, *ficha_ = nullptr, *validity_ = nullptr,
               *balance_ = nullptr;
  sqlite3_stmt *slot_ = nullptr, *code_ = nullptr, *user_ = nullptr, *known_ = nullptr, *first_ = nullptr,
               *pass_ = nullptr, *spend_ = nullptr, *leave_ = nullptr, *uncode_ = nullptr, *row_ = nullptr,
               *points_ = nullptr, *movement_ = nullptr;
};

/// What the two commands took for one visit; `pause` comes before each.
template <class AnyGate>
double Visited(AnyGate& gate, const Visit& visit, std::chrono::milliseconds pause) {
  gate.BeforeSave(visit);
  const double save = TimedAfter(pause, [&] { gate.Save(); });
  gate.BeforeRetire();
  return save + TimedAfter(pause, [&] { gate.Retire(); });
}

/// The gates take turns, so that a disk that slows down slows both.
bool ADay(Times& times, std::chrono::milliseconds pause) {
  const WorkFolder folder;
  PassGate gate(folder.Path("Vintoral"));
  PassDatabase reference(folder.Path("reference.db"));
  const std::int64_t before = gate.Retired();
  for (int i = 0; i < 2 * kVehicles; ++i) {
    const Visit visit{i / 2 + 1, i % 2 == 1};
    times.ours.push_back(Visited(gate, visit, pause));
    times.theirs.push_back(Visited(reference, visit, pause));
  }
  return gate.Whole(before) && reference.Whole();
}

void SaveAndRetireWithPass(benchmark::State& state, std::chrono::milliseconds pause) {
  MeasureDays(state, [pause](Times& day) { return ADay(day, pause); });
}
BENCHMARK_CAPTURE(SaveAndRetireWithPass, apart, kApart)->Apply(FiveDays);
BENCHMARK_CAPTURE(SaveAndRetireWithPass, back_to_back, kBackToBack)->Apply(FiveDays);

}  // namespace
}  // namespace vintoral
