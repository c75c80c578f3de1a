// The encoder and libjpeg-turbo on the same pictures at the station's settings: quality 95, all factors 1,
// optimised tables, from pixels in memory to a file in memory. Both run in turn in every iteration, so that
// whatever else the machine does meets both; the ratios are ours to theirs, of the medians for the time.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <vector>

#include "Memory.h"
#include "unit/camera/LibJpeg.h"
#include "unit/camera/MadePictures.h"
#include "camera/cJpeg/cJpeg.h"

namespace vintoral::made {

namespace {

using Clock = std::chrono::steady_clock;

double Median(std::vector<double> values) {
  std::nth_element(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2),
                   values.end());
  return values[values.size() / 2];
}

std::vector<std::uint8_t> EncodeOurs(const MadePicture& picture) {
  cJpeg jpeg;
  jpeg.Quality(95);
  jpeg.SetSamplingFrequencies(1, 1, 1, 1, 1, 1);
  if (!jpeg.SampleHDC(picture.View(), picture.width, picture.height)) return {};
  return jpeg.Encode();
}

template <class Work>
double Milliseconds(Work work) {
  const auto start = Clock::now();
  work();
  return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

// Memory beyond the picture and the file, in pixels of one byte for each of its places.
double ExtraMemory(const MadePicture& picture) {
  bench::StartPeak();
  const std::size_t file = EncodeOurs(picture).size();
  return static_cast<double>(bench::Peak() - file) / (picture.width * picture.height);
}

void Compare(benchmark::State& state, const MadePicture& picture) {
  std::vector<std::uint8_t> ours, theirs;
  theirs.reserve(picture.pixels.size() + 65536);
  std::vector<double> ourTimes, theirTimes;
  for (auto _ : state) {
    ourTimes.push_back(Milliseconds([&] { ours = EncodeOurs(picture); }));
    theirTimes.push_back(Milliseconds([&] { EncodeWithLibJpeg(picture, {}, theirs); }));
  }
  const PictureError ourError = ErrorOf(picture, DecodeWithLibJpeg(ours).pixels);
  const PictureError theirError = ErrorOf(picture, DecodeWithLibJpeg(theirs).pixels);
  state.counters["ms"] = Median(ourTimes);
  state.counters["msTheirs"] = Median(theirTimes);
  state.counters["timeRatio"] = Median(ourTimes) / Median(theirTimes);
  state.counters["bytes"] = static_cast<double>(ours.size());
  state.counters["sizeRatio"] = static_cast<double>(ours.size()) / static_cast<double>(theirs.size());
  state.counters["mse"] = ourError.meanSquare;
  state.counters["mseRatio"] = ourError.meanSquare / theirError.meanSquare;
  state.counters["largest"] = ourError.largest;
  state.counters["largestTheirs"] = theirError.largest;
  state.counters["bytesPerPixel"] = ExtraMemory(picture);
}

void Register(const char* name, MadePicture (*make)(int, int, unsigned)) {
  for (const auto& [width, height] : {std::pair{320, 240}, std::pair{640, 480}, std::pair{1920, 1080}}) {
    const std::string full =
        std::string("Jpeg/") + name + "/" + std::to_string(width) + "x" + std::to_string(height);
    benchmark::RegisterBenchmark(full.c_str(), [make, w = width, h = height](benchmark::State& state) {
      Compare(state, make(w, h, 11));
    })->Unit(benchmark::kMillisecond);
  }
}

const bool registered = [] {
  Register("photograph", Photograph);
  Register("noise", Noise);
  return true;
}();

}  // namespace

}  // namespace vintoral::made
