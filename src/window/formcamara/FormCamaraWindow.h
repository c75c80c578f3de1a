// The window of the camera's settings: narrow, so that the live picture beside it shows what they do.
#pragma once

#include "window/controls/DialogWindow.h"

class QBoxLayout;
class QGridLayout;

namespace vintoral {

class PictureLoader;
struct Stage;

class FormCamaraWindow : public DialogWindow {
 public:
  FormCamaraWindow(const Snapshots::Taken& form, Hands& hands, PictureLoader& pictures, QWidget* owner);

 private:
  void BuildMode(Stage& stage, QGridLayout& rows);
  void BuildControl(Stage& stage, std::size_t index, QGridLayout& rows);
  void BuildFoot(Stage& stage, QBoxLayout& column);
  /// Has the camera this many controls and one more?
  bool HasControl(std::size_t index);
};

}  // namespace vintoral
