#include "camera/cJpeg/Kernels.h"

#include "camera/cJpeg/Transform.h"

namespace vintoral {

namespace {

VINTORAL_INLINE void Split(const std::uint8_t* __restrict pixels, std::ptrdiff_t count,
                           std::uint8_t* __restrict red, std::uint8_t* __restrict green,
                           std::uint8_t* __restrict blue) {
  for (std::ptrdiff_t i = 0; i < count; ++i) {
    blue[i] = pixels[3 * i];
    green[i] = pixels[3 * i + 1];
    red[i] = pixels[3 * i + 2];
  }
}

VINTORAL_INLINE float Luma(float red, float green, float blue) {
  return 0.299F * red + 0.587F * green + 0.114F * blue;
}

// Cb and Cr are scaled differences from Y; half a step over the largest Y difference, 1 - 0.114 and 1 -
// 0.299.
constexpr float kCbScale = 0.5F / 0.886F, kCrScale = 0.5F / 0.701F;

VINTORAL_INLINE void ToYcc(const std::uint8_t* __restrict red, const std::uint8_t* __restrict green,
                           const std::uint8_t* __restrict blue, std::ptrdiff_t count, float* __restrict y,
                           float* __restrict cb, float* __restrict cr) {
  for (std::ptrdiff_t i = 0; i < count; ++i) {
    const auto r = static_cast<float>(red[i]), b = static_cast<float>(blue[i]);
    const float luma = Luma(r, static_cast<float>(green[i]), b);
    y[i] = luma - 128.0F;
    cb[i] = (b - luma) * kCbScale;
    cr[i] = (r - luma) * kCrScale;
  }
}

VINTORAL_INLINE void ToLuma(const std::uint8_t* __restrict red, const std::uint8_t* __restrict green,
                            const std::uint8_t* __restrict blue, std::ptrdiff_t count, float* __restrict y) {
  for (std::ptrdiff_t i = 0; i < count; ++i) {
    y[i] =
        Luma(static_cast<float>(red[i]), static_cast<float>(green[i]), static_cast<float>(blue[i])) - 128.0F;
  }
}

VINTORAL_INLINE void SumSquares(const std::uint8_t* __restrict upper, const std::uint8_t* __restrict lower,
                                std::ptrdiff_t count, float* __restrict sums) {
  for (std::ptrdiff_t i = 0; i < count; ++i)
    sums[i] = static_cast<float>(upper[2 * i] + upper[2 * i + 1] + lower[2 * i] + lower[2 * i + 1]);
}

VINTORAL_INLINE void ToChroma(const float* __restrict redSums, const float* __restrict greenSums,
                              const float* __restrict blueSums, std::ptrdiff_t count, float* __restrict cb,
                              float* __restrict cr) {
  for (std::ptrdiff_t i = 0; i < count; ++i) {
    const float luma = Luma(redSums[i], greenSums[i], blueSums[i]);
    cb[i] = (blueSums[i] - luma) * (kCbScale / 4);
    cr[i] = (redSums[i] - luma) * (kCrScale / 4);
  }
}

VINTORAL_INLINE void ToGrey(const std::uint8_t* __restrict grey, std::ptrdiff_t count, float* __restrict y) {
  for (std::ptrdiff_t i = 0; i < count; ++i)
    y[i] = static_cast<float>(grey[i]) - 128.0F;
}

template <std::size_t N>
VINTORAL_INLINE void TransformGroup(const float* samples, std::size_t stride, const Quantizer& quantizer,
                                    CodedBlock* blocks) {
  for (std::size_t i = 0; i < kGroupBlocks; i += N) {
    TransformBlocks<N>(samples + 8 * i, stride, quantizer, blocks + i);
  }
}

#ifdef __x86_64__
#define VINTORAL_AVX2 [[gnu::target("avx2")]]

VINTORAL_AVX2 void SplitAvx2(const std::uint8_t* pixels, std::ptrdiff_t count, std::uint8_t* red,
                             std::uint8_t* green, std::uint8_t* blue) {
  Split(pixels, count, red, green, blue);
}

VINTORAL_AVX2 void ToYccAvx2(const std::uint8_t* red, const std::uint8_t* green, const std::uint8_t* blue,
                             std::ptrdiff_t count, float* y, float* cb, float* cr) {
  ToYcc(red, green, blue, count, y, cb, cr);
}

VINTORAL_AVX2 void ToLumaAvx2(const std::uint8_t* red, const std::uint8_t* green, const std::uint8_t* blue,
                              std::ptrdiff_t count, float* y) {
  ToLuma(red, green, blue, count, y);
}

VINTORAL_AVX2 void SumSquaresAvx2(const std::uint8_t* upper, const std::uint8_t* lower, std::ptrdiff_t count,
                                  float* sums) {
  SumSquares(upper, lower, count, sums);
}

VINTORAL_AVX2 void ToChromaAvx2(const float* redSums, const float* greenSums, const float* blueSums,
                                std::ptrdiff_t count, float* cb, float* cr) {
  ToChroma(redSums, greenSums, blueSums, count, cb, cr);
}

VINTORAL_AVX2 void ToGreyAvx2(const std::uint8_t* grey, std::ptrdiff_t count, float* y) {
  ToGrey(grey, count, y);
}

VINTORAL_AVX2 void TransformAvx2(const float* samples, std::size_t stride, const Quantizer& quantizer,
                                 CodedBlock* blocks) {
  TransformGroup<8>(samples, stride, quantizer, blocks);
}

constexpr Kernels kAvx2Kernels = {SplitAvx2,    ToYccAvx2,  ToLumaAvx2,   SumSquaresAvx2,
                                  ToChromaAvx2, ToGreyAvx2, TransformAvx2};
#endif

const Kernels& Choose() {
#ifdef __x86_64__
  if (__builtin_cpu_supports("avx2")) return kAvx2Kernels;
#endif
  return kPortableKernels;
}

}  // namespace

const Kernels kPortableKernels = {Split, ToYcc, ToLuma, SumSquares, ToChroma, ToGrey, TransformGroup<4>};

const Kernels& BestKernels() {
  static const Kernels& best = Choose();
  return best;
}

}  // namespace vintoral
