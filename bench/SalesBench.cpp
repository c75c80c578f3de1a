// A sale of three articles into a full list, on disk and synced: against a file of that length that is
// written beside, synced and renamed, and against SQLite, which inserts three rows and deletes the oldest
// three.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "Median.h"
#include "Sqlite.h"
#include "StationGate.h"
#include "Timed.h"
#include "records/RegistroExtra.h"
#include "sales/form4/Form4.h"
#include "station/form1/Archivos.h"

namespace vintoral {
namespace {

using namespace bench;

constexpr int kSales = 300;
constexpr int kArticles = 3;
/// With the lock of functions behind it.
constexpr std::size_t kLength = (kRenglonesVenta + 1) * RegistroExtra::kSize;

/// A gate with three articles ticked, whose list is full.
class SellingGate {
 public:
  explicit SellingGate(const std::string& folder) : platform_(folder, pictures_), form_(platform_.Devices()) {
    platform_.Screen.OnWait = [this] { platform_.Screen.Answer(Answer::kOk); };
    platform_.Clock.Set(*Moment::From({.year = 2026, .month = 11, .day = 20, .hour = 14}));
    form_.Form_Load();
    form_.OpenForms.Load(std::make_unique<Form4>(form_));
    form_.CargarArticulosExtras();
    for (std::size_t i = 0; i < kArticles; ++i)
      form_.Form4->LstArticulo.Checked[i] = true;
    RegistroExtra line{"19/11/26"_w, "CASCO MOTO     "_w, false, Money::FromUnits(120'000), 900, 1};
    Register<RegistroExtra> list(platform_.Devices().disk, archivo::kVentas, OpenMode::kCreate);
    for (std::int64_t n = 1; n <= kRenglonesVenta; ++n)
      list.Write(n, line, false).PassOver();
    list.Write(kRenglonesVenta + 1, RegistroExtra{}, true).PassOver();
  }
  void Sell() { form_.RegistrarValorExtra(); }
  /// All lines of the sales stand in the list, and nothing was lost behind it.
  bool Whole() {
    const Register<RegistroExtra> list(platform_.Devices().disk, archivo::kVentas, OpenMode::kRead);
    const Result<RegistroExtra> newest = list.Read(1), oldest = list.Read(kSales * kArticles + 1);
    return list.Count() == kRenglonesVenta + 1 && newest && newest->HoraVenta == 1400 && oldest &&
           oldest->HoraVenta == 900;
  }

 private:
  PictureDecoder pictures_;
  HeadlessPlatform platform_;
  Form1 form_;
};

void Check(bool done) {
  if (!done) throw std::runtime_error("the disk of the bench fails");
}

void SyncFolder(const std::string& folder) {
  const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  Check(descriptor >= 0 && fsync(descriptor) == 0);
  close(descriptor);
}

/// The least that replaces a file, as far as the rename.
void WriteAndRename(const std::string& folder, const std::string& bytes) {
  const std::string beside = folder + "/.lista", file = folder + "/lista";
  const int descriptor = open(beside.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  Check(descriptor >= 0 &&
        write(descriptor, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()));
  Check(fsync(descriptor) == 0);
  close(descriptor);
  Check(rename(beside.c_str(), file.c_str()) == 0);
}

class SalesDatabase {
 public:
  explicit SalesDatabase(const std::string& file) : database_(file) {
    database_.Run("BEGIN");
    database_.Run(
        "CREATE TABLE Ventas (Numero INTEGER PRIMARY KEY, Fecha TEXT, Articulo TEXT, Marca INT, Precio INT, "
        "Hora INT, Cantidad INT)");
    for (std::int64_t n = 1; n <= kRenglonesVenta; ++n)
      database_.Run("INSERT INTO Ventas VALUES (NULL, '19/11/26', 'CASCO MOTO', 0, 1200000000, 900, 1)");
    database_.Run("COMMIT");
    database_.Reopen();
    insert_ = database_.Prepare("INSERT INTO Ventas VALUES (NULL, '20/11/26', ?1, 0, ?2, 1400, 1)");
    drop_ = database_.Prepare(
        "DELETE FROM Ventas WHERE Numero IN (SELECT Numero FROM Ventas ORDER BY Numero LIMIT 3)");
    Sqlite::Bind(insert_, 1, std::string("MINUTO CELULAR"));
    Sqlite::Bind(insert_, 2, std::int64_t{2'000'000});
  }
  void Sell() { database_.Transaction({insert_, insert_, insert_, drop_}); }
  bool Whole() { return database_.Count("Ventas") == kRenglonesVenta; }

 private:
  Sqlite database_;
  sqlite3_stmt *insert_ = nullptr, *drop_ = nullptr;
};

struct Times {
  std::vector<double> ours, plain, named, database;
};

/// They take turns, so that a disk that slows down slows all of them.
Times Day(const WorkFolder& folder) {
  SellingGate gate(folder.Path("Vintoral"));
  SalesDatabase database(folder.Path("ventas.db"));
  const std::string bytes(kLength, 'x'), beside = folder.Path("Vintoral/Recursos");
  Times times;
  for (int i = 0; i < kSales; ++i) {
    times.ours.push_back(Timed([&] { gate.Sell(); }));
    times.database.push_back(Timed([&] { database.Sell(); }));
    times.plain.push_back(Timed([&] { WriteAndRename(beside, bytes); }));
    times.named.push_back(times.plain.back() + Timed([&] { SyncFolder(beside); }));
  }
  Check(gate.Whole() && database.Whole());
  return times;
}

void SaleOfThreeArticles(benchmark::State& state) {
  Times times;
  for ([[maybe_unused]] auto day : state) {
    const WorkFolder folder;
    times = Day(folder);
    state.SetIterationTime(Median(times.ours) / 1e6);
  }
  const double ours = Median(times.ours);
  state.counters["ours_us"] = ours;
  state.counters["renamed_us"] = Median(times.plain);
  state.counters["ratio"] = ours / Median(times.plain);
  state.counters["name_synced_us"] = Median(times.named);
  state.counters["name_synced_ratio"] = ours / Median(times.named);
  state.counters["sqlite_us"] = Median(times.database);
  state.counters["sqlite_ratio"] = ours / Median(times.database);
}
BENCHMARK(SaleOfThreeArticles)->UseManualTime()->Iterations(1)->Repetitions(5)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace vintoral
