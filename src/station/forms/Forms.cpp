#include "station/forms/Forms.h"

#include <algorithm>
#include <limits>

namespace vintoral {

Forms::Forms(Form& main, Screen& screen, const Clock& clock)
    : main_(main), screen_(screen), clock_(clock), used_(&main) {
  main_.SetShown(true);
}

std::vector<Form*> Forms::Loaded() const {
  std::vector<Form*> all{&main_};
  for (const auto& dialog : dialogs_)
    all.push_back(dialog.get());
  return all;
}

Form* Forms::Find(std::string_view name) const {
  for (Form* form : Loaded()) {
    if (EqualNoCase(form->Name(), name)) return form;
  }
  return nullptr;
}

void Forms::ShowModal(Form& form) {
  if (ended_ || form.Shown()) return;
  const Handling alive(*this);  // whoever unloads it, it lives until the screen has let go of it
  form.SetShown(true);
  modal_.push_back(&form);
  screen_.ShowModal(form);
  std::erase(modal_, &form);
  form.SetShown(false);
}

void Forms::Show(Form& form) {
  if (ended_) return;
  form.SetShown(true);
  used_ = &form;
}

void Forms::Hide(Form& form) {
  form.SetShown(false);
  if (used_ == &form) used_ = &main_;
}

void Forms::Unload(Form& form) {
  const auto found =
      std::find_if(dialogs_.begin(), dialogs_.end(), [&](const auto& each) { return each.get() == &form; });
  if (found == dialogs_.end()) return;
  unloaded_.push_back(std::move(*found));
  dialogs_.erase(found);
  Hide(form);
  form.Form_Unload();
  if (handling_ == 0) unloaded_.clear();
}

void Forms::UnloadDialogs() {
  while (!dialogs_.empty())
    Unload(*dialogs_.back());
}

Form& Forms::Active() const {
  return modal_.empty() ? *used_ : *modal_.back();
}

void Forms::Activate(Form& form) {
  if (modal_.empty() && form.Shown()) used_ = &form;
}

bool Forms::IsModal(const Form& form) const {
  return form.Shown() && std::find(modal_.begin(), modal_.end(), &form) != modal_.end();
}

bool Forms::Reaches(const Form& form) const {
  return form.Shown() && (modal_.empty() || modal_.back() == &form);
}

std::int64_t Forms::NextTick() const {
  const Timer* const first = ended_ ? nullptr : FirstDue(std::numeric_limits<std::int64_t>::max());
  return first == nullptr ? -1 : first->Due();
}

Timer* Forms::FirstDue(std::int64_t now) const {
  Timer* first = nullptr;
  for (const Form* form : Loaded()) {
    for (Timer* timer : form->Timers()) {
      const bool due = timer->Running() && timer->Due() <= now;
      if (due && (first == nullptr || timer->Due() < first->Due())) first = timer;
    }
  }
  return first;
}

void Forms::RunTicks() {
  const Handling handling(*this);
  const std::int64_t now = clock_.Ticks();
  while (Timer* timer = ended_ ? nullptr : FirstDue(now)) {
    timer->Advance();
    timer->OnTick();
  }
}

void Forms::End() {
  ended_ = true;
  for (Form* form : Loaded()) {
    for (Timer* timer : form->Timers())
      timer->SetEnabled(false);
  }
  UnloadDialogs();
}

}  // namespace vintoral
