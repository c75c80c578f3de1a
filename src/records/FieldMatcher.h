// Compares one text field of very many records with one text: the trimmed field is the text as a whole, case
// ignored.
#pragma once

#include <array>
#include <cstddef>
#include <cstring>
#include <string_view>

#include "common/String.h"

namespace vintoral {

/// Nearly all fields differ in one of their first characters, so those are looked at where they stand before
/// anything else is.
template <std::size_t Width>
class FieldMatcher {
 public:
  explicit FieldMatcher(std::string_view text) : upper_(Upper(TrimBlanks(text))) {
    if (!Searches()) return;
    first_ = upper_[0];
    firstLower_ = Lower(upper_)[0];
  }

  /// False of an empty text, which matches nothing.
  bool Searches() const { return !upper_.Empty(); }

  bool Matches(const char* field) const {
    const char first = *field;
    if (first == first_ || first == firstLower_) return BeginsHere(field);
    return first == ' ' && !IsBlank(field) && EqualNoCase(TrimBlanks({field, Width}), upper_);
  }

 private:
  bool BeginsHere(const char* field) const {
    const std::string_view text = upper_;
    if (text.size() > Width) return false;
    for (std::size_t i = 1; i < text.size(); ++i) {
      if (UpperByte(field[i]) != text[i]) return false;
    }
    return TrimBlanks({field + text.size(), Width - text.size()}).empty();
  }

  static constexpr std::array<char, Width> kBlank = [] {
    std::array<char, Width> blanks{};
    blanks.fill(' ');
    return blanks;
  }();
  /// A free record: there are more of them than of texts with blanks ahead.
  static bool IsBlank(const char* field) { return std::memcmp(field, kBlank.data(), Width) == 0; }

  String upper_;
  char first_ = ' ';
  char firstLower_ = ' ';
};

}  // namespace vintoral
