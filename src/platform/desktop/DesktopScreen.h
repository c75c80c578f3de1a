// Message boxes, the beep, the wait cursor and the progress of long work on the operator's screen. All boxes
// of the program come from here: the station's thread asks and waits, the window's thread shows.
//
// A box is answered by Enter, Esc, Alt and a letter, or a button that has the keyboard: never by a mere
// character, which may be a bar code reader's.
#pragma once

#include <QPointer>
#include <functional>
#include <memory>

#include "platform/Screen.h"
#include "platform/Seam.h"
#include "platform/desktop/ReaderGuard.h"

class QKeyEvent;
class QMessageBox;
class QProgressDialog;
class QWidget;

namespace vintoral {

class DesktopScreen : public Screen {
 public:
  /// Made on the window's thread; `seam` outlives it.
  explicit DesktopScreen(Seam& seam);
  ~DesktopScreen() override;
  Answer Show(const Box& box) override;
  void ShowModal(const ScreenForm& form) override;
  void Wait(std::int64_t milliseconds) override;
  void Beep() override;
  void Busy(bool busy) override;
  bool Working(const String& what, double done) override;
  void Worked() override;

  /// Runs on the station's thread before each box, dialog and wait: lets the windows be shown up to date.
  std::function<void()> BeforeWaiting;

  // Of the window's thread.

  /// The window that the next box belongs to; without it, none.
  std::function<QWidget*()> Owner;
  /// Runs when a box of the station's has come up.
  std::function<void()> OnUp;
  /// Runs when a box has come up: a test answers it here.
  std::function<void(QMessageBox&, const Box&)> OnShown;
  /// Runs when a box of the station's is over: answered, or gone with its window, which is the harmless
  /// answer.
  std::function<void(const Box&, Answer)> OnAnswered;
  /// Shows a box, which the caller destroys; `answered` runs once. For one of the window's own, which the
  /// station needs not know.
  QMessageBox& Ask(const Box& box, std::function<void(Answer)> answered);
  /// The box that is up takes a key that was kept; false when none of the station's is up: what was typed
  /// before the window asked is no answer to it. Null: nothing that is for a box.
  bool ToBox(const QKeyEvent* key);
  /// The work under way is broken off; false when there is none that can be, or it is being broken off
  /// already.
  bool BreakOff();
  /// The operator sees how far the work under way is.
  bool ShowsWork() const;
  /// The station is late: the pointer says so, whatever the station itself says.
  void ShowLate(bool late);

 private:
  struct Work;
  QMessageBox& Raise(const Box& box, std::function<void(Answer)> answered);
  void ShowWork(const String& what, const std::shared_ptr<Work>& work);
  void ShowPointer();

  Seam& seam_;
  ReaderGuard guard_;

  // Of the station's thread.
  bool busy_ = false;
  std::shared_ptr<Work> work_;

  // Of the window's thread.
  QPointer<QMessageBox> own_;           ///< what the window asks by itself
  QPointer<QProgressDialog> progress_;  ///< goes with the window that it belongs to, too
  std::weak_ptr<Work> shownWork_;
  bool shownBusy_ = false, late_ = false, hourglass_ = false;
};

}  // namespace vintoral
