#include "platform/PrintDocument.h"

#include <algorithm>
#include <cmath>

namespace vintoral {
namespace {

/// Courier New and Liberation Mono alike: 1229, 1705 and 1705 + 615 of 2048 units, the first one rounded.
constexpr TypeMeasures kTexto{0.6, 1705.0 / 2048, 2320.0 / 2048};
/// As data/fonts/make-code39-font draws it.
constexpr TypeMeasures kBarras{0.39, 1.0, 1.0};

Twips Rounded(double twips) {
  // A damaged size must not run over: no paper is longer than a kilometre.
  constexpr double kMost = 56'692'913;
  return std::isnan(twips) ? 0 : static_cast<Twips>(std::lround(std::clamp(twips, -kMost, kMost)));
}

}  // namespace

const TypeMeasures& MeasuresOf(std::string_view fontName) {
  return fontName == fuente::kBarras ? kBarras : kTexto;
}

Twips LinePitch(std::string_view fontName, double fontSize) {
  return Rounded(MeasuresOf(fontName).linePitch * fontSize * kTwipsInPoint);
}

std::vector<std::string_view> LinesOf(std::string_view text) {
  constexpr std::string_view kBreak = "\r\n";
  std::vector<std::string_view> lines;
  for (std::size_t end = text.find(kBreak); end != std::string_view::npos; end = text.find(kBreak)) {
    lines.push_back(text.substr(0, end));
    text.remove_prefix(end + kBreak.size());
  }
  lines.push_back(text);
  return lines;
}

Twips PrintDocument::TextWidth(std::string_view text) const {
  std::size_t longest = 0;
  for (const std::string_view line : LinesOf(text))
    longest = std::max(longest, line.size());
  return Rounded(MeasuresOf(FontName).advance * FontSize * kTwipsInPoint * static_cast<double>(longest));
}

void PrintDocument::Add(PrintOperation operation) {
  operations_.push_back(std::move(operation));
}

void PrintDocument::Print(const String& text) {
  Add({.text = text,
       .fontName = FontName,
       .fontSize = FontSize,
       .fontBold = FontBold,
       .x = CurrentX,
       .y = CurrentY,
       .picture = {}});
  for (const std::string_view line : LinesOf(text)) {
    width_ = std::max(width_, CurrentX + TextWidth(line));
    CurrentX = 0;
    CurrentY += LinePitch(FontName, FontSize);
  }
}

void PrintDocument::PaintPicture(const Picture& picture, Twips x, Twips y, Twips width, Twips height) {
  width_ = std::max(width_, x + width);
  foot_ = std::max(foot_, y + height);
  Add({.kind = PrintOperation::Kind::kPicture,
       .text = {},
       .fontName = {},
       .x = x,
       .y = y,
       .width = width,
       .height = height,
       .picture = picture});
}

void PrintDocument::AddFontResource(std::string_view file) {
  Add({.kind = PrintOperation::Kind::kAddFont, .text = String(file), .fontName = {}, .picture = {}});
}

void PrintDocument::RemoveFontResource(std::string_view file) {
  Add({.kind = PrintOperation::Kind::kRemoveFont, .text = String(file), .fontName = {}, .picture = {}});
}

Twips PrintDocument::Height() const {
  return std::max(foot_, CurrentY);
}

}  // namespace vintoral
