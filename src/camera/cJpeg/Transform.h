#pragma once

#include <bit>
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

// Quantises one coefficient of N blocks.
template <std::size_t N>
VINTORAL_INLINE void Quantize(typename Lanes<N>::Int& values, const typename Lanes<N>::Float& x,
                              float factor) {
  const typename Lanes<N>::Float shifted = x * factor + kRounder;
  // A cast between vectors keeps the bits.
  values = reinterpret_cast<typename Lanes<N>::Int>(shifted) - std::bit_cast<std::int32_t>(kRounder);
}

// Two values of 16 bits, so that `first` comes first in memory.
template <class Int>
VINTORAL_INLINE void Pair(Int& pair, const Int& first, const Int& second) {
  constexpr bool kLowFirst = std::endian::native == std::endian::little;
  pair = kLowFirst ? (first & 0xFFFF) | second << 16 : first << 16 | (second & 0xFFFF);
}

// The columns of N blocks: [vertical frequency][block][x].
template <std::size_t N>
using Columns = float[8][N][8];

// The values of N blocks: [zig-zag place][block].
template <std::size_t N>
using Interleaved = std::int32_t[kBlockSize][N];

// First with part of a block's row in each vector.
template <std::size_t N>
VINTORAL_INLINE void TransformColumns(const float* samples, std::size_t stride, Columns<N>& columns) {
#pragma GCC unroll 8
  for (std::size_t block = 0; block < N; ++block) {
    for (std::size_t part = 0; part < 8; part += N) {
      typename Lanes<N>::Float x[8];
#pragma GCC unroll 8
      for (std::size_t y = 0; y < 8; ++y)
        Load<N>(x[y], samples + y * stride + 8 * block + part);
      ForwardDct(x);
#pragma GCC unroll 8
      for (std::size_t v = 0; v < 8; ++v)
        Store<N>(&columns[v][block][part], x[v]);
    }
  }
}

// Then, turned, with a lane for each block: so zig-zag order is only a matter of where a vector is stored.
template <std::size_t N>
VINTORAL_INLINE void TransformRows(const Columns<N>& columns, const Quantizer& quantizer,
                                   Interleaved<N>& zigZag) {
#pragma GCC unroll 8
  for (std::size_t v = 0; v < 8; ++v) {
    typename Lanes<N>::Float x[8];
    for (std::size_t part = 0; part < 8; part += N) {
      typename Lanes<N>::Float turned[N];
#pragma GCC unroll 8
      for (std::size_t block = 0; block < N; ++block)
        Load<N>(turned[block], &columns[v][block][part]);
      Transpose(turned);
#pragma GCC unroll 8
      for (std::size_t i = 0; i < N; ++i)
        x[part + i] = turned[i];
    }
    ForwardDct(x);
#pragma GCC unroll 8
    for (std::size_t u = 0; u < 8; ++u) {
      typename Lanes<N>::Int values;
      Quantize<N>(values, x[u], quantizer.factors[8 * v + u]);
      Store<N>(zigZag[quantizer.zigZagOf[8 * v + u]], values);
    }
  }
}

// Two neighbours of each block, and which of them are not zero.
template <std::size_t N>
VINTORAL_INLINE void CollectPair(const Interleaved<N>& zigZag, std::size_t k, typename Lanes<N>::Int& pair,
                                 typename Lanes<N>::Int& nonzero) {
  typename Lanes<N>::Int first, second;
  Load<N>(first, zigZag[k]);
  Load<N>(second, zigZag[k + 1]);
  nonzero |= (first != 0) & static_cast<int>(1U << k % 32);
  nonzero |= (second != 0) & static_cast<int>(2U << k % 32);
  Pair(pair, first, second);
}

// At last turned again, in pairs, into the blocks; on the way each lane notes which values of its block are
// not zero.
template <std::size_t N>
VINTORAL_INLINE void CollectBlocks(const Interleaved<N>& zigZag, CodedBlock* blocks) {
  typename Lanes<N>::Int nonzero[2] = {};  // of the values 0 to 31 and 32 to 63
  for (std::size_t k = 0; k < kBlockSize; k += 2 * N) {
    typename Lanes<N>::Int pairs[N];
#pragma GCC unroll 8
    for (std::size_t i = 0; i < N; ++i)
      CollectPair<N>(zigZag, k + 2 * i, pairs[i], nonzero[k / 32]);
    Transpose(pairs);
#pragma GCC unroll 8
    for (std::size_t block = 0; block < N; ++block)
      Store<N>(&blocks[block].values[k], pairs[block]);
  }
#pragma GCC unroll 8
  for (std::size_t block = 0; block < N; ++block) {
    const auto low = static_cast<std::uint32_t>(nonzero[0][block]);
    const auto high = static_cast<std::uint32_t>(nonzero[1][block]);
    blocks[block].nonzero = (std::uint64_t{high} << 32 | low) & ~std::uint64_t{1};
  }
}

// N blocks side by side in the rows of `samples`, each row `stride` floats after the last, become N coded
// blocks.
template <std::size_t N>
VINTORAL_INLINE void TransformBlocks(const float* samples, std::size_t stride, const Quantizer& quantizer,
                                     CodedBlock* blocks) {
  alignas(64) Columns<N> columns;
  alignas(64) Interleaved<N> zigZag;
  TransformColumns<N>(samples, stride, columns);
  TransformRows<N>(columns, quantizer, zigZag);
  CollectBlocks<N>(zigZag, blocks);
}

}  // namespace vintoral
