// The window of the ticket format.
#pragma once

#include "window/controls/FormatWindow.h"

namespace vintoral {

class Form3Window : public FormatWindow {
 public:
  Form3Window(Forms& forms, Form& form, Hands& hands, PictureLoader& pictures, QWidget* owner);
};

}  // namespace vintoral
