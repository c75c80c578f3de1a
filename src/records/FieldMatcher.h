// Compares one text field of very many records with one text: the trimmed field is the text as a whole, case
// ignored.
#pragma once

#include <cstddef>
#include <string_view>

#include "common/String.h"

namespace vintoral {

/// Nearly all fields differ in their first character, so that one decides before anything else is looked at.
template <std::size_t Width>
class FieldMatcher {
 public:
  /// Must not outlive the text.
  explicit FieldMatcher(std::string_view text) : text_(TrimBlanks(text)) {
    if (text_.empty()) return;
    upper_ = UpperByte(text_.front());
    lower_ = std::string_view(Lower(text_.substr(0, 1))).front();
  }

  /// False of an empty text, which matches nothing.
  bool Searches() const { return !text_.empty(); }

  bool Matches(const char* field) const {
    const char first = *field;
    const bool begins = first == upper_ || first == lower_;
    if (!begins && first != ' ') return false;
    return EqualNoCase(TrimBlanks({field, Width}), text_);
  }

 private:
  std::string_view text_;
  char upper_ = ' ';
  char lower_ = ' ';
};

}  // namespace vintoral
