// The window of a dialog: what all of them have in common. It comes and goes with its form, never by itself.
#pragma once

#include <QWidget>

#include "window/controls/Mirror.h"

namespace vintoral {

class Hands;
class InputFilter;

class DialogWindow : public QWidget {
 public:
  /// Of a form that the station took. Stands before `owner`, which destroys it if nothing else has.
  DialogWindow(const Snapshots::Taken& form, Hands& hands, QWidget* owner);

  /// Shows or hides it as its form is, and brings it up to date. A modal one holds all other windows.
  void Refresh();
  /// Its form is gone: off the screen at once, nothing passes any more, and it is destroyed
  /// when the event that it may be in the middle of is through.
  void Retire();
  const Mirror& Shown() const { return mirror_; }

 protected:
  void closeEvent(QCloseEvent* event) override;
  Mirror mirror_;

 private:
  void Appear();
  Hands& hands_;
  InputFilter* filter_;
};

}  // namespace vintoral
