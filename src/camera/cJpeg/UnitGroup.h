#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "camera/cJpeg/CodedBlock.h"
#include "camera/cJpeg/ColourPlanes.h"
#include "camera/cJpeg/Kernels.h"
#include "camera/cJpeg/Layout.h"

namespace vintoral {

inline constexpr int kGroupUnits = kGroupBlocks;

// Eight minimum coded units side by side: few enough to stay in the processor's nearest cache on the way from
// colour to coded blocks, and just what the transform takes at a time.
class UnitGroup {
 public:
  UnitGroup(const Layout& layout, const std::array<Quantizer, 2>& quantizers, const Kernels& kernels);

  // Converts, samples, transforms and quantises the units from (unitX, unitY) on. Beyond the edges of the
  // picture its last column and row go on (ITU-T T.81, A.2.4).
  void Work(const ColourPlanes& planes, int unitX, int unitY);

  // The block in column x, row y of the component's blocks in unit `unit` of the group.
  const CodedBlock& Block(int component, int unit, int x, int y) const;

 private:
  struct Component {
    std::size_t across = 1, down = 1;  // blocks in a unit
    const Quantizer* quantizer = nullptr;
    std::vector<float> pixels;       // one value for each pixel of the group; or samples, if halved_
    std::vector<CodedBlock> blocks;  // row by row, the units of a row side by side
  };

  // The colours of a row of the group's pixels.
  using Row = std::array<const std::uint8_t*, 3>;

  void Convert(const ColourPlanes& planes, int left, int top);
  void ConvertHalved(const ColourPlanes& planes, int left, int top);
  void HalveChroma(const Row& upper, const Row& lower, std::size_t to);
  Row RowOf(const ColourPlanes& planes, int left, int y, std::size_t edge);
  void Transform(Component& component, const std::vector<float>& samples) const;

  const Layout& layout_;
  const Kernels& kernels_;
  bool halved_;        // chroma has half the density of the pixels, at least across
  std::size_t width_;  // of the group in pixels
  std::size_t height_;
  std::array<Component, kMaxComponents> components_;
  // Rows with what goes on beyond the edge: two, by colour.
  std::array<std::array<std::vector<std::uint8_t>, 3>, 2> edges_;
  std::array<std::vector<float>, 3> sums_;  // of the four pixels of a chroma sample, by colour
  std::vector<float> samples_;              // of one component at its own density
};

}  // namespace vintoral
