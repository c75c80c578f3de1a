#include "station/forms/ReglasTeclas.h"

#include <algorithm>
#include <string_view>

namespace vintoral {
namespace {

using namespace std::string_view_literals;

constexpr char kBackspace = 8;
// Control and a letter are commands of the station (Ctrl+A, B, C, F, I, T, W, X): the character that such a
// key also makes falls without a sound. 9 is the tabulator, 27 Esc.
constexpr std::string_view kCommandCharacters = "\x01\x02\x03\x06\x09\x14\x17\x18"sv;
constexpr char kEnter = 13;
constexpr char kEscape = 27;

bool IsCommand(char character) {
  return kCommandCharacters.find(character) != std::string_view::npos;
}
bool IsSeparator(char character) {
  return character == ',' || character == '.';
}
bool IsDigit(char character) {
  return character >= '0' && character <= '9';
}

}  // namespace

KeyVerdict NumberFieldKey(char character) {
  if (character == kBackspace || IsDigit(character)) return KeyVerdict::kPass;
  return IsCommand(character) || character == kEscape ? KeyVerdict::kDrop : KeyVerdict::kBeep;
}

KeyVerdict CashFieldKey(char character) {
  return IsSeparator(character) ? KeyVerdict::kPass : NumberFieldKey(character);
}

KeyVerdict TextFieldKey(char character) {
  return IsCommand(character) ? KeyVerdict::kDrop : KeyVerdict::kPass;
}

KeyVerdict CountFieldKey(char character) {
  if (character == kEnter) return KeyVerdict::kDrop;
  return MinutesKey(character);
}

KeyVerdict DecimalFieldKey(char character) {
  return IsSeparator(character) ? KeyVerdict::kPass : CountFieldKey(character);
}

std::size_t DecimalFieldLimit(std::string_view text) {
  constexpr std::size_t kWhole = 2, kWithDecimal = 4;
  return std::any_of(text.begin(), text.end(), IsSeparator) ? kWithDecimal : kWhole;
}

void LimitDecimal(EditableText& text) {
  text.LimitRule = DecimalFieldLimit;
  text.MaxLength = DecimalFieldLimit(text.Text());
  text.OnChange = [&text] {
    text.MaxLength = DecimalFieldLimit(text.Text());
    const std::string_view typed = text.Text();
    if (std::none_of(typed.begin(), typed.end(), IsSeparator)) text.Select(typed.size(), 0);
  };
}

KeyVerdict MinutesKey(char character) {
  return character == kBackspace || IsDigit(character) ? KeyVerdict::kPass : KeyVerdict::kBeep;
}

}  // namespace vintoral
