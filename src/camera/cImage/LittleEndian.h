#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace vintoral {

// Numbers of a bitmap, low byte first.
inline std::uint16_t ReadWord16(std::span<const std::uint8_t> bytes, std::size_t at) {
  return static_cast<std::uint16_t>(bytes[at] | bytes[at + 1] << 8);
}

inline std::uint32_t ReadWord32(std::span<const std::uint8_t> bytes, std::size_t at) {
  return ReadWord16(bytes, at) | std::uint32_t{ReadWord16(bytes, at + 2)} << 16;
}

inline void AppendWord16(std::vector<std::uint8_t>& bytes, std::uint32_t value) {
  bytes.push_back(static_cast<std::uint8_t>(value));
  bytes.push_back(static_cast<std::uint8_t>(value >> 8));
}

inline void AppendWord32(std::vector<std::uint8_t>& bytes, std::uint32_t value) {
  AppendWord16(bytes, value & 0xFFFF);
  AppendWord16(bytes, value >> 16);
}

}  // namespace vintoral
