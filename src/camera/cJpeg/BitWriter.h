#pragma once

#include <bit>
#include <cstdint>
#include <cstring>

namespace vintoral {

// Puts codes into the entropy-coded segment: high bit first, a zero byte after each byte of ones (ITU-T T.81,
// F.1.2.3). It is a plain value, so that the coder can keep it in registers; the caller sees to the room.
class BitWriter {
 public:
  explicit BitWriter(std::uint8_t* end) : end_(end) {}

  // Where the next byte goes. Bits that do not fill a word yet are not there.
  std::uint8_t* End() const { return end_; }
  void MoveTo(std::uint8_t* end) { end_ = end; }

  // 0 <= length <= 32; bits above the length are clear.
  void Put(std::uint32_t bits, int length) {
    if (length < free_) [[likely]] {
      word_ = word_ << length | bits;
      free_ -= length;
      return;
    }
    const int rest = length - free_;
    PutWord(word_ << free_ | bits >> rest);
    word_ = bits;  // what is above the rest is pushed out before the word is full again
    free_ = 64 - rest;
  }

  // Fills the last byte with ones.
  void Finish() {
    const int used = 64 - free_;
    const int padding = -used & 7;
    const std::uint64_t last = word_ << padding | ((1U << padding) - 1U);
    for (int shift = used + padding - 8; shift >= 0; shift -= 8) {
      PutByte(static_cast<std::uint8_t>(last >> shift));
    }
    word_ = 0;
    free_ = 64;
  }

 private:
  static std::uint64_t BigEndian(std::uint64_t word) {
    return std::endian::native == std::endian::little ? __builtin_bswap64(word) : word;
  }

  void PutByte(std::uint8_t byte) {
    *end_++ = byte;
    if (byte == 0xFF) *end_++ = 0;
  }

  void PutWord(std::uint64_t word) {
    // Bytes of ones are rare: eight at a time are stored unless one of them is 0xFF, that is, the complement
    // has a zero.
    const std::uint64_t hasOnes = (~word - 0x0101010101010101U) & word & 0x8080808080808080U;
    if (hasOnes == 0) [[likely]] {
      const std::uint64_t bytes = BigEndian(word);
      std::memcpy(end_, &bytes, sizeof bytes);
      end_ += sizeof bytes;
      return;
    }
    for (int shift = 56; shift >= 0; shift -= 8)
      PutByte(static_cast<std::uint8_t>(word >> shift));
  }

  std::uint64_t word_ = 0;
  int free_ = 64;  // never 0, so that no shift is by the whole word
  std::uint8_t* end_;
};

}  // namespace vintoral
