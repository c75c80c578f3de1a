// The search over a long history beside one pass of read over the same file, and the page of very many rows
// beside writing the same bytes.
#include <benchmark/benchmark.h>

#include <array>
#include <filesystem>
#include <fstream>

#include "PlainReads.h"
#include "common/Moment.h"
#include "common/Numbers.h"
#include "platform/PosixDisk.h"
#include "reports/Busqueda.h"
#include "reports/InformeFichas.h"

namespace vintoral {
namespace {

using namespace bench;

constexpr const char* kHst = "Vintoral.HST";
constexpr const char* kHtml = "Vintoral.HTML";
/// Some six years of a thousand vehicles a day.
constexpr std::int64_t kHistory = 2'000'000;
constexpr std::size_t kRows = 100'000;

RegistroFicha Gone(std::int64_t number) {
  constexpr std::array kNames = {"JUAN", "ANA MARIA", "PEDRO", "LUISA FERNANDA"};
  constexpr std::array kCategories = {"AUTOMOVIL", "MOTOCICLETA", "CAMION"};
  constexpr std::int64_t kMinute = 60'000;
  const auto pick = static_cast<std::size_t>(number);
  const Moment left = ParseDateTime("01/01/2020 06:00:00")->Plus(number * kMinute);
  RegistroFicha ficha;
  ficha.EnUso = true;
  ficha.MarcaEntrada = StampOf(left.Plus(-90 * kMinute));
  ficha.MarcaSalida = StampOf(left);
  ficha.NumeroFicha = Digits(number * 7 % 999 + 1, 4);
  ficha.Placa = "ABC"_w + Digits(number % 1000, 3);
  ficha.Nombre = kNames[pick % kNames.size()];
  ficha.Apellido = kNames[pick / 4 % kNames.size()];
  ficha.Telefono = "3001234567";
  ficha.Observacion = "SIN NOVEDAD";
  ficha.Categoria = kCategories[pick % kCategories.size()];
  ficha.PorteriaEntrada = ficha.PorteriaSalida = "01";
  ficha.Posicion = static_cast<std::int32_t>(number);
  ficha.ValorCobrado = Money::FromUnits(1500);
  return ficha;
}

/// A folder with a long history, made once.
class Archive {
 public:
  Archive() : disk_(Make()) {
    std::ofstream history(disk_.PathOf(kHst), std::ios::binary);
    const auto put = [&](const RegistroFicha& ficha) {
      const auto bytes = ficha.Encode();
      history.write(bytes.data(), bytes.size());
    };
    put({});
    for (std::int64_t number = 2; number <= kHistory; ++number)
      put(Gone(number));
  }
  ~Archive() {
    std::error_code ignored;
    std::filesystem::remove_all(disk_.CurrentFolder().ToUtf8(), ignored);
  }
  Archive(const Archive&) = delete;
  Archive& operator=(const Archive&) = delete;

  PosixDisk& disk() { return disk_; }

 private:
  static std::string Make() {
    std::string name = (std::filesystem::temp_directory_path() / "vintoral-bench-XXXXXX").string();
    return mkdtemp(name.data()) ? name : "/nonexistent";
  }
  PosixDisk disk_;
};

Archive& TheArchive() {
  static Archive archive;
  return archive;
}

void OnePassOfReadOverTheHistory(benchmark::State& state) {
  const std::string path = TheArchive().disk().PathOf(kHst);
  std::vector<char> bytes;
  for (auto _ : state)
    ReadAllOf({path}, bytes);
}
BENCHMARK(OnePassOfReadOverTheHistory)->Unit(benchmark::kMillisecond);

void Search(benchmark::State& state, Criterios criteria) {
  criteria.desdeHora = "00:00"_w;
  criteria.desdeFecha = "01/01/2000"_w;
  criteria.hastaHora = "23:59"_w;
  criteria.hastaFecha = "31/12/2099"_w;
  for (auto _ : state) {
    PruebaRegistro test(criteria);
    std::int64_t found = 0;
    BuscarHistorial(
        TheArchive().disk(), kHst, test, [&](const RegistroFicha&) { ++found; },
        [](std::int64_t) { return true; })
        .PassOver();
    if (found != 0) state.SkipWithError("something was found");
  }
}

void SearchForANumber(benchmark::State& state) {
  Criterios criteria;
  criteria.ficha = "1000"_w;  // nobody's
  Search(state, criteria);
}
BENCHMARK(SearchForANumber)->Unit(benchmark::kMillisecond);

void SearchForTwoTextsAndACategory(benchmark::State& state) {
  Criterios criteria;
  criteria.campos[1] = "AN"_w;
  criteria.campos[4] = "NOVEDADES"_w;
  criteria.categoria = "automovil"_w;
  Search(state, criteria);
}
BENCHMARK(SearchForTwoTextsAndACategory)->Unit(benchmark::kMillisecond);

const std::vector<RegistroFicha>& Rows() {
  static const std::vector<RegistroFicha> rows = [] {
    std::vector<RegistroFicha> made;
    for (std::size_t i = 0; i < kRows; ++i)
      made.push_back(Gone(static_cast<std::int64_t>(i) + 2));
    return made;
  }();
  return rows;
}

Outcome WritePage(const Destino& into) {
  DatosInforme report;
  report.cabeza = CabezaDeDia("18:00  (21/11/2026)"_w);
  report.porteria = "01"_w;
  report.moneda = "$"_w;
  report.foto = [](std::string_view, std::int64_t) { return std::nullopt; };
  return InformeEstado(report, Rows(), into).pagina;
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
    PageFile file(TheArchive().disk());
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
    PageFile file(TheArchive().disk());
    if (!WritePage(file.Into())) state.SkipWithError("the page was not written");
  }
}
BENCHMARK(PageOf100000Rows)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vintoral
