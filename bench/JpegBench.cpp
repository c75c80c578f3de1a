// The encoder and libjpeg-turbo on the same pictures at the same settings, those of the station among them:
// optimised tables, from pixels in memory to a file in memory. Both run in turn in every iteration, so that
// whatever else the machine does meets both; ratios are ours to theirs, those of the times between medians.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <ctime>
#include <string>
#include <vector>

#include "Median.h"
#include "Memory.h"
#include "camera/cJpeg/EncodePlanes.h"
#include "camera/cJpeg/cJpeg.h"
#include "unit/camera/LibJpeg.h"
#include "unit/camera/MadePictures.h"

namespace vintoral::made {

namespace {

using bench::Median;

using File = std::vector<std::uint8_t>;

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

File EncodeOurs(const MadePicture& picture, const LibJpegSettings& settings) {
  cJpeg jpeg;
  jpeg.Quality(settings.quality);
  jpeg.SetSamplingFrequencies(settings.h1, settings.v1, 1, 1, 1, 1);
  if (!jpeg.SampleHDC(picture.View(), picture.width, picture.height)) return {};
  return jpeg.Encode();
}

// With the loops that any processor runs.
File EncodePortably(const MadePicture& picture, const LibJpegSettings& settings) {
  const ColourPlanes planes(picture.View(), 0, 0, picture.width, picture.height);
  const auto scaled = [&settings](const QuantizationTable& base) {
    return ScaleQuantization(base, settings.quality);
  };
  return EncodePlanes(planes, {scaled(kLuminanceQuantization), scaled(kChrominanceQuantization)},
                      {{{settings.h1, settings.v1}, {}, {}}}, "", kPortableKernels);
}

using Encoder = File (*)(const MadePicture&, const LibJpegSettings&);

// The most memory in use beyond the picture and the file, in bytes for each pixel.
double ExtraMemory(const MadePicture& picture, const LibJpegSettings& settings) {
  const bench::MemoryWatch watch;
  const std::size_t file = EncodeOurs(picture, settings).size();
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
}

void Compare(benchmark::State& state, const MadePicture& picture, const LibJpegSettings& settings,
             Encoder encode) {
  File ours, room(picture.pixels.size() + 65536);
  std::size_t theirSize = 0;
  std::vector<double> ourTimes, theirTimes;
  for (auto _ : state) {
    ourTimes.push_back(Milliseconds([&] { ours = encode(picture, settings); }));
    theirTimes.push_back(Milliseconds([&] { theirSize = EncodeWithLibJpeg(picture, settings, room); }));
  }
  state.counters["ms"] = Median(ourTimes);
  state.counters["msTheirs"] = Median(theirTimes);
  state.counters["timeRatio"] = Median(ourTimes) / Median(theirTimes);
  room.resize(theirSize);
  Report(state, picture, ours, room);
  state.counters["extraBytesPerPixel"] = ExtraMemory(picture, settings);
}

struct Kind {
  const char* name;
  MadePicture (*make)(int width, int height, unsigned seed);
};

constexpr Kind kKinds[] = {{"photograph", Photograph}, {"noise", Noise}, {"text", Text}};
constexpr LibJpegSettings kSettings[] = {{75, 1, 1}, {95, 1, 1}, {75, 2, 2}, {95, 2, 2}};

std::string NameOf(const std::string& group, const Kind& kind, const LibJpegSettings& settings, int width,
                   int height) {
  const auto text = [](int number) { return std::to_string(number); };
  return group + "/" + kind.name + "/" + text(settings.h1) + "," + text(settings.v1) + "/q" +
         text(settings.quality) + "/" + text(width) + "x" + text(height);
}

void Register(const std::string& group, Encoder encode, int width, int height) {
  for (const Kind& kind : kKinds) {
    for (const LibJpegSettings& settings : kSettings) {
      const auto run = [=](benchmark::State& state) {
        Compare(state, kind.make(width, height, 11), settings, encode);
      };
      const std::string name = NameOf(group, kind, settings, width, height);
      benchmark::RegisterBenchmark(name.c_str(), run)->Unit(benchmark::kMillisecond);
    }
  }
}

[[maybe_unused]] const bool registered = [] {
  for (const auto& [width, height] : {std::pair{320, 240}, std::pair{640, 480}, std::pair{1920, 1080}})
    Register("Jpeg", EncodeOurs, width, height);
  Register("JpegPortable", EncodePortably, 1920, 1080);
  return true;
}();

}  // namespace

}  // namespace vintoral::made
