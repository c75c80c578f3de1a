#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "camera/cJpeg/CodedBlock.h"
#include "camera/cJpeg/ColourPlanes.h"
#include "camera/cJpeg/Kernels.h"
#include "camera/cJpeg/Layout.h"

namespace vintoral {

// Eight minimum coded units side by side: few enough to stay in the processor's nearest cache on the way from
// colour to coded blocks, and just what the transform takes at a time.
class UnitGroup {
 public:
  UnitGroup(const Layout& layout, const std::array<Quantizer, 2>& quantizers, const Kernels& kernels);

  // Converts, samples, transforms and quantises the units from (unitX, unitY) on. Beyond the edges of the
  // picture its last column and row go on (ITU-T T.81, A.2.4).
  void Work(const ColourPlanes& planes, int unitX, int unitY);

  // The block in column x, row y of the component's blocks in this group.
  const CodedBlock& Block(int component, int x, int y) const;

 private:
  void Convert(const ColourPlanes& planes, int left, int top);
  void ConvertRow(const ColourPlanes& planes, int left, int y, std::size_t to);
  void Transform(int component, const std::vector<float>& samples);

  const Layout& layout_;
  const std::array<Quantizer, 2>& quantizers_;
  const Kernels& kernels_;
  std::ptrdiff_t width_;                           // of the group, in pixels
  std::array<std::vector<float>, 3> full_;         // a component at full density
  std::vector<float> sampled_;                     // one at its own
  std::array<std::vector<std::uint8_t>, 3> edge_;  // a row of the planes with what goes on beyond the edge
  std::array<std::vector<CodedBlock>, 3> blocks_;
};

}  // namespace vintoral
