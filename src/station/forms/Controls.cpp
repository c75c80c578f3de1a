#include "station/forms/Controls.h"

#include <algorithm>

#include "common/Numbers.h"
#include "station/forms/TextCaret.h"

namespace vintoral {

std::int64_t Control::TagNumber() const {
  return LeadingInteger(Tag);
}

std::size_t EditableText::Start() const {
  return std::min(SelStart, text_.Size());
}

std::size_t EditableText::End() const {
  return Start() + std::min(SelLength, text_.Size() - Start());
}

std::size_t EditableText::Caret() const {
  return caretFirst_ ? Start() : End();
}

String EditableText::Replaced(std::size_t start, std::size_t length, std::string_view text) const {
  const std::string& old = text_.Bytes();
  std::string replaced = old.substr(0, start).append(text);
  if (start + length < old.size()) replaced += old.substr(start + length);
  return String(std::move(replaced));
}

void EditableText::Replace(std::size_t start, std::size_t length, const String& text) {
  String replaced = Replaced(start, length, text);
  SelStart = start + text.Size();
  SelLength = 0;
  if (replaced == text_) return;
  if (LimitRule) {
    MaxLength = LimitRule(replaced);
    replaced = Left(replaced, MaxLength);
    SelStart = std::min(SelStart, replaced.Size());
  }
  text_ = std::move(replaced);
  TextChanged();
}

void EditableText::Insert(const String& text) {
  const std::size_t length = End() - Start();
  if (LimitRule) MaxLength = LimitRule(Replaced(Start(), length, text));
  const std::size_t kept = text_.Size() - length;
  const std::size_t room = MaxLength == 0 ? text.Size() : MaxLength - std::min(MaxLength, kept);
  Replace(Start(), length, Left(text, room));
}

void EditableText::EraseBackward() {
  const std::size_t from = SelLength > 0 ? Start() : CaretBefore(text_, Start());
  Replace(from, End() - from, {});
}

void EditableText::EraseForward() {
  const std::size_t until = SelLength > 0 ? End() : CaretBehind(text_, Start());
  Replace(Start(), until - Start(), {});
}

void EditableText::Select(std::size_t start, std::size_t length) {
  SelStart = CaretAt(text_, start);
  SelLength = CaretAt(text_, start + std::min(length, text_.Size())) - SelStart;
  caretFirst_ = false;
}

void EditableText::SelectAll() {
  Select(0, text_.Size());
}

void EditableText::MoveCaret(std::size_t position, bool extend) {
  const std::size_t to = CaretAt(text_, position);
  const std::size_t other = extend ? (caretFirst_ ? End() : Start()) : to;
  SelStart = std::min(to, other);
  SelLength = std::max(to, other) - SelStart;
  caretFirst_ = to < other;
}

void TextBox::SetText(const String& text) {
  Select(0, 0);
  if (text == text_) return;
  text_ = text;
  TextChanged();
}

void TextBox::TextChanged() {
  if (OnChange) OnChange();
}

void TextBox::RaiseToCapitals() {
  text_ = Upper(text_);
}

void ComboBox::TextChanged() {
  const auto item =
      std::find_if(list_.begin(), list_.end(), [&](const String& i) { return EqualNoCase(i, text_); });
  index_ = item == list_.end() ? -1 : static_cast<int>(item - list_.begin());
  if (OnChange) OnChange();
}

void ComboBox::ShowWhole() {
  EditableText::Select(text_.Size(), 0);
}

void ComboBox::SetText(const String& text) {
  text_ = text;
  TextChanged();
  ShowWhole();
}

void ComboBox::Select(int index) {
  const bool exists = index >= 0 && static_cast<std::size_t>(index) < list_.size();
  index_ = exists ? index : -1;
  text_ = exists ? list_[static_cast<std::size_t>(index)] : String();
  ShowWhole();
}

void ComboBox::ShowInstead(const String& text) {
  text_ = text;
  ShowWhole();
}

void ComboBox::Clear() {
  list_.clear();
  Select(-1);
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
