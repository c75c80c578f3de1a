// The station's main window, and what all windows share: the hands, the ticks, the reading of pictures.
#pragma once

#include <QWidget>
#include <functional>

#include "window/controls/Hands.h"
#include "window/controls/Mirror.h"
#include "window/controls/PictureLoader.h"
#include "window/controls/Ticker.h"

namespace vintoral {

class Camera;
class Form1;
struct Stage;

class MainWindow : public QWidget {
 public:
  /// The station outlives its window.
  explicit MainWindow(Form1& form);

  /// Brings everything up to date: after an event, and before a wait inside one.
  void Refresh();
  /// On screen, in front, and up to date.
  void Appear();
  /// Runs the timers that are due, as the event loop does by itself.
  void Tick() { ticker_.Tick(); }
  const Mirror& Shown() const { return mirror_; }
  /// Runs with each refresh, for the other windows.
  std::function<void()> OnRefresh;

  Hands& AllHands() { return hands_; }
  PictureLoader& Pictures() { return pictures_; }

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void TellDamage(Form1& form);
  void TellHelp();
  void Build(Stage& stage, Camera& camera);
  QWidget* BuildLeft(Stage& stage);

  Mirror mirror_;
  Ticker ticker_;
  Hands hands_;
  PictureLoader pictures_;
};

}  // namespace vintoral
