// Where the keyboard goes when an operation is through.
#pragma once

#include "station/form1/Form1.h"

namespace vintoral {

/// Back to the number; a ficha that is under way keeps the place where it is typed.
inline void FocoAlNumero(Form1& form) {
  if (!form.TxtCampo[0].Locked) form.SetFocus(&form.TxtCampo[0]);
}

}  // namespace vintoral
