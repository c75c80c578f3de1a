#include "camera/cJpeg/Sampling.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "camera/cJpeg/Kernels.h"

namespace vintoral {

namespace {

// The part that each of `most` pixels has in each of the `few` samples that lie along them.
class Weights {
 public:
  Weights(int few, int most) : few_(static_cast<std::size_t>(few)), most_(static_cast<std::size_t>(most)) {
    for (std::size_t sample = 0; sample < few_; ++sample) {
      for (std::size_t pixel = 0; pixel < most_; ++pixel) {
        // Cut both finely enough: a pixel then has few_ parts, a sample most_.
        const std::size_t begin = std::max(sample * most_, pixel * few_);
        const std::size_t end = std::min((sample + 1) * most_, (pixel + 1) * few_);
        if (begin < end)
          part_[sample * most_ + pixel] = static_cast<float>(end - begin) / static_cast<float>(most);
      }
    }
  }

  std::size_t Few() const { return few_; }
  std::size_t Most() const { return most_; }
  float Part(std::size_t sample, std::size_t pixel) const { return part_[sample * most_ + pixel]; }

 private:
  std::size_t few_, most_;
  std::array<float, 16> part_{};
};

// Sample row `row` of a group, still as wide as its pixels.
void MeanOfRows(const Weights& down, const float* pixels, std::size_t row, std::vector<float>& mean) {
  const float* first = pixels + row / down.Few() * down.Most() * mean.size();
  std::fill(mean.begin(), mean.end(), 0.0F);
  for (std::size_t pixel = 0; pixel < down.Most(); ++pixel) {
    const float part = down.Part(row % down.Few(), pixel);
    if (part == 0.0F) continue;
    for (std::size_t x = 0; x < mean.size(); ++x)
      mean[x] += part * first[pixel * mean.size() + x];
  }
}

void MeanOfColumns(const Weights& across, const std::vector<float>& row, float* samples) {
  for (const float* first = row.data(); first != row.data() + row.size(); first += across.Most()) {
    for (std::size_t sample = 0; sample < across.Few(); ++sample) {
      float mean = 0.0F;
      for (std::size_t pixel = 0; pixel < across.Most(); ++pixel)
        mean += across.Part(sample, pixel) * first[pixel];
      *samples++ = mean;
    }
  }
}

}  // namespace

bool IsFullDensity(const Layout& layout, int component) {
  return layout.Factor(component).horizontal == layout.maxHorizontal &&
         layout.Factor(component).vertical == layout.maxVertical;
}

bool HasHalvedChroma(const Layout& layout) {
  const auto isOne = [](const SamplingFactor& factor) {
    return factor.horizontal == 1 && factor.vertical == 1;
  };
  return layout.Factor(0).horizontal == 2 && layout.Factor(0).vertical <= 2 && isOne(layout.Factor(1)) &&
         isOne(layout.Factor(2));
}

void Sample(const Layout& layout, int component, const std::vector<float>& pixels,
            std::vector<float>& samples) {
  const SamplingFactor& factor = layout.Factor(component);
  const Weights across(factor.horizontal, layout.maxHorizontal);
  const Weights down(factor.vertical, layout.maxVertical);
  const std::size_t rowSize = 8 * kGroupBlocks * across.Few();
  std::vector<float> row(8 * kGroupBlocks * across.Most());
  samples.resize(rowSize * 8 * down.Few());
  for (std::size_t y = 0; y < 8 * down.Few(); ++y) {
    MeanOfRows(down, pixels.data(), y, row);
    MeanOfColumns(across, row, samples.data() + y * rowSize);
  }
}

}  // namespace vintoral
