#include "camera/cJpeg/UnitGroup.h"

#include <algorithm>

#include "camera/cJpeg/MarkerSegments.h"
#include "camera/cJpeg/Sampling.h"

namespace vintoral {

namespace {

// The next group's part of a row: a group takes so little of each of so many rows that the processor does not
// see by itself what comes next.
void FetchAhead(const std::uint8_t* pixels, std::size_t count) {
  constexpr std::size_t kCacheLine = 64;
  for (std::size_t i = 0; i < count; i += kCacheLine)
    __builtin_prefetch(pixels + i);
}

}  // namespace

UnitGroup::UnitGroup(const Layout& layout, const std::array<Quantizer, 2>& quantizers, const Kernels& kernels)
    : layout_(layout),
      kernels_(kernels),
      halved_(HasHalvedChroma(layout)),
      width_(8 * kGroupBlocks * static_cast<std::size_t>(layout.maxHorizontal)),
      height_(std::size_t{8} * static_cast<std::size_t>(layout.maxVertical)) {
  for (int i = 0; i < layout.components; ++i) {
    Component& component = components_[static_cast<std::size_t>(i)];
    component.across = static_cast<std::size_t>(layout.Factor(i).horizontal);
    component.down = static_cast<std::size_t>(layout.Factor(i).vertical);
    component.quantizer = &quantizers[static_cast<std::size_t>(TableOf(i))];
    component.pixels.resize(width_ * height_);
    component.blocks.resize(kGroupBlocks * component.across * component.down);
    for (auto& edge : edges_)
      edge[static_cast<std::size_t>(i)].resize(width_);
    sums_[static_cast<std::size_t>(i)].resize(width_ / 2);
  }
}

void UnitGroup::Work(const ColourPlanes& planes, int unitX, int unitY) {
  const int left = unitX * 8 * layout_.maxHorizontal, top = unitY * 8 * layout_.maxVertical;
  if (halved_) {
    ConvertHalved(planes, left, top);
  } else {
    Convert(planes, left, top);
  }
  for (int i = 0; i < layout_.components; ++i) {
    Component& component = components_[static_cast<std::size_t>(i)];
    if (halved_ || IsFullDensity(layout_, i)) {
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
  auto& [first, second, third] = components_;
  const auto count = static_cast<std::ptrdiff_t>(width_);
  for (std::size_t y = 0; y < height_; ++y) {
    const Row row = RowOf(planes, left, top + static_cast<int>(y), 0);
    const std::size_t to = y * width_;
    if (layout_.components == 1) {
      kernels_.toGrey(row[0], count, &first.pixels[to]);
    } else {
      kernels_.toYcc(row[0], row[1], row[2], count, &first.pixels[to], &second.pixels[to], &third.pixels[to]);
    }
  }
}

// Colour is linear: the chroma of the sum is the sum of the chromas, and takes a quarter of the work.
void UnitGroup::ConvertHalved(const ColourPlanes& planes, int left, int top) {
  std::vector<float>& luma = components_[0].pixels;
  const std::size_t rows = std::max<std::size_t>(height_ / 8, 1);  // of pixels in a row of chroma
  for (std::size_t y = 0; y < height_; y += rows) {
    Row row[2];
    for (std::size_t i = 0; i < rows; ++i) {
      row[i] = RowOf(planes, left, top + static_cast<int>(y + i), i);
      kernels_.toLuma(row[i][0], row[i][1], row[i][2], static_cast<std::ptrdiff_t>(width_),
                      &luma[(y + i) * width_]);
    }
    HalveChroma(row[0], row[rows - 1], y / rows * (width_ / 2));
  }
}

void UnitGroup::HalveChroma(const Row& upper, const Row& lower, std::size_t to) {
  const auto count = static_cast<std::ptrdiff_t>(width_ / 2);
  for (std::size_t colour = 0; colour < 3; ++colour)
    kernels_.sumSquares(upper[colour], lower[colour], count, sums_[colour].data());
  kernels_.toChroma(sums_[0].data(), sums_[1].data(), sums_[2].data(), count, &components_[1].pixels[to],
                    &components_[2].pixels[to]);
}

// The pixels of a row from `left` on, as many as the group is wide. One that goes on beyond the picture is
// made in the edge given.
UnitGroup::Row UnitGroup::RowOf(const ColourPlanes& planes, int left, int y, std::size_t edge) {
  Row row{};
  for (int colour = 0; colour < layout_.components; ++colour) {
    const std::uint8_t* pixels = planes.Row(colour, std::min(y, planes.Height() - 1)) + left;
    const auto inside = static_cast<std::size_t>(planes.Width() - left);
    if (inside > width_) FetchAhead(pixels + width_, std::min(width_, inside - width_));
    if (inside < width_) {
      std::vector<std::uint8_t>& whole = edges_[edge][static_cast<std::size_t>(colour)];
      std::copy_n(pixels, inside, whole.begin());
      std::fill(whole.begin() + static_cast<std::ptrdiff_t>(inside), whole.end(), pixels[inside - 1]);
      pixels = whole.data();
    }
    row[static_cast<std::size_t>(colour)] = pixels;
  }
  return row;
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
