#include "station/form1/Form1.h"

namespace vintoral {
namespace {

/// True when the number opened a ficha or a form. One out of range empties the field; a slot that can't be
/// read leaves the number to be tried again.
bool AbrirNumero(Form1& form) {
  TextBox& field = form.TxtCampo[0];
  if (!form.HayPuesto(form.NumeroEscrito())) {
    field.SetText({});
    return false;
  }
  form.MostrarFicha();
  return field.Locked;
}

}  // namespace

void Form1::AvanzarCampo(std::size_t index) {
  if (index == 0 && !AbrirNumero(*this)) return;
  if (index == 1) {
    const bool typed = !Trim(TxtCampo[1].Text()).Empty();
    if (BuscarUsuario()) return SetFocus(&CboTarifa[1]);
    if (typed && TxtCampo[1].Text().Empty()) return;  // refused: the screen is idle again
    if (!typed && PctUsuario[1].Visible) PctUsuario[0].Visible = true;
  }
  if (index + 1 == TxtCampo.size()) return SetFocus(&CboTarifa[1]);
  SetFocus(&TxtCampo[index + 1]);
}

}  // namespace vintoral
