#include "station/form1/Form1.h"
#include "station/forms/Keys.h"

namespace vintoral {

void Form1::GeneradorClick() {
  if (TxtCampo[0].Enabled) {
    Form_KeyDown(keys::kHome, keys::kNoMask);
  } else {
    platform_.screen.Beep();
  }
  SetFocus(nullptr);
}

}  // namespace vintoral
