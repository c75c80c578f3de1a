// The tariff dialog: the three tables as plain text, one behind each tab, and the currency symbol. What the
// operator types goes into the tables and their files with GUARDAR, and nowhere with CANCELAR.
#pragma once

#include <array>
#include <cstddef>

#include "station/forms/Form.h"

namespace vintoral {

class Form1;

class Form6 : public Form {
 public:
  static constexpr Color kActiveTab = 0xC0C0FF, kOtherTab = 0xC0FFC0;
  enum { kCancelar, kGuardar };                   ///< CmdFuncion
  enum { kTiempos, kExtras, kPrepago, kMoneda };  ///< LblFuncion; the first three are TxtTarifas too

  /// With the station's tables in its boxes. A box whose text has changed since has the tag 1.
  explicit Form6(Form1& station);

  std::array<Label, 4> LblFuncion;
  std::array<TextBox, 3> TxtTarifas;  ///< CR LF between the lines
  Chart PctCurva;                     ///< the value of the first day in the category where the caret stands
  TextBox TxtMoneda;
  std::array<CommandButton, 2> CmdFuncion;
  Label LblEjemplo;

  void LblFuncion_Click(std::size_t tab);
  bool Form_KeyDown(int KeyCode, int Shift) override;
  void Form_Unload() override;

 private:
  void Design();
  void Connect();
  void Guardar();
  /// The operator has changed the text of a tab.
  void Cambiado(std::size_t tab);
  /// Marks the lines of a tab that won't do what they seem to say.
  void Revisar(std::size_t tab);
  /// Draws the category where the caret stands; nothing to do while it stands in the same one.
  void MostrarCurva();

  Form1& station_;
  /// The curve that is shown is of the text as it stands.
  bool curvaVigente_ = false;
};

}  // namespace vintoral
