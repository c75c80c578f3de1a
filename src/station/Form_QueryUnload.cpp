#include "station/form1/Form1.h"

namespace vintoral {

bool Form1::Form_QueryUnload() {
  if (TotalFichas <= 0) return true;
  if (!Preguntar("Vintoral - Cerrar Aplicación"_w, "¿Desea realmente salir del programa?"_w, Answer::kNo))
    return false;
  TotalFichas = 0;
  return true;
}

}  // namespace vintoral
