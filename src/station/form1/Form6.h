// The boxes of the tariff dialog. Form1's operations fill them and take what the operator made of them.
#pragma once

#include <array>

#include "station/forms/Controls.h"

namespace vintoral {

/// A box whose text has changed has the tag "1"; who fills the boxes for the operator sets the tags back.
class Form6 {
 public:
  Form6();

  std::array<TextBox, 3> TxtTarifas;  ///< 0 tariffs, 1 extras, 2 prepaid loads; CR LF between their lines
  TextBox TxtMoneda;
};

}  // namespace vintoral
