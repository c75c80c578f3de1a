#include "camera/cImage/Resample.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <new>
#include <vector>

namespace vintoral {

namespace {

// What each new pixel of a row or column takes from the old ones: neighbours from `first` on, by their
// weights, whose sum is 1 and none of which is negative, so that nothing rings and flat areas stay flat.
class Mixing {
 public:
  Mixing(int from, int to) {
    for (int pixel = 0; pixel < to; ++pixel) {
      to < from ? AddArea(from, to, pixel) : AddBetween(from, to, pixel);
    }
  }

  std::size_t First(std::size_t pixel) const { return pixels_[pixel].first; }
  std::size_t Count(std::size_t pixel) const { return pixels_[pixel].count; }
  float Weight(std::size_t pixel, std::size_t i) const { return weights_[pixels_[pixel].weight + i]; }

 private:
  struct Pixel {
    std::size_t first, count, weight;
  };

  void Add(long first, std::initializer_list<double> weights) {
    pixels_.push_back({static_cast<std::size_t>(first), weights.size(), weights_.size()});
    for (const double weight : weights)
      weights_.push_back(static_cast<float>(weight));
  }

  // The old pixels that lie under a new one, those at its ends by the part that does.
  void AddArea(long from, long to, long pixel) {
    const long begin = pixel * from, end = begin + from;  // in parts, of which an old pixel has `to`
    Add(begin / to, {});
    for (long old = begin / to; old * to < end; ++old) {
      const long part = std::min((old + 1) * to, end) - std::max(old * to, begin);
      weights_.push_back(static_cast<float>(static_cast<double>(part) / static_cast<double>(from)));
      ++pixels_.back().count;
    }
  }

  // The two old pixels between whose centres the new one's lies; at the edges the outermost alone.
  void AddBetween(long from, long to, long pixel) {
    const double at =
        (static_cast<double>(pixel) + 0.5) * static_cast<double>(from) / static_cast<double>(to) - 0.5;
    const double inside = std::clamp(at, 0.0, static_cast<double>(from - 1));
    const long left = std::min(static_cast<long>(inside), std::max(from - 2, 0L));
    const double part = inside - static_cast<double>(left);
    from == 1 ? Add(0, {1.0}) : Add(left, {1 - part, part});
  }

  std::vector<Pixel> pixels_;
  std::vector<float> weights_;
};

constexpr std::size_t kColours = 3;

// All rows at their new width, blue, green and red one after another.
std::vector<float> Widen(const PixelView& from, int width) {
  const Mixing across(from.width, width);
  const auto columns = static_cast<std::size_t>(width);
  std::vector<float> wide(static_cast<std::size_t>(from.height) * columns * kColours);
  std::vector<std::uint8_t> row(static_cast<std::size_t>(from.width) * kColours);
  float* to = wide.data();
  for (int y = 0; y < from.height; ++y) {
    ReadColourRow(from, 0, y, from.width, row.data());
    for (std::size_t x = 0; x < columns; ++x) {
      for (std::size_t colour = 0; colour < kColours; ++colour) {
        float sum = 0;
        for (std::size_t i = 0; i < across.Count(x); ++i) {
          sum += across.Weight(x, i) * static_cast<float>(row[(across.First(x) + i) * kColours + colour]);
        }
        *to++ = sum;
      }
    }
  }
  return wide;
}

void Fill(const PixelSurface& to, const PixelView& from) {
  const std::vector<float> wide = Widen(from, to.width);
  const Mixing down(from.height, to.height);
  const std::size_t rowSize = static_cast<std::size_t>(to.width) * kColours;
  std::vector<float> sums(rowSize);
  std::vector<std::uint8_t> row(rowSize);
  for (int y = 0; y < to.height; ++y) {
    const auto pixel = static_cast<std::size_t>(y);
    std::fill(sums.begin(), sums.end(), 0.5F);  // so that cutting rounds
    for (std::size_t i = 0; i < down.Count(pixel); ++i) {
      const float* source = wide.data() + (down.First(pixel) + i) * rowSize;
      for (std::size_t x = 0; x < rowSize; ++x)
        sums[x] += down.Weight(pixel, i) * source[x];
    }
    std::transform(sums.begin(), sums.end(), row.begin(),
                   [](float sum) { return static_cast<std::uint8_t>(sum); });
    BlockCopy(to, 0, y, {to.width, 1, 24, row.data(), 0});
  }
}

}  // namespace

bool ResampleInto(const PixelSurface& to, const PixelView& from) {
  try {
    Fill(to, from);
  } catch (const std::bad_alloc&) {
    return false;
  }
  return true;
}

}  // namespace vintoral
