// Record layouts: each record is one table of offset and field, walked by the reader and by the writer alike.
// Integers are little-endian, byte by byte, whatever this machine's order.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <tuple>
#include <type_traits>

#include "common/Money.h"
#include "records/FixedText.h"

namespace vintoral::coding {

template <class Integer>
constexpr Integer Get(const char* bytes) {
  using Unsigned = std::make_unsigned_t<Integer>;
  Unsigned value = 0;
  for (std::size_t i = 0; i < sizeof(Integer); ++i) {
    value =
        static_cast<Unsigned>(value | static_cast<Unsigned>(static_cast<unsigned char>(bytes[i])) << (8 * i));
  }
  return static_cast<Integer>(value);
}

template <class Integer>
constexpr void Put(char* bytes, Integer value) {
  const auto bits = static_cast<std::make_unsigned_t<Integer>>(value);
  for (std::size_t i = 0; i < sizeof(Integer); ++i)
    bytes[i] = static_cast<char>(static_cast<unsigned char>(bits >> (8 * i) & 0xFF));
}

/// How a type of field stands on disk: its width, and its way in and out.
template <class Type>
struct Code {
  static_assert(std::is_integral_v<Type>);
  static constexpr std::size_t kWidth = sizeof(Type);
  static void Read(const char* bytes, Type& field) { field = Get<Type>(bytes); }
  static void Write(char* bytes, Type field) { Put<Type>(bytes, field); }
};

/// A signed 16-bit number: written as -1 or 0, and anything but 0 reads as true.
template <>
struct Code<bool> {
  static constexpr std::size_t kWidth = 2;
  static void Read(const char* bytes, bool& field) { field = Get<std::int16_t>(bytes) != 0; }
  static void Write(char* bytes, bool field) { Put<std::int16_t>(bytes, field ? -1 : 0); }
};

/// IEEE 754 single, its 32 bits little-endian; any bits come back as they were, NaN included.
template <>
struct Code<float> {
  static_assert(std::numeric_limits<float>::is_iec559 && sizeof(float) == 4);
  static constexpr std::size_t kWidth = 4;
  static void Read(const char* bytes, float& field) {
    field = std::bit_cast<float>(Get<std::uint32_t>(bytes));
  }
  static void Write(char* bytes, float field) { Put(bytes, std::bit_cast<std::uint32_t>(field)); }
};

template <>
struct Code<Money> {
  static constexpr std::size_t kWidth = 8;
  static void Read(const char* bytes, Money& field) { field = Money::FromRaw(Get<std::int64_t>(bytes)); }
  static void Write(char* bytes, Money field) { Put<std::int64_t>(bytes, field.Raw()); }
};

template <std::size_t N>
struct Code<FixedText<N>> {
  static constexpr std::size_t kWidth = N;
  static void Read(const char* bytes, FixedText<N>& field) { std::memcpy(field.Bytes().data(), bytes, N); }
  static void Write(char* bytes, const FixedText<N>& field) { std::memcpy(bytes, field.Bytes().data(), N); }
};

template <class Type, std::size_t N>
struct Code<std::array<Type, N>> {
  static constexpr std::size_t kWidth = N * Code<Type>::kWidth;
  static void Read(const char* bytes, std::array<Type, N>& fields) {
    for (std::size_t i = 0; i < N; ++i)
      Code<Type>::Read(bytes + i * Code<Type>::kWidth, fields[i]);
  }
  static void Write(char* bytes, const std::array<Type, N>& fields) {
    for (std::size_t i = 0; i < N; ++i)
      Code<Type>::Write(bytes + i * Code<Type>::kWidth, fields[i]);
  }
};

/// One line of a layout.
template <class Record, class Type>
struct Field {
  std::size_t offset;
  Type Record::*member;
  static constexpr std::size_t kWidth = Code<Type>::kWidth;
};
template <class Record, class Type>
Field(std::size_t, Type Record::*) -> Field<Record, Type>;

/// Each field begins where the one before it ends, and the last one ends at `size`.
template <class Layout>
constexpr bool IsGapless(const Layout& layout, std::size_t size) {
  std::size_t end = 0;
  bool joined = true;
  const auto follow = [&](const auto& field) {
    joined = joined && field.offset == end;
    end += field.kWidth;
  };
  std::apply([&](const auto&... field) { (follow(field), ...); }, layout);
  return joined && end == size;
}

/// Where a field begins, for what looks at one field of very many records. A layout that lacks it doesn't
/// compile.
template <class Layout, class Record, class Type>
consteval std::size_t OffsetOf(const Layout& layout, Type Record::*member) {
  std::size_t offset = 0;
  bool found = false;
  const auto look = [&]<class Other>(const Field<Record, Other>& field) {
    if constexpr (std::is_same_v<Other, Type>) {
      if (field.member != member) return;
      offset = field.offset;
      found = true;
    }
  };
  std::apply([&](const auto&... field) { (look(field), ...); }, layout);
  if (!found) throw "the layout has no such field";
  return offset;
}

template <class Record, class Layout>
void Read(const Layout& layout, const char* bytes, Record& record) {
  const auto one = [&]<class Type>(const Field<Record, Type>& field) {
    Code<Type>::Read(bytes + field.offset, record.*field.member);
  };
  std::apply([&](const auto&... field) { (one(field), ...); }, layout);
}

template <class Record, class Layout>
void Write(const Layout& layout, const Record& record, char* bytes) {
  const auto one = [&]<class Type>(const Field<Record, Type>& field) {
    Code<Type>::Write(bytes + field.offset, record.*field.member);
  };
  std::apply([&](const auto&... field) { (one(field), ...); }, layout);
}

}  // namespace vintoral::coding
