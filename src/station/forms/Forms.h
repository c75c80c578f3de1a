// The forms of a station: which are loaded, which of them hands reach, and how a dialog comes and goes. Every
// dialog is opened here.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "platform/Clock.h"
#include "platform/Screen.h"
#include "station/forms/Form.h"

namespace vintoral {

class Forms {
 public:
  /// `main` is there as long as the program runs and is not owned; screen and clock outlive this.
  Forms(Form& main, Screen& screen, const Clock& clock);
  Forms(const Forms&) = delete;
  Forms& operator=(const Forms&) = delete;

  Form& Main() const { return main_; }
  /// The main form, then the dialogs in the order in which they were loaded, shown or not.
  std::vector<Form*> Loaded() const;
  /// A loaded form by its name; case is ignored. Null when there is none.
  Form* Find(std::string_view name) const;

  /// Takes a dialog in without showing it.
  template <class F>
  F& Load(std::unique_ptr<F> form) {
    F& loaded = *form;
    dialogs_.push_back(std::move(form));
    return loaded;
  }
  /// Shows a loaded dialog that holds all other forms, and returns when it is hidden or unloaded, or the
  /// program ends.
  void ShowModal(Form& form);
  /// Shows a loaded dialog that holds nobody, and makes it the active form.
  void Show(Form& form);
  void Hide(Form& form);
  /// Its Form_Unload, and off. It may be in the middle of an event of its own: it lives on until that is
  /// through.
  void Unload(Form& form);
  void UnloadDialogs();

  /// Keys reach this form: the innermost modal one, else the one of the others that hands used last.
  Form& Active() const;
  /// Hands use `form` from here on. Does nothing when a modal form holds it.
  void Activate(Form& form);
  /// It is shown, and its caller waits until it goes.
  bool IsModal(const Form& form) const;
  /// No modal form stands before it.
  bool Reaches(const Form& form) const;

  /// The earliest moment (Clock::Ticks) at which a timer of any form is due, or -1 when none runs.
  std::int64_t NextTick() const;
  /// Runs, in order of time, every tick that is due by now.
  void RunTicks();

  /// The program ends: every dialog is unloaded, nothing ticks, and no input counts any more.
  void End();
  bool Ended() const { return ended_; }

  Screen& OnScreen() const { return screen_; }

  /// One piece of input, from its start to its end; what was unloaded meanwhile is freed when the outermost
  /// ends.
  class Handling {
   public:
    explicit Handling(Forms& forms) : forms_(forms) { ++forms_.handling_; }
    Handling(const Handling&) = delete;
    Handling& operator=(const Handling&) = delete;
    ~Handling() {
      if (--forms_.handling_ == 0) forms_.unloaded_.clear();
    }

   private:
    Forms& forms_;
  };

 private:
  Timer* FirstDue(std::int64_t now) const;

  Form& main_;
  Screen& screen_;
  const Clock& clock_;
  std::vector<std::unique_ptr<Form>> dialogs_, unloaded_;
  std::vector<Form*> modal_;  ///< the innermost last
  Form* used_;                ///< the form that is not modal and that hands used last
  int handling_ = 0;
  bool ended_ = false;
};

}  // namespace vintoral
