#include <memory>

#include "reports/form2/Form2.h"
#include "station/form1/Form1.h"
#include "station/form1/Sonidos.h"

namespace vintoral {

void Form1::AlternarBusqueda() {
  if (Form2 != nullptr) return OpenForms.Unload(*Form2);
  MidiWav(voz::kBusquedaActivada);
  OpenForms.Show(OpenForms.Load(std::make_unique<class Form2>(*this)));
}

}  // namespace vintoral
