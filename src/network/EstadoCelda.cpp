#include "station/form1/Form1.h"

namespace vintoral {
namespace {

void CaraDeCelda(Form1& form) {
  form.TmrHoraFecha.SetEnabled(false);
  for (TextBox& field : form.TxtCampo)
    field.Visible = false;
  form.CboTarifa[1].Visible = false;
  form.Picture1.Visible = false;
}

void BlanquearFilas(Form1& form) {
  for (Label* stamp : {&form.LblFechaEnt, &form.LblFechaSal}) {
    stamp->Caption = {};
    stamp->BackColor = kWhite;
  }
  for (Label& row : form.LblCampo) {
    row.Caption = {};
    row.BackColor = kLightOrange;
  }
}

void AbrirCampos(Form1& form) {
  for (TextBox& field : form.TxtCampo) {
    field.Visible = true;
    field.Enabled = true;
  }
  form.TxtCampo[0].Enabled = !form.CmdBarCode.Visible;  // with barcodes the number is read, not typed
  form.CboTarifa[0].Clear();
  form.CboTarifa[0].Visible = false;
  form.CboTarifa[1].Visible = true;
}

void CaraDeEntrada(Form1& form, bool conservarFoto) {
  BlanquearFilas(form);
  AbrirCampos(form);
  // Without the folder the clock stays stopped, as the link watch has left it.
  const bool connected = form.LblConexion[0].BackColor == kLightGreen;
  form.TmrHoraFecha.SetEnabled(connected);
  if (!connected) form.LblFechaEnt.Caption = "CONECTANDO... "_w;
  if (!conservarFoto) form.MostrarImagenEnVivo();
  if (!form.TxtBarCode.Visible) return form.SetFocus(&form.TxtCampo[0]);
  form.TxtBarCodeOK.Visible = false;
  form.TxtBarCode.SetText({});
  form.SetFocus(&form.TxtBarCode);
}

}  // namespace

void Form1::EstadoCelda(bool mostrar, bool conservarFoto) {
  if (mostrar) return CaraDeCelda(*this);
  if (!FichaEnCurso()) CaraDeEntrada(*this, conservarFoto);
}

}  // namespace vintoral
