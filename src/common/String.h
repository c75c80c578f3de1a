// The one text type of the station: Windows-1252, one byte a character.
//
// Everything that can reach a register, a slip or a printed column is text of this type, so "character 9, 10
// long" is an index and a cut at 19 can't split a letter. UTF-8 exists at the edges only: windows, paths, the
// driver.
#pragma once

#include <array>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace vintoral {

/// Windows-1252 code of a Unicode code point, or -1 when Windows-1252 has none.
/// Source: the WHATWG Encoding Standard's index windows-1252 (the five unassigned bytes map to themselves).
constexpr int Windows1252FromUnicode(char32_t codePoint);

class String {
 public:
  String() = default;
  /// Takes bytes that are Windows-1252 already.
  explicit String(std::string bytes) : bytes_(std::move(bytes)) {}
  explicit String(std::string_view bytes) : bytes_(bytes) {}
  String(std::size_t count, char character) : bytes_(count, character) {}

  /// Converts UTF-8; what Windows-1252 lacks, and what is no valid UTF-8, becomes "?".
  static String FromUtf8(std::string_view utf8);
  std::string ToUtf8() const;

  const std::string& Bytes() const { return bytes_; }
  operator std::string_view() const { return bytes_; }
  std::size_t Size() const { return bytes_.size(); }
  bool Empty() const { return bytes_.empty(); }
  char operator[](std::size_t index) const { return bytes_[index]; }

  String& operator+=(const String& other) {
    bytes_ += other.bytes_;
    return *this;
  }
  friend String operator+(String left, const String& right) {
    left += right;
    return left;
  }
  /// Byte for byte, for tests and for "did it change"; the station itself compares with EqualNoCase.
  friend bool operator==(const String&, const String&) = default;
  friend auto operator<=>(const String&, const String&) = default;

 private:
  std::string bytes_;
};

/// Without the blanks at both ends, and nothing else: a zero byte is a character, in a register as in a
/// table, so that a name that ends in one is the same name in both.
std::string_view TrimBlanks(std::string_view text);
String Trim(std::string_view text);
/// Without the blanks at the end.
String TrimRight(std::string_view text);
/// Capitals, the accented letters of Windows-1252 included.
String Upper(std::string_view text);
String Lower(std::string_view text);
/// The first `count` characters, fewer when the text is shorter.
String Left(std::string_view text, std::size_t count);
/// `count` characters from position `start` (1 is the first), fewer when the text ends before.
String Mid(std::string_view text, std::size_t start, std::size_t count);
/// Right-aligned to `width` with blanks; a longer text stays as it is.
String AlignRight(std::string_view text, std::size_t width);
String ReplaceAll(std::string_view text, std::string_view from, std::string_view to);

/// The only comparison and the only search of the station: case is ignored, accented letters included.
bool EqualNoCase(std::string_view left, std::string_view right);
bool ContainsNoCase(std::string_view text, std::string_view part);

/// The byte in capitals; what has no capital in Windows-1252 stays.
char UpperByte(char byte);

// ---------------------------------------------------------------------------------------------------------------

namespace detail {

/// Unicode of the bytes 0x80 to 0x9F; all others are the same number in Unicode.
inline constexpr std::array<char32_t, 32> kHighControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

/// One decoded code point and the bytes that it took; an invalid sequence gives 0xFFFD and takes one byte.
struct Decoded {
  char32_t codePoint;
  std::size_t length;
};

constexpr Decoded DecodeUtf8(std::string_view text, std::size_t at) {
  const auto byte = [&](std::size_t i) -> unsigned { return static_cast<unsigned char>(text[i]); };
  const unsigned lead = byte(at);
  if (lead < 0x80) return {lead, 1};
  const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (lead < 0xC2 || lead > 0xF4 || at + length > text.size()) return {0xFFFD, 1};
  char32_t codePoint = lead & (0xFFu >> (length + 1));
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(at + i) & 0xC0) != 0x80) return {0xFFFD, 1};
    codePoint = codePoint << 6 | (byte(at + i) & 0x3F);
  }
  constexpr std::array<char32_t, 5> kSmallest = {0, 0, 0x80, 0x800, 0x10000};
  const bool surrogate = codePoint >= 0xD800 && codePoint <= 0xDFFF;
  if (codePoint < kSmallest[length] || codePoint > 0x10FFFF || surrogate) return {0xFFFD, 1};
  return {codePoint, length};
}

template <std::size_t N>
struct Utf8Literal {
  consteval Utf8Literal(const char (&text)[N]) {
    for (std::size_t i = 0; i < N; ++i)
      utf8[i] = text[i];
  }
  char utf8[N]{};
};

template <std::size_t N>
struct Converted {
  std::array<char, N> bytes{};
  std::size_t size = 0;
};

template <Utf8Literal literal>
consteval auto ConvertLiteral() {
  Converted<sizeof(literal.utf8)> result;
  const std::string_view text(literal.utf8, sizeof(literal.utf8) - 1);
  for (std::size_t i = 0; i < text.size();) {
    const Decoded decoded = DecodeUtf8(text, i);
    const int byte = Windows1252FromUnicode(decoded.codePoint);
    if (byte < 0) throw "the literal has a character that Windows-1252 lacks";
    result.bytes[result.size++] = static_cast<char>(byte);
    i += decoded.length;
  }
  return result;
}

}  // namespace detail

constexpr int Windows1252FromUnicode(char32_t codePoint) {
  if (codePoint < 0x80 || (codePoint >= 0xA0 && codePoint <= 0xFF)) return static_cast<int>(codePoint);
  for (std::size_t i = 0; i < detail::kHighControls.size(); ++i) {
    if (detail::kHighControls[i] == codePoint) return static_cast<int>(0x80 + i);
  }
  return -1;
}

/// "Imágenes"_w: written in UTF-8 in the source, converted at compile time.
template <detail::Utf8Literal literal>
String operator""_w() {
  static constexpr auto kConverted = detail::ConvertLiteral<literal>();
  return String(std::string_view(kConverted.bytes.data(), kConverted.size));
}

}  // namespace vintoral
