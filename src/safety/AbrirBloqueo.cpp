#include <memory>

#include "safety/form7/Form7.h"
#include "station/form1/Form1.h"

namespace vintoral {

void Form1::AbrirBloqueo() {
  if (Form7 == nullptr) OpenForms.Load(std::make_unique<class Form7>(*this));
  OpenForms.ShowModal(*Form7);
}

}  // namespace vintoral
