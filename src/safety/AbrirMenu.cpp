#include <memory>

#include "safety/form5/Form5.h"
#include "station/form1/Form1.h"

namespace vintoral {

void Form1::AbrirMenu() {
  OpenForms.ShowModal(OpenForms.Load(std::make_unique<class Form5>(*this)));
}

}  // namespace vintoral
