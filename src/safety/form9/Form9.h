// The dialog of the panic alert: what the mail says and who gets it. Its button keeps that and arms the
// alert; every other way out leaves all as it was.
#pragma once

#include <array>
#include <cstddef>

#include "records/Piezas.h"
#include "station/forms/Form.h"

namespace vintoral {

class Form1;

class Form9 : public Form {
 public:
  /// What its title bar reads, in UTF-8.
  static constexpr const char* kTitulo = "Vintoral  -  Botón del Pánico";
  enum { kAsunto, kMensaje, kPrimerCorreo };  ///< TxtCall, and DatosCall of the station

  /// With the values of the station.
  explicit Form9(Form1& station);

  std::array<Label, kValoresEnPiezas> LblCall;
  std::array<TextBox, kValoresEnPiezas> TxtCall;
  CommandButton CmdPanico;

  bool Form_KeyDown(int KeyCode, int Shift) override;
  void Form_Unload() override;

 private:
  void Nombrar();
  void Mostrar();
  void Conectar();
  Form1& station_;
};

}  // namespace vintoral
