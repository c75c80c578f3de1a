#include <algorithm>

#include "common/Numbers.h"
#include "station/form1/Form1.h"
#include "station/form1/Sonidos.h"

namespace vintoral {

void Form1::ImgContador_Click() {
  constexpr int kShown = 2000;              // milliseconds
  if (!LblInfo[4].Caption.Empty()) return;  // it is being told: the key is held down
  const String categoria = Trim((CboTarifa[1].Visible ? CboTarifa[1] : CboTarifa[0]).Text());
  const auto equal = [&](const RegistroFicha& ficha) {
    return EqualNoCase(ficha.Categoria.Trimmed(), categoria);
  };
  LblInfo[4].Caption = Digits(std::count_if(VistaFichas.begin(), VistaFichas.end(), equal));
  MidiWav(sonido::kContador);
  Esperar(kShown);
  LblInfo[4].Caption = {};
}

}  // namespace vintoral
