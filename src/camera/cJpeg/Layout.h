#pragma once

#include <array>
#include <cstddef>

namespace vintoral {

inline constexpr int kMaxSide = 65500;  // what every decoder at hand takes; ITU-T T.81 itself ends at 65535
inline constexpr int kMaxComponents = 3;

// How densely one component is sampled, against the densest (ITU-T T.81, A.1.1).
struct SamplingFactor {
  int horizontal = 1;
  int vertical = 1;
};

using SamplingFactors = std::array<SamplingFactor, kMaxComponents>;

// How a picture of one (grey) or three (Y, Cb, Cr) components falls into minimum coded units (ITU-T T.81,
// A.2).
struct Layout {
  Layout(int pictureWidth, int pictureHeight, bool grey, const SamplingFactors& factors);

  // One with all components, or one for each if a unit of all would have more than ten blocks (ITU-T T.81,
  // B.2.3).
  int Scans() const;

  const SamplingFactor& Factor(int component) const { return factor[static_cast<std::size_t>(component)]; }

  int width;
  int height;
  int components;
  SamplingFactors factor;
  int maxHorizontal;
  int maxVertical;
  int unitsAcross;
  int unitsDown;
  // The blocks that each component's samples take up, beyond which a scan of its own does not go (ITU-T T.81,
  // A.2.2).
  std::array<int, kMaxComponents> blocksAcross{};
  std::array<int, kMaxComponents> blocksDown{};
};

// Whether each factor is 1 to 4 (ITU-T T.81, B.2.2).
bool IsAllowed(const SamplingFactors& factors);

}  // namespace vintoral
