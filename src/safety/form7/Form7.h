// The keypad of the lock. Where there is a password it comes up as a prompt for it, and only whoever knows it
// sees the panel: the functions that can be locked, and the change of the password.
#pragma once

#include <array>
#include <cstddef>

#include "station/forms/Form.h"

namespace vintoral {

class Form1;

class Form7 : public Form {
 public:
  /// What the title bar of the panel and that of the prompt read, in UTF-8.
  static constexpr const char* kTitulo = "Vintoral  -  Bloquear Funciones con Contraseña";
  static constexpr const char* kTituloAcceso = "Vintoral  -  Acceso";
  static constexpr std::size_t kLargoClave = 5;
  static constexpr Color kPestanaActiva = 0xC0C0FF, kOtraPestana = 0xC0FFC0;

  enum { kCancelar = 10, kConfirmar = 11, kBotones = 12 };  ///< ImgBoton; the others are the digits
  enum { kBloquear, kCambiar };                             ///< LblFuncion

  /// Loaded by the station alone, which then knows it.
  explicit Form7(Form1& station);

  std::array<Image, kBotones> ImgBoton;
  /// Which digits were pressed, in their order, by their captions; the last one tells that all are there.
  std::array<Label, kLargoClave + 1> LblSeleccion;
  ListBox LstBloqueo;
  std::array<Label, 2> LblFuncion;
  Label LblTitulo;  ///< what the title bar reads: one of the two, and no label on the form

  /// The tab that locks functions is active.
  bool Bloqueando() const { return LblFuncion[kBloquear].BackColor == kPestanaActiva; }

  void LimpiarTeclado();
  void MostrarBloqueos();  ///< FuncionesBloqueadas into the rows
  void GuardarBloqueos();  ///< and back, a digit for each row

  /// Digits come as characters, whatever key makes them; all that is no digit, Enter or Esc is refused.
  bool Form_KeyDown(int KeyCode, int Shift) override;
  bool Form_KeyPress(char character) override;
  void CloseBox(Forms& forms) override;
  void Form_Unload() override;

 private:
  void Disenar();
  /// The face of the prompt, or that of the panel.
  void MostrarModo();
  void Conectar();
  void LblFuncion_Click(std::size_t pestana);
  void ImgBoton_Click(std::size_t digito);
  void Confirmar();
  void ConfirmarAcceso();
  void ConfirmarBloqueos();
  void ConfirmarClave();
  void Negar();
  /// Out, by Esc or the close box: functions that were opened by the password are locked again.
  void Salir();
  void Descargar();
  void Decir(const String& titulo, const String& texto, Icon icono);

  Form1& station_;
  String claveDigitada_;
  bool panel_;  ///< as opposed to the prompt
};

}  // namespace vintoral
