#include "tariffs/form6/Form6.h"

#include "station/form1/Form1.h"
#include "station/forms/Keys.h"
#include "station/forms/TextCaret.h"
#include "tariffs/Categoria.h"
#include "tariffs/Curva.h"
#include "tariffs/Revision.h"
#include "tariffs/TextoTabla.h"

namespace vintoral {
namespace {

using Revision = std::vector<String> (*)(const std::vector<String>&);
constexpr std::array<Revision, 3> kRevisiones = {RevisarTarifas, RevisarExtras, RevisarPrepago};

std::vector<LineMark> MarksOf(const std::vector<String>& reasons) {
  std::vector<LineMark> marks;
  for (std::size_t line = 0; line < reasons.size(); ++line) {
    if (!reasons[line].Empty()) marks.push_back({line, reasons[line]});
  }
  return marks;
}

}  // namespace

Form6::Form6(Form1& station) : Form("Form6"), station_(station) {
  station_.Form6 = this;
  Design();
  Connect();
  station_.ImprimirTarifas();
  TxtMoneda.SetText(Trim(station_.Moneda));
  for (TextBox* box : {&TxtTarifas[kTiempos], &TxtTarifas[kExtras], &TxtTarifas[kPrepago], &TxtMoneda})
    box->Tag = "0"_w;
  LblFuncion_Click(kTiempos);
}

void Form6::Design() {
  Add(LblFuncion, "LblFuncion");
  Add(TxtTarifas, "TxtTarifas");
  Add(PctCurva, "PctCurva");
  Add(TxtMoneda, "TxtMoneda");
  Add(CmdFuncion[kGuardar], "CmdFuncion(1)");  // Tab comes by it first
  Add(CmdFuncion[kCancelar], "CmdFuncion(0)");
  Add(LblEjemplo, "LblEjemplo");
  LblFuncion[kTiempos].Caption = "Tiempos"_w;
  LblFuncion[kExtras].Caption = "Extras"_w;
  LblFuncion[kPrepago].Caption = "Tarjetas Prepago"_w;
  LblFuncion[kMoneda].Caption = "Símbolo Moneda"_w;
  for (TextBox& box : TxtTarifas)
    box.MultiLine = true;
  TxtMoneda.MaxLength = Form1::kAnchoMoneda;
  CmdFuncion[kGuardar].Caption = "GUARDAR"_w;
  CmdFuncion[kCancelar].Caption = "CANCELAR"_w;
  LblEjemplo.Caption = "Ejemplos"_w;
}

void Form6::Connect() {
  for (std::size_t tab = 0; tab < TxtTarifas.size(); ++tab) {
    LblFuncion[tab].OnClick = [this, tab] { LblFuncion_Click(tab); };
    TxtTarifas[tab].OnChange = [this, tab] { Cambiado(tab); };
  }
  TxtTarifas[kTiempos].OnCaret = [this] { MostrarCurva(); };
  TxtMoneda.OnChange = [this] { TxtMoneda.Tag = "1"_w; };
  TxtMoneda.KeyRule = [](char character) { return character == ' ' ? KeyVerdict::kDrop : KeyVerdict::kPass; };
  CmdFuncion[kGuardar].OnClick = [this] { Guardar(); };
  CmdFuncion[kCancelar].OnClick = [this] { station_.OpenForms.Unload(*this); };
  LblEjemplo.OnClick = [this] {
    station_.Devices().system.Launch("Explorer.exe "_w + station_.DireccionWeb() +
                                     "/vintoral/ejemplos.txt"_w);
  };
}

void Form6::LblFuncion_Click(std::size_t tab) {
  for (std::size_t each = 0; each < TxtTarifas.size(); ++each) {
    LblFuncion[each].BackColor = each == tab ? kActiveTab : kOtherTab;
    TxtTarifas[each].Visible = each == tab;
  }
  PctCurva.Visible = tab == kTiempos;
  Revisar(tab);
  MostrarCurva();
  SetFocus(&TxtTarifas[tab]);
}

void Form6::Cambiado(std::size_t tab) {
  TxtTarifas[tab].Tag = "1"_w;
  Revisar(tab);
  if (tab != kTiempos) return;
  curvaVigente_ = false;
  MostrarCurva();
}

void Form6::Revisar(std::size_t tab) {
  TxtTarifas[tab].Marks = MarksOf(kRevisiones[tab](LineasDeTexto(TxtTarifas[tab].Text())));
}

void Form6::MostrarCurva() {
  const TextBox& text = TxtTarifas[kTiempos];
  const std::vector<String> lines = LineasDeTexto(text.Text());
  const String category = CategoriaEnLinea(lines, LineAt(text.Text(), text.Caret()));
  if (curvaVigente_ && category == PctCurva.Caption) return;
  PctCurva.Caption = category;
  PctCurva.Values = CurvaDeTarifa(lines, category);
  curvaVigente_ = true;
}

void Form6::Guardar() {
  station_.ActualizarTarifas();
  station_.CopiarTarifas();
  station_.CopiarMoneda();
  station_.OpenForms.Unload(*this);
}

bool Form6::Form_KeyDown(int KeyCode, int /*Shift*/) {
  if (KeyCode != keys::kEscape) return false;
  station_.OpenForms.Unload(*this);
  return true;
}

void Form6::Form_Unload() {
  station_.Form6 = nullptr;
}

}  // namespace vintoral
