// The windows of the dialogs: one for each dialog that is loaded and has been shown, kept like it.
#pragma once

#include <QHash>
#include <string_view>

#include "window/controls/Snapshots.h"

class QWidget;

namespace vintoral {

class DialogWindow;
class MainWindow;

class Dialogs {
 public:
  /// Follows each refresh of the main window, which it must not outlive.
  Dialogs(const Snapshots& snapshots, MainWindow& main);
  ~Dialogs();
  Dialogs(const Dialogs&) = delete;
  Dialogs& operator=(const Dialogs&) = delete;

  /// Of a dialog by its name; null when it has no window.
  DialogWindow* Find(std::string_view name) const;
  /// The window of the form that keys reach: what comes up now stands before it.
  QWidget* Active() const;

 private:
  void Refresh();
  void RetireGone(const Snapshots::Screen& screen);
  void BringForward();
  DialogWindow* WindowOf(const Snapshots::Taken& form);

  const Snapshots& snapshots_;
  MainWindow& main_;
  QHash<const TakenForm*, DialogWindow*> windows_;
  Snapshots::Taken active_;
  Snapshots::Taken front_;  ///< that keys reached when this looked last
};

}  // namespace vintoral
