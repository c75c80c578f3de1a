// One control of the model and the widget that shows it.
#pragma once

#include "station/forms/Controls.h"
#include "window/controls/Seen.h"

class QWidget;

namespace vintoral {

class View {
 public:
  View(Control& control, QWidget& widget);
  View(const View&) = delete;
  View& operator=(const View&) = delete;
  virtual ~View() = default;

  /// Brings the widget up to date; what is the same as before is left alone.
  void Sync();
  Control& Model() const { return control_; }
  QWidget& Widget() const { return widget_; }

 protected:
  /// The properties of this kind of control, while it is visible.
  virtual void ShowOwn() {}
  /// Is it becoming visible with this round?
  bool Appears() const { return appears_; }

 private:
  void ShowToolTip();
  Control& control_;
  QWidget& widget_;
  Seen<bool> visible_;
  bool appears_ = false;
  Seen<bool> enabled_;
  Seen<String> toolTip_;
};

}  // namespace vintoral
