#include "common/String.h"

#include <algorithm>

namespace vintoral {
namespace {

constexpr char MapCase(unsigned char byte, bool up) {
  const auto asByte = [](int value) { return static_cast<char>(static_cast<unsigned char>(value)); };
  const bool small = (byte >= 'a' && byte <= 'z') || (byte >= 0xE0 && byte <= 0xFE && byte != 0xF7);
  const bool capital = (byte >= 'A' && byte <= 'Z') || (byte >= 0xC0 && byte <= 0xDE && byte != 0xD7);
  if (up && small) return asByte(byte - 0x20);
  if (!up && capital) return asByte(byte + 0x20);
  // Š Œ Ž and Ÿ stand outside the regular rows.
  switch (byte) {
    case 0x9A:
    case 0x9C:
    case 0x9E:
      return up ? asByte(byte - 0x10) : asByte(byte);
    case 0x8A:
    case 0x8C:
    case 0x8E:
      return up ? asByte(byte) : asByte(byte + 0x10);
    case 0xFF:
      return up ? asByte(0x9F) : asByte(byte);
    case 0x9F:
      return up ? asByte(byte) : asByte(0xFF);
    default:
      return asByte(byte);
  }
}

constexpr std::array<char, 256> MakeCaseTable(bool up) {
  std::array<char, 256> table{};
  for (unsigned i = 0; i < 256; ++i)
    table[i] = MapCase(static_cast<unsigned char>(i), up);
  return table;
}

constexpr auto kUpper = MakeCaseTable(true);
constexpr auto kLower = MakeCaseTable(false);

String Mapped(std::string_view text, const std::array<char, 256>& table) {
  std::string result(text);
  for (char& byte : result)
    byte = table[static_cast<unsigned char>(byte)];
  return String(std::move(result));
}

void AppendUtf8(std::string& out, char32_t codePoint) {
  const auto put = [&](char32_t value) { out += static_cast<char>(static_cast<unsigned char>(value)); };
  if (codePoint < 0x80) {
    put(codePoint);
  } else if (codePoint < 0x800) {
    put(0xC0 | codePoint >> 6);
    put(0x80 | (codePoint & 0x3F));
  } else {
    put(0xE0 | codePoint >> 12);
    put(0x80 | (codePoint >> 6 & 0x3F));
    put(0x80 | (codePoint & 0x3F));
  }
}

}  // namespace

String String::FromUtf8(std::string_view utf8) {
  std::string bytes;
  bytes.reserve(utf8.size());
  for (std::size_t i = 0; i < utf8.size();) {
    const detail::Decoded decoded = detail::DecodeUtf8(utf8, i);
    const int byte = Windows1252FromUnicode(decoded.codePoint);
    bytes += byte < 0 ? '?' : static_cast<char>(byte);
    i += decoded.length;
  }
  return String(std::move(bytes));
}

std::string String::ToUtf8() const {
  std::string utf8;
  utf8.reserve(bytes_.size() + 8);
  for (const char character : bytes_) {
    const auto byte = static_cast<unsigned char>(character);
    AppendUtf8(utf8, byte >= 0x80 && byte < 0xA0 ? detail::kHighControls[byte - 0x80u] : byte);
  }
  return utf8;
}

std::string_view TrimBlanks(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

String Trim(std::string_view text) {
  return String(TrimBlanks(text));
}

String TrimRight(std::string_view text) {
  return String(text.substr(0, text.find_last_not_of(' ') + 1));
}

String Upper(std::string_view text) {
  return Mapped(text, kUpper);
}

String Lower(std::string_view text) {
  return Mapped(text, kLower);
}

String Left(std::string_view text, std::size_t count) {
  return String(text.substr(0, count));
}

String Mid(std::string_view text, std::size_t start, std::size_t count) {
  if (start == 0 || start > text.size()) return {};
  return String(text.substr(start - 1, count));
}

String AlignRight(std::string_view text, std::size_t width) {
  if (text.size() >= width) return String(text);
  return String(width - text.size(), ' ') + String(text);
}

String ReplaceAll(std::string_view text, std::string_view from, std::string_view to) {
  std::string result;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t found = from.empty() ? std::string_view::npos : text.find(from, at);
    result.append(text.substr(at, found == std::string_view::npos ? found : found - at));
    if (found == std::string_view::npos) break;
    result.append(to);
    at = found + from.size();
  }
  return String(std::move(result));
}

bool EqualNoCase(std::string_view left, std::string_view right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(), [](char a, char b) {
    return a == b || kUpper[static_cast<unsigned char>(a)] == kUpper[static_cast<unsigned char>(b)];
  });
}

bool ContainsNoCase(std::string_view text, std::string_view part) {
  return std::search(text.begin(), text.end(), part.begin(), part.end(),
                     [](char a, char b) {
                       return kUpper[static_cast<unsigned char>(a)] == kUpper[static_cast<unsigned char>(b)];
                     }) != text.end() ||
         part.empty();
}

char UpperByte(char byte) {
  return kUpper[static_cast<unsigned char>(byte)];
}

}  // namespace vintoral
