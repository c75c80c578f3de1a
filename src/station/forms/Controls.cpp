#include "station/forms/Controls.h"

#include <algorithm>

#include "common/Numbers.h"

namespace vintoral {

std::int64_t Control::TagNumber() const {
  return LeadingInteger(Tag);
}

void TextBox::SetText(const String& text) {
  SelStart = 0;
  SelLength = 0;
  if (text == text_) return;
  text_ = text;
  if (OnChange) OnChange();
}

void TextBox::Replace(std::size_t start, std::size_t length, const String& text) {
  const std::string& old = text_.Bytes();
  std::string replaced = old.substr(0, start) + text.Bytes();
  if (start + length < old.size()) replaced += old.substr(start + length);
  SelStart = start + text.Size();
  SelLength = 0;
  if (replaced == old) return;
  text_ = String(std::move(replaced));
  if (OnChange) OnChange();
}

void TextBox::Insert(const String& text) {
  const std::size_t start = std::min(SelStart, text_.Size());
  const std::size_t length = std::min(SelLength, text_.Size() - start);
  const std::size_t kept = text_.Size() - length;
  const std::size_t room = MaxLength == 0 ? text.Size() : MaxLength > kept ? MaxLength - kept : 0;
  Replace(start, length, Left(text, room));
}

void TextBox::EraseBackward() {
  if (SelLength > 0) return Replace(std::min(SelStart, text_.Size()), SelLength, {});
  const std::size_t caret = std::min(SelStart, text_.Size());
  if (caret > 0) Replace(caret - 1, 1, {});
}

void TextBox::EraseForward() {
  const std::size_t start = std::min(SelStart, text_.Size());
  if (start < text_.Size()) Replace(start, std::max<std::size_t>(SelLength, 1), {});
}

void TextBox::RaiseToCapitals() {
  text_ = Upper(text_);
}

void TextBox::SelectAll() {
  SelStart = 0;
  SelLength = text_.Size();
}

void ComboBox::SetText(const String& text) {
  text_ = text;
  const auto item =
      std::find_if(list_.begin(), list_.end(), [&](const String& i) { return EqualNoCase(i, text); });
  index_ = item == list_.end() ? -1 : static_cast<int>(item - list_.begin());
}

void ComboBox::Select(int index) {
  const bool exists = index >= 0 && static_cast<std::size_t>(index) < list_.size();
  index_ = exists ? index : -1;
  text_ = exists ? list_[static_cast<std::size_t>(index)] : String();
}

void ComboBox::Clear() {
  list_.clear();
  text_ = {};
  index_ = -1;
}

void Timer::Arm() {
  if (clock_ != nullptr) due_ = clock_->Ticks() + interval_;
}

void Timer::SetInterval(int milliseconds) {
  if (milliseconds == interval_) return;
  interval_ = milliseconds;
  Arm();
}

void Timer::SetEnabled(bool enabled) {
  if (enabled == Enabled) return;
  Enabled = enabled;
  Arm();
}

void Timer::Restart() {
  SetEnabled(false);
  SetEnabled(true);
}

void Timer::Advance() {
  const std::int64_t now = clock_ == nullptr ? due_ : clock_->Ticks();
  due_ += interval_;
  if (due_ <= now) due_ = now + interval_;
}

}  // namespace vintoral
