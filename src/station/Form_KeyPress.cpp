#include "station/form1/Form1.h"
#include "station/forms/Keys.h"

namespace vintoral {

bool Form1::Form_KeyPress(char character) {
  const Control* const focus = Focus();
  if (character == static_cast<char>(keys::kTab)) {
    const bool fromGrid = focus == &FraFicha && PctFicha.TagNumber() != 0;
    SalirDeCelda();
    return fromGrid;  // the focus has gone back to the number
  }
  if (static_cast<unsigned char>(character) < ' ') return false;
  if (focus == &FraFicha || (focus != nullptr && !focus->Visible)) SalirDeCelda();
  if (Focus() == nullptr || Focus() == &FraFicha) FocoDondeSeEscribe();
  return false;
}

}  // namespace vintoral
