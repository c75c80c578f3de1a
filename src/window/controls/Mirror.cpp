#include "window/controls/Mirror.h"

#include <QWidget>

namespace vintoral {

View& Mirror::Add(std::unique_ptr<View> view) {
  byWidget_.insert(&view->Widget(), view.get());
  byControl_.insert(&view->Model(), view.get());
  views_.push_back(std::move(view));
  return *views_.back();
}

QWidget* Mirror::WidgetOf(const Control& control) const {
  const View* const view = byControl_.value(&control, nullptr);
  return view == nullptr ? nullptr : &view->Widget();
}

void Mirror::Sync() {
  for (const auto& view : views_)
    view->Sync();
  ShowFocus();
}

void Mirror::ShowFocus() {
  const Control* const control = model_.Focus();
  QWidget* const widget = control == nullptr ? rest_ : WidgetOf(*control);
  if (widget != nullptr && widget->window()->focusWidget() != widget) widget->setFocus(Qt::OtherFocusReason);
}

}  // namespace vintoral
