#include "platform/desktop/camera/CameraAddress.h"

#include <charconv>

#include "common/String.h"

namespace vintoral {

namespace {

/// A "%" without two hexadecimal digits behind it stands for itself, as in a password that nobody encoded.
std::string ReadEscapes(std::string_view text) {
  std::string read;
  for (std::size_t i = 0; i < text.size(); ++i) {
    unsigned value = 0;
    const char* const digits = text.data() + i + 1;
    const bool escaped = text[i] == '%' && i + 2 < text.size() &&
                         std::from_chars(digits, digits + 2, value, 16).ptr == digits + 2;
    read += escaped ? static_cast<char>(value) : text[i];
    if (escaped) i += 2;
  }
  return read;
}

}  // namespace

CameraAddress AddressOf(std::string_view address) {
  CameraAddress parts;
  constexpr std::string_view kMark = "://";
  const std::size_t mark = address.find(kMark);
  const std::size_t host = mark == std::string_view::npos ? 0 : mark + kMark.size();
  const std::string scheme = Lower(address.substr(0, host)).Bytes();
  parts.http = scheme.starts_with("http");
  const std::size_t end = address.find_first_of("/?#", host);
  const std::string_view authority = address.substr(host, end == std::string_view::npos ? end : end - host);
  const std::size_t at = authority.rfind('@');
  if (at == std::string_view::npos) {
    parts.place = scheme + std::string(address.substr(host));
    return parts;
  }
  const std::string_view who = authority.substr(0, at);
  const std::size_t colon = who.find(':');
  parts.user = ReadEscapes(who.substr(0, colon));
  if (colon != std::string_view::npos) parts.password = ReadEscapes(who.substr(colon + 1));
  parts.place = scheme + std::string(address.substr(host + at + 1));
  return parts;
}

}  // namespace vintoral
