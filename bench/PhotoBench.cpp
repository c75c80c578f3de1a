// Photos: a frame of a camera until it is a stamped file in memory, against libswscale and libjpeg-turbo; and
// a save with photo against one without.
#include <benchmark/benchmark.h>

extern "C" {
#include <libswscale/swscale.h>
}

#include <filesystem>
#include <string>
#include <vector>

#include "Days.h"
#include "Median.h"
#include "StationGate.h"
#include "camera/Foto.h"
#include "camera/Sello.h"
#include "camera/cJpeg/cJpeg.h"
#include "unit/camera/LibJpeg.h"
#include "unit/camera/MadePictures.h"

namespace vintoral {
namespace {

using namespace bench;
using made::MadePicture;

constexpr int kQuality = 95;

/// A photograph as a camera gives it.
std::shared_ptr<const cImage> FrameOf(const MadePicture& picture) {
  auto frame = std::make_shared<cImage>();
  if (!frame->CopyStdPicture(picture.View(), 24)) return nullptr;
  return frame;
}

std::size_t OurFile(const cImage& frame) {
  const std::shared_ptr<cImage> photo = FotoDe(frame);
  if (photo == nullptr) return 0;
  Sellar(*photo, 3, 0, "PE01 14:25 31/12/2026");
  cJpeg jpeg;
  jpeg.SetSamplingFrequencies(1, 1, 1, 1, 1, 1);
  jpeg.Quality(kQuality);
  if (!jpeg.SampleHDC(photo->hDC(), photo->Width(), photo->Height())) return 0;
  return jpeg.Encode().size();
}

/// The same without the stamp.
class Reference {
 public:
  Reference(int width, int height)
      : scaler_(sws_getContext(width, height, AV_PIX_FMT_BGR24, kAnchoFoto, kAltoFoto, AV_PIX_FMT_BGR24,
                               SWS_AREA, nullptr, nullptr, nullptr)),
        photo_(kAnchoFoto, kAltoFoto),
        room_(photo_.pixels.size() + 65536) {}
  Reference(const Reference&) = delete;
  Reference& operator=(const Reference&) = delete;
  ~Reference() { sws_freeContext(scaler_); }
  std::size_t File(const cImage& frame) {
    const PixelView view = frame.hDC();
    const std::uint8_t* const from[] = {view.topRow};
    const int fromStep[] = {static_cast<int>(view.rowStep)};
    std::uint8_t* const to[] = {photo_.pixels.data()};
    const int toStep[] = {static_cast<int>(photo_.rowSize)};
    sws_scale(scaler_, from, fromStep, 0, frame.Height(), to, toStep);
    return made::EncodeWithLibJpeg(photo_, {kQuality, 1, 1}, room_);
  }

 private:
  SwsContext* scaler_;
  MadePicture photo_;
  std::vector<std::uint8_t> room_;
};

void StampedPhoto(benchmark::State& state) {
  const auto frame = FrameOf(made::Photograph(1920, 1080, 11));
  Reference reference(1920, 1080);
  std::vector<double> ours, theirs;
  for (auto _ : state) {
    ours.push_back(Timed([&] { benchmark::DoNotOptimize(OurFile(*frame)); }));
    theirs.push_back(Timed([&] { benchmark::DoNotOptimize(reference.File(*frame)); }));
  }
  state.counters["ours_us"] = Median(ours);
  state.counters["theirs_us"] = Median(theirs);
  state.counters["ratio"] = Median(ours) / Median(theirs);
}
BENCHMARK(StampedPhoto)->Unit(benchmark::kMillisecond)->MinTime(2);

/// Saves of strangers, timed from the answer to the question on: what the operator waits for.
class PhotoGate {
 public:
  PhotoGate(const std::string& folder, std::shared_ptr<const cImage> frame)
      : gate_(folder, Plates::kAll, PosixDisk::Work::kBeside) {
    HeadlessPlatform& devices = gate_.Devices();
    devices.Camera.Installed = {"C"_w};
    devices.Camera.Cameras["C"_w].frame = std::move(frame);
    gate_.Form().BuscarCamara();
    devices.Screen.OnWait = [this, &devices] {
      answered_ = std::chrono::steady_clock::now();
      if (!devices.Screen.Answer(Answer::kYes)) devices.Screen.Answer(Answer::kOk);
    };
  }
  /// In microseconds.
  double Save(int slot, std::chrono::milliseconds pause) {
    gate_.BeforeSave(slot);
    std::this_thread::sleep_for(pause);
    gate_.Save();
    return std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - answered_).count();
  }
  bool HasPhoto(int slot) {
    Form1& form = gate_.Form();
    return form.Devices().disk.Exists(
        form.RutaCompartida("Im\xE1genes ACT\\" + Digits(slot, 6).Bytes() + ".jpg"));
  }

 private:
  Gate gate_;
  std::chrono::steady_clock::time_point answered_;
};

void SaveWithPhoto(benchmark::State& state, std::chrono::milliseconds pause) {
  constexpr int kVehicles = 150;
  double with = 0, without = 0;
  for ([[maybe_unused]] auto day : state) {
    const WorkFolder folder;
    std::filesystem::copy(folder.Path("Vintoral"), folder.Path("Plain"),
                          std::filesystem::copy_options::recursive);
    PhotoGate photos(folder.Path("Vintoral"), FrameOf(made::Photograph(640, 480, 11)));
    PhotoGate plain(folder.Path("Plain"), nullptr);
    with = without = 0;
    for (int i = 0; i < kVehicles; ++i) {
      with += photos.Save(SlotOf(i), pause);
      without += plain.Save(SlotOf(i), pause);
    }
    if (!photos.HasPhoto(SlotOf(0)) || plain.HasPhoto(SlotOf(0)))
      return state.SkipWithError("a photo is missing");
    state.SetIterationTime(with / kVehicles / 1e6);
  }
  state.counters["with_us"] = with / kVehicles;
  state.counters["without_us"] = without / kVehicles;
  state.counters["ratio"] = with / without;
}
BENCHMARK_CAPTURE(SaveWithPhoto, apart, kApart)->Apply(FiveDays);
BENCHMARK_CAPTURE(SaveWithPhoto, back_to_back, kBackToBack)->Apply(FiveDays);

}  // namespace
}  // namespace vintoral
