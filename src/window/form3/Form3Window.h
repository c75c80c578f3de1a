// The window of the ticket format.
#pragma once

#include "window/controls/FormatWindow.h"

namespace vintoral {

class Form3Window : public FormatWindow {
 public:
  Form3Window(const Snapshots::Taken& form, Hands& hands, PictureLoader& pictures, QWidget* owner);
};

}  // namespace vintoral
