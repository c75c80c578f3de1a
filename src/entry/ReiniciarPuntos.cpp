#include "station/form1/Form1.h"
#include "station/form1/Sonidos.h"

namespace vintoral {

void Form1::ReiniciarPuntos() {
  if (PuntosAcumulados + PuntosEstadia < 1) return;
  const bool confirmado =
      Preguntar("Vintoral - Reiniciar Total Puntos"_w,
                "¿Desea realmente reiniciar los puntos acumulados de la ficha actual?"_w, Answer::kNo);
  // A ficha that was forgotten under the question went back to idle.
  if (!confirmado || !PctBoton[boton::kRetirar].Visible) return;
  ImgPuntos.Tag = "1"_w;  // nothing more is earned on this display
  ImgPuntos.Visible = false;
  PuntosAcumulados = PuntosEstadia = 0;
  LblPuntos[1].Caption = "0"_w;
  MidiWav(sonido::kOlvidada);
}

}  // namespace vintoral
