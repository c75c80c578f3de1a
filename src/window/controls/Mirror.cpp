#include "window/controls/Mirror.h"

#include <QWidget>
#include <algorithm>

namespace vintoral {

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

void Mirror::Sync() {
  Take();
  Show();
}

void Mirror::Show() {
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
