#include "station/forms/Form.h"

#include <algorithm>

#include "station/forms/Forms.h"

namespace vintoral {

void Form::Add(Control& control, std::string name) {
  control.Name = std::move(name);
  control.Owner = this;
  controls_.push_back(&control);
  if (auto* timer = dynamic_cast<Timer*>(&control)) timers_.push_back(timer);
}

Control* Form::Find(std::string_view name) const {
  const auto found = std::find_if(controls_.begin(), controls_.end(),
                                  [&](const Control* c) { return EqualNoCase(c->Name, name); });
  return found == controls_.end() ? nullptr : *found;
}

void Form::SetFocus(Control* control) {
  if (control == focus_ || (control != nullptr && !control->TakesFocus())) return;
  Control* const left = focus_;
  focus_ = control;
  if (left != nullptr && left->OnLostFocus) left->OnLostFocus();
  if (focus_ == control && control != nullptr && control->OnGotFocus) control->OnGotFocus();
}

void Form::MoveFocus(bool back) {
  const auto count = controls_.size();
  const auto found = std::find(controls_.begin(), controls_.end(), focus_);
  std::size_t at =
      found == controls_.end() ? (back ? 0 : count - 1) : static_cast<std::size_t>(found - controls_.begin());
  for (std::size_t i = 0; i < count; ++i) {
    at = (at + (back ? count - 1 : 1)) % count;
    if (!controls_[at]->TakesFocus()) continue;
    SetFocus(controls_[at]);
    auto* const box = dynamic_cast<TextBox*>(controls_[at]);
    if (box != nullptr && !box->MultiLine) box->SelectAll();
    return;
  }
}

void Form::CloseBox(Forms& forms) {
  if (Form_QueryUnload()) forms.Unload(*this);
}

}  // namespace vintoral
