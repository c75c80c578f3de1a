// The whole station of a desktop: devices, model and windows. The model lives on a thread of its own; the
// windows know what it took of itself.
#pragma once

#include <atomic>
#include <chrono>
#include <functional>
#include <string>

#include "app/Waiting.h"
#include "platform/desktop/DesktopPlatform.h"
#include "station/form1/Form1.h"
#include "window/Dialogs.h"
#include "window/controls/InputQueue.h"
#include "window/controls/Snapshots.h"
#include "window/form1/MainWindow.h"

namespace vintoral {

class Station {
 public:
  /// In `folder`, a path of this system; the Toolkit has started. The start sequence begins at once, beside
  /// the making of the windows; the main one shows itself when that is through, or asks something.
  explicit Station(const std::string& folder);
  /// What takes the place of the machine's own, in tests; all of it outlives the station.
  struct Instead {
    vintoral::Camera* camera = nullptr;
    vintoral::Clock* clock = nullptr;  ///< any thread may read it
    vintoral::Random* chance = nullptr;
  };
  Station(const std::string& folder, const Instead& instead);
  Station(const Station&) = delete;
  Station& operator=(const Station&) = delete;
  /// Waits for the station's thread, which has been asked to end.
  ~Station();

  /// The system wants the program to end: nobody is asked.
  void EndWithoutAsking() { Waiting.EndSoon(); }
  /// Of the end: false when something hangs in the folder. Then there is nothing left but to go.
  bool HasEnded();
  /// Of the end: how long it may still take in all.
  std::chrono::milliseconds Left() const { return Waiting.Left(); }

  // For those who measure: the window's thread waits, and serves its events.

  /// The start sequence is through; false when the program is to end at once.
  bool WaitUntilStarted();
  /// The station's thread does this, and what came of it is shown.
  void Do(const std::function<void()>& step);
  /// All that hands did has been served, and what came of it is shown.
  void Settle();

 private:
  /// Begins the start sequence when it is made.
  struct Beginning {
    explicit Beginning(Station& station) { station.Start(); }
  };
  void Start();
  void Join();
  void ShowSoon();
  void Begin();

  std::atomic<bool> news_ = false;  ///< the windows are to be brought up to date
  bool started_ = false, over_ = false;

 public:
  DesktopPlatform Devices;
  Form1 Form;
  Snapshots Taken;
  InputQueue Queue;
  vintoral::Hands Hands;

 private:
  Beginning beginning_;

 public:
  MainWindow Window;
  vintoral::Dialogs Dialogs;
  vintoral::Waiting Waiting;
};

}  // namespace vintoral
