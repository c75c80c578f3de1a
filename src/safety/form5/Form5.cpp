#include "safety/form5/Form5.h"

#include <string_view>

#include "safety/form5/Turno.h"
#include "station/form1/Bloqueos.h"
#include "station/form1/Form1.h"
#include "station/form1/Funciones.h"
#include "station/forms/Keys.h"

namespace vintoral {
namespace {

using Accion = void (*)(Form1&);

struct Boton {
  String titulo;
  int bloqueo;  ///< position in the lock text, 0 for none
  Accion accion;
};

const std::array<Boton, Form5::kBotones> kMandos = {{
    {"HISTORIAL DÍA"_w, bloqueo::kHistorial, PedirHistorial},
    {"COMENZAR TURNO"_w, 0,
     [](Form1& form) { form.TurnoActivo ? TerminarTurno(form) : ComenzarTurno(form); }},
    {"EXTRAS"_w, bloqueo::kRegistroExtras, [](Form1& form) { form.ImprimirValorExtra(); }},
    {"DETALLE"_w, bloqueo::kDetalleExtras, [](Form1& form) { form.ImprimirContadorExtra(); }},
    {"NUEVOS"_w, bloqueo::kNuevos, [](Form1& form) { form.ImprimirDocumentoID("Vintoral.NSR"); }},
    {"PUNTOS"_w, bloqueo::kPuntos, [](Form1& form) { form.ImprimirDocumentoID("Vintoral.CRD"); }},
    {"HORARIO DE TRABAJO"_w, 0, [](Form1& form) { form.ImprimirHoraTrabajo(); }},
}};

struct Fila {
  String texto;
  bool (*activa)(const Form1&) = nullptr;  ///< of a function that is on or off: what the row says of it
  std::string_view registro = {};          ///< code of the log, empty for none
  int bloqueo = 0;                         ///< as of Boton
  int tecla = 0, mascara = 0;              ///< the key that does it, once the menu is gone; 0 for none
  Accion accion = nullptr;                 ///< what it does where it has no key
};

bool RostrosActivos(const Form1& form) {
  return form.ImgIndicador[indicador::kMemoriaRostros].Visible;
}
bool CodigosActivos(const Form1& form) {
  return form.TxtBarCode.Visible;
}
bool PanicoActivo(const Form1& form) {
  return form.ImgPanico.Visible;
}

constexpr int kCtrlAlt = keys::kControl | keys::kAlt, kShiftAlt = keys::kShift | keys::kAlt;

const std::array kFilas = {
    Fila{.texto = "Abrir Documento de Ayuda"_w, .tecla = keys::kF1, .mascara = keys::kControl},
    Fila{.texto = "Abrir Fondos de Pantalla"_w, .tecla = 'I', .mascara = kCtrlAlt},
    Fila{.texto = "Configurar Cámara Web"_w, .tecla = 'W', .mascara = kShiftAlt},
    Fila{.texto = "Bloquear Funciones con Contraseña"_w, .tecla = keys::kF9, .mascara = keys::kNoMask},
    Fila{.texto = "Memoria de Rostros"_w, .activa = RostrosActivos, .tecla = 'M', .mascara = kCtrlAlt},
    Fila{.texto = "Código de Barras Code39"_w, .activa = CodigosActivos, .tecla = 'B', .mascara = kCtrlAlt},
    Fila{.texto = "Botón del Pánico"_w, .activa = PanicoActivo, .tecla = 'P', .mascara = kCtrlAlt},
    Fila{.texto = "Cambiar Formato de Tiquete"_w,
         .registro = funcion::kFormatoTiquete,
         .bloqueo = bloqueo::kTiquetes,
         .tecla = 'K',
         .mascara = kCtrlAlt},
    Fila{.texto = "Cambiar Formato de Factura"_w,
         .registro = funcion::kFormatoFactura,
         .bloqueo = bloqueo::kFacturas,
         .tecla = 'L',
         .mascara = kCtrlAlt},
    Fila{.texto = "Reiniciar Contador de Extras"_w,
         .registro = funcion::kReinicioExtras,
         .bloqueo = bloqueo::kReiniciarExtras,
         .accion = [](Form1& form) { form.ReiniciarContadorExtras(); }},
    Fila{.texto = "Reiniciar Historial"_w,
         .bloqueo = bloqueo::kReiniciarExtras,
         .accion = [](Form1& form) { form.ReiniciarHistorial(); }},
};

String TextoDe(const Fila& row, const Form1& form) {
  String text = "  "_w + row.texto;
  if (row.activa == nullptr) return text;
  return text + (row.activa(form) ? " (DESACTIVAR)"_w : " (ACTIVAR)"_w);
}

}  // namespace

Form5::Form5(Form1& station) : Form("Form5"), station_(station) {
  station_.Form5 = this;
  Add(LblMenu, "LblMenu");
  Add(LstMenu, "LstMenu");
  Add(CmdMenu, "CmdMenu");
  LblMenu.Caption = "Menú de Funciones"_w;
  for (std::size_t i = 0; i < CmdMenu.size(); ++i)
    CmdMenu[i].OnClick = [this, i] { CmdMenu_Click(i); };
  Rotular();
  LstMenu.OnPress = [this] { LstMenu_Click(); };
  Llenar();
  SetFocus(&LstMenu);
}

void Form5::Rotular() {
  for (std::size_t i = 0; i < CmdMenu.size(); ++i)
    CmdMenu[i].Caption = kMandos[i].titulo;
  if (!station_.TurnoActivo) return;
  CmdMenu[kHistorial].Caption = "HISTORIAL TURNO"_w;
  CmdMenu[kTurno].Caption = "TERMINAR TURNO"_w;
}

void Form5::Llenar() {
  for (const Fila& row : kFilas)
    LstMenu.List.push_back(TextoDe(row, station_));
  LstMenu.ListIndex = 0;
}

void Form5::CmdMenu_Click(std::size_t boton) {
  const Boton& button = kMandos[boton];
  if (!station_.Permite(button.bloqueo)) return;
  const bool begins = boton == Form5::kTurno && !station_.TurnoActivo;
  button.accion(station_);
  Rotular();
  if (begins) station_.OpenForms.Unload(*this);
}

void Form5::LstMenu_Click() {
  const Fila& row = kFilas[static_cast<std::size_t>(LstMenu.ListIndex)];
  // Here what the lock refuses is in the log too.
  if (!row.registro.empty()) station_.RegistrarHoraTrabajo(row.registro);
  if (!station_.Permite(row.bloqueo)) return;
  if (row.accion != nullptr) return row.accion(station_);
  Form1& station = station_;
  station.OpenForms.Unload(*this);
  station.Form_KeyDown(row.tecla, row.mascara);
}

bool Form5::Form_KeyDown(int KeyCode, int /*Shift*/) {
  if (KeyCode != keys::kEscape) return false;
  station_.OpenForms.Unload(*this);
  return true;
}

void Form5::Form_Unload() {
  station_.Form5 = nullptr;
  station_.BorrarReportes();
}

}  // namespace vintoral
