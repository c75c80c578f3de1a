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

/// Additional photos are counted from here on, of whoever has this plate.
void OfrecerFotos(Form1& form) {
  if (form.ImgIndicador[indicador::kFotosAdicionales].Visible) {
    form.AcomodarFotos();
  } else {
    form.NumeroFotos = form.FotoActual = 0;
  }
  if (form.ImgIndicador[indicador::kCamaraDesactivada].Visible) return;
  for (PictureBox& button : form.PctFotoDetalle)
    button.Visible = true;
}

}  // namespace

void Form1::AvanzarCampo(std::size_t index) {
  if (index == 0 && !AbrirNumero(*this)) return;
  if (index == 1) {
    const bool typed = !Trim(TxtCampo[1].Text()).Empty();
    const bool conocido = BuscarUsuario();
    if (typed && TxtCampo[1].Text().Empty()) return;  // refused: the screen is idle again
    if (typed) OfrecerFotos(*this);
    if (!typed && PctUsuario[1].Visible) PctUsuario[0].Visible = true;
    if (conocido) return SetFocus(&CboTarifa[1]);
  }
  if (index + 1 == TxtCampo.size()) return SetFocus(&CboTarifa[1]);
  SetFocus(&TxtCampo[index + 1]);
}

}  // namespace vintoral
