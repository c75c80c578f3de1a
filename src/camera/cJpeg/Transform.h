#pragma once

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "camera/cJpeg/CodedBlock.h"
#include "camera/cJpeg/Lanes.h"
#include "camera/cJpeg/Quantizer.h"

namespace vintoral {

// Forward DCT of eight values in each lane (ITU-T T.81, A.3.3), by the flow graph of Arai, Agui and Nakajima
// ("A fast DCT-SQ scheme for images", 1988): 5 multiplications and 29 additions, at the price of a scale for
// each coefficient, which the quantiser takes in.
template <class Float>
VINTORAL_INLINE void ForwardDct(Float (&x)[8]) {
  constexpr float kCos2 = 0.923879532511286756F;  // cos(2 pi / 16)
  constexpr float kCos4 = 0.707106781186547524F;
  constexpr float kCos6 = 0.382683432365089772F;

  const Float sum0 = x[0] + x[7], sum1 = x[1] + x[6], sum2 = x[2] + x[5], sum3 = x[3] + x[4];
  const Float dif0 = x[0] - x[7], dif1 = x[1] - x[6], dif2 = x[2] - x[5], dif3 = x[3] - x[4];

  const Float outer = sum0 + sum3, inner = sum1 + sum2;
  const Float slope = sum0 - sum3;
  const Float turned = (slope + (sum1 - sum2)) * kCos4;
  x[0] = outer + inner;
  x[4] = outer - inner;
  x[2] = slope + turned;
  x[6] = slope - turned;

  const Float low = dif3 + dif2, middle = (dif2 + dif1) * kCos4, high = dif1 + dif0;
  const Float shared = (low - high) * kCos6;
  const Float lowTurned = low * (kCos2 - kCos6) + shared;
  const Float highTurned = high * (kCos2 + kCos6) + shared;
  const Float plus = dif0 + middle, minus = dif0 - middle;
  x[5] = minus + lowTurned;
  x[3] = minus - lowTurned;
  x[1] = plus + highTurned;
  x[7] = plus - highTurned;
}

// Adding 1.5 * 2^23 to a float leaves its value, rounded to a whole number, in the low bits.
inline constexpr float kRounder = 12582912.0F;

// Quantises one coefficient of N blocks and makes their tokens.
template <int N>
VINTORAL_INLINE void Quantize(typename Lanes<N>::Int& tokens, const typename Lanes<N>::Float& x,
                              float factor) {
  const typename Lanes<N>::Float shifted = x * factor + kRounder;
  const typename Lanes<N>::Float rounded = shifted - kRounder;
  typename Lanes<N>::Int value, form;
  Reinterpret(value, shifted);
  Reinterpret(form, rounded);
  // Sign in bit 31, exponent from bit 23: a value of n magnitude bits has an exponent of 126 + n.
  tokens = (value << 16) | ((form >> 23) & 15) | ((form >> 27) & 16);
}

// N blocks side by side in the rows of `samples`, level-shifted, each row `stride` floats after the last,
// become N coded blocks. Below, a row or column of all N blocks is worked on at once: vertically with a
// block's row in a vector, then, after turning, horizontally with a lane for each block, so that zig-zag
// order costs nothing.
template <int N>
VINTORAL_INLINE void TransformBlocks(const float* samples, std::ptrdiff_t stride, const Quantizer& quantizer,
                                     CodedBlock* blocks) {
  using Float = typename Lanes<N>::Float;
  using Int = typename Lanes<N>::Int;
  alignas(64) float columns[8][N][8];
  for (int block = 0; block < N; ++block) {
    for (int part = 0; part < 8; part += N) {
      Float x[8];
      for (int y = 0; y < 8; ++y)
        Load(x[y], samples + y * stride + 8 * block + part);
      ForwardDct(x);
      for (int v = 0; v < 8; ++v)
        Store(&columns[v][block][part], x[v]);
    }
  }

  alignas(64) std::int32_t zigZag[kBlockSize][N];
  for (int v = 0; v < 8; ++v) {
    Float x[8];
    for (int part = 0; part < 8; part += N) {
      Float turned[N];
      for (int block = 0; block < N; ++block)
        Load(turned[block], &columns[v][block][part]);
      Transpose(turned);
      for (int i = 0; i < N; ++i)
        x[part + i] = turned[i];
    }
    ForwardDct(x);
    for (int u = 0; u < 8; ++u) {
      Int tokens;
      Quantize<N>(tokens, x[u], quantizer.factors[static_cast<std::size_t>(8 * v + u)]);
      Store(zigZag[quantizer.zigZagOf[static_cast<std::size_t>(8 * v + u)]], tokens);
    }
  }

  Int nonzero[2] = {};  // coefficients 0 to 31, 32 to 63
  for (int k = 0; k < kBlockSize; k += N) {
    Int tokens[N];
    Int some = {};
    for (int i = 0; i < N; ++i) {
      Load(tokens[i], zigZag[k + i]);
      some |= (tokens[i] != 0) & (1 << i);
    }
    nonzero[k / 32] |= some << (k % 32);
    Transpose(tokens);
    for (int block = 0; block < N; ++block)
      Store(&blocks[block].tokens[static_cast<std::size_t>(k)], tokens[block]);
  }
  for (int block = 0; block < N; ++block) {
    const auto low = static_cast<std::uint32_t>(nonzero[0][block]);
    const auto high = static_cast<std::uint32_t>(nonzero[1][block]);
    blocks[block].nonzero = (std::uint64_t{high} << 32 | low) & ~std::uint64_t{1};
  }
}

}  // namespace vintoral
