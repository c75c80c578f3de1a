// The window of the invoice format.
#pragma once

#include "window/controls/FormatWindow.h"

namespace vintoral {

class Form8Window : public FormatWindow {
 public:
  Form8Window(const Snapshots::Taken& form, Hands& hands, PictureLoader& pictures, QWidget* owner);

 private:
  void BuildNumber(Stage& stage, SlipPaper& paper);
  void BuildTaxes(Stage& stage, SlipPaper& paper);
};

}  // namespace vintoral
