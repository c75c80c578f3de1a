#include "station/form1/Bloqueos.h"
#include "station/form1/Form1.h"

namespace vintoral {

void Form1::AbrirEtiqueta(std::size_t index) {
  TextBox& label = TxtEtiqueta[index];
  if (!label.Locked || !Permite(bloqueo::kEtiquetas)) return;
  label.Locked = false;
  label.CanFocus = true;
  SetFocus(&label);
  label.SelectAll();
}

}  // namespace vintoral
