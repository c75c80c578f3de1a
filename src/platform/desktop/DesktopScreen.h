// Message boxes, the beep and the wait cursor on the operator's screen. All boxes of the program come from
// here.
//
// A box is answered by Enter, Esc, Alt and a letter, or a button that has the keyboard: never by a mere
// character, which may be a bar code reader's.
#pragma once

#include <QPointer>
#include <functional>

#include "platform/Screen.h"
#include "platform/desktop/ReaderGuard.h"

class QMessageBox;
class QProgressDialog;
class QWidget;

namespace vintoral {

class DesktopScreen : public Screen {
 public:
  DesktopScreen();
  ~DesktopScreen() override;
  Answer Show(const Box& box) override;
  void ShowModal(const ScreenForm& form) override;
  void Wait(std::int64_t milliseconds) override;
  void Beep() override;
  void Busy(bool busy) override;
  bool Working(const String& what, double done) override;
  void Worked() override;

  /// Runs before each box, dialog and wait: shows the windows up to date.
  std::function<void()> BeforeWaiting;
  /// The window that the next box belongs to; without it, none.
  std::function<QWidget*()> Owner;
  /// Runs when a box has come up, in its event loop: a test answers it here.
  std::function<void(QMessageBox&, const Box&)> OnShown;

 private:
  ReaderGuard guard_;
  QPointer<QProgressDialog> progress_;  ///< goes with the window that it belongs to, too
  bool busy_ = false;
};

}  // namespace vintoral
