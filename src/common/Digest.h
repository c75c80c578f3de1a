// A number that two texts have in common only when they are the same, as far as anybody will ever see. For
// what this program reads again itself; it keeps nothing secret.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace vintoral {

/// 64 bits that are the same on every machine of one byte order.
inline std::uint64_t Digest(std::string_view bytes) {
  // Four lanes, so that the processor doesn't wait for one product before it begins the next. The factor is
  // 2 to the 64th by the golden ratio, made odd, whose bits are well mixed.
  constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15;
  constexpr std::size_t kWord = sizeof(std::uint64_t), kLanes = 4;
  constexpr int kHalf = 32;
  std::array<std::uint64_t, kLanes> lanes = {kFactor, kFactor * 3, kFactor * 5, kFactor * 7};
  const auto mix = [&lanes](std::size_t lane, const char* from, std::size_t size) {
    std::uint64_t word = 0;
    std::memcpy(&word, from, size);
    const std::uint64_t product = (lanes[lane] ^ word) * kFactor;
    lanes[lane] = product ^ product >> kHalf;  // the factor takes every bit upwards alone
  };
  std::size_t at = 0;
  for (; at + kLanes * kWord <= bytes.size(); at += kLanes * kWord) {
    for (std::size_t lane = 0; lane < kLanes; ++lane)
      mix(lane, bytes.data() + at + lane * kWord, kWord);
  }
  for (; at < bytes.size(); at += kWord)
    mix(at / kWord % kLanes, bytes.data() + at, std::min(kWord, bytes.size() - at));
  // The length comes last: up front a longer text could make up for it.
  std::uint64_t digest = bytes.size();
  for (const std::uint64_t lane : lanes)
    digest = std::rotl((digest ^ lane) * kFactor, kHalf);
  return digest ^ digest >> kHalf;
}

}  // namespace vintoral
