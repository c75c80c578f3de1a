// The dialog of the ticket format. What stands in it counts when it is saved, and saving it switches tickets
// on.
#pragma once

#include "records/RegistroTiquete.h"
#include "reports/EditorFormato.h"

namespace vintoral {

class Form3 : public EditorFormato {
 public:
  /// What its title bar reads, in UTF-8.
  static constexpr const char* kTitulo = "Vintoral  -  Impresión de Tiquetes";

  explicit Form3(Form1& station);

  CheckBox ChkFoto;
  PictureBox PctFoto;  ///< a photo as it will stand on the ticket

  /// What stands in the form.
  RegistroTiquete Formato() const;
  void Form_Unload() override;

 protected:
  void Guardar() override;
  PrintDocument Prueba() const override;

 private:
  void Nombrar();
  void Mostrar();
  String Vista() const;
};

}  // namespace vintoral
