// The window of the search, which stands beside the main one.
#pragma once

#include "window/controls/DialogWindow.h"

class QBoxLayout;
class QGridLayout;

namespace vintoral {

class PictureLoader;
struct Stage;

class Form2Window : public DialogWindow {
 public:
  Form2Window(const Snapshots::Taken& form, Hands& hands, PictureLoader& pictures, QWidget* owner);

 protected:
  void showEvent(QShowEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  void BuildTimes(Stage& stage, QGridLayout& grid);
  void BuildFields(Stage& stage, QGridLayout& grid);
  void BuildCategory(Stage& stage, QGridLayout& grid);
  void BuildFoot(Stage& stage, QBoxLayout& column);
  Hands& hands_;
};

}  // namespace vintoral
