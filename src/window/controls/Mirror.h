// The window as the model's mirror: after each event, and before each wait inside one, everything that the
// model shows otherwise than the widgets do is brought up to date.
#pragma once

#include <QHash>
#include <QObject>
#include <functional>
#include <memory>
#include <vector>

#include "window/controls/SnapshotTaker.h"
#include "window/controls/View.h"

namespace vintoral {

class Mirror {
 public:
  /// `form` is loaded now, but may go at any time.
  Mirror(Forms& forms, Form& form) : taker_(forms, form, snapshot_) {}

  /// The control of this name, part of the snapshot from here on. The window was built for another form when
  /// there is none of this name and kind: that ends the program.
  template <class S>
  S& StateOf(const std::string& control) {
    auto* const state = dynamic_cast<S*>(taker_.Add(control));
    if (state == nullptr) Fail(control);
    return *state;
  }
  View& Add(std::unique_ptr<View> view);
  /// A part of a widget counts as its whole: the editor inside a list.
  void AddPart(const QObject& part, View& whole) { byWidget_.insert(&part, &whole); }
  /// Runs whenever the views have been brought up to date: for what follows from several controls.
  void AfterViews(std::function<void()> step) { afterViews_.push_back(std::move(step)); }
  /// Where the keyboard rests when no control has it.
  void RestOn(QWidget& widget) { rest_ = &widget; }

  /// From the model into the snapshot.
  void Take() { taker_.Take(); }
  /// From the snapshot into the widgets.
  void Show();
  void Sync();
  const FormSnapshot& Snapshot() const { return snapshot_; }

  /// Null for a widget that shows no control.
  const View* Of(const QObject* widget) const { return byWidget_.value(widget, nullptr); }
  /// Null for a name of no control, or of one that nothing shows.
  QWidget* WidgetOf(const std::string& control) const;

 private:
  [[noreturn]] void Fail(const std::string& control) const;
  void ShowFocus() const;
  FormSnapshot snapshot_;
  SnapshotTaker taker_;
  std::vector<std::unique_ptr<View>> views_;
  std::vector<std::function<void()>> afterViews_;
  QHash<const QObject*, View*> byWidget_;
  QHash<const ControlState*, View*> byState_;
  QWidget* rest_ = nullptr;
};

}  // namespace vintoral
