// What the harnesses of the reports look at their pages with.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "reports/Escritor.h"

namespace vintoral::test {

/// How often the part stands there, those that overlap included.
inline std::size_t Count(const std::string& text, std::string_view part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
    ++count;
  return count;
}

/// Takes whatever is written.
inline Destino Into(std::string& page) {
  return [&page](std::string_view piece) {
    page += piece;
    return Outcome::Done();
  };
}

/// Photos whose names would be tags, of the even numbers.
inline std::optional<String> EveryOther(std::string_view /*folder*/, std::int64_t number) {
  return number % 2 == 0 ? std::optional("<\">&.jpg"_w) : std::nullopt;
}

}  // namespace vintoral::test
