#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "camera/cJpeg/ColourPlanes.h"
#include "camera/cJpeg/Kernels.h"
#include "camera/cJpeg/Layout.h"
#include "camera/cJpeg/MarkerSegments.h"
#include "camera/cJpeg/QuantizationTable.h"

namespace vintoral {

// What the encoder's own comment says.
inline constexpr std::string_view kEncoderComment = "JPEG Encoder Class";

// The room that is taken for a file whose coded data has this size, stuffed bytes not counted. It is enough
// for all but contrived pictures, for which the file grows.
std::size_t RoomForFile(std::size_t codedSize, std::size_t commentLength);

// The whole of a JPEG file. `tables` are those of selectors 0 and 1; the comment may be empty.
Bytes EncodePlanes(const ColourPlanes& planes, const std::array<QuantizationTable, 2>& tables,
                   const SamplingFactors& factors, std::string_view comment, const Kernels& kernels);

}  // namespace vintoral
