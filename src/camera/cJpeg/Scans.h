#pragma once

#include <array>
#include <vector>

#include "camera/cJpeg/ColourPlanes.h"
#include "camera/cJpeg/Kernels.h"
#include "camera/cJpeg/Layout.h"
#include "camera/cJpeg/ScanSymbols.h"

namespace vintoral {

// Turns the planes into the symbols of each scan: one of all components if they may be interleaved, otherwise
// one for each component.
std::vector<ScanSymbols> CollectScans(const ColourPlanes& planes, const Layout& layout,
                                      const std::array<Quantizer, 2>& quantizers, const Kernels& kernels);

}  // namespace vintoral
