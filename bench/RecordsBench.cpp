// What the registers cost beside reading the same bytes with plain system calls: the reference stands before
// each measured work, on the same files, in the same run.
#include <benchmark/benchmark.h>

#include "PlainReads.h"
#include "Slots.h"
#include "WorkDisk.h"
#include "common/Numbers.h"
#include "records/ArchivosNuevos.h"
#include "records/BuscarCodigo.h"
#include "records/BuscarPlaca.h"
#include "records/Monitores.h"

namespace vintoral {
namespace {

using namespace bench;

constexpr const char* kAct = "Vintoral.ACT";
constexpr const char* kUsr = "Vintoral.USR";
constexpr const char* kCdb = "Vintoral.CDB";
constexpr const char* kCfr = "Vintoral.CFR";
constexpr int kUsers = 1'000'000;
constexpr int kPasses = 100'000;

void FillSlots(Disk& disk) {
  disk.Replace(kAct, ActNuevo()).PassOver();
  Register<RegistroFicha> act(disk, kAct, OpenMode::kReadWrite);
  for (std::int64_t number = 1; number <= kSlots; ++number) {
    RegistroFicha ficha;
    ficha.EnUso = true;
    ficha.NumeroFicha = Digits(number, 4);
    ficha.Placa = "ABC"_w + Digits(number, 4);
    ficha.Nombre = "JUAN";
    ficha.MarcaEntrada = "08:15  (03/02/2026)";
    ficha.MarcaSalida = "??";
    ficha.PorteriaEntrada = "01";
    ficha.PorteriaSalida = "??";
    ficha.Posicion = static_cast<std::int32_t>(number);
    act.Write(number, ficha, false).PassOver();
  }
}

void FillUsers(Disk& disk) {
  std::string bytes;
  for (int number = 1; number <= kUsers; ++number) {
    RegistroUsuario user;
    // All letters, so that the first one tells as little as it does in life.
    user.Placa = String(1, static_cast<char>('A' + number % 26)) + "BC"_w + Digits(number);
    const auto encoded = user.Encode();
    bytes.append(encoded.data(), encoded.size());
  }
  disk.Replace(kUsr, bytes).PassOver();
}

/// Codes as stations draw them, all different.
String Code(int number) {
  return String(1, static_cast<char>('A' + number % 26)) + Digits(number, 11);
}

void FillCodes(Disk& disk) {
  disk.Replace(kCdb, CdbNuevo()).PassOver();
  Register<RegistroCodigo> codes(disk, kCdb, OpenMode::kReadWrite);
  for (int number = 1; number <= kSlots; ++number) {
    RegistroCodigo code;
    code.CodigoBarras = Code(number);
    code.FichaCodigo = Digits(number, 4);
    codes.Write(number, code, false).PassOver();
  }
  std::string bytes;
  for (int number = 1; number <= kPasses; ++number) {
    RegistroPase pass;
    pass.CodigoPase = Code(kSlots + number);
    pass.RestantesPase = 9;
    const auto encoded = pass.Encode();
    bytes.append(encoded.data(), encoded.size());
  }
  disk.Replace(kCfr, bytes).PassOver();
}

/// A folder with a full house and very many users, made once.
class Premises : public WorkDisk {
 public:
  Premises() {
    FillSlots(disk());
    FillUsers(disk());
    FillCodes(disk());
  }
};

Premises& TheHouse() {
  static Premises premises;
  return premises;
}

void OneReadOfAct(benchmark::State& state) {
  const std::string path = TheHouse().disk().PathOf(kAct);
  std::vector<char> bytes;
  for (auto _ : state)
    benchmark::DoNotOptimize(ReadWhole(path, bytes));
}
BENCHMARK(OneReadOfAct)->Unit(benchmark::kMicrosecond);

void ViewOf1000Inside(benchmark::State& state) {
  PosixDisk& disk = TheHouse().disk();
  std::vector<RegistroFicha> view;
  for (auto _ : state) {
    view = {};
    view.reserve(kSlots);
    const Register<RegistroFicha> act(disk, kAct, OpenMode::kRead);
    const auto take = [&](std::int64_t, const RegistroFicha& ficha) {
      if (EstaDentro(ficha)) view.push_back(ficha);
      return true;
    };
    act.Walk(1, kSlots, take).PassOver();
    benchmark::DoNotOptimize(view.data());
  }
  if (view.size() != kSlots) state.SkipWithError("not all are inside");
}
BENCHMARK(ViewOf1000Inside)->Unit(benchmark::kMicrosecond);

void MonitorOf1000Inside(benchmark::State& state) {
  PosixDisk& disk = TheHouse().disk();
  const Moment now = ParseDateTime("03/02/2026 10:00:00").value();
  for (auto _ : state) {
    std::vector<RegistroFicha> view;
    const Register<RegistroFicha> act(disk, kAct, OpenMode::kRead);
    const auto take = [&](std::int64_t, const RegistroFicha& ficha) {
      if (EstaDentro(ficha) && PermaneceDesde(ficha, now, 10)) view.push_back(ficha);
      return true;
    };
    act.Walk(1, kSlots, take).PassOver();
    if (view.size() != kSlots) state.SkipWithError("not all are in the monitor");
  }
}
BENCHMARK(MonitorOf1000Inside)->Unit(benchmark::kMicrosecond);

void DecodeOf1000Fichas(benchmark::State& state) {
  const String act = ActNuevo();
  const std::span<const char> bytes(act.Bytes());
  for (auto _ : state) {
    for (std::size_t at = 0; at + RegistroFicha::kSize <= bytes.size(); at += RegistroFicha::kSize)
      benchmark::DoNotOptimize(RegistroFicha::Decode(bytes.subspan(at).first<RegistroFicha::kSize>()));
  }
}
BENCHMARK(DecodeOf1000Fichas)->Unit(benchmark::kMicrosecond);

void OnePassOfReadOverBoth(benchmark::State& state) {
  const PosixDisk& disk = TheHouse().disk();
  std::vector<char> bytes;
  for (auto _ : state)
    ReadAllOf({disk.PathOf(kAct), disk.PathOf(kUsr)}, bytes);
}
BENCHMARK(OnePassOfReadOverBoth)->Unit(benchmark::kMicrosecond);

void PlateNotAmongAMillionUsers(benchmark::State& state) {
  PosixDisk& disk = TheHouse().disk();
  for (auto _ : state) {
    const Register<RegistroFicha> act(disk, kAct, OpenMode::kRead);
    if (BuscarPlacaDentro(act, "XBC-NONE", kSlots) != 0) state.SkipWithError("found inside");
    const Register<RegistroUsuario> users(disk, kUsr, OpenMode::kRead);
    const Result<std::int64_t> count = users.Count();
    if (!count || BuscarPlaca(users, "XBC-NONE", 1, *count) != 0)
      state.SkipWithError("found among the users");
  }
}
BENCHMARK(PlateNotAmongAMillionUsers)->Unit(benchmark::kMicrosecond);

void OnePassOfReadOverCodesAndPasses(benchmark::State& state) {
  const PosixDisk& disk = TheHouse().disk();
  std::vector<char> bytes;
  for (auto _ : state)
    ReadAllOf({disk.PathOf(kCdb), disk.PathOf(kCfr)}, bytes);
}
BENCHMARK(OnePassOfReadOverCodesAndPasses)->Unit(benchmark::kMicrosecond);

void CodeOfNobodyAmong100000Passes(benchmark::State& state) {
  PosixDisk& disk = TheHouse().disk();
  for (auto _ : state) {
    const Register<RegistroCodigo> codes(disk, kCdb, OpenMode::kRead);
    if (BuscarCodigo(codes, "X99999999999", kSlots) != 0) state.SkipWithError("found inside");
    const Register<RegistroPase> passes(disk, kCfr, OpenMode::kRead);
    if (BuscarPase(passes, "X99999999999") != 0) state.SkipWithError("found among the passes");
  }
}
BENCHMARK(CodeOfNobodyAmong100000Passes)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace vintoral
