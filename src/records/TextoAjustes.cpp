#include "records/TextoAjustes.h"

#include "common/TextoUtf8.h"

namespace vintoral {

std::optional<String> Ajuste(std::string_view text, std::string_view name) {
  while (!text.empty()) {
    const std::size_t end = text.find_first_of("\r\n");
    const std::string_view line = TrimBlanks(text.substr(0, end));
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    const std::size_t equals = line.find('=');
    if (line.starts_with(';') || equals == std::string_view::npos) continue;
    if (EqualNoCase(TrimBlanks(line.substr(0, equals)), name))
      return UTF8toANSI(TrimBlanks(line.substr(equals + 1)));
  }
  return std::nullopt;
}

}  // namespace vintoral
