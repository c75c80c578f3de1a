#include "camera/cJpeg/UnitGroup.h"

#include <algorithm>

#include "camera/cJpeg/MarkerSegments.h"
#include "camera/cJpeg/Sampling.h"

namespace vintoral {

UnitGroup::UnitGroup(const Layout& layout, const std::array<Quantizer, 2>& quantizers, const Kernels& kernels)
    : layout_(layout),
      kernels_(kernels),
      width_(8 * kGroupBlocks * static_cast<std::size_t>(layout.maxHorizontal)),
      height_(std::size_t{8} * static_cast<std::size_t>(layout.maxVertical)) {
  for (int i = 0; i < layout.components; ++i) {
    Component& component = components_[static_cast<std::size_t>(i)];
    component.across = static_cast<std::size_t>(layout.Factor(i).horizontal);
    component.down = static_cast<std::size_t>(layout.Factor(i).vertical);
    component.quantizer = &quantizers[static_cast<std::size_t>(TableOf(i))];
    component.pixels.resize(width_ * height_);
    component.edge.resize(width_);
    component.blocks.resize(kGroupBlocks * component.across * component.down);
  }
}

void UnitGroup::Work(const ColourPlanes& planes, int unitX, int unitY) {
  Convert(planes, unitX * 8 * layout_.maxHorizontal, unitY * 8 * layout_.maxVertical);
  for (int i = 0; i < layout_.components; ++i) {
    Component& component = components_[static_cast<std::size_t>(i)];
    if (IsFullDensity(layout_, i)) {
      Transform(component, component.pixels);
    } else {
      Sample(layout_, i, component.pixels, samples_);
      Transform(component, samples_);
    }
  }
}

const CodedBlock& UnitGroup::Block(int component, int unit, int x, int y) const {
  const Component& whole = components_[static_cast<std::size_t>(component)];
  const std::size_t column = static_cast<std::size_t>(unit) * whole.across + static_cast<std::size_t>(x);
  return whole.blocks[static_cast<std::size_t>(y) * kGroupBlocks * whole.across + column];
}

void UnitGroup::Convert(const ColourPlanes& planes, int left, int top) {
  for (std::size_t row = 0; row < height_; ++row) {
    ConvertRow(planes, left, std::min(top + static_cast<int>(row), planes.Height() - 1), row * width_);
  }
}

void UnitGroup::ConvertRow(const ColourPlanes& planes, int left, int y, std::size_t to) {
  auto& [first, second, third] = components_;
  const auto count = static_cast<std::ptrdiff_t>(width_);
  if (layout_.components == 1) {
    kernels_.toGrey(RowOf(planes, 0, left, y), count, &first.pixels[to]);
  } else {
    kernels_.toYcc(RowOf(planes, 0, left, y), RowOf(planes, 1, left, y), RowOf(planes, 2, left, y), count,
                   &first.pixels[to], &second.pixels[to], &third.pixels[to]);
  }
}

// The pixels of a row from `left` on, as many as the group is wide.
const std::uint8_t* UnitGroup::RowOf(const ColourPlanes& planes, int plane, int left, int y) {
  const std::uint8_t* row = planes.Row(plane, y) + left;
  const auto inside = static_cast<std::size_t>(planes.Width() - left);
  if (inside >= width_) return row;
  std::vector<std::uint8_t>& edge = components_[static_cast<std::size_t>(plane)].edge;
  std::copy_n(row, inside, edge.begin());
  std::fill(edge.begin() + static_cast<std::ptrdiff_t>(inside), edge.end(), row[inside - 1]);
  return edge.data();
}

void UnitGroup::Transform(Component& component, const std::vector<float>& samples) const {
  const std::size_t stride = 8 * kGroupBlocks * component.across;
  CodedBlock* block = component.blocks.data();
  for (std::size_t y = 0; y < component.down; ++y) {
    for (std::size_t x = 0; x < component.across; ++x, block += kGroupBlocks) {
      const float* corner = samples.data() + 8 * (y * stride + kGroupBlocks * x);
      kernels_.transform(corner, stride, *component.quantizer, block);
    }
  }
}

}  // namespace vintoral
