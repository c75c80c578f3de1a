#pragma once

#include <cstddef>
#include <cstdint>

// The vector types that GCC and Clang share on every architecture. What works on them is forced inline, so
// that it is compiled once for each instruction set that calls it, and takes vectors by reference, as a
// vector wider than the machine's registers has no settled way to be passed by value.
#define VINTORAL_INLINE [[gnu::always_inline]] inline

namespace vintoral {

// N floats, or N integers of 32 bits, side by side.
template <std::size_t N>
struct Lanes;

template <>
struct Lanes<4> {
  using Float [[gnu::vector_size(16)]] = float;
  using Int [[gnu::vector_size(16)]] = std::int32_t;
  using FloatInMemory [[gnu::vector_size(16), gnu::aligned(4), gnu::may_alias]] = float;
  using IntInMemory [[gnu::vector_size(16), gnu::aligned(4), gnu::may_alias]] = std::int32_t;
};

template <>
struct Lanes<8> {
  using Float [[gnu::vector_size(32)]] = float;
  using Int [[gnu::vector_size(32)]] = std::int32_t;
  using FloatInMemory [[gnu::vector_size(32), gnu::aligned(4), gnu::may_alias]] = float;
  using IntInMemory [[gnu::vector_size(32), gnu::aligned(4), gnu::may_alias]] = std::int32_t;
};

// Loads and stores of any place that a float or integer can lie at. A memcpy says the same, but GCC moves it
// in halves, and to read whole what was just written in halves stalls the processor.
template <std::size_t N>
VINTORAL_INLINE void Load(typename Lanes<N>::Float& vector, const float* from) {
  vector = *reinterpret_cast<const typename Lanes<N>::FloatInMemory*>(from);
}

template <std::size_t N>
VINTORAL_INLINE void Load(typename Lanes<N>::Int& vector, const std::int32_t* from) {
  vector = *reinterpret_cast<const typename Lanes<N>::IntInMemory*>(from);
}

template <std::size_t N>
VINTORAL_INLINE void Store(float* to, const typename Lanes<N>::Float& vector) {
  *reinterpret_cast<typename Lanes<N>::FloatInMemory*>(to) = vector;
}

template <std::size_t N, class Integer>
VINTORAL_INLINE void Store(Integer* to, const typename Lanes<N>::Int& vector) {
  *reinterpret_cast<typename Lanes<N>::IntInMemory*>(to) = vector;
}

// Turns N vectors of N lanes into their columns: log2(N) rounds of interleaving, every step one instruction.
template <class Vector>
VINTORAL_INLINE void Transpose(Vector (&v)[4]) {
  const Vector a0 = __builtin_shufflevector(v[0], v[2], 0, 4, 1, 5);
  const Vector a1 = __builtin_shufflevector(v[0], v[2], 2, 6, 3, 7);
  const Vector a2 = __builtin_shufflevector(v[1], v[3], 0, 4, 1, 5);
  const Vector a3 = __builtin_shufflevector(v[1], v[3], 2, 6, 3, 7);
  v[0] = __builtin_shufflevector(a0, a2, 0, 4, 1, 5);
  v[1] = __builtin_shufflevector(a0, a2, 2, 6, 3, 7);
  v[2] = __builtin_shufflevector(a1, a3, 0, 4, 1, 5);
  v[3] = __builtin_shufflevector(a1, a3, 2, 6, 3, 7);
}

template <class Vector>
VINTORAL_INLINE void Transpose(Vector (&v)[8]) {
  Vector pair[8], quad[8];
#pragma GCC unroll 8
  for (std::size_t i = 0; i < 8; i += 2) {
    pair[i] = __builtin_shufflevector(v[i], v[i + 1], 0, 8, 1, 9, 4, 12, 5, 13);
    pair[i + 1] = __builtin_shufflevector(v[i], v[i + 1], 2, 10, 3, 11, 6, 14, 7, 15);
  }
#pragma GCC unroll 8
  for (std::size_t i = 0; i < 8; i += 4) {
    quad[i] = __builtin_shufflevector(pair[i], pair[i + 2], 0, 1, 8, 9, 4, 5, 12, 13);
    quad[i + 1] = __builtin_shufflevector(pair[i], pair[i + 2], 2, 3, 10, 11, 6, 7, 14, 15);
    quad[i + 2] = __builtin_shufflevector(pair[i + 1], pair[i + 3], 0, 1, 8, 9, 4, 5, 12, 13);
    quad[i + 3] = __builtin_shufflevector(pair[i + 1], pair[i + 3], 2, 3, 10, 11, 6, 7, 14, 15);
  }
#pragma GCC unroll 8
  for (std::size_t i = 0; i < 4; ++i) {
    v[i] = __builtin_shufflevector(quad[i], quad[i + 4], 0, 1, 2, 3, 8, 9, 10, 11);
    v[i + 4] = __builtin_shufflevector(quad[i], quad[i + 4], 4, 5, 6, 7, 12, 13, 14, 15);
  }
}

}  // namespace vintoral
