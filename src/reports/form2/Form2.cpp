#include "reports/form2/Form2.h"

#include "common/Numbers.h"
#include "station/form1/Form1.h"
#include "station/form1/Monitor.h"
#include "station/form1/Sonidos.h"
#include "station/forms/Keys.h"
#include "station/forms/ReglasTeclas.h"

namespace vintoral {
namespace {

/// The light of the search, and its button.
constexpr std::size_t kLuz = boton::kBuscar;
constexpr std::int64_t kUltimaFicha = 9999;

/// The monitors give way to the search; which of them was on stays in the tag of CboMinutos.
void EntrarEnBusqueda(Form1& form) {
  form.PctBoton[boton::kBuscar].BorderStyle = 1;
  form.PctBuscar[kLuz].Visible = true;
  for (const boton::Index monitor : kMonitores) {
    form.PctBoton[monitor].BorderStyle = 0;
    form.PctBoton[monitor].Visible = false;
    form.PctBuscar[monitor - kMonitores.front()].Visible = false;
  }
  form.CboMinutos.SetText(TextoSinMonitor(form));
  form.CboMinutos.Enabled = false;
}

void VaciarRejilla(Form1& form) {
  form.LiberarMemoria();
  form.InicioPagina = 1;
  form.LimpiarPantalla();
  form.LblInfo[0].Caption = "0 ( 1/1 )  "_w;
}

/// The monitor that was on before.
void VolverAlMonitor(Form1& form, const String& minutos) {
  const std::int64_t monitor = form.CboMinutos.TagNumber();
  if (monitor == 0) return;
  const std::size_t place = monitor == 1 || monitor == 2 ? static_cast<std::size_t>(monitor - 1) : 2;
  form.CboMinutos.SetText(minutos);
  form.CboMinutos.Enabled = true;
  form.PctBoton[kMonitores[place]].BorderStyle = 1;
  form.PctBuscar[place].Visible = true;
}

}  // namespace

// What is typed or on display stays: a search is often made for it.
Form2::Form2(Form1& station) : Form("Form2"), station_(station) {
  station_.Form2 = this;
  Nombrar();
  minutos_ = station_.CboMinutos.Text();
  EntrarEnBusqueda(station_);
  VaciarRejilla(station_);
  ValoresIniciales();
  Conectar();
  ConectarRaton();
  SetFocus(&TxtCampo[kNumero]);
}

void Form2::Nombrar() {
  Add(TxtCampo, "TxtCampo");
  Add(CboTarifa, "CboTarifa");
  Add(ChkFichas, "ChkFichas");
  Add(PctBoton, "PctBoton");
  Add(LblEtiqueta, "LblEtiqueta");
  Add(PctSeleccion, "PctSeleccion");
  PctSeleccion.Visible = false;
  ChkFichas.Caption = "Incluir fichas activas"_w;
  PctBoton[kIniciar].Caption = "Buscar"_w;
  PctBoton[kLimpiar].Caption = "Limpiar"_w;
  LblEtiqueta[0].Caption = "NUMERO FICHA "_w;
  LblEtiqueta[kDesde].Caption = "DESDE "_w;
  LblEtiqueta[kHasta].Caption = "HASTA "_w;
  LblEtiqueta[kCategoria].Caption = "CATEGORIA "_w;
  for (std::size_t i = 1; i < kDesde; ++i)
    LblEtiqueta[i].Caption = station_.TxtEtiqueta[i].Text();
  CboTarifa.AddItem({});  // whatever the category
  for (const String& category : station_.CboTarifa[1].List())
    CboTarifa.AddItem(category);
}

void Form2::ValoresIniciales() {
  const String today = DateText(station_.Devices().clock.Now());
  TxtCampo[kDesdeHora].SetText("00:00"_w);
  TxtCampo[kDesdeFecha].SetText(today);
  TxtCampo[kHastaHora].SetText("23:59"_w);
  TxtCampo[kHastaFecha].SetText(today);
  for (std::size_t i = kNumero; i < TxtCampo.size(); ++i)
    TxtCampo[i].SetText({});
  CboTarifa.Select(0);
  ChkFichas.Value = 0;
}

void Form2::Conectar() {
  for (std::size_t i = 0; i < TxtCampo.size(); ++i) {
    TxtCampo[i].OnChange = [this, i] { TxtCampo[i].RaiseToCapitals(); };
    TxtCampo[i].OnEnter = [this, i] { Avanzar(i); };
  }
  TxtCampo[kNumero].KeyRule = CountFieldKey;
  PctBoton[kIniciar].OnClick = [this] { Iniciar(); };
  PctBoton[kLimpiar].OnClick = [this] { Limpiar(); };
}

void Form2::ConectarRaton() {
  for (Control* control : Controls())
    control->OnHover = [this] { Form_MouseMove(); };
  const auto ayudar = [this](CommandButton& boton, const String& ayuda) {
    boton.OnHover = [this, ayuda] {
      PctSeleccion.Visible = true;
      station_.LblAyuda.Caption = ayuda;
    };
  };
  ayudar(PctBoton[kIniciar], "Iniciar Búsqueda"_w);
  ayudar(PctBoton[kLimpiar], "<ESC> Limpiar Campos"_w);
}

void Form2::Form_MouseMove() {
  PctSeleccion.Visible = false;
  station_.LblAyuda.Caption = String(Form1::kTitulo);
}

bool Form2::Form_KeyDown(int KeyCode, int /*Shift*/) {
  if (KeyCode == keys::kEscape) {
    Limpiar();
  } else if (KeyCode == keys::kF5) {
    station_.OpenForms.Unload(*this);
  } else {
    return false;
  }
  return true;
}

void Form2::Avanzar(std::size_t campo) {
  if (campo == kCampos - 1) {
    SetFocus(&TxtCampo[kNumero]);
    return Iniciar();
  }
  const String escrito = Trim(TxtCampo[campo].Text());
  const std::int64_t numero = LeadingInteger(escrito);
  if (campo == kNumero && !escrito.Empty() && (numero < 1 || numero > kUltimaFicha))
    return TxtCampo[kNumero].SetText({});
  SetFocus(&TxtCampo[campo + 1]);
  TxtCampo[campo + 1].SelectAll();
}

void Form2::Iniciar() {
  if (pedida_) return;  // it lets the screen live meanwhile
  pedida_ = true;
  interrumpida_ = false;
  Buscar();
  pedida_ = false;
}

void Form2::Buscar() {
  station_.CargarArchivoHST();
  if (interrumpida_ || station_.Terminado()) return;
  if (station_.TotalVista() > 0) station_.ImprimirIndice();
  station_.PctBoton_Click(static_cast<int>(boton::kImprimir));
}

void Form2::Limpiar() {
  VaciarRejilla(station_);
  station_.LimpiarCampos();
  ValoresIniciales();
  station_.MidiWav(sonido::kClic);
  SetFocus(&TxtCampo[kNumero]);
}

void Form2::Form_Unload() {
  station_.Form2 = nullptr;
  Form_MouseMove();
  station_.BorrarReportes();
  station_.PctBuscar[kLuz].Visible = false;
  station_.PctBoton[boton::kBuscar].BorderStyle = 0;
  for (const boton::Index monitor : kMonitores)
    station_.PctBoton[monitor].Visible = true;
  VolverAlMonitor(station_, minutos_);
  station_.InicioPagina = 1;
  // Stopped for as long as the tick takes: it draws the grid at a main gate without a monitor too.
  station_.TmrHorario.SetEnabled(false);
  station_.TmrMonitor_Timer();
  station_.TmrHorario.SetEnabled(true);
  station_.TmrMonitor.SetEnabled(true);
  station_.MidiWav(voz::kBusquedaDesactivada);
}

}  // namespace vintoral
