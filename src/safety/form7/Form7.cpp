#include "safety/form7/Form7.h"

#include <algorithm>

#include "common/Numbers.h"
#include "station/form1/Bloqueos.h"
#include "station/form1/Form1.h"
#include "station/form1/Funciones.h"
#include "station/form1/Sonidos.h"
#include "station/forms/Keys.h"

namespace vintoral {
namespace {

constexpr std::size_t kDigitos = 10;

/// By position.
const std::array<String, bloqueo::kUltima> kFilas = {
    "Abrir Generador de Tarifas"_w,   "Abrir Registro Historial"_w,
    "Abrir Registro Extras"_w,        "Abrir Registro Detalle Extras"_w,
    "Reiniciar Historial y Extras"_w, "Botón Imprimir Registros/Ficha"_w,
    "Botón Búsqueda de Registros"_w,  "Botón Impresión de Tiquetes"_w,
    "Botón Impresión de Facturas"_w,  "Botón Registrar Extras"_w,
    "Cambiar Imagen de Fondo"_w,      "Cambiar Nombre de Etiqueta"_w,
    "Memoria de Rostros"_w,           "Código de Barras Code39"_w,
    "Abrir Registro Nuevos"_w,        "Abrir Registro Puntos"_w,
    "Reiniciar Total Puntos"_w};

/// Keys of which a character may come; it is judged when it does.
bool MayType(int code, int mask) {
  constexpr int kNamedKeys = '0';  // the virtual keys below are none of letters, digits and marks
  constexpr int kModifiers = 16, kLastModifier = 18, kLastNumpad = 111, kMarks = 186;
  if (code == 0 || (code >= kModifiers && code <= kLastModifier)) return true;
  if ((mask & (keys::kControl | keys::kAlt)) != 0) return false;
  return (code >= kNamedKeys && code <= 'Z') || (code >= keys::kNumpad0 && code <= kLastNumpad) ||
         code >= kMarks;
}

}  // namespace

Form7::Form7(Form1& station) : Form("Form7"), station_(station), panel_(station.ContraseñaActual.Empty()) {
  station_.Form7 = this;
  Disenar();
  Conectar();
  LimpiarTeclado();
}

void Form7::Disenar() {
  Add(ImgBoton, "ImgBoton");
  Add(LblSeleccion, "LblSeleccion");
  Add(LstBloqueo, "LstBloqueo");
  Add(LblFuncion, "LblFuncion");
  Add(LblTitulo, "LblTitulo");
  LblTitulo.Visible = false;
  for (std::size_t digit = 0; digit < kDigitos; ++digit)
    ImgBoton[digit].Caption = Digits(static_cast<std::int64_t>(digit));
  ImgBoton[kCancelar].ToolTipText = " Cancelar "_w;
  ImgBoton[kConfirmar].ToolTipText = " Confirmar "_w;
  LblFuncion[kBloquear].Caption = "Bloquear Funciones"_w;
  LblFuncion[kCambiar].Caption = "Cambiar Contraseña"_w;
  LstBloqueo.List.assign(kFilas.begin(), kFilas.end());
  LstBloqueo.Checked.assign(kFilas.size(), false);
  LstBloqueo.SeveralChoices = true;
  MostrarModo();
}

void Form7::MostrarModo() {
  LblTitulo.Caption = String::FromUtf8(panel_ ? kTitulo : kTituloAcceso);
  LstBloqueo.Visible = panel_;
  for (Label& tab : LblFuncion)
    tab.Visible = panel_;
}

void Form7::Conectar() {
  for (std::size_t digit = 0; digit < kDigitos; ++digit)
    ImgBoton[digit].OnClick = ImgBoton[digit].OnDoubleClick = [this, digit] { ImgBoton_Click(digit); };
  ImgBoton[kCancelar].OnClick = [this] { LimpiarTeclado(); };
  ImgBoton[kConfirmar].OnClick = [this] { Confirmar(); };
  LstBloqueo.OnTick = [this](std::size_t) { LblFuncion_Click(kBloquear); };
  for (std::size_t tab = 0; tab < LblFuncion.size(); ++tab)
    LblFuncion[tab].OnClick = [this, tab] { LblFuncion_Click(tab); };
}

void Form7::LimpiarTeclado() {
  for (Label& mark : LblSeleccion) {
    mark.Visible = false;
    mark.Caption = {};
  }
  LblSeleccion[kLargoClave].Visible = panel_;
  for (std::size_t digit = 0; panel_ && digit < kDigitos; ++digit)
    ImgBoton[digit].Enabled = false;
  claveDigitada_ = {};
  LblFuncion_Click(kBloquear);
}

void Form7::LblFuncion_Click(std::size_t pestana) {
  for (std::size_t tab = 0; tab < LblFuncion.size(); ++tab)
    LblFuncion[tab].BackColor = tab == pestana ? kPestanaActiva : kOtraPestana;
  if (pestana == kBloquear) return;
  Decir(
      "Vintoral - Nueva Contraseña"_w,
      "Por favor ingrese la nueva contraseña de 5 dígitos seguido del botón de confirmación derecho.\r\nPresione la tecla ESC para cancelar la operación."_w,
      Icon::kInformation);
  for (std::size_t digit = 0; digit < kDigitos; ++digit)
    ImgBoton[digit].Enabled = true;
}

void Form7::ImgBoton_Click(std::size_t digito) {
  if (claveDigitada_.Size() >= kLargoClave) return;
  const String digit = Digits(static_cast<std::int64_t>(digito));
  if (panel_) {
    Label& mark = LblSeleccion[claveDigitada_.Size()];
    mark.Caption = digit;
    mark.Visible = true;
  }
  claveDigitada_ += digit;
  if (claveDigitada_.Size() == kLargoClave) LblSeleccion[kLargoClave].Visible = true;
  station_.MidiWav(sonido::kClic);
}

void Form7::MostrarBloqueos() {
  for (std::size_t row = 0; row < LstBloqueo.Checked.size(); ++row)
    LstBloqueo.Checked[row] = Mid(station_.FuncionesBloqueadas, row + 1, 1) == String(1, bloqueo::kBloqueada);
}

void Form7::GuardarBloqueos() {
  String functions;
  for (const bool locked : LstBloqueo.Checked)
    functions += String(1, locked ? bloqueo::kBloqueada : bloqueo::kAbierta);
  station_.FuncionesBloqueadas = functions;
}

void Form7::Confirmar() {
  if (!panel_) return ConfirmarAcceso();
  if (Bloqueando()) ConfirmarBloqueos();
  // With no password yet the first step has led here.
  if (!Bloqueando() && claveDigitada_.Size() == kLargoClave) ConfirmarClave();
}

void Form7::ConfirmarAcceso() {
  if (claveDigitada_ != station_.ContraseñaActual) return Negar();
  const bool opens = bloqueo::HayBloqueadas(station_.FuncionesBloqueadas);
  if (opens) station_.OpenForms.Hide(*this);
  panel_ = true;
  MostrarModo();
  MostrarBloqueos();
  LimpiarTeclado();
  station_.ImgIndicador[indicador::kBloqueo].Visible = false;
  if (!opens) return;
  station_.RegistrarHoraTrabajo(funcion::kDesactivarContrasena);
  Decir("Vintoral - Acceso Permitido"_w,
        "Todas las funciones seleccionadas previamente han sido desbloqueadas."_w, Icon::kExclamation);
}

void Form7::Negar() {
  station_.OpenForms.Hide(*this);
  LimpiarTeclado();
  Decir("Vintoral - Acceso Denegado"_w, "La contraseña no es valida."_w, Icon::kExclamation);
  Descargar();
}

void Form7::ConfirmarBloqueos() {
  GuardarBloqueos();
  const bool locks = bloqueo::HayBloqueadas(station_.FuncionesBloqueadas);
  if (locks && station_.ContraseñaActual.Empty()) return LblFuncion_Click(kCambiar);
  station_.CopiarContraseña();
  if (locks)
    Decir("Vintoral - ADVERTENCIA"_w,
          "Las funciones seleccionadas han sido bloqueadas con su contraseña actual."_w, Icon::kExclamation);
  Descargar();
}

void Form7::ConfirmarClave() {
  station_.ContraseñaActual = claveDigitada_;
  station_.CopiarContraseña();
  Decir("Vintoral - Nueva Contraseña"_w, "La contraseña ha sido cambiada."_w, Icon::kInformation);
  LimpiarTeclado();
}

void Form7::Salir() {
  const bool open = panel_ && !station_.ImgIndicador[indicador::kBloqueo].Visible &&
                    !station_.ContraseñaActual.Empty() &&
                    bloqueo::HayBloqueadas(station_.FuncionesBloqueadas);
  if (!open) return Descargar();
  LblFuncion_Click(kBloquear);
  ConfirmarBloqueos();
}

void Form7::Descargar() {
  station_.OpenForms.Unload(*this);
}

void Form7::Decir(const String& titulo, const String& texto, Icon icono) {
  station_.Devices().screen.Show({titulo, texto, icono, {Answer::kOk}, Answer::kOk});
}

bool Form7::Form_KeyDown(int KeyCode, int Shift) {
  if (KeyCode == keys::kEscape) {
    claveDigitada_.Empty() ? Salir() : LimpiarTeclado();
    return true;
  }
  if (KeyCode == keys::kEnter) {
    Confirmar();
    return true;
  }
  if (MayType(KeyCode, Shift)) return false;
  station_.Devices().screen.Beep();
  return true;
}

bool Form7::Form_KeyPress(char character) {
  if (character == keys::kEnter) {  // of a face that tells characters alone
    Confirmar();
    return true;
  }
  if (character < '0' || character > '9') {
    station_.Devices().screen.Beep();
  } else if (const auto digit = static_cast<std::size_t>(character - '0'); ImgBoton[digit].Enabled) {
    ImgBoton_Click(digit);
  }
  return true;
}

void Form7::CloseBox(Forms& /*forms*/) {
  Salir();
}

void Form7::Form_Unload() {
  station_.Form7 = nullptr;
}

}  // namespace vintoral
