#include "station/forms/TextCaret.h"

#include <algorithm>
#include <string_view>

namespace vintoral {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

bool LineEndsAt(const String& text, std::size_t position) {
  return text.Bytes().compare(position, kLineEnd.size(), kLineEnd) == 0;
}

/// The start of the line before the one that begins at `start`; `start` itself for the first.
std::size_t PreviousLine(const String& text, std::size_t start) {
  return start == 0 ? 0 : LineStart(text, start - kLineEnd.size());
}

/// The start of the line behind the one that begins at `start`; `start` itself for the last.
std::size_t NextLine(const String& text, std::size_t start) {
  const std::size_t end = LineEnd(text, start);
  return end == text.Size() ? start : end + kLineEnd.size();
}

}  // namespace

std::size_t CaretAt(const String& text, std::size_t position) {
  const std::size_t at = std::min(position, text.Size());
  return at > 0 && LineEndsAt(text, at - 1) ? at - 1 : at;
}

std::size_t CaretBefore(const String& text, std::size_t position) {
  const std::size_t at = CaretAt(text, position);
  return at == 0 ? 0 : CaretAt(text, at - 1);
}

std::size_t CaretBehind(const String& text, std::size_t position) {
  const std::size_t at = CaretAt(text, position);
  return std::min(at + (LineEndsAt(text, at) ? kLineEnd.size() : 1), text.Size());
}

std::size_t LineStart(const String& text, std::size_t position) {
  const std::size_t at = CaretAt(text, position);
  const std::size_t end = at == 0 ? std::string::npos : text.Bytes().rfind(kLineEnd, at - 1);
  return end == std::string::npos ? 0 : end + kLineEnd.size();
}

std::size_t LineEnd(const String& text, std::size_t position) {
  return std::min(text.Bytes().find(kLineEnd, CaretAt(text, position)), text.Size());
}

std::size_t CaretLines(const String& text, std::size_t position, int lines) {
  std::size_t start = LineStart(text, position);
  const std::size_t column = CaretAt(text, position) - start;
  for (; lines > 0; --lines)
    start = NextLine(text, start);
  for (; lines < 0; ++lines)
    start = PreviousLine(text, start);
  return std::min(start + column, LineEnd(text, start));
}

std::size_t LineAt(const String& text, std::size_t position) {
  std::size_t line = 0;
  for (std::size_t start = LineStart(text, position); start > 0; start = PreviousLine(text, start))
    ++line;
  return line;
}

}  // namespace vintoral
