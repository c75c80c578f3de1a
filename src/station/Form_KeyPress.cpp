#include "station/form1/Form1.h"
#include "station/forms/Keys.h"

namespace vintoral {
namespace {

/// Typing, erasing, and Enter: what would be lost in a control that is hidden.
bool Writes(char character) {
  return static_cast<unsigned char>(character) >= ' ' || character == keys::kBackspace ||
         character == keys::kEnter;
}

}  // namespace

bool Form1::Form_KeyPress(char character) {
  const Control* const focus = Focus();
  if (character == keys::kTab) {
    const bool fromGrid = focus == &FraFicha && PctFicha.TagNumber() != 0;
    if (fromGrid) {
      SalirDeCelda();
    } else {
      QuitarCelda();
    }
    return fromGrid;  // typing goes on where the pointer has led back to
  }
  if (character == keys::kEnter && lectura_.TerminaEnEnter()) return true;
  if (TxtBarCode.Visible && lectura_.Recibir(character)) return true;
  if (focus != nullptr && !focus->Visible && Writes(character)) QuitarCelda();
  const bool types = static_cast<unsigned char>(character) >= ' ';
  if (types && (focus == nullptr || focus == &FraFicha)) {
    QuitarCelda();
    FocoDondeSeEscribe();
  }
  return false;
}

}  // namespace vintoral
