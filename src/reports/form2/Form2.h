// The search of records: its criteria, which stand beside the main screen while both are worked on.
#pragma once

#include <array>
#include <cstddef>

#include "station/forms/Form.h"

namespace vintoral {

class Form1;

class Form2 : public Form {
 public:
  /// What its title bar reads, in UTF-8.
  static constexpr const char* kTitulo = "Vintoral  -  Búsqueda de Registros";
  /// TxtCampo; the five data fields of a ficha stand behind the number.
  enum { kDesdeHora, kDesdeFecha, kHastaHora, kHastaFecha, kNumero, kDatos, kCampos = kDatos + 5 };
  enum { kIniciar, kLimpiar };  ///< PctBoton

  /// The main screen goes into its search mode: an empty grid, no monitor.
  explicit Form2(Form1& station);

  std::array<TextBox, kCampos> TxtCampo;
  /// LblEtiqueta; those of the number and of the data fields stand before them.
  enum { kDesde = 6, kHasta, kCategoria, kEtiquetas };
  std::array<Label, kEtiquetas> LblEtiqueta;
  ComboBox CboTarifa;
  CheckBox ChkFichas;
  std::array<CommandButton, 2> PctBoton;
  PictureBox PctSeleccion;  ///< marks the button under the pointer

  /// The operator asks for the search himself, just now; its page comes up without questions about slips.
  bool Pedida() const { return pedida_; }
  /// The operator has ended the search that is under way.
  void Interrumpir() { interrumpida_ = true; }

  bool Form_KeyDown(int KeyCode, int Shift) override;
  void Form_MouseMove() override;
  /// The main screen is as it was before: its monitor comes back.
  void Form_Unload() override;

 private:
  void Nombrar();
  void Conectar();
  void ConectarRaton();
  void ValoresIniciales();
  void Avanzar(std::size_t campo);
  void Iniciar();
  void Buscar();
  void Limpiar();

  Form1& station_;
  bool pedida_ = false;
  bool interrumpida_ = false;
  String minutos_;  ///< what the box of the monitors' minutes read before
};

}  // namespace vintoral
