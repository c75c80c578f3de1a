#include "camera/cJpeg/UnitGroup.h"

#include <algorithm>

#include "camera/cJpeg/MarkerSegments.h"
#include "camera/cJpeg/Sampling.h"

namespace vintoral {

UnitGroup::UnitGroup(const Layout& layout, const std::array<Quantizer, 2>& quantizers, const Kernels& kernels)
    : layout_(layout),
      quantizers_(quantizers),
      kernels_(kernels),
      width_(8 * kGroupBlocks * layout.maxHorizontal) {
  const auto pixels = static_cast<std::size_t>(width_ * 8 * layout.maxVertical);
  for (int i = 0; i < layout.components; ++i) {
    const auto component = static_cast<std::size_t>(i);
    full_[component].resize(pixels);
    edge_[component].resize(static_cast<std::size_t>(width_));
    blocks_[component].resize(
        static_cast<std::size_t>(kGroupBlocks * layout.Factor(i).horizontal * layout.Factor(i).vertical));
  }
}

void UnitGroup::Work(const ColourPlanes& planes, int unitX, int unitY) {
  Convert(planes, unitX * 8 * layout_.maxHorizontal, unitY * 8 * layout_.maxVertical);
  for (int i = 0; i < layout_.components; ++i) {
    const std::vector<float>& full = full_[static_cast<std::size_t>(i)];
    if (IsFullDensity(layout_, i)) {
      Transform(i, full);
    } else {
      Sample(layout_, i, full, sampled_);
      Transform(i, sampled_);
    }
  }
}

const CodedBlock& UnitGroup::Block(int component, int x, int y) const {
  const int across = kGroupBlocks * layout_.Factor(component).horizontal;
  return blocks_[static_cast<std::size_t>(component)][static_cast<std::size_t>(y * across + x)];
}

void UnitGroup::Convert(const ColourPlanes& planes, int left, int top) {
  for (int y = 0; y < 8 * layout_.maxVertical; ++y) {
    ConvertRow(planes, left, std::min(top + y, planes.Height() - 1), static_cast<std::size_t>(y * width_));
  }
}

void UnitGroup::ConvertRow(const ColourPlanes& planes, int left, int y, std::size_t to) {
  std::array<const std::uint8_t*, 3> row{};
  const std::ptrdiff_t inside = std::min<std::ptrdiff_t>(width_, planes.Width() - left);
  for (int i = 0; i < layout_.components; ++i) {
    const auto plane = static_cast<std::size_t>(i);
    row[plane] = planes.Row(i, y) + left;
    if (inside == width_) continue;
    std::copy_n(row[plane], inside, edge_[plane].begin());
    std::fill(edge_[plane].begin() + inside, edge_[plane].end(), row[plane][inside - 1]);
    row[plane] = edge_[plane].data();
  }
  if (layout_.components == 1) {
    kernels_.toGrey(row[0], width_, &full_[0][to]);
  } else {
    kernels_.toYcc(row[0], row[1], row[2], width_, &full_[0][to], &full_[1][to], &full_[2][to]);
  }
}

void UnitGroup::Transform(int component, const std::vector<float>& samples) {
  const SamplingFactor& factor = layout_.Factor(component);
  const auto stride = static_cast<std::size_t>(8 * kGroupBlocks * factor.horizontal);
  const Quantizer& quantizer = quantizers_[static_cast<std::size_t>(TableOf(component))];
  CodedBlock* block = blocks_[static_cast<std::size_t>(component)].data();
  for (int y = 0; y < factor.vertical; ++y) {
    const float* row = samples.data() + static_cast<std::size_t>(8 * y) * stride;
    for (int x = 0; x < factor.horizontal; ++x, block += kGroupBlocks) {
      kernels_.transform(row + 8 * kGroupBlocks * x, stride, quantizer, block);
    }
  }
}

}  // namespace vintoral
