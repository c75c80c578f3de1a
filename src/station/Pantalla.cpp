// The screen back to idle, and its modes.
#include "common/Numbers.h"
#include "station/form1/Form1.h"

namespace vintoral {

void Form1::LimpiarPantalla() {
  for (Image& cell : ImgFicha) {
    cell.Picture = {};
    cell.Visible = false;
  }
  PctFicha.Picture = {};
  ShpCelda.Visible = false;
}

void Form1::LimpiarCampos() {
  const bool conectado = LblConexion[0].BackColor == kLightGreen;
  const bool modoBarras = CmdBarCode.Visible;

  UsuarioEnFormulario = 0;
  ShpCelda.Cell = -1;
  ShpCelda.Visible = false;
  PctFicha.Picture = {};
  ChkFactura.Value = 0;
  ImgIndicador[5].Visible = PctBoton[5].Visible = PctBoton[6].Visible = false;

  LblFechaEnt.Caption = conectado ? String() : "CONECTANDO... "_w;
  LblFechaSal.Caption = {};
  LblFechaEnt.BackColor = LblFechaSal.BackColor = kWhite;
  for (Label& row : LblCampo) {
    row.BackColor = kLightOrange;
    row.Caption = {};
    row.Visible = true;
  }
  for (TextBox* code : {&TxtBarCode, &TxtBarCodeOK}) {
    code->SetText({});
    code->Visible = false;
  }
  for (TextBox& field : TxtCampo) {
    field.SetText({});
    field.Locked = false;
    field.Visible = true;
    field.Enabled = &field != &TxtCampo[0] || !modoBarras;
  }
  CboTarifa[0].Clear();
  CboTarifa[0].Visible = false;
  CboTarifa[1].Visible = true;
  CboTarifa[1].Enabled = true;
  CboTarifa[1].Select(0);
  TxtMaxEntrada.SetText({});
  LstModEntrada.ListIndex = 0;

  TxtBarCode.Visible = modoBarras;
  SetFocus(modoBarras ? &TxtBarCode : &TxtCampo[0]);

  ImgIndicador[3].Visible = false;
  for (PictureBox& arrow : PctFotoDetalle)
    arrow.Visible = false;
  ImgPuntos.Visible = false;
  MostrarImagenEnVivo();
  for (PictureBox& card : PctUsuario) {
    card.Visible = false;
    card.Picture = {};
  }
  ImgUsuario.Visible = false;
  ImgUsuario.Picture = {};
  NumeroUsuario = 0;

  for (Control* control : std::initializer_list<Control*>{&LblValor, &TxtEfectivo, &LblCambio})
    control->Visible = false;
  TxtEfectivo.SetText("0"_w);
  LblCambio.Caption = {};
  LblInfo[1].Caption = {};
  for (Label& points : LblPuntos) {
    points.Caption = {};
    points.Visible = false;
  }
}

void Form1::CambiarModoFicha() {
  if (FichaEnPantalla()) Form_KeyDown(27, 0);
  if (PctBoton[10].BorderStyle != 1) return;  // no barcodes without tickets
  CmdBarCode.Visible = !CmdBarCode.Visible;
  const bool modoBarras = CmdBarCode.Visible;
  TxtEtiqueta[0].SetText(modoBarras ? "CODIGO BARRAS "_w : "NUMERO FICHA "_w);
  TxtCampo[0].Enabled = !modoBarras;
  CmdBarCode.Enabled = modoBarras;
  TxtBarCode.Visible = modoBarras;
  SetFocus(modoBarras ? &TxtBarCode : &TxtCampo[0]);
}

void Form1::EtiquetaMonitor() {
  for (const String& item : CboMinutos.List()) {
    if (ContainsNoCase(item, " Min.")) return;
  }
  const std::array<String, 3> suffixes = {" Min. ATRAS"_w, " Min. ADENTRO"_w, " Min. AFUERA"_w};
  for (std::size_t i = 0; i < suffixes.size(); ++i) {
    PictureBox& button = PctBoton[7 + i];
    if (button.BorderStyle != 1) continue;
    button.Tag = Digits(LeadingInteger(CboMinutos.Text()));
    return CboMinutos.SetText(button.Tag + suffixes[i]);
  }
}

void Form1::AbrirEtiqueta(std::size_t index) {
  TextBox& label = TxtEtiqueta[index];
  if (!label.Locked) return;
  label.Locked = false;
  label.CanFocus = true;
  SetFocus(&label);
  label.SelectAll();
}

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
