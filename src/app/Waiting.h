// What the window does by itself while the station waits for the folder: it says so, and it can be closed.
#pragma once

#include <QSocketNotifier>
#include <QTimer>
#include <chrono>
#include <functional>
#include <optional>

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
  /// A close box, while the operator has been told: the window asks, since the station can't. False
  /// otherwise.
  bool SeeToClosing();
  /// The system wants the program to end, or the operator, who has been asked: see GoneSoon.
  void EndSoon();
  /// The program is to be gone, at the latest in a moment: a station that hangs is left behind, since all
  /// that was confirmed is on the disk.
  void GoneSoon();
  /// What is left of that moment once the event loop is over.
  std::chrono::milliseconds Left() const;
  /// Throws away the closing that waits for the station; true when there was one.
  std::function<bool()> Withdraw;
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
  std::optional<std::chrono::steady_clock::time_point> ending_;  ///< when it was told to be gone
  std::chrono::milliseconds patience_;                           ///< from then on
};

}  // namespace vintoral
