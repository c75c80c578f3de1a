#include "common/Numbers.h"
#include "records/Monitores.h"
#include "station/form1/Form1.h"
#include "station/form1/Sonidos.h"

namespace vintoral {

void Form1::ImgFicha_Click(int cell) {
  const std::int32_t row = InicioPagina + cell;
  if (row > TotalVista() || FichaEnCurso()) return Cancelar();
  const std::int64_t numero = LeadingInteger(Trim(LblCampo[0].Caption));
  const bool dentro = EstaDentro(VistaFichas[static_cast<std::size_t>(row - 1)]);
  if (!dentro || !HayPuesto(numero)) return PctBoton_Click(static_cast<int>(boton::kImprimir));
  MidiWav(sonido::kCelda);
  SalirDeCelda();
  TxtCampo[0].SetText(Digits(numero));
  AvanzarCampo(0);
}

}  // namespace vintoral
