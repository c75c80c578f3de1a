#include "common/Numbers.h"
#include "station/form1/Form1.h"

namespace vintoral {

void Form1::CambiarFormato(boton::Index interruptor) {
  PctBoton[interruptor].Tag = Digits(kSoloFormato);
  PctBoton_Click(static_cast<int>(interruptor));
  PctBoton[interruptor].Tag = "0"_w;
}

}  // namespace vintoral
