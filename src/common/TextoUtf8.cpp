#include "common/TextoUtf8.h"

namespace vintoral {

bool IsUtf8(std::string_view bytes) {
  for (std::size_t i = 0; i < bytes.size();) {
    const detail::Decoded decoded = detail::DecodeUtf8(bytes, i);
    // The replacement character itself takes three bytes.
    if (decoded.codePoint == 0xFFFD && decoded.length == 1) return false;
    i += decoded.length;
  }
  return true;
}

String UTF8toANSI(std::string_view bytes) {
  constexpr std::string_view kMark = "\xEF\xBB\xBF";
  const std::string_view mark = bytes.substr(0, bytes.starts_with(kMark) ? kMark.size() : 0);
  const std::string_view text = bytes.substr(mark.size());
  if (!IsUtf8(text)) return String(bytes);
  return String(mark) + String::FromUtf8(text);
}

}  // namespace vintoral
