// What the two dialogs share in which the formats of tickets and invoices are edited: printer, size, header,
// footer, the fields that are printed, a preview between header and footer, and a sample on paper.
#pragma once

#include <array>
#include <cstddef>

#include "platform/PrintDocument.h"
#include "station/form1/Impresos.h"
#include "station/forms/Form.h"

namespace vintoral {

class Form1;

class EditorFormato : public Form {
 public:
  enum { kEncabezado, kVista, kPie };       ///< TxtEtiqueta
  enum { kMarcoFormato, kMarcoImpresora };  ///< FraCheck

  ComboBox CboImpresora, CboDimFuente;
  Label LblDimFuente;
  std::array<TextBox, 3> TxtEtiqueta;   ///< the preview can't be edited
  std::array<CheckBox, 5> ChkEtiqueta;  ///< element 0 is ChkEtiqueta(1), of the plate
  std::array<Frame, 2> FraCheck;
  CommandButton PctBoton;   ///< saves
  CommandButton CmdPrueba;  ///< prints a sample of what stands in the form
  PictureBox PctSeleccion;  ///< marks the save button under the pointer
  Label LblFondo;

  /// Which of the fields 1 to 5 are ticked.
  std::array<bool, 5> CamposMarcados() const;
  bool Form_KeyDown(int KeyCode, int Shift) override;
  void Form_MouseMove() override;

 protected:
  /// `ayuda`: what the save button does.
  EditorFormato(std::string name, Form1& station, String ayuda);

  /// Puts the form's own controls, which were added meanwhile, under the same rules. The focus goes to the
  /// save button: whoever only switches printing on presses Enter.
  void Conectar();
  /// The printers, and what both formats keep of their printer and their texts.
  void MostrarComunes(std::string_view impresora, double tamano, std::string_view encabezado,
                      std::string_view pie);
  /// The size that is written in the form.
  float Tamano() const;
  /// The five field lines of the preview.
  String LineasDeCampos() const;
  /// The fields of a sample.
  std::array<CampoImpreso, 5> CamposDePrueba() const;
  /// Puts a tick box's click to lead back to the save button.
  void VolverAlBoton(CheckBox& tick);

  /// What the save button does, before the form goes.
  virtual void Guardar() = 0;
  virtual PrintDocument Prueba() const = 0;

  Form1& station_;

  /// What stands for a value in previews and samples.
  static String Muestra();

 private:
  void LlenarListas();
  const String ayuda_;
};

}  // namespace vintoral
