// Bytes as a test writes them out.
#pragma once

#include <array>
#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace vintoral::test {

/// "FF 00 7B" as three bytes.
inline std::string Hex(std::string_view text) {
  const auto digit = [](char character) -> int {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    const std::size_t value = kDigits.find(character);
    if (value == std::string_view::npos) throw std::invalid_argument("no hexadecimal digit");
    return static_cast<int>(value);
  };
  std::string bytes;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == ' ') continue;
    const int value = digit(text[i]) * 16 + digit(text.at(i + 1));
    bytes += static_cast<char>(static_cast<unsigned char>(value));
    ++i;
  }
  return bytes;
}

/// A file of the tariffs, extras or prepaid loads: each line a record of 100 bytes.
inline std::string TariffFile(const std::vector<std::string>& lines) {
  std::string bytes;
  for (std::string line : lines) {
    line.resize(100, ' ');
    bytes += line;
  }
  return bytes;
}

inline std::string Blanks(std::size_t count) {
  return std::string(count, ' ');
}

inline std::string Zeros(std::size_t count) {
  return std::string(count, '\0');
}

/// The bytes of one record; throws when a test wrote out fewer or more.
template <class R>
std::array<char, R::kSize> RecordBytes(std::string_view bytes) {
  if (bytes.size() != R::kSize) throw std::invalid_argument("not the length of a record");
  std::array<char, R::kSize> record{};
  bytes.copy(record.data(), record.size());
  return record;
}

template <class R>
std::string Encoded(const R& record) {
  const auto bytes = record.Encode();
  return std::string(bytes.data(), bytes.size());
}

template <class R>
R Decoded(std::string_view bytes) {
  return R::Decode(RecordBytes<R>(bytes));
}

}  // namespace vintoral::test
