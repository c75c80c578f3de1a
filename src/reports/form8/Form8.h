// The dialog of the invoice format. What stands in it counts when it is saved, and saving it switches
// invoices on.
#pragma once

#include "records/RegistroFactura.h"
#include "reports/EditorFormato.h"

namespace vintoral {

class Form8 : public EditorFormato {
 public:
  /// What its title bar reads, in UTF-8.
  static constexpr const char* kTitulo = "Vintoral  -  Impresión de Facturas";
  enum { kEstadias, kExtras };  ///< TxtImpuesto

  explicit Form8(Form1& station);

  TextBox TxtPrefijo;
  /// The number that is saved; the next invoice has the one behind it.
  TextBox TxtNumEtiqueta;
  std::array<TextBox, 2> TxtImpuesto;  ///< percent
  CheckBox ChkPuntos, ChkCopia;

  /// What stands in the form.
  RegistroFactura Formato() const;
  void Form_Unload() override;

 protected:
  void Guardar() override;
  PrintDocument Prueba() const override;

 private:
  void Nombrar();
  void Mostrar();
  void MostrarFormato(const RegistroFactura& format);
  void MostrarPredeterminado();
  void LimitarTextos();
  String Vista() const;
};

}  // namespace vintoral
