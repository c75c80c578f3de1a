// The window of the menu: the registers and shifts as buttons, the settings as
// a list.
#pragma once

#include "window/controls/DialogWindow.h"

class QBoxLayout;

namespace vintoral {

class PictureLoader;
struct Stage;

class Form5Window : public DialogWindow {
 public:
  Form5Window(const Snapshots::Taken& form, Hands& hands, PictureLoader& pictures, QWidget* owner);

 private:
  void BuildList(Stage& stage, QBoxLayout& row);
  void BuildButtons(Stage& stage, QBoxLayout& row);
};

}  // namespace vintoral
