// One control of the snapshot and the widget that shows it.
#pragma once

#include "window/controls/Snapshot.h"

class QWidget;

namespace vintoral {

class View {
 public:
  /// Both outlive the view.
  View(ControlState& state, QWidget& widget);
  View(const View&) = delete;
  View& operator=(const View&) = delete;
  virtual ~View() = default;

  /// Brings the widget up to date; what is the same as before is left alone.
  void Show();
  const ControlState& State() const { return state_; }
  QWidget& Widget() const { return widget_; }

 protected:
  /// The properties of this kind of control, while it is visible.
  virtual void ShowOwn() {}
  /// Is it becoming visible with this round?
  bool Appears() const { return appears_; }

 private:
  void ShowToolTip();
  ControlState& state_;
  QWidget& widget_;
  bool appears_ = false;
};

}  // namespace vintoral
