// What every form of the station is made of: its controls under their names, the keyboard focus, and what it
// does with a key before its controls see it. Nothing here knows a toolkit.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/Screen.h"
#include "station/forms/Controls.h"

namespace vintoral {

class Forms;

class Form : public ScreenForm {
 public:
  /// `name`: "Form6".
  explicit Form(std::string name) : name_(std::move(name)) {}
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  const std::string& Name() const override { return name_; }
  bool Shown() const override { return shown_; }
  /// Set by Forms alone, who shows and hides them.
  void SetShown(bool shown) { shown_ = shown; }

  /// All controls, in the order in which they were named: the order of Tab.
  const std::vector<Control*>& Controls() const { return controls_; }
  /// Its timers, in the order in which simultaneous ticks run.
  const std::vector<Timer*>& Timers() const { return timers_; }
  /// By screen name, "TxtCampo(0)"; case is ignored. Null when there is none.
  Control* Find(std::string_view name) const;

  /// The focused control; null when the focus is on the form itself.
  Control* Focus() const { return focus_; }
  /// Moves the focus; a control that can't take it leaves the focus where it is. Null puts it on the form.
  void SetFocus(Control* control);
  /// To the next control that takes it, or to the one before; marks all of a text.
  void MoveFocus(bool back);

  /// A key as the form sees it, before its controls: virtual key code and mask (1 shift, 2 control, 4 alt).
  /// True when a command was carried out.
  virtual bool Form_KeyDown(int /*KeyCode*/, int /*Shift*/) { return false; }
  /// A character, or Tab, is on its way to the focused control. True when the form has taken it.
  virtual bool Form_KeyPress(char /*character*/) { return false; }
  /// The pointer has left the form's controls.
  virtual void Form_MouseMove() {}
  /// Asks whether it may be closed.
  virtual bool Form_QueryUnload() { return true; }
  /// Its close box was pressed: it goes, unless it refuses.
  virtual void CloseBox(Forms& forms);
  /// It is being closed, by whatever way.
  virtual void Form_Unload() {}

 protected:
  void Add(Control& control, std::string name);
  template <std::size_t N, class C>
  void Add(std::array<C, N>& family, std::string_view name) {
    for (std::size_t i = 0; i < N; ++i)
      Add(family[i], std::string(name) + "(" + std::to_string(i) + ")");
  }

 private:
  std::string name_;
  bool shown_ = false;
  std::vector<Control*> controls_;
  std::vector<Timer*> timers_;
  Control* focus_ = nullptr;
};

}  // namespace vintoral
