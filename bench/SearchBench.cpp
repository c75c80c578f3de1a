// The search over ten million exits: beside one pass of read over the same file, and beside SQLite over the
// same facts; and the exits of today behind them, beside the same behind ten days of them.
#include <benchmark/benchmark.h>

#include "History.h"
#include "PlainReads.h"
#include "Sqlite.h"
#include "WorkDisk.h"
#include "reports/Busqueda.h"

namespace vintoral {
namespace {

using namespace bench;

constexpr std::int64_t kExits = 10'000'000;
constexpr std::int64_t kFewExits = 10'000;
constexpr const char* kLong = "Largo.HST";
constexpr const char* kShort = "Corto.HST";

PosixDisk& Archive() {
  static WorkDisk archive;
  static const bool made = [] {
    WriteHistory(archive.disk().PathOf(kLong), kExits);
    WriteHistory(archive.disk().PathOf(kShort), kFewExits);
    return true;
  }();
  benchmark::DoNotOptimize(made);
  return archive.disk();
}

Criterios AllTime() {
  return {.desdeHora = "00:00"_w,
          .desdeFecha = "01/01/1999"_w,
          .hastaHora = "23:59"_w,
          .hastaFecha = "31/12/2099"_w,
          .ficha = {},
          .campos = {},
          .categoria = {}};
}

void OnePassOfReadOverTheHistory(benchmark::State& state) {
  const std::string path = Archive().PathOf(kLong);
  std::vector<char> bytes;
  for (auto _ : state)
    ReadAllOf({path}, bytes);
}
BENCHMARK(OnePassOfReadOverTheHistory)->Unit(benchmark::kMillisecond);

void Search(benchmark::State& state, const char* file, const Criterios& criteria, std::int64_t expected) {
  PosixDisk& disk = Archive();
  for (auto _ : state) {
    PruebaRegistro test(criteria);
    std::vector<RegistroFicha> found;
    BuscarHistorial(
        disk, file, test, [&](const RegistroFicha& ficha) { found.push_back(ficha); },
        [](std::int64_t) { return true; })
        .PassOver();
    if (static_cast<std::int64_t>(found.size()) != expected) state.SkipWithError("not what is there");
  }
}

void SearchForANumber(benchmark::State& state) {
  Criterios criteria = AllTime();
  criteria.ficha = "1000"_w;  // nobody's
  Search(state, kLong, criteria, 0);
}
BENCHMARK(SearchForANumber)->Unit(benchmark::kMillisecond);

void SearchForTwoTextsAndACategory(benchmark::State& state) {
  Criterios criteria = AllTime();
  criteria.campos[1] = "AN"_w;
  criteria.campos[4] = "NOVEDADES"_w;
  criteria.categoria = "automovil"_w;
  Search(state, kLong, criteria, kRemarked);
}
BENCHMARK(SearchForTwoTextsAndACategory)->Unit(benchmark::kMillisecond);

void ExitsOfTheLastDay(benchmark::State& state, const char* file, std::int64_t exits) {
  Criterios criteria = AllTime();
  criteria.desdeFecha = criteria.hastaFecha = DateText(ExitOf(exits + kFirstRow - 1));
  Search(state, file, criteria, kExitsOfADay);
}
void TodayBehindTenThousand(benchmark::State& state) {
  ExitsOfTheLastDay(state, kShort, kFewExits);
}
BENCHMARK(TodayBehindTenThousand)->Unit(benchmark::kMicrosecond);
void TodayBehindTenMillion(benchmark::State& state) {
  ExitsOfTheLastDay(state, kLong, kExits);
}
BENCHMARK(TodayBehindTenMillion)->Unit(benchmark::kMicrosecond);

/// The same exits as rows, with an index on their date.
class Database {
 public:
  Database() : database_(Archive().PathOf("historial.db")) {
    database_.Run("PRAGMA synchronous=OFF");
    database_.Run(
        "CREATE TABLE Historial (Fecha INT, Hora INT, Entrada TEXT, Ficha TEXT, Placa TEXT, Nombre TEXT, "
        "Apellido TEXT, Telefono TEXT, Observacion TEXT, Categoria TEXT, Valor INT)");
    database_.Run("BEGIN");
    sqlite3_stmt* const insert =
        database_.Prepare("INSERT INTO Historial VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10, 15000000)");
    for (std::int64_t row = kFirstRow; row < kFirstRow + kExits; ++row)
      Insert(insert, row);
    database_.Run("COMMIT");
    database_.Run("CREATE INDEX PorFecha ON Historial (Fecha)");
    database_.Reopen();
    look_ = database_.Prepare(
        "SELECT * FROM Historial WHERE Fecha BETWEEN 19990101 AND 20991231 AND Hora BETWEEN 0 AND 2359 "
        "AND Nombre LIKE '%AN%' AND Observacion LIKE '%NOVEDADES%' AND Categoria = 'automovil' COLLATE "
        "NOCASE "
        "ORDER BY Fecha DESC, rowid DESC");
  }
  std::int64_t Found() {
    std::int64_t rows = 0;
    while (sqlite3_step(look_) == SQLITE_ROW)
      ++rows;
    sqlite3_reset(look_);
    return rows;
  }

 private:
  static void Insert(sqlite3_stmt* insert, std::int64_t row) {
    const RegistroFicha ficha = GoneOf(row, kExits);
    const Civil left = ExitOf(row).Parts();
    int column = 0;
    Sqlite::Bind(insert, ++column, std::int64_t{left.year} * 10'000 + left.month * 100 + left.day);
    Sqlite::Bind(insert, ++column, std::int64_t{left.hour} * 100 + left.minute);
    for (const String& text :
         {ficha.MarcaEntrada.Trimmed(), ficha.NumeroFicha.Trimmed(), ficha.Placa.Trimmed(),
          ficha.Nombre.Trimmed(), ficha.Apellido.Trimmed(), ficha.Telefono.Trimmed(),
          ficha.Observacion.Trimmed(), ficha.Categoria.Trimmed()})
      Sqlite::Bind(insert, ++column, text.Bytes());
    if (sqlite3_step(insert) != SQLITE_DONE) throw std::runtime_error("the database takes no row");
    sqlite3_reset(insert);
  }

  Sqlite database_;
  sqlite3_stmt* look_ = nullptr;
};

void SqliteForTwoTextsAndACategory(benchmark::State& state) {
  static Database database;
  for (auto _ : state) {
    if (database.Found() != kRemarked) state.SkipWithError("not what is there");
  }
}
BENCHMARK(SqliteForTwoTextsAndACategory)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vintoral
