#include "station/form1/Filas.h"
#include "station/form1/Form1.h"

namespace vintoral {
namespace {

void CaraDeCelda(Form1& form) {
  form.TmrHoraFecha.SetEnabled(false);
  form.TmrMonitor.SetEnabled(form.Conectada());  // which the clock would have turned on with its next tick
  for (TextBox& field : form.TxtCampo)
    field.Visible = false;
  form.CboTarifa[1].Visible = false;
  form.Picture1.Visible = false;
}

void AbrirCampos(Form1& form) {
  for (TextBox& field : form.TxtCampo) {
    field.Visible = true;
    field.Enabled = true;
  }
  form.TxtCampo[0].Enabled = !form.CmdBarCode.Visible;  // with barcodes the number is read, not typed
}

void CaraDeEntrada(Form1& form, bool conservarFoto) {
  BlanquearFilas(form);
  AbrirCampos(form);
  // Without the folder the clock stays stopped, as the link watch has left it.
  form.TmrHoraFecha.SetEnabled(form.Conectada());
  if (!conservarFoto) form.MostrarImagenEnVivo();
  form.TxtBarCodeOK.Visible = false;
}

void FocoDeEntrada(Form1& form) {
  if (!form.TxtBarCode.Visible) return form.SetFocus(&form.TxtCampo[0]);
  form.TxtBarCode.SetText({});
  form.SetFocus(&form.TxtBarCode);
}

}  // namespace

void Form1::EstadoCelda(bool mostrar, bool conservarFoto) {
  if (mostrar) return CaraDeCelda(*this);
  if (FichaEnCurso()) return;
  CaraDeEntrada(*this, conservarFoto);
  FocoDeEntrada(*this);
}

void Form1::QuitarCelda() {
  if (PctFicha.TagNumber() == 0) return;
  PctFicha.Tag = "0"_w;
  ShpCelda.Cell = -1;
  ShpCelda.Visible = false;
  if (!FichaEnCurso()) CaraDeEntrada(*this, false);
}

void Form1::SalirDeCelda() {
  if (PctFicha.TagNumber() == 0) return;
  QuitarCelda();
  if (!FichaEnCurso()) FocoDeEntrada(*this);
}

}  // namespace vintoral
