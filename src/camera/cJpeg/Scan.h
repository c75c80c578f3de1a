#pragma once

#include <array>

#include "camera/cJpeg/ColourPlanes.h"
#include "camera/cJpeg/EntropyCoder.h"
#include "camera/cJpeg/UnitGroup.h"

namespace vintoral {

// Turns the planes into coded blocks and hands them to `taker` (a SymbolCounter, then a BlockCoder) in the
// order of an interleaved scan: unit by unit, component by component, the blocks of a component row by row
// (ITU-T T.81, A.2.3).
//
// Both passes work from the planes: to keep the blocks from one to the other, 264 bytes for every 64 samples,
// would take more than four times the room of the picture.
template <class Taker>
void ForEachBlock(const ColourPlanes& planes, const Layout& layout,
                  const std::array<Quantizer, 2>& quantizers, const Kernels& kernels, Taker& taker) {
  UnitGroup group(layout, quantizers, kernels);
  for (int unitY = 0; unitY < layout.unitsDown; ++unitY) {
    for (int first = 0; first < layout.unitsAcross; first += kGroupUnits) {
      group.Work(planes, first, unitY);
      for (int unit = 0; unit < kGroupUnits && first + unit < layout.unitsAcross; ++unit) {
        for (int component = 0; component < layout.components; ++component) {
          const SamplingFactor& factor = layout.Factor(component);
          for (int y = 0; y < factor.vertical; ++y) {
            for (int x = 0; x < factor.horizontal; ++x) {
              taker.Take(component, group.Block(component, unit, x, y));
            }
          }
        }
      }
    }
  }
}

}  // namespace vintoral
