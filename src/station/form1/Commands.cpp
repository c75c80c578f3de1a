#include "station/form1/Commands.h"

#include <array>
#include <string_view>

#include "station/form1/Archivos.h"
#include "station/form1/Bloqueos.h"
#include "station/form1/Form1.h"
#include "station/form1/Monitor.h"

namespace vintoral {
namespace {

using namespace keys;

constexpr MaskSet kPlain = OneMask(kNoMask);
constexpr MaskSet kCtrl = OneMask(kControl);
constexpr MaskSet kCtrlAlt = OneMask(kControl | kAlt);
constexpr MaskSet kCtrlShift = OneMask(kControl | kShift);
constexpr MaskSet kShiftAlt = OneMask(kShift | kAlt);

template <void (Form1::*operation)()>
void Run(Form1& form, int /*code*/) {
  (form.*operation)();
}

template <boton::Index button>
bool Shown(const Form1& form, int /*code*/) {
  return form.PctBoton[button].Visible;
}
template <const std::string_view& file>
bool Exists(const Form1& form, int /*code*/) {
  return form.Devices().disk.Exists(file);
}
bool CameraOn(const Form1& form, int /*code*/) {
  return !form.ImgIndicador[indicador::kCamaraDesactivada].Visible;
}
bool HasPhotosToTurn(const Form1& form, int /*code*/) {
  return form.PctUsuario[0].Enabled;
}
// Where there is nothing to generate, Home moves the caret as in any text.
bool CanGenerate(const Form1& form, int /*code*/) {
  return form.PuedeGenerar();
}
bool BarsAreRed(const Form1& form, int /*code*/) {
  return form.LblConexion[0].BackColor == kLightRed;
}
bool LooksForTheFolder(const Form1& form, int /*code*/) {
  return form.TmrConexion.Interval() == kConnectingInterval;
}

// The condition counts one further than the choice: the last category of a short list has no key.
bool HasCategory(const Form1& form, int code) {
  return code - '0' + 1 <= static_cast<int>(form.CboTarifa[1].List().size());
}
void SelectCategory(Form1& form, int code) {
  const int index = code == '0' ? 9 : code - '1';
  if (static_cast<std::size_t>(index) < form.CboTarifa[1].List().size()) form.CboTarifa[1].Select(index);
}

template <int mask>
void Connect(Form1& form, int /*code*/) {
  form.WebCamConectar(mask);
}
void TakePhoto(Form1& form, int /*code*/) {
  form.PctFotoDetalle_Click(0);
}
// Where no photos can be taken the key does nothing.
void TakeContinuously(Form1& form, int code) {
  if (CameraOn(form, code)) form.PctFotoDetalle_Click(1);
}
template <int index>
void TurnPhotos(Form1& form, int /*code*/) {
  form.ImgFotoDetalle_Click(index);
}

template <const std::string_view& file>
void Edit(Form1& form, int /*code*/) {
  form.Devices().system.Launch("Notepad.exe "_w + String(file));
}
template <boton::Index button>
void EditFormat(Form1& form, int /*code*/) {
  form.CambiarFormato(button);
}
void ShowFont(Form1& form, int /*code*/) {
  const Platform& devices = form.Devices();
  devices.system.Launch("Explorer.exe "_w + devices.disk.CurrentFolder() + "\\"_w + String(archivo::kFuente));
}
void ShowWallpapers(Form1& form, int /*code*/) {
  form.Devices().system.Launch("Explorer.exe "_w + String(archivo::kFondos));
}

constexpr std::array kKeys = {
    KeyCommand{.code = kEscape, .action = Run<&Form1::LimpiarCampos>},
    KeyCommand{.code = kPageUp, .button = boton::kRetroceder},
    KeyCommand{.code = kPageDown, .button = boton::kAvanzar},
    KeyCommand{.code = kHome, .condition = CanGenerate, .action = Run<&Form1::GenerarFicha>},
    KeyCommand{.code = kLeft, .condition = HasPhotosToTurn, .action = TurnPhotos<0>},
    KeyCommand{.code = kRight, .condition = HasPhotosToTurn, .action = TurnPhotos<1>},
    KeyCommand{.code = kInsert, .condition = Shown<boton::kGuardar>, .button = boton::kGuardar},
    KeyCommand{.code = kDelete, .condition = Shown<boton::kRetirar>, .button = boton::kRetirar},
    KeyCommand{
        .code = '0', .lastCode = '9', .masks = kCtrl, .condition = HasCategory, .action = SelectCategory},
    KeyCommand{.code = 'A', .masks = kCtrl, .condition = CameraOn, .action = TakePhoto},
    KeyCommand{.code = 'B', .masks = kCtrl, .condition = Exists<archivo::kFuente>, .action = ShowFont},
    KeyCommand{
        .code = 'B', .masks = kCtrlAlt, .log = "15", .lock = 14, .action = Run<&Form1::AlternarCodigoBarras>},
    KeyCommand{.code = 'C', .masks = kCtrl, .action = Run<&Form1::ImgContador_Click>},
    KeyCommand{.code = 'F',
               .masks = kCtrl,
               .condition = Exists<archivo::kFacturas>,
               .action = Edit<archivo::kFacturas>},
    KeyCommand{.code = 'I', .masks = kCtrl, .action = Run<&Form1::ImgCambiarFondo_Click>},
    KeyCommand{.code = 'I', .masks = kCtrlAlt, .action = ShowWallpapers},
    KeyCommand{.code = 'I', .masks = kCtrlShift, .action = DoNothing},
    KeyCommand{.code = 'K', .masks = kCtrlAlt, .action = EditFormat<boton::kTiquetes>},
    KeyCommand{.code = 'L', .masks = kCtrlAlt, .action = EditFormat<boton::kFacturas>},
    KeyCommand{.code = 'M', .masks = kCtrlAlt, .lock = 13, .action = Run<&Form1::AlternarMemoriaRostros>},
    KeyCommand{.code = 'P', .masks = kCtrlAlt, .action = Run<&Form1::AlternarPanico>},
    KeyCommand{.code = 'R',
               .masks = kCtrlShift,
               .condition = Shown<boton::kRetirar>,
               .lock = 17,
               .action = Run<&Form1::ReiniciarPuntos>},
    KeyCommand{.code = 'R',
               .masks = kCtrlAlt,
               .condition = LooksForTheFolder,
               .action = Run<&Form1::OlvidarServidor>},
    KeyCommand{.code = 'T', .masks = kCtrl, .log = "10", .lock = 1, .action = Run<&Form1::AbrirTarifas>},
    KeyCommand{.code = 'W', .masks = OneMask(kControl), .condition = CameraOn, .action = Connect<kControl>},
    KeyCommand{.code = 'W', .masks = OneMask(kAlt), .condition = CameraOn, .action = Connect<kAlt>},
    KeyCommand{.code = 'W', .masks = kShiftAlt, .log = "11", .action = Run<&Form1::ConfigurarCamara>},
    KeyCommand{
        .code = 'W', .masks = kCtrlAlt, .condition = CameraOn, .action = Run<&Form1::DesactivarCamara>},
    KeyCommand{.code = 'X', .masks = kCtrl, .action = TakeContinuously},
    KeyCommand{.code = kF1, .masks = kCtrl, .action = Edit<archivo::kAyuda>},
    KeyCommand{.code = kF1, .masks = kPlain, .button = boton::kUltimosEnIngresar},
    KeyCommand{.code = kF2, .button = boton::kTiempoDePermanencia},
    KeyCommand{.code = kF3, .button = boton::kUltimosEnSalir},
    KeyCommand{.code = kF4, .button = boton::kImprimir},
    KeyCommand{.code = kF5, .button = boton::kBuscar},
    KeyCommand{.code = kF7, .button = boton::kExtras},
    KeyCommand{.code = kF8, .button = boton::kMenu},
    KeyCommand{.code = kF9, .log = "12", .action = Run<&Form1::AbrirBloqueo>},
    KeyCommand{.code = kF10, .condition = BarsAreRed, .action = Edit<archivo::kServidor>},
    KeyCommand{.code = kF12, .action = Run<&Form1::ImgPanico_Click>},
};

template <void (Form1::*operation)()>
void Do(Form1& form) {
  (form.*operation)();
}
template <boton::Index monitor>
void Switch(Form1& form) {
  form.CambiarMonitor(monitor);
}

void ConnectCamera(Form1& form) {
  if (CameraOn(form, 0)) {
    form.Form_KeyDown('W', kControl);
  } else {
    form.Devices().screen.Beep();
  }
  form.FocoPrimerCampo();
}

void Retire(Form1& form) {
  // First: while the copy of an invoice waits, the next ficha is typed.
  form.FocoDondeSeEscribe();
  if (form.ShpCelda.Visible) {
    form.RetirarFicha();
  } else {
    form.Devices().screen.Beep();
  }
}

constexpr std::array kButtons = {
    ButtonCommand{.tooltip = "<CTRL+W> Conectar/Cambiar Cámara Web",
                  .answering = Answering::kClick,
                  .action = ConnectCamera},
    ButtonCommand{.tooltip = "<REPAG> Retroceder Página",
                  .answering = Answering::kClick,
                  .action = Do<&Form1::RetrocederPagina>},
    ButtonCommand{.tooltip = "<AVPAG> Avanzar Página",
                  .answering = Answering::kClick,
                  .action = Do<&Form1::AvanzarPagina>},
    ButtonCommand{
        .tooltip = "<F4> Imprimir Estado/Búsqueda/Ficha", .lock = 6, .action = Do<&Form1::ImprimirRegistros>},
    ButtonCommand{.tooltip = "<F5> Activar Búsqueda de Registros",
                  .tooltipPressed = "<F5> Desactivar Búsqueda de Registros",
                  .lock = 7,
                  .action = Do<&Form1::AlternarBusqueda>},
    ButtonCommand{.tooltip = "<INSERT> Guardar Ficha", .action = [](Form1& form) { form.GuardarFicha(); }},
    ButtonCommand{.tooltip = "<SUPR> Retirar Ficha", .action = Retire},
    ButtonCommand{.tooltip = "<F1> Activar Monitor \"ULTIMOS EN INGRESAR\"",
                  .tooltipPressed = "<F1> Desactivar Monitor \"ULTIMOS EN INGRESAR\"",
                  .answering = Answering::kVoice,
                  .action = Switch<boton::kUltimosEnIngresar>},
    ButtonCommand{.tooltip = "<F2> Activar Monitor \"TIEMPO DE PERMANENCIA\"",
                  .tooltipPressed = "<F2> Desactivar Monitor \"TIEMPO DE PERMANENCIA\"",
                  .answering = Answering::kVoice,
                  .action = Switch<boton::kTiempoDePermanencia>},
    ButtonCommand{.tooltip = "<F3> Activar Monitor \"ULTIMOS EN SALIR\"",
                  .tooltipPressed = "<F3> Desactivar Monitor \"ULTIMOS EN SALIR\"",
                  .answering = Answering::kVoice,
                  .action = Switch<boton::kUltimosEnSalir>},
    ButtonCommand{.tooltip = "Activar Impresión de Tiquetes",
                  .tooltipPressed = "Desactivar Impresión de Tiquetes",
                  .log = "7",
                  .lock = 8,
                  .lockToSwitchOff = 14,
                  .action = Do<&Form1::AlternarTiquetes>},
    ButtonCommand{.tooltip = "<ESC> Cancelar/Limpiar Campos", .action = [](Form1& form) { form.Cancelar(); }},
    ButtonCommand{.tooltip = "<F7> Registrar Extras", .lock = 10, .action = Do<&Form1::AbrirExtras>},
    ButtonCommand{.tooltip = "<F8> Abrir Menú de Funciones",
                  .answering = Answering::kClick,
                  .action = Do<&Form1::AbrirMenu>},
    ButtonCommand{.tooltip = "Activar Impresión de Facturas",
                  .tooltipPressed = "Desactivar Impresión de Facturas",
                  .log = "8",
                  .lock = 9,
                  .action = Do<&Form1::AlternarFacturas>},
};
static_assert(kButtons.size() == boton::kCount);

constexpr std::array kGuarded = {
    GuardedOperation{.operation = "ImgCambiarFondo_Click", .lock = bloqueo::kFondo},
    GuardedOperation{.operation = "AbrirEtiqueta", .lock = bloqueo::kEtiquetas},
    GuardedOperation{.operation = "ChkFactura_Click", .lock = bloqueo::kFacturas},
};

}  // namespace

void DoNothing(Form1& /*form*/, int /*code*/) {}

std::span<const KeyCommand> KeyCommands() {
  return kKeys;
}

std::span<const ButtonCommand> ButtonCommands() {
  return kButtons;
}

std::span<const GuardedOperation> GuardedOperations() {
  return kGuarded;
}

String ToolTipOf(const PictureBox& button, boton::Index index) {
  const ButtonCommand& row = kButtons[index];
  return String::FromUtf8(IsPressed(button) ? row.tooltipPressed : row.tooltip);
}

const KeyCommand* FindKeyCommand(const Form1& form, int code, int mask) {
  if (mask < 0 || mask > kAllMasks) return nullptr;
  for (const KeyCommand& row : kKeys) {
    const bool matches = code >= row.code && code <= row.lastCode && (row.masks & OneMask(mask)) != 0;
    if (matches && (row.condition == nullptr || row.condition(form, code))) return &row;
  }
  return nullptr;
}

}  // namespace vintoral
