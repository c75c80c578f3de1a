#include "station/form1/Form1.h"
#include "station/form1/Sonidos.h"

namespace vintoral {

void Form1::AlternarMemoriaRostros() {
  Image& sign = ImgIndicador[indicador::kMemoriaRostros];
  sign.Visible = !sign.Visible;
  MidiWav(sign.Visible ? voz::kRostrosActivados : voz::kRostrosDesactivados);
}

}  // namespace vintoral
