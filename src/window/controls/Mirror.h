// The window as the model's mirror: after each event, and before each wait inside one, everything that the
// model shows otherwise than the widgets do is brought up to date.
#pragma once

#include <QHash>
#include <QObject>
#include <memory>
#include <vector>

#include "station/forms/Form.h"
#include "window/controls/View.h"

namespace vintoral {

class Mirror {
 public:
  explicit Mirror(Form& model) : model_(model) {}

  View& Add(std::unique_ptr<View> view);
  /// A part of a widget counts as its whole: the editor inside a list.
  void AddPart(const QObject& part, View& whole) { byWidget_.insert(&part, &whole); }
  /// Where the keyboard rests when no control has it.
  void RestOn(QWidget& widget) { rest_ = &widget; }

  void Sync();

  /// Null for a widget that shows no control.
  View* Of(const QObject* widget) const { return byWidget_.value(widget, nullptr); }
  /// Null for a control that nothing shows.
  QWidget* WidgetOf(const Control& control) const;

 private:
  void ShowFocus();
  Form& model_;
  std::vector<std::unique_ptr<View>> views_;
  QHash<const QObject*, View*> byWidget_;
  QHash<const Control*, View*> byControl_;
  QWidget* rest_ = nullptr;
};

}  // namespace vintoral
