#include "station/form1/Commands.h"

#include <array>

#include "station/form1/Form1.h"

namespace vintoral {
namespace {

constexpr int kShift = 1, kControl = 2, kAlt = 4;
constexpr MaskSet kNoMask = OneMask(0);
constexpr MaskSet kCtrl = OneMask(kControl);
constexpr MaskSet kCtrlAlt = OneMask(kControl | kAlt);
constexpr MaskSet kCtrlShift = OneMask(kControl | kShift);
constexpr MaskSet kShiftAlt = OneMask(kShift | kAlt);
constexpr MaskSet kCtrlOrAlt = OneMask(kControl) | OneMask(kAlt);

using Condition = bool (*)(const Form1&, int);
using Action = void (*)(Form1&, int);
constexpr Condition kAlways = nullptr;
constexpr Action kNothing = nullptr;

template <int index>
constexpr Action kButton = [](Form1& form, int) { form.PctBoton_Click(index); };

constexpr Condition kCameraOn = [](const Form1& form, int) { return !form.ImgIndicador[4].Visible; };
constexpr Condition kPhotosOfFicha = [](const Form1& form, int) { return form.PctUsuario[0].Enabled; };
constexpr Condition kConnecting = [](const Form1& form, int) {
  return form.LblConexion[0].BackColor == kLightRed;
};

void Launch(Form1& form, const String& command) {
  form.Devices().system.Launch(command);
}

void SelectCategory(Form1& form, int code) {
  const int index = code == '0' ? 9 : code - '1';
  if (static_cast<std::size_t>(index) < form.CboTarifa[1].List().size()) form.CboTarifa[1].Select(index);
}

// clang-format off
constexpr std::array kKeys = {
    KeyCommand{27, 27, kAnyMask, kAlways, nullptr, 0, [](Form1& form, int) { form.LimpiarCampos(); }},
    KeyCommand{33, 33, kAnyMask, kAlways, nullptr, 0, kButton<1>},
    KeyCommand{34, 34, kAnyMask, kAlways, nullptr, 0, kButton<2>},
    KeyCommand{36, 36, kAnyMask, kAlways, nullptr, 0, kNothing},
    KeyCommand{37, 37, kAnyMask, kPhotosOfFicha, nullptr, 0, kNothing},
    KeyCommand{39, 39, kAnyMask, kPhotosOfFicha, nullptr, 0, kNothing},
    KeyCommand{45, 45, kAnyMask, [](const Form1& form, int) { return form.PctBoton[5].Visible; }, nullptr, 0, kButton<5>},
    KeyCommand{46, 46, kAnyMask, [](const Form1& form, int) { return form.PctBoton[6].Visible; }, nullptr, 0, kButton<6>},
    KeyCommand{'0', '9', kCtrl,
               [](const Form1& form, int code) { return code - 47 <= static_cast<int>(form.CboTarifa[1].List().size()); },
               nullptr, 0, SelectCategory},
    KeyCommand{'A', 'A', kCtrl, kCameraOn, nullptr, 0, kNothing},
    KeyCommand{'B', 'B', kCtrl,
               [](const Form1& form, int) { return form.Devices().disk.Exists("Fuentes\\Vintoral.ttf"); }, nullptr, 0,
               [](Form1& form, int) {
                 Launch(form, "Explorer.exe "_w + form.Devices().disk.CurrentFolder() + "\\Fuentes\\Vintoral.ttf"_w);
               }},
    KeyCommand{'B', 'B', kCtrlAlt, kAlways, "15", 14, [](Form1& form, int) { form.AlternarCodigoBarras(); }},
    KeyCommand{'C', 'C', kCtrl, kAlways, nullptr, 0, kNothing},
    KeyCommand{'F', 'F', kCtrl,
               [](const Form1& form, int) { return form.Devices().disk.Exists("Recursos\\Vintoral.HFC"); }, nullptr, 0,
               [](Form1& form, int) { Launch(form, "Notepad.exe Recursos\\Vintoral.HFC"_w); }},
    KeyCommand{'I', 'I', kCtrl, kAlways, nullptr, 0, [](Form1& form, int) { form.ImgCambiarFondo_Click(); }},
    KeyCommand{'I', 'I', kCtrlAlt, kAlways, nullptr, 0, [](Form1& form, int) { Launch(form, "Explorer.exe Fondos"_w); }},
    KeyCommand{'I', 'I', kCtrlShift, kAlways, nullptr, 0, kNothing},
    KeyCommand{'K', 'K', kCtrlAlt, kAlways, nullptr, 0, kNothing},
    KeyCommand{'L', 'L', kCtrlAlt, kAlways, nullptr, 0, kNothing},
    KeyCommand{'M', 'M', kCtrlAlt, kAlways, nullptr, 13, [](Form1& form, int) { form.AlternarMemoriaRostros(); }},
    KeyCommand{'P', 'P', kCtrlAlt, kAlways, nullptr, 0, kNothing},
    KeyCommand{'R', 'R', kCtrlShift, [](const Form1& form, int) { return form.PctBoton[6].Visible; }, nullptr, 17, kNothing},
    KeyCommand{'R', 'R', kCtrlAlt, [](const Form1& form, int) { return form.TmrConexion.Interval() == 3000; }, nullptr, 0,
               [](Form1& form, int) { form.OlvidarServidor(); }},
    KeyCommand{'T', 'T', kCtrl, kAlways, "10", 1, [](Form1& form, int) { form.AbrirTarifas(); }},
    KeyCommand{'W', 'W', kCtrlOrAlt, kCameraOn, nullptr, 0, kNothing},
    KeyCommand{'W', 'W', kShiftAlt, kAlways, "11", 0, kNothing},
    KeyCommand{'W', 'W', kCtrlAlt, kCameraOn, nullptr, 0, kNothing},
    KeyCommand{'X', 'X', kCtrl, kAlways, nullptr, 0, kNothing},
    KeyCommand{112, 112, kCtrl, kAlways, nullptr, 0,
               [](Form1& form, int) { Launch(form, "Notepad.exe Vintoral Léame.TXT"_w); }},
    KeyCommand{112, 112, kNoMask, kAlways, nullptr, 0, kButton<7>},
    KeyCommand{113, 113, kAnyMask, kAlways, nullptr, 0, kButton<8>},
    KeyCommand{114, 114, kAnyMask, kAlways, nullptr, 0, kButton<9>},
    KeyCommand{115, 115, kAnyMask, kAlways, nullptr, 0, kButton<3>},
    KeyCommand{116, 116, kAnyMask, kAlways, nullptr, 0, kButton<4>},
    KeyCommand{118, 118, kAnyMask, kAlways, nullptr, 0, kButton<12>},
    KeyCommand{119, 119, kAnyMask, kAlways, nullptr, 0, kButton<13>},
    KeyCommand{120, 120, kAnyMask, kAlways, "12", 0, kNothing},
    KeyCommand{121, 121, kAnyMask, kConnecting, nullptr, 0,
               [](Form1& form, int) { Launch(form, "Notepad.exe Objetos\\Servidor.INI"_w); }},
    KeyCommand{123, 123, kAnyMask, kAlways, nullptr, 0, kNothing},
};

constexpr std::array kButtons = {
    ButtonCommand{"<CTRL+W> Conectar/Cambiar Cámara Web", "<CTRL+W> Conectar/Cambiar Cámara Web", Answering::kClick,
                  nullptr, 0, 0,
                  [](Form1& form) {
                    if (form.ImgIndicador[4].Visible) {
                      form.Devices().screen.Beep();
                    } else {
                      form.Form_KeyDown('W', kControl);
                    }
                    form.FocoPrimerCampo();
                  }},
    ButtonCommand{"<REPAG> Retroceder Página", "<REPAG> Retroceder Página", Answering::kClick, nullptr, 0, 0, nullptr},
    ButtonCommand{"<AVPAG> Avanzar Página", "<AVPAG> Avanzar Página", Answering::kClick, nullptr, 0, 0, nullptr},
    ButtonCommand{"<F4> Imprimir Estado/Búsqueda/Ficha", "<F4> Imprimir Estado/Búsqueda/Ficha", Answering::kSilent,
                  nullptr, 6, 0, nullptr},
    ButtonCommand{"<F5> Activar Búsqueda de Registros", "<F5> Desactivar Búsqueda de Registros", Answering::kSilent,
                  nullptr, 7, 0, nullptr},
    ButtonCommand{"<INSERT> Guardar Ficha", "<INSERT> Guardar Ficha", Answering::kSilent, nullptr, 0, 0,
                  [](Form1& form) { form.GuardarFicha(); }},
    ButtonCommand{"<SUPR> Retirar Ficha", "<SUPR> Retirar Ficha", Answering::kSilent, nullptr, 0, 0,
                  [](Form1& form) {
                    if (form.ShpCelda.Visible) {
                      form.RetirarFicha();
                    } else {
                      form.Devices().screen.Beep();
                    }
                    form.FocoDondeSeEscribe();
                  }},
    ButtonCommand{"<F1> Activar Monitor \"ULTIMOS EN INGRESAR\"", "<F1> Desactivar Monitor \"ULTIMOS EN INGRESAR\"",
                  Answering::kVoice, nullptr, 0, 0, nullptr},
    ButtonCommand{"<F2> Activar Monitor \"TIEMPO DE PERMANENCIA\"",
                  "<F2> Desactivar Monitor \"TIEMPO DE PERMANENCIA\"", Answering::kVoice, nullptr, 0, 0, nullptr},
    ButtonCommand{"<F3> Activar Monitor \"ULTIMOS EN SALIR\"", "<F3> Desactivar Monitor \"ULTIMOS EN SALIR\"",
                  Answering::kVoice, nullptr, 0, 0, nullptr},
    ButtonCommand{"Activar Impresión de Tiquetes", "Desactivar Impresión de Tiquetes", Answering::kSilent, "7", 8, 14,
                  nullptr},
    ButtonCommand{"<ESC> Cancelar/Limpiar Campos", "<ESC> Cancelar/Limpiar Campos", Answering::kSilent, nullptr, 0, 0,
                  [](Form1& form) { form.Form_KeyDown(27, 0); }},
    ButtonCommand{"<F7> Registrar Extras", "<F7> Registrar Extras", Answering::kSilent, nullptr, 10, 0, nullptr},
    ButtonCommand{"<F8> Abrir Menú de Funciones", "<F8> Abrir Menú de Funciones", Answering::kClick, nullptr, 0, 0,
                  nullptr},
    ButtonCommand{"Activar Impresión de Facturas", "Desactivar Impresión de Facturas", Answering::kSilent, "8", 9, 0,
                  nullptr},
};
// clang-format on

}  // namespace

std::span<const KeyCommand> KeyCommands() {
  return kKeys;
}

std::span<const ButtonCommand> ButtonCommands() {
  return kButtons;
}

const KeyCommand* FindKeyCommand(const Form1& form, int code, int mask) {
  if (mask < 0 || mask > 7) return nullptr;
  for (const KeyCommand& row : kKeys) {
    const bool matches = code >= row.code && code <= row.lastCode && (row.masks & OneMask(mask)) != 0;
    if (matches && (row.condition == nullptr || row.condition(form, code))) return &row;
  }
  return nullptr;
}

}  // namespace vintoral
