// What the window does by itself while the station waits for the folder: it says so, and it can be closed.
#pragma once

#include <QSocketNotifier>
#include <QTimer>
#include <functional>

namespace vintoral {

class DesktopPlatform;
class MainWindow;

class Waiting {
 public:
  /// Both outlive it.
  Waiting(DesktopPlatform& devices, MainWindow& window);

  /// The operator has been told that the station is busy.
  bool Late() const { return late_; }
  /// Looks whether it still is.
  void Look();
  /// The system wants the program to end, or the operator, who has been asked: see GoneSoon.
  void EndSoon();
  /// The program is to be gone, at the latest in a moment: a station that hangs is left behind, since all
  /// that was confirmed is on the disk.
  void GoneSoon();
  /// Asks the station to end without another question.
  std::function<void()> OnEnd;

 private:
  void Ask();
  DesktopPlatform& devices_;
  MainWindow& window_;
  QSocketNotifier rings_;
  QTimer looks_;
  bool late_ = false;
  bool asking_ = false;
};

}  // namespace vintoral
