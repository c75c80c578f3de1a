// The encoder and libjpeg-turbo on the same pictures at the station's settings: quality 95, all factors 1,
// optimised tables, from pixels in memory to a file in memory. Both run in turn in every iteration, so that
// whatever else the machine does meets both; ratios are ours to theirs, those of the times between medians.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <ctime>
#include <string>
#include <vector>

#include "Memory.h"
#include "camera/cJpeg/EncodePlanes.h"
#include "camera/cJpeg/cJpeg.h"
#include "unit/camera/LibJpeg.h"
#include "unit/camera/MadePictures.h"

namespace vintoral::made {

namespace {

using File = std::vector<std::uint8_t>;

double Median(std::vector<double> values) {
  std::nth_element(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2),
                   values.end());
  return values[values.size() / 2];
}

// Time of the processor, which does not count what else the machine does meanwhile; both encoders keep to one
// thread.
template <class Work>
double Milliseconds(Work work) {
  const auto now = [] {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
  };
  const double start = now();
  work();
  return now() - start;
}

File EncodeOurs(const MadePicture& picture) {
  cJpeg jpeg;
  jpeg.Quality(95);
  jpeg.SetSamplingFrequencies(1, 1, 1, 1, 1, 1);
  if (!jpeg.SampleHDC(picture.View(), picture.width, picture.height)) return {};
  return jpeg.Encode();
}

// With the loops that any processor runs.
File EncodePortably(const MadePicture& picture) {
  const ColourPlanes planes(picture.View(), 0, 0, picture.width, picture.height);
  return EncodePlanes(
      planes,
      {ScaleQuantization(kLuminanceQuantization, 95), ScaleQuantization(kChrominanceQuantization, 95)}, {},
      "", kPortableKernels);
}

// The most memory in use beyond the picture and the file, in bytes for each pixel.
double ExtraMemory(const MadePicture& picture) {
  const bench::MemoryWatch watch;
  const std::size_t file = EncodeOurs(picture).size();
  return static_cast<double>(watch.Peak() - file) / (picture.width * picture.height);
}

void Report(benchmark::State& state, const MadePicture& picture, const File& ours, const File& theirs) {
  const PictureError ourError = ErrorOf(picture, DecodeWithLibJpeg(ours).pixels);
  const PictureError theirError = ErrorOf(picture, DecodeWithLibJpeg(theirs).pixels);
  state.counters["bytes"] = static_cast<double>(ours.size());
  state.counters["sizeRatio"] = static_cast<double>(ours.size()) / static_cast<double>(theirs.size());
  state.counters["mse"] = ourError.meanSquare;
  state.counters["mseRatio"] = ourError.meanSquare / theirError.meanSquare;
  state.counters["largest"] = ourError.largest;
  state.counters["largestTheirs"] = theirError.largest;
  state.counters["extraBytesPerPixel"] = ExtraMemory(picture);
}

void Compare(benchmark::State& state, const MadePicture& picture, File (*encode)(const MadePicture&)) {
  File ours, theirs;
  theirs.reserve(picture.pixels.size() + 65536);
  std::vector<double> ourTimes, theirTimes;
  for (auto _ : state) {
    ourTimes.push_back(Milliseconds([&] { ours = encode(picture); }));
    theirTimes.push_back(Milliseconds([&] { EncodeWithLibJpeg(picture, {}, theirs); }));
  }
  state.counters["ms"] = Median(ourTimes);
  state.counters["msTheirs"] = Median(theirTimes);
  state.counters["timeRatio"] = Median(ourTimes) / Median(theirTimes);
  Report(state, picture, ours, theirs);
}

void Register(const std::string& name, MadePicture (*make)(int, int, unsigned),
              File (*encode)(const MadePicture&)) {
  for (const auto& [width, height] : {std::pair{320, 240}, std::pair{640, 480}, std::pair{1920, 1080}}) {
    const std::string full = name + "/" + std::to_string(width) + "x" + std::to_string(height);
    const auto run = [=, w = width, h = height](benchmark::State& state) {
      Compare(state, make(w, h, 11), encode);
    };
    benchmark::RegisterBenchmark(full.c_str(), run)->Unit(benchmark::kMillisecond);
  }
}

[[maybe_unused]] const bool registered = [] {
  Register("Jpeg/photograph", Photograph, EncodeOurs);
  Register("Jpeg/noise", Noise, EncodeOurs);
  Register("JpegPortable/photograph", Photograph, EncodePortably);
  Register("JpegPortable/noise", Noise, EncodePortably);
  return true;
}();

}  // namespace

}  // namespace vintoral::made
