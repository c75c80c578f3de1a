// Slips as a test writes them out: one line of the paper a line.
#pragma once

#include <array>
#include <ostream>
#include <string_view>
#include <vector>

#include "platform/PrintDocument.h"
#include "station/form1/Papel.h"

namespace vintoral {

/// What GoogleTest shows of an operation.
inline void PrintTo(const PrintOperation& operation, std::ostream* out) {
  constexpr std::array<const char*, 4> kKinds = {"text", "picture", "add font", "remove font"};
  *out << '\n'
       << kKinds[static_cast<std::size_t>(operation.kind)] << " at " << operation.x << ", " << operation.y
       << ' ' << operation.fontName.Bytes() << ' ' << operation.fontSize
       << (operation.fontBold ? " bold" : "") << " |" << operation.text.Bytes() << "| " << operation.width
       << " × " << operation.height << ' ' << operation.picture.Path().Bytes();
}

namespace test {

/// At 10.5 points: 2320 / 2048 × 10.5 × 20 = 237.89 twips.
inline constexpr Twips kLinea = 238;

inline PrintOperation Normal(Twips y, String text) {
  PrintOperation line;
  line.text = std::move(text);
  line.fontName = "Courier New"_w;
  line.fontSize = 10.5;
  line.y = y;
  return line;
}

inline PrintOperation Negrita(Twips y, String text) {
  PrintOperation line = Normal(y, std::move(text));
  line.fontBold = true;
  return line;
}

/// Its texts alone, one a Print.
inline std::vector<String> Textos(const PrintDocument& document) {
  std::vector<String> texts;
  for (const PrintOperation& operation : document.Operations()) {
    if (operation.kind == PrintOperation::Kind::kText) texts.push_back(operation.text);
  }
  return texts;
}

}  // namespace test
}  // namespace vintoral
