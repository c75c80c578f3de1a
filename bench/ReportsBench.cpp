// The page of very many rows beside writing the same bytes, and the history report of a day.
#include <benchmark/benchmark.h>

#include "History.h"
#include "Memory.h"
#include "WorkDisk.h"
#include "reports/InformeFichas.h"

namespace vintoral {
namespace {

using namespace bench;

constexpr const char* kHst = "Vintoral.HST";
constexpr const char* kHtml = "Vintoral.HTML";
constexpr std::size_t kRows = 100'000;

PosixDisk& TheDisk() {
  static WorkDisk disk;
  return disk.disk();
}

const std::vector<RegistroFicha>& Rows() {
  static const std::vector<RegistroFicha> rows = [] {
    std::vector<RegistroFicha> made;
    for (std::size_t i = 0; i < kRows; ++i)
      made.push_back(Gone(static_cast<std::int64_t>(i) + kFirstRow));
    return made;
  }();
  return rows;
}

/// Of which no photo is there.
DatosInforme Report() {
  DatosInforme report;
  report.cabeza = CabezaDeDia("18:00  (21/11/2026)"_w);
  report.porteria = "01"_w;
  report.moneda = "$"_w;
  report.foto = [](std::string_view, std::int64_t) { return std::nullopt; };
  return report;
}

Outcome WritePage(const Destino& into) {
  return InformeEstado(Report(), Rows(), into).pagina;
}

const std::string& ThePage() {
  static const std::string page = [] {
    std::string text;
    WritePage([&](std::string_view piece) {
      text += piece;
      return Outcome::Done();
    }).PassOver();
    return text;
  }();
  return page;
}

/// The page on the disk, made anew.
class PageFile {
 public:
  explicit PageFile(Disk& disk) {
    if (disk.Exists(kHtml)) disk.Remove(kHtml).PassOver();
    file_ = disk.Open(kHtml, OpenMode::kCreate).Take();
  }
  Destino Into() {
    return [this](std::string_view piece) {
      Outcome written = file_->WriteAt(end_, piece);
      end_ += piece.size();
      return written;
    };
  }

 private:
  std::unique_ptr<DiskFile> file_;
  std::uint64_t end_ = 0;
};

void WritingTheBytesOfThePage(benchmark::State& state) {
  for (auto _ : state) {
    PageFile file(TheDisk());
    const Destino into = file.Into();
    for (std::string_view rest = ThePage(); !rest.empty();) {
      into(rest.substr(0, Escritor::kPieza)).PassOver();
      rest.remove_prefix(std::min(rest.size(), Escritor::kPieza));
    }
  }
}
BENCHMARK(WritingTheBytesOfThePage)->Unit(benchmark::kMillisecond);

void PageOf100000Rows(benchmark::State& state) {
  for (auto _ : state) {
    PageFile file(TheDisk());
    if (!WritePage(file.Into())) state.SkipWithError("the page was not written");
  }
  PageFile file(TheDisk());
  const MemoryWatch watch;
  WritePage(file.Into()).PassOver();
  constexpr double kMiB = 1024.0 * 1024.0;
  state.counters["peak_MiB"] = static_cast<double>(watch.Peak()) / kMiB;
}
BENCHMARK(PageOf100000Rows)->Unit(benchmark::kMillisecond);

void HistoryOfADayOf1000(benchmark::State& state) {
  constexpr std::int64_t kDays = 10;
  WriteHistory(TheDisk().PathOf(kHst), kDays * kExitsOfADay);
  const DatosInforme report = Report();
  for (auto _ : state) {
    PageFile file(TheDisk());
    const Register<RegistroFicha> history(TheDisk(), kHst, OpenMode::kRead);
    if (!InformeHistorial(report, history, false, file.Into()).pagina) state.SkipWithError("no page");
  }
}
BENCHMARK(HistoryOfADayOf1000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vintoral
