// The station's main window, and what all windows share: the hands, and the reading of pictures.
#pragma once

#include <QWidget>
#include <functional>

#include "window/controls/Hands.h"
#include "window/controls/Mirror.h"
#include "window/controls/PictureLoader.h"

namespace vintoral {

class Camera;
class WaitSign;
struct Stage;

class MainWindow : public QWidget {
 public:
  /// What the window reads by itself, beside the station; all of them outlive it.
  struct Files {
    const vintoral::Pictures& pictures;
    Disk& disk;
    Camera& camera;
  };
  /// `form` is the main one.
  MainWindow(const Snapshots::Taken& form, Hands& hands, const Files& files);

  /// Brings everything up to date with what the station took.
  void Refresh();
  /// On screen, in front, and up to date.
  void Appear();
  const Mirror& Shown() const { return mirror_; }
  /// Runs with each refresh, for the other windows.
  std::function<void()> OnRefresh;

  Hands& AllHands() { return hands_; }
  PictureLoader& Pictures() { return pictures_; }
  /// The calm line that says what the station waits for.
  WaitSign& Waiting() { return *waiting_; }

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void TellHelp();
  void Build(Stage& stage, Camera& camera);
  QWidget* BuildLeft(Stage& stage);

  Mirror mirror_;
  Hands& hands_;
  PictureLoader pictures_;
  WaitSign* waiting_ = nullptr;
};

}  // namespace vintoral
