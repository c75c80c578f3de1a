#include "station/form1/Filas.h"
#include "station/form1/Form1.h"
#include "station/form1/Fotos.h"

namespace vintoral {
namespace {

void ClearCell(Form1& form) {
  form.ShpCelda.Cell = -1;
  form.ShpCelda.Visible = false;
  form.PctFicha.Picture = {};
}

void ClearButtons(Form1& form) {
  form.ChkFactura.Value = 0;
  form.ImgIndicador[indicador::kImprimirFactura].Visible = false;
  form.PctBoton[boton::kGuardar].Visible = false;
  form.PctBoton[boton::kRetirar].Visible = false;
}

void ClearCodes(Form1& form) {
  for (TextBox* code : {&form.TxtBarCode, &form.TxtBarCodeOK}) {
    code->SetText({});
    code->Visible = false;
    code->Tag = {};
    code->BackColor = kWhite;  // yellow tells of a ficha that is inside
  }
}

void OpenFields(Form1& form, bool barcodes) {
  for (TextBox& field : form.TxtCampo) {
    field.SetText({});
    field.Locked = false;
    field.Visible = true;
    field.Enabled = true;
  }
  form.TxtCampo[0].Enabled = !barcodes;
}

void OpenCategories(Form1& form) {
  form.CboTarifa[1].Enabled = true;
  form.CboTarifa[1].Select(0);
}

void ClearValidity(Form1& form) {
  form.NumeroPase = 0;
  form.TxtMaxEntrada.SetText({});
  form.LstModEntrada.ListIndex = 0;
  // A pass has shut them, and the next ticket is none.
  form.TxtMaxEntrada.Enabled = form.LstModEntrada.Enabled = true;
  form.TxtMaxEntrada.Visible = form.LstModEntrada.Visible = false;
}

void ClearPhotos(Form1& form) {
  form.ImgIndicador[indicador::kFotosAdicionales].Visible = false;
  for (PictureBox& button : form.PctFotoDetalle)
    button.Visible = false;
  for (Image& arrow : form.ImgFotoDetalle)
    arrow.Visible = false;
  form.LblFotoDetalle.Visible = false;
  form.PctUsuario[0].Enabled = false;  // no photos to turn
}

void ClearCash(Form1& form) {
  form.LblValor.Visible = false;
  form.TxtEfectivo.Visible = false;
  form.TxtEfectivo.SetText("0"_w);
  form.LblCambio.Visible = false;
  form.LblCambio.Caption = {};
  form.LblInfo[1].Caption = {};
}

}  // namespace

void Form1::LimpiarCampos() {
  const bool barcodes = CmdBarCode.Visible;
  BorrarFotosSinGuardar();
  QuitarCelda();
  UsuarioEnFormulario = 0;
  NumeroUsuario = 0;
  ClearCell(*this);
  ClearButtons(*this);
  BlanquearFilas(*this);
  ClearCodes(*this);
  OpenFields(*this, barcodes);
  OpenCategories(*this);
  ClearValidity(*this);
  TxtBarCode.Visible = barcodes;
  SetFocus(barcodes ? &TxtBarCode : &TxtCampo[0]);
  ClearPhotos(*this);
  MostrarImagenEnVivo();
  QuitarUsuario(*this);
  ClearCash(*this);
}

}  // namespace vintoral
