#include "station/form1/Form1.h"

namespace vintoral {

void Form1::CerrarEtiqueta(std::size_t index) {
  TextBox& label = TxtEtiqueta[index];
  if (label.Locked) return;
  label.Locked = true;
  label.CanFocus = false;
  label.SetText(Trim(label.Text()) + " "_w);
  GuardarEtiquetas();
  if (Focus() == &label) FocoDondeSeEscribe();
}

}  // namespace vintoral
