#include "platform/mail/MailText.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace vintoral {
namespace {

bool IsPrintableAscii(char byte) {
  return byte >= ' ' && byte <= '~';
}

/// Longer ones are folded, which takes encoded words.
constexpr std::size_t kLongestPlain = 60;
/// Of one word's text, so that its line stays below the 76 characters of RFC 2047, 2.
constexpr std::size_t kLongestWord = 45;

bool CanStandPlain(std::string_view text) {
  return text.size() <= kLongestPlain && std::all_of(text.begin(), text.end(), IsPrintableAscii) &&
         text.find("=?") == std::string_view::npos;
}

/// One character of UTF-8 in the "Q" encoding (RFC 2047, 4.2).
std::string Encoded(std::string_view character) {
  std::string code;
  for (const char byte : character) {
    const bool letter = (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
    if (letter || (byte >= '0' && byte <= '9')) {
      code += byte;
    } else if (byte == ' ') {
      code += '_';
    } else {
      std::array<char, 4> hex{};
      std::snprintf(hex.data(), hex.size(), "=%02X", static_cast<unsigned>(static_cast<unsigned char>(byte)));
      code += hex.data();
    }
  }
  return code;
}

/// How many bytes the first character of `text` takes.
std::size_t CharacterLength(std::string_view text) {
  const auto continues = [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; };
  return static_cast<std::size_t>(std::find_if_not(text.begin() + 1, text.end(), continues) - text.begin());
}

}  // namespace

std::string OneLine(std::string_view text) {
  std::string line(text);
  std::replace_if(
      line.begin(), line.end(), [](char byte) { return (byte >= 0 && byte < ' ') || byte == '\x7F'; }, ' ');
  return line;
}

std::string HeaderLine(std::string_view name, std::string_view text) {
  const std::string line = OneLine(text);
  std::string header = std::string(name) + ": ";
  if (CanStandPlain(line)) return header + line;
  std::string word;
  const auto close = [&](const char* behind) {
    header += "=?UTF-8?Q?" + word + "?=" + behind;
    word.clear();
  };
  for (std::string_view left = line; !left.empty();) {
    const std::size_t length = CharacterLength(left);
    const std::string code = Encoded(left.substr(0, length));
    if (word.size() + code.size() > kLongestWord) close("\r\n ");
    word += code;
    left.remove_prefix(length);
  }
  close("");
  return header;
}

std::string MailDate(std::time_t time) {
  constexpr std::array kDays = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
  constexpr std::array kMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                  "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  std::tm parts{};
  gmtime_r(&time, &parts);
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "%s, %02d %s %d %02d:%02d:%02d +0000",
                kDays[static_cast<std::size_t>(parts.tm_wday)], parts.tm_mday,
                kMonths[static_cast<std::size_t>(parts.tm_mon)], parts.tm_year + 1900, parts.tm_hour,
                parts.tm_min, parts.tm_sec);
  return text.data();
}

}  // namespace vintoral
