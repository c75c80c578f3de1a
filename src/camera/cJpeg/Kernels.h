#pragma once

#include <cstddef>
#include <cstdint>

#include "camera/cJpeg/CodedBlock.h"
#include "camera/cJpeg/Quantizer.h"

namespace vintoral {

inline constexpr std::size_t kGroupBlocks = 8;  // blocks that are worked on at a time

// The inner loops, compiled for one instruction set. All versions do the same operations on floats of 32
// bits, none of them fused, so they give the same bits, and with them the same file, on every machine.
struct Kernels {
  // Parts `count` pixels of blue, green, red bytes.
  void (*split)(const std::uint8_t* pixels, std::ptrdiff_t count, std::uint8_t* red, std::uint8_t* green,
                std::uint8_t* blue);
  // Colour to Y, Cb, Cr (ITU-T T.871, 7), unrounded and shifted to lie around 0 (ITU-T T.81, A.3.1).
  void (*toYcc)(const std::uint8_t* red, const std::uint8_t* green, const std::uint8_t* blue,
                std::ptrdiff_t count, float* y, float* cb, float* cr);
  void (*toLuma)(const std::uint8_t* red, const std::uint8_t* green, const std::uint8_t* blue,
                 std::ptrdiff_t count, float* y);
  // Chroma at half the density: `count` sums of four neighbours each, two from either row, and the Cb and Cr
  // of such sums of the three colours.
  void (*sumSquares)(const std::uint8_t* upper, const std::uint8_t* lower, std::ptrdiff_t count, float* sums);
  void (*toChroma)(const float* redSums, const float* greenSums, const float* blueSums, std::ptrdiff_t count,
                   float* cb, float* cr);
  void (*toGrey)(const std::uint8_t* grey, std::ptrdiff_t count, float* y);
  // Transforms and quantises kGroupBlocks blocks that lie side by side.
  void (*transform)(const float* samples, std::size_t stride, const Quantizer& quantizer, CodedBlock* blocks);
};

extern const Kernels kPortableKernels;

// The fastest for the processor at hand.
const Kernels& BestKernels();

}  // namespace vintoral
