// The window of a dialog: what all of them have in common. It comes and goes with its form, never by itself.
#pragma once

#include <QWidget>

#include "station/forms/Form.h"
#include "window/controls/Mirror.h"

namespace vintoral {

class Hands;
class InputFilter;

class DialogWindow : public QWidget {
 public:
  /// Stands before `owner`, which destroys it if nothing else has. The form must outlive it, or be told of by
  /// Retire.
  DialogWindow(Form& form, Hands& hands, QWidget* owner);

  /// Shows or hides it as its form is, and brings it up to date. A modal one holds all other windows.
  void Refresh(bool modal);
  /// Its form is gone: off the screen at once, nothing of the form is touched any more, and it is destroyed
  /// when the event that it may be in the middle of is through.
  void Retire();
  const Mirror& Shown() const { return mirror_; }

 protected:
  void closeEvent(QCloseEvent* event) override;
  Mirror mirror_;

 private:
  void Appear(bool modal);
  Form& form_;
  Hands& hands_;
  InputFilter* filter_;
};

}  // namespace vintoral
