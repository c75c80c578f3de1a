// The window as the station's mirror: whatever the station took of a form otherwise than the widgets show it
// is brought up to date. It knows the form as values alone.
#pragma once

#include <QHash>
#include <QObject>
#include <functional>
#include <memory>
#include <vector>

#include "window/controls/Snapshots.h"
#include "window/controls/View.h"

namespace vintoral {

class Mirror {
 public:
  explicit Mirror(Snapshots::Taken form);

  /// The control of this name, part of the snapshot from here on. The window was built for another form when
  /// there is none of this name, spelt exactly so, and kind: that ends the program.
  template <class S>
  S& StateOf(const std::string& control) {
    auto* const state = dynamic_cast<S*>(Add(control));
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

  /// From what the station took into the snapshot; false when nothing has changed since.
  bool Copy();
  /// That, and into the widgets.
  void Show();
  const FormSnapshot& Snapshot() const { return snapshot_; }
  const Snapshots::Taken& Of() const { return form_; }

  /// Null for a widget that shows no control.
  const View* Of(const QObject* widget) const { return byWidget_.value(widget, nullptr); }
  /// Null for a name of no control, or of one that nothing shows.
  QWidget* WidgetOf(const std::string& control) const;

 private:
  /// A control and what the station took of it.
  struct Pair {
    ControlState* copy;
    const ControlState* taken;
  };
  ControlState* Add(const std::string& control);
  [[noreturn]] void Fail(const std::string& control) const;
  void ShowFocus() const;

  Snapshots::Taken form_;
  FormSnapshot snapshot_;
  std::vector<Pair> pairs_;
  std::uint64_t copied_ = 0;  ///< the version of the form that the snapshot is of
  std::vector<std::unique_ptr<View>> views_;
  std::vector<std::function<void()>> afterViews_;
  QHash<const QObject*, View*> byWidget_;
  QHash<const ControlState*, View*> byState_;
  QWidget* rest_ = nullptr;
};

}  // namespace vintoral
