// The window of the panic alert: a row for each of its texts.
#pragma once

#include "window/controls/DialogWindow.h"

class QGridLayout;

namespace vintoral {

class PictureLoader;
struct Stage;

class Form9Window : public DialogWindow {
 public:
  Form9Window(const Snapshots::Taken& form, Hands& hands, PictureLoader& pictures, QWidget* owner);

 private:
  void BuildRow(Stage& stage, std::size_t index, QGridLayout& rows);
};

}  // namespace vintoral
