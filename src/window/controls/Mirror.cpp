#include "window/controls/Mirror.h"

#include <QWidget>
#include <algorithm>
#include <utility>

namespace vintoral {

Mirror::Mirror(Snapshots::Taken form) : form_(std::move(form)) {
  const std::lock_guard lock(form_->Lock());
  snapshot_.name = form_->Snapshot().name;
}

ControlState* Mirror::Add(const std::string& control) {
  const auto known = std::find_if(snapshot_.controls.begin(), snapshot_.controls.end(),
                                  [&](const auto& state) { return state->id.control == control; });
  if (known != snapshot_.controls.end()) return known->get();
  const std::lock_guard lock(form_->Lock());
  const auto& all = form_->Snapshot().controls;
  const auto taken =
      std::find_if(all.begin(), all.end(), [&](const auto& state) { return state->id.control == control; });
  if (taken == all.end()) return nullptr;
  std::unique_ptr<ControlState>& copy = snapshot_.controls.emplace_back((*taken)->Another());
  copy->id = (*taken)->id;
  copy->Follow(**taken);
  pairs_.push_back({copy.get(), taken->get()});
  copied_ = 0;  // the focus may be on this one
  return copy.get();
}

bool Mirror::Copy() {
  const std::lock_guard lock(form_->Lock());
  if (std::exchange(copied_, form_->Version()) == form_->Version()) return false;
  const FormSnapshot& taken = form_->Snapshot();
  snapshot_.shown = taken.shown;
  snapshot_.modal = taken.modal;
  snapshot_.focusOnForm = taken.focusOnForm;
  snapshot_.focus = nullptr;
  for (const Pair& pair : pairs_) {
    pair.copy->Follow(*pair.taken);
    if (pair.taken == taken.focus) snapshot_.focus = pair.copy;
  }
  return true;
}

View& Mirror::Add(std::unique_ptr<View> view) {
  byWidget_.insert(&view->Widget(), view.get());
  byState_.insert(&view->State(), view.get());
  views_.push_back(std::move(view));
  return *views_.back();
}

void Mirror::Fail(const std::string& control) const {
  qFatal("%s has no %s of the kind that its window shows", snapshot_.name.c_str(), control.c_str());
}

QWidget* Mirror::WidgetOf(const std::string& control) const {
  const auto found = std::find_if(views_.begin(), views_.end(),
                                  [&](const auto& view) { return view->State().id.control == control; });
  return found == views_.end() ? nullptr : &(*found)->Widget();
}

void Mirror::Show() {
  Copy();
  for (const auto& view : views_)
    view->Show();
  for (const auto& step : afterViews_)
    step();
  ShowFocus();
}

void Mirror::ShowFocus() const {
  const View* const view = byState_.value(snapshot_.focus, nullptr);
  QWidget* const widget = snapshot_.focusOnForm ? rest_ : view == nullptr ? nullptr : &view->Widget();
  if (widget != nullptr && widget->window()->focusWidget() != widget) widget->setFocus(Qt::OtherFocusReason);
}

}  // namespace vintoral
