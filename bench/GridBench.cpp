// What the grid costs beside what it reads, as the window draws it: pictures are read beside the station.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Median.h"
#include "common/Numbers.h"
#include "platform/headless/HeadlessPlatform.h"
#include "platform/pictures/PicturesBeside.h"
#include "records/ArchivosNuevos.h"
#include "records/Register.h"
#include "station/form1/Form1.h"
#include "support/Photos.h"

namespace vintoral {
namespace {

using bench::Median;

constexpr int kInside = 50;        ///< a full page
constexpr int kGone = 200;         ///< of today
constexpr int kShort = 1000;       ///< rows of a history
constexpr int kLong = 10'000'000;  ///< rows of another one
constexpr int kTicks = 2000;       ///< and as many looks at the files alone
constexpr int kSwitches = 500;     ///< on, at each gate
constexpr int kCold = 10;          ///< of either not counted: the caches are filled with them

RegistroFicha Ficha(int number, int place) {
  RegistroFicha ficha;
  ficha.EnUso = true;
  ficha.NumeroFicha = Digits(number, 4);
  ficha.Placa = "ABC"_w + Digits(number, 4);
  ficha.MarcaEntrada = "08:15  (20/11/2026)";
  ficha.MarcaSalida = "??";
  ficha.Categoria = "AUTOMOVIL";
  ficha.PorteriaEntrada = "01";
  ficha.PorteriaSalida = "??";
  ficha.Posicion = place;
  return ficha;
}

RegistroFicha Salida(int number, int row) {
  RegistroFicha ficha = Ficha(number, row);
  ficha.MarcaSalida = "13:00  (20/11/2026)";
  ficha.PorteriaSalida = "01";
  return ficha;
}

/// The data that two gates share, on the disk that the build lies on.
class Premises {
 public:
  explicit Premises(const std::string& name)
      : path_(std::filesystem::current_path() / ("bench-grid-" + name)) {
    std::filesystem::remove_all(path_);
    for (const char* folder : {"Imágenes ACT", "Imágenes HST"})
      std::filesystem::create_directories(path_ / "Multimedia" / folder);
    std::filesystem::create_directories(path_ / "Gate" / "Objetos");
    std::ofstream(path_ / "Gate" / "Objetos" / "Servidor.INI") << Data("").string() << "\r\n";
  }
  Premises(const Premises&) = delete;
  Premises& operator=(const Premises&) = delete;
  ~Premises() { std::filesystem::remove_all(path_); }

  std::string Gate() const { return (path_ / "Gate").string(); }
  std::filesystem::path Data(const std::string& name) const { return path_ / "Multimedia" / name; }

  void FillAct() const {
    PosixDisk disk(path_.string());
    disk.Replace("Multimedia\\Vintoral.ACT", ActNuevo()).PassOver();
    Register<RegistroFicha> act(disk, "Multimedia\\Vintoral.ACT", OpenMode::kReadWrite);
    for (int number = 1; number <= kInside; ++number) {
      act.Write(number, Ficha(number, number), false).PassOver();
      std::ofstream(PhotoOf(number)) << test::Photo(320, 240);
    }
  }
  std::string PhotoOf(int number) const {
    return Data("Imágenes ACT/" + Digits(number, 6).ToUtf8() + ".jpg").string();
  }

  /// The last rows are of today; what lies before them is never looked at, and takes no place.
  void FillHistory(int rows) const {
    const std::filesystem::path path = Data("Vintoral.HST");
    std::ofstream(path).flush();
    std::filesystem::resize_file(path,
                                 std::uintmax_t{RegistroFicha::kSize} * static_cast<unsigned>(rows - kGone));
    std::ofstream hst(path, std::ios::app);
    for (int row = rows - kGone + 1; row <= rows; ++row) {
      const auto record = Salida(row % 1000, row).Encode();
      hst.write(record.data(), record.size());
      std::ofstream(Data("Imágenes HST/" + Digits(row, 6).ToUtf8() + ".jpg")) << test::Photo(320, 240);
    }
  }

 private:
  std::filesystem::path path_;
};

/// A connected gate, idle.
class Gate {
 public:
  explicit Gate(const Premises& premises) : platform_(premises.Gate(), pictures_), Form(platform_.Devices()) {
    platform_.Screen.OnWait = [this] { platform_.Screen.Answer(Answer::kOk); };
    platform_.Clock.Set(*Moment::From({.year = 2026, .month = 11, .day = 20, .hour = 14}));
    Form.Form_Load();
    AdvanceTime(platform_.Clock, Form.OpenForms, 4000);
  }

 private:
  PicturesBeside pictures_;
  HeadlessPlatform platform_;

 public:
  Form1 Form;
};

/// How many cells show a photo.
std::ptrdiff_t Photos(const Form1& form) {
  return std::count_if(form.ImgFicha.begin(), form.ImgFicha.end(),
                       [](const Image& cell) { return cell.Visible && !cell.Picture.Empty(); });
}

using Microseconds = std::chrono::duration<double, std::micro>;

template <class Work>
double Timed(Work&& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return Microseconds(std::chrono::steady_clock::now() - start).count();
}

/// Medians of both, taken in turn, so that what slows the machine down slows both.
template <class Ours, class Reference>
void Compare(benchmark::State& state, int times, Ours&& ours, Reference&& reference) {
  std::vector<double> our, their;
  for ([[maybe_unused]] auto all : state) {
    for (int i = 0; i < times; ++i) {
      their.push_back(reference());
      our.push_back(ours());
    }
    for (std::vector<double>* each : {&our, &their})
      each->erase(each->begin(), each->begin() + kCold);
    state.SetIterationTime(Median(our) / 1e6);
  }
  state.counters["ours_us"] = Median(our);
  state.counters["reference_us"] = Median(their);
  state.counters["ratio"] = Median(our) / Median(their);
}

/// The reference: one `stat` of each photo, one `read` of ACT into memory that is there already.
void LookAtFiles(const std::vector<std::string>& photos, const std::string& act, std::vector<char>& into) {
  struct stat status {};
  for (const std::string& photo : photos)
    benchmark::DoNotOptimize(stat(photo.c_str(), &status));
  const int descriptor = open(act.c_str(), O_RDONLY | O_CLOEXEC);
  benchmark::DoNotOptimize(read(descriptor, into.data(), into.size()));
  close(descriptor);
}

void TickWithNothingNew(benchmark::State& state) {
  const Premises premises("tick");
  premises.FillAct();
  Gate gate(premises);
  std::vector<std::string> photos;
  for (int number = 1; number <= kInside; ++number)
    photos.push_back(premises.PhotoOf(number));
  const std::string act = premises.Data("Vintoral.ACT").string();
  std::vector<char> bytes(std::filesystem::file_size(act));
  Compare(
      state, kTicks, [&] { return Timed([&] { gate.Form.TmrMonitor_Timer(); }); },
      [&] { return Timed([&] { LookAtFiles(photos, act, bytes); }); });
  if (gate.Form.EsCliente == 0 || Photos(gate.Form) != kInside)
    state.SkipWithError("not the grid that was meant");
}
BENCHMARK(TickWithNothingNew)->UseManualTime()->Iterations(1)->Repetitions(5)->Unit(benchmark::kMicrosecond);

/// F3 on at one gate, in microseconds; off again beside the clock.
double SwitchOn(Form1& form) {
  const auto press = [&] { form.PctBoton_Click(static_cast<int>(boton::kUltimosEnSalir)); };
  const double time = Timed(press);
  press();
  return time;
}

/// A gate on whose data folder this many have left.
struct GateWithHistory {
  explicit GateWithHistory(int rows) : premises(Digits(rows).ToUtf8()) {
    premises.FillAct();
    premises.FillHistory(rows);
    gate.emplace(premises);
  }
  bool ShowsDepartures() {
    gate->Form.PctBoton_Click(static_cast<int>(boton::kUltimosEnSalir));
    return gate->Form.TotalVista() == kGone && Photos(gate->Form) == kInside;
  }

  const Premises premises;
  std::optional<Gate> gate;
};

void MonitorOfALongHistory(benchmark::State& state) {
  GateWithHistory longOne(kLong), shortOne(kShort);
  Compare(
      state, kSwitches, [&] { return SwitchOn(longOne.gate->Form); },
      [&] { return SwitchOn(shortOne.gate->Form); });
  if (!longOne.ShowsDepartures() || !shortOne.ShowsDepartures())
    state.SkipWithError("not the departures that were meant");
}
BENCHMARK(MonitorOfALongHistory)
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(5)
    ->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace vintoral
