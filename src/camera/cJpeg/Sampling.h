#pragma once

#include <vector>

#include "camera/cJpeg/Layout.h"

namespace vintoral {

// Whether the component has a sample for each pixel.
bool IsFullDensity(const Layout& layout, int component);

// Whether the first component has a sample for each pixel and the other two one for every two or for every
// square of four, as most pictures do.
bool HasHalvedChroma(const Layout& layout);

// Turns a group's pixels of one component into its samples. A sample is the mean of the area that it stands
// for, pixels that it shares with a neighbour weighted by its part of them: densities need not divide each
// other.
void Sample(const Layout& layout, int component, const std::vector<float>& pixels,
            std::vector<float>& samples);

}  // namespace vintoral
