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

// Cb and Cr are scaled differences from Y; half a step over the largest Y difference, 1 - 0.114 and 1 -
// 0.299.
VINTORAL_INLINE void ToYcc(const std::uint8_t* __restrict red, const std::uint8_t* __restrict green,
                           const std::uint8_t* __restrict blue, std::ptrdiff_t count, float* __restrict y,
                           float* __restrict cb, float* __restrict cr) {
  for (std::ptrdiff_t i = 0; i < count; ++i) {
    const auto r = static_cast<float>(red[i]), b = static_cast<float>(blue[i]);
    const float luma = 0.299F * r + 0.587F * static_cast<float>(green[i]) + 0.114F * b;
    y[i] = luma - 128.0F;
    cb[i] = (b - luma) * (0.5F / 0.886F);
    cr[i] = (r - luma) * (0.5F / 0.701F);
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

VINTORAL_AVX2 void ToGreyAvx2(const std::uint8_t* grey, std::ptrdiff_t count, float* y) {
  ToGrey(grey, count, y);
}

VINTORAL_AVX2 void TransformAvx2(const float* samples, std::size_t stride, const Quantizer& quantizer,
                                 CodedBlock* blocks) {
  TransformGroup<8>(samples, stride, quantizer, blocks);
}

constexpr Kernels kAvx2Kernels = {SplitAvx2, ToYccAvx2, ToGreyAvx2, TransformAvx2};
#endif

const Kernels& Choose() {
#ifdef __x86_64__
  if (__builtin_cpu_supports("avx2")) return kAvx2Kernels;
#endif
  return kPortableKernels;
}

}  // namespace

const Kernels kPortableKernels = {Split, ToYcc, ToGrey, TransformGroup<4>};

const Kernels& BestKernels() {
  static const Kernels& best = Choose();
  return best;
}

}  // namespace vintoral
