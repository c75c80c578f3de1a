#include "station/forms/ReglasTeclas.h"

#include <gtest/gtest.h>

#include <functional>
#include <set>

#include "support/MemoryStation.h"

namespace vintoral {
namespace {

const std::set<int> kDigits = {'0', '1', '2', '3', '4', '5', '6', '7', '8', '9'};
const std::set<int> kSilent = {1, 2, 3, 6, 9, 20, 23, 24};
constexpr int kBackspace = 8, kEnter = 13, kEscape = 27;

std::set<int> With(std::set<int> set, std::initializer_list<int> more) {
  set.insert(more);
  return set;
}

/// What every one of the 256 characters does: `pass` and `drop` as listed, `rest` all others.
void ExpectRule(const std::function<KeyVerdict(char)>& rule, const std::set<int>& pass,
                const std::set<int>& drop, KeyVerdict rest) {
  for (int code = 0; code < 256; ++code) {
    const KeyVerdict expected = pass.contains(code)   ? KeyVerdict::kPass
                                : drop.contains(code) ? KeyVerdict::kDrop
                                                      : rest;
    EXPECT_EQ(rule(static_cast<char>(static_cast<unsigned char>(code))), expected) << "character " << code;
  }
}

TEST(ReglasTeclas, TheNumberTakesDigitsAndBackspace) {
  ExpectRule(NumberFieldKey, With(kDigits, {kBackspace}), With(kSilent, {kEscape}), KeyVerdict::kBeep);
}

TEST(ReglasTeclas, TheCashTakesCommaAndPointToo) {
  ExpectRule(CashFieldKey, With(kDigits, {kBackspace, ',', '.'}), With(kSilent, {kEscape}),
             KeyVerdict::kBeep);
}

TEST(ReglasTeclas, TheTextsTakeAllButTheCommandsCharacters) {
  ExpectRule(TextFieldKey, {}, kSilent, KeyVerdict::kPass);
}

TEST(ReglasTeclas, TheMinutesTakeDigitsAndBackspaceAndBeepAtTheRest) {
  ExpectRule(MinutesKey, With(kDigits, {kBackspace}), {}, KeyVerdict::kBeep);
}

TEST(ReglasTeclas, TheNumbersOfAFormatBeepAtAllButEnter) {
  ExpectRule(CountFieldKey, With(kDigits, {kBackspace}), {kEnter}, KeyVerdict::kBeep);
  ExpectRule(DecimalFieldKey, With(kDigits, {kBackspace, ',', '.'}), {kEnter}, KeyVerdict::kBeep);
}

TEST(ReglasTeclas, ADecimalMayBeLonger) {
  for (const char* const text : {"", "1", "105"})
    EXPECT_EQ(DecimalFieldLimit(text), 2u) << text;
  for (const char* const text : {",", "1.", "10,5"})
    EXPECT_EQ(DecimalFieldLimit(text), 4u) << text;
}

TEST(ReglasTeclas, EachFieldOfTheMainScreenHasItsRule) {
  const test::MemoryStation station;
  const Form1& screen = station.Form;
  const auto number = With(kDigits, {kBackspace});
  ExpectRule(screen.TxtCampo[0].KeyRule, number, With(kSilent, {kEscape}), KeyVerdict::kBeep);
  ExpectRule(screen.TxtEfectivo.KeyRule, With(number, {',', '.'}), With(kSilent, {kEscape}),
             KeyVerdict::kBeep);
  for (std::size_t i = 1; i < screen.TxtCampo.size(); ++i)
    ExpectRule(screen.TxtCampo[i].KeyRule, {}, kSilent, KeyVerdict::kPass);
  ExpectRule(screen.TxtEtiqueta[0].KeyRule, {}, kSilent, KeyVerdict::kPass);
  ExpectRule(screen.CboMinutos.KeyRule, number, {}, KeyVerdict::kBeep);
}

}  // namespace
}  // namespace vintoral
