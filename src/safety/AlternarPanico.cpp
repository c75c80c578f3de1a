#include <memory>

#include "safety/form9/Form9.h"
#include "station/form1/Form1.h"
#include "station/form1/Sonidos.h"

namespace vintoral {

void Form1::AlternarPanico() {
  if (!ImgPanico.Visible) {
    MidiWav(sonido::kClic);
    return OpenForms.ShowModal(OpenForms.Load(std::make_unique<class Form9>(*this)));
  }
  if (!Preguntar("Vintoral - Botón del Pánico"_w,
                 "¿Desea realmente desactivar el envío de mensajes de alerta?"_w, Answer::kNo))
    return;
  ImgPanico.Visible = false;
  GuardarMarcas();  // a power cut must not arm it again, as it must not disarm it
}

}  // namespace vintoral
