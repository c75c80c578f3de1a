// The menu of functions: what the main screen does not show. Its rows do what their keys do.
#pragma once

#include <array>
#include <cstddef>

#include "station/forms/Form.h"

namespace vintoral {

class Form1;

class Form5 : public Form {
 public:
  /// What its title bar reads, in UTF-8.
  static constexpr const char* kTitulo = "Vintoral  -  Menú de Funciones";
  enum { kHistorial, kTurno, kExtras, kDetalle, kNuevos, kPuntos, kHorario, kBotones };  ///< CmdMenu

  /// With its rows as the functions stand now.
  explicit Form5(Form1& station);

  Label LblMenu;
  std::array<CommandButton, kBotones> CmdMenu;
  ListBox LstMenu;

  bool Form_KeyDown(int KeyCode, int Shift) override;
  void Form_Unload() override;

 private:
  /// The captions of the buttons, which follow the shift.
  void Rotular();
  void Llenar();
  void CmdMenu_Click(std::size_t boton);
  void LstMenu_Click();

  Form1& station_;
};

}  // namespace vintoral
