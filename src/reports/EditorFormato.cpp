#include "reports/EditorFormato.h"

#include <algorithm>

#include "station/form1/Form1.h"
#include "station/form1/Papel.h"
#include "station/forms/Keys.h"
#include "station/forms/ReglasTeclas.h"

namespace vintoral {

EditorFormato::EditorFormato(std::string name, Form1& station, String ayuda)
    : Form(std::move(name)), station_(station), ayuda_(std::move(ayuda)) {
  LblDimFuente.Caption = " Tamaño Fuente "_w;
  FraCheck[kMarcoFormato].Caption = " Formato "_w;
  FraCheck[kMarcoImpresora].Caption = " Impresora "_w;
  PctBoton.Caption = "Guardar"_w;
  PctBoton.ToolTipText = ayuda_;
  CmdPrueba.Caption = "Imprimir prueba"_w;
  PctSeleccion.Visible = false;
  for (TextBox& text : TxtEtiqueta)
    text.MultiLine = true;
  TxtEtiqueta[kVista].Locked = true;
  TxtEtiqueta[kVista].CanFocus = false;
  CboDimFuente.Editable = true;
  for (std::size_t i = 0; i < ChkEtiqueta.size(); ++i) {
    ChkEtiqueta[i].Caption = " Imprimir "_w;
    ChkEtiqueta[i].Value = station_.EtiquetasActuales.ImprimirCampo[i] ? 1 : 0;
  }
  LlenarListas();
}

void EditorFormato::LlenarListas() {
  const PrinterList printers = station_.Devices().printer.Printers();
  for (const String& printer : printers.names)
    CboImpresora.AddItem(Trim(printer));
  if (!printers.names.empty()) CboImpresora.SetText(Trim(printers.current));
  for (const String& size : {"5"_w, "6"_w, "7"_w, "8"_w, "8,5"_w, "9"_w, "10"_w, "10,5"_w, "11"_w, "12"_w})
    CboDimFuente.AddItem(size);
  CboDimFuente.SetText("10,5"_w);
}

void EditorFormato::MostrarComunes(std::string_view impresora, double tamano, std::string_view encabezado,
                                   std::string_view pie) {
  CboImpresora.SetText(Trim(impresora));
  CboDimFuente.SetText(TextoTamano(tamano));
  TxtEtiqueta[kEncabezado].SetText(TrimRight(encabezado));
  TxtEtiqueta[kPie].SetText(TrimRight(pie));
}

void EditorFormato::Conectar() {
  CboDimFuente.KeyRule = DecimalFieldKey;
  LimitDecimal(CboDimFuente);
  CboDimFuente.OnGotFocus = [this] { CboDimFuente.SelectAll(); };  // else the next digit finds no room
  PctBoton.OnClick = [this] {
    Guardar();
    station_.OpenForms.Unload(*this);
  };
  CmdPrueba.OnClick = [this] { station_.Devices().printer.EndDoc(Prueba()); };
  for (Control* control : Controls())
    control->OnHover = [this] { Form_MouseMove(); };
  PctBoton.OnHover = [this] {
    PctSeleccion.Visible = true;
    station_.LblAyuda.Caption = ayuda_;
  };
  SetFocus(&PctBoton);
}

void EditorFormato::VolverAlBoton(CheckBox& tick) {
  tick.OnClick = [this] { SetFocus(&PctBoton); };
}

void EditorFormato::Form_MouseMove() {
  PctSeleccion.Visible = false;
  station_.LblAyuda.Caption = String(Form1::kTitulo);
}

bool EditorFormato::Form_KeyDown(int KeyCode, int /*Shift*/) {
  if (KeyCode != keys::kEscape) return false;
  station_.OpenForms.Unload(*this);
  return true;
}

std::array<bool, 5> EditorFormato::CamposMarcados() const {
  std::array<bool, 5> ticked{};
  std::transform(ChkEtiqueta.begin(), ChkEtiqueta.end(), ticked.begin(),
                 [](const CheckBox& tick) { return tick.Value != 0; });
  return ticked;
}

float EditorFormato::Tamano() const {
  return static_cast<float>(TamanoFuente(NumeroDecimal(CboDimFuente.Text())));
}

String EditorFormato::Muestra() {
  return "XXXXXXXXXX"_w;
}

String EditorFormato::LineasDeCampos() const {
  String lines;
  for (std::size_t i = 0; i < ChkEtiqueta.size(); ++i)
    lines += LineaDeCampo(station_.TxtEtiqueta[i + 1].Text(), Muestra()) + String(kFinDeLinea);
  return lines;
}

std::array<CampoImpreso, 5> EditorFormato::CamposDePrueba() const {
  std::array<CampoImpreso, 5> fields;
  for (std::size_t i = 0; i < fields.size(); ++i)
    fields[i] = {ChkEtiqueta[i].Value != 0, station_.TxtEtiqueta[i + 1].Text(), Muestra()};
  return fields;
}

}  // namespace vintoral
