#include "station/form1/Form1.h"
#include "station/form1/Monitor.h"
#include "station/forms/Keys.h"

namespace vintoral {

bool Form1::PuedeGenerar() const {
  return IsPressed(PctBoton[boton::kTiquetes]) && !TxtCampo[0].Locked;
}

void Form1::GeneradorClick() {
  if (PuedeGenerar()) {
    Form_KeyDown(keys::kHome, keys::kNoMask);
    // Where there was no slot, or no folder, the next code is read as before.
    if (!FichaEnCurso()) FocoDondeSeEscribe();
  } else {
    platform_.screen.Beep();
    SetFocus(nullptr);  // the tool bar
  }
}

}  // namespace vintoral
