#include <memory>

#include "sales/form4/Form4.h"
#include "station/form1/Form1.h"

namespace vintoral {

void Form1::AbrirExtras() {
  class Form4& dialog = OpenForms.Load(std::make_unique<class Form4>(*this));
  CargarArticulosExtras();
  OpenForms.ShowModal(dialog);
  EntregarCopias();
}

}  // namespace vintoral
